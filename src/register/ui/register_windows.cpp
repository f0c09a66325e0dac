#include "register/ui/register_windows.h"

#include <QApplication>

#include "register/interface_link.h"
#include "register/ui/frmErrRegCassa.h"

DialoghiRegCassa::Scelta FinestreRegCassa::errore(const QString& descrizione, const QString& buffer) {
    QWidget* sotto = QApplication::activeModalWidget();
    if (sotto == nullptr) sotto = QApplication::activeWindow();
    frmErrRegCassa finestra(sotto != nullptr ? sotto : mGenitore);
    finestra.startMe(descrizione, buffer);
    return finestra.risultato();
}

void FinestreRegCassa::mostraMonitor() {
    if (!mMonitor) mMonitor = std::make_unique<frmRegCassa>(gFrmRegCassa());
    mMonitor->mostra();
}
