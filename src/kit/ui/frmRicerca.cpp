#include "kit/ui/frmRicerca.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScreen>

#include "data/gateway.h"
#include "kit/search.h"
#include "kit/ui/box_focus.h"
#include "kit/ui/campo_edit.h"
#include "kit/ui/search_grid.h"
#include "kit/ui/second_click.h"

namespace {

constexpr int durataNotizia = 2000;  // milliseconds
constexpr int riposoDigitazione = 180;
constexpr QSize misura{1160, 740};
constexpr int barraTitolo = 40;

// Shift alone, or a step to the next field, is no typing.
bool tastoDaScrivere(int tasto) {
    switch (tasto) {
        case Qt::Key_Shift:
        case Qt::Key_Control:
        case Qt::Key_Alt:
        case Qt::Key_AltGr:
        case Qt::Key_Meta:
        case Qt::Key_CapsLock:
        case Qt::Key_NumLock:
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            return false;
        default:
            return true;
    }
}

}  // namespace

frmRicerca::frmRicerca(OperatorPort& operatore, QWidget* padre) : QDialog(padre), mOperatore(operatore) {
    setObjectName("frmRicerca");
    setWindowTitle("Ricerca");
    setWindowFlag(Qt::WindowStaysOnTopHint);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    tmrNessuna.setSingleShot(true);
    connect(&tmrNessuna, &QTimer::timeout, this, [this] { mRicerca->pctNessuna.visibile(false); });
    mTimerDalVivo.setSingleShot(true);
    connect(&mTimerDalVivo, &QTimer::timeout, this, &frmRicerca::cercaDalVivo);
}

frmRicerca::~frmRicerca() {
    // The widgets show the rules' fields: they go before them.
    delete mContenuto;
}

void frmRicerca::startMe(RichiestaRicerca richiesta) {
    mRicerca = std::make_unique<Ricerca>(std::move(richiesta), mOperatore);
    mRicerca->osserva([this] { flxRicerca->nuovaPagina(); }, [this] { tmrNessuna.start(durataNotizia); });
    costruisci();
    if (mRicerca->pctNessuna.visibile()) tmrNessuna.start(durataNotizia);
    seguiFuoco(txtRicerca, mRicerca->casella);
    txtRicerca->installEventFilter(this);
    flxRicerca->installEventFilter(this);
    connect(txtRicerca, &QLineEdit::textChanged, &mTimerDalVivo,
            [this] { mTimerDalVivo.start(riposoDigitazione); });
    connect(flxRicerca, &GrigliaRicerca::rigaPremuta, this, &frmRicerca::rigaPremuta);
    connect(flxRicerca, &GrigliaRicerca::doppioClic, this, [this] {
        if (mRicerca->multi()) seleziona();
    });
    connect(flxRicerca, &GrigliaRicerca::colonnaPremuta, this,
            [this](int colonna) { comandoTesto([&] { mRicerca->scegliColonna(colonna); }); });
    resize(misura.boundedTo(screen()->availableSize() - QSize(0, barraTitolo)));
    flxRicerca->nuovaPagina();
    mostra();
    txtRicerca->setFocus();
    exec();
}

void frmRicerca::seleziona() {
    if (const auto scelti = mRicerca->cmdSelect()) return chiudi(*scelti);
    mostra();
}

void frmRicerca::chiudi(const QString& risultato) {
    mTimerDalVivo.stop();
    mRisultato = risultato;
    done(risultato.isEmpty() ? Rejected : Accepted);
}

// ---- What is shown

void frmRicerca::mostra() {
    flxRicerca->aggiorna();
    const QString quante = mRicerca->multi() ? "\n(" + QString::number(mRicerca->segnate()) + ")" : QString();
    cmdSelect->setText("SELEZIONA" + quante);
    pctNessuna->move(flxRicerca->geometry().center() - pctNessuna->rect().center());
    pctNessuna->raise();
}

void frmRicerca::cercaDalVivo() {
    if (gAdo.inTransazione()) return mTimerDalVivo.start();
    mRicerca->cercaDalVivo();
    mostra();
}

// What changes the question leaves the operator in the text, and is asked after the rest.
void frmRicerca::comandoTesto(const Azione& azione) {
    azione();
    txtRicerca->setFocus();
    mTimerDalVivo.start(riposoDigitazione);
    mostra();
}

// ---- Rows

void frmRicerca::freccia(bool giu) {
    if (flxRicerca->hasFocus()) {
        mRicerca->freccia(giu);
    } else if (mRicerca->righeDelTesto()) {
        flxRicerca->setFocus();
    }
    mostra();
}

void frmRicerca::rigaPremuta(int riga) {
    mRicerca->rigaCorrente(riga);
    if (!mRicerca->multi()) {
        ignoraSecondoClic();
        return chiudi(mRicerca->scelti());
    }
    mRicerca->segna(riga);
    flxRicerca->setFocus();
    mostra();
}

// ---- Keys

bool frmRicerca::eventFilter(QObject* oggetto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress) return tastoGiu(oggetto, *static_cast<QKeyEvent*>(evento));
    return QDialog::eventFilter(oggetto, evento);
}

bool frmRicerca::tastoGiu(QObject* dove, const QKeyEvent& tasto) {
    if (tasto.modifiers() == Qt::ControlModifier && tastoConCtrl(tasto.key())) return true;
    switch (tasto.key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
            freccia(tasto.key() == Qt::Key_Down);
            return true;
        case Qt::Key_PageUp:
            mRicerca->cmdSu();
            break;
        case Qt::Key_PageDown:
            mRicerca->cmdDown();
            break;
        case Qt::Key_F4:
            if (!tasto.isAutoRepeat()) comandoTesto([this] { mRicerca->cambiaOvunque(); });
            break;
        case Qt::Key_Escape:
            chiudi({});
            return true;
        default:
            return dove == flxRicerca && tastoInGriglia(tasto);
    }
    mostra();
    return true;
}

bool frmRicerca::tastoConCtrl(int tasto) {
    if (tasto >= Qt::Key_1 && tasto <= Qt::Key_9) {
        comandoTesto([&] { mRicerca->scegliColonna(tasto - Qt::Key_0 + 1); });
        return true;
    }
    if (tasto != Qt::Key_Left && tasto != Qt::Key_Right) return false;
    flxRicerca->scorri(tasto == Qt::Key_Right);
    txtRicerca->setFocus();
    return true;
}

bool frmRicerca::tastoInGriglia(const QKeyEvent& tasto) {
    switch (tasto.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            seleziona();
            return true;
        case Qt::Key_Space:
            mRicerca->segna(mRicerca->rigaCorrente());
            mostra();
            return true;
        default:
            break;
    }
    if (!tastoDaScrivere(tasto.key())) return false;
    // Typing goes on where it was.
    txtRicerca->setFocus();
    txtRicerca->end(false);
    const std::unique_ptr<QKeyEvent> copia(tasto.clone());
    QApplication::sendEvent(txtRicerca, copia.get());
    return true;
}
