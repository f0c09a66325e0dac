#include "register/ui/register_windows.h"

#include <QApplication>

#include "register/interface_link.h"
#include "register/ui/frmBuffer.h"
#include "register/ui/frmErrRegCassa.h"

DialoghiRegCassa::Scelta FinestreRegCassa::errore(const QString& descrizione, const QString& buffer) {
    QWidget* sotto = QApplication::activeModalWidget();
    if (sotto == nullptr) sotto = QApplication::activeWindow();
    // The form of the queue may come up over this very dialogue, and no window may stand over itself.
    if (const auto* buffer = qobject_cast<frmBuffer*>(sotto)) sotto = buffer->sotto();
    frmErrRegCassa finestra(sotto != nullptr ? sotto : mGenitore);
    finestra.startMe(descrizione, buffer);
    return finestra.risultato();
}

void FinestreRegCassa::mostraMonitor() {
    if (!mMonitor) mMonitor = std::make_unique<frmRegCassa>(gFrmRegCassa());
    mMonitor->mostra();
}
