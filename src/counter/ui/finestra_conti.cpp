#include "counter/ui/finestra_conti.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QStackedWidget>

#include "counter/ui/frmMain.h"
#include "counter/ui/scan_queue.h"

namespace {

constexpr qint64 sordita = 250;  // milliseconds

}  // namespace

FinestraConti::FinestraConti(const QString& titolo) : mPagine(new QStackedWidget(this)) {
    setObjectName("FinestraConti");
    setWindowTitle(titolo);
    auto* tutto = new QVBoxLayout(this);
    tutto->setContentsMargins(0, 0, 0, 0);
    tutto->addWidget(mPagine);
    mScansioni = new ScansioniInAttesa(*this);
}

// It looks at every event of the program, those of this window's end too.
FinestraConti::~FinestraConti() {
    delete mScansioni;
}

void FinestraConti::mostra(frmMain* pagina) {
    const bool cambia = davanti() != pagina;
    if (mPagine->indexOf(pagina) < 0) mPagine->addWidget(pagina);
    mPagine->setCurrentWidget(pagina);
    if (!isVisible()) showMaximized();
    raise();
    activateWindow();
    if (cambia) pagina->attivata();
}

void FinestraConti::togli(frmMain* pagina) {
    mPagine->removeWidget(pagina);
    pagina->hide();
    frmMain* altra = davanti();
    if (altra == nullptr) return;
    altra->attivata();
    assorda(Sordita::Tutto);
}

frmMain* FinestraConti::davanti() const {
    return qobject_cast<frmMain*>(mPagine->currentWidget());
}

void FinestraConti::richiama() {
    // Before the first account is open there may be a dialogue to answer, and no counter to show.
    if (davanti() == nullptr) {
        if (QWidget* dialogo = QApplication::activeModalWidget()) {
            dialogo->raise();
            dialogo->activateWindow();
        }
        return;
    }
    showMaximized();
    raise();
    activateWindow();
}

void FinestraConti::assorda(Sordita per) {
    mSordaPer = per;
    mSordaDa.start();
    mScansioni->raccogli();
}

bool FinestraConti::sorda() const {
    return mSordaDa.isValid() && mSordaDa.elapsed() < sordita;
}

void FinestraConti::closeEvent(QCloseEvent* evento) {
    evento->setAccepted(chiudiTuttiIConti());
}
