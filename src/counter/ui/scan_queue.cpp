#include "counter/ui/scan_queue.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>

#include "core/globals.h"
#include "counter/ui/finestra_conti.h"
#include "counter/ui/frmCodiceVenditore.h"
#include "counter/ui/frmMain.h"
#include "counter/ui/key_text.h"
#include "data/gateway.h"

namespace {

constexpr int intervallo = 20;      // milliseconds between two looks at whether the screen is free
constexpr int durataRaccolta = 20;  // milliseconds at most
// Behind its prefix a slow scanner is still one.
constexpr int passoConPrefisso = 200;
// Behind a longer pause a hand begins something new.
constexpr int pausaDellaMano = 600;

// The part of the box that is up that its keys go to, also while the focus has not come to it yet.
QWidget* bersaglio() {
    QWidget* riquadro = QApplication::activeModalWidget();
    if (riquadro == nullptr) return nullptr;
    QWidget* fuoco = QApplication::focusWidget();
    if (!riquadro->isAncestorOf(fuoco)) fuoco = riquadro->focusWidget();
    return fuoco == nullptr ? riquadro : fuoco;
}

// Whether the box that is up is being typed into: then only the prefix tells a scan.
bool siDigitaNelRiquadro() {
    return qobject_cast<QLineEdit*>(bersaglio()) != nullptr;
}

bool fineCodice(QChar carattere) {
    return carattere == u'\r' || carattere == u'\t';
}

// A dialogue that keeps the other windows from being used.
bool eRiquadro(const QObject& oggetto) {
    const auto* finestra = qobject_cast<const QWidget*>(&oggetto);
    return finestra != nullptr && finestra->isWindow() && finestra->isModal();
}

// A badge answers the dialogue that asks for the operator.
bool prendeIlDialogo(const QString& codice) {
    auto* dialogo = qobject_cast<frmCodiceVenditore*>(QApplication::activeModalWidget());
    return dialogo != nullptr && dialogo->scansione(codice);
}

}  // namespace

ScansioniInAttesa::ScansioniInAttesa(FinestraConti& finestra)
    : QObject(&finestra), mFinestra(finestra), mTastiInRitardo(finestra) {
    setObjectName("ScansioniInAttesa");
    mRiprova.setInterval(intervallo);
    connect(&mRiprova, &QTimer::timeout, this, &ScansioniInAttesa::riprova);
    mFinePrefisso.setSingleShot(true);
    mFinePrefisso.setInterval(passoConPrefisso);
    connect(&mFinePrefisso, &QTimer::timeout, this, &ScansioniInAttesa::finePrefisso);
    qApp->installEventFilter(this);
}

bool ScansioniInAttesa::eventFilter(QObject* oggetto, QEvent* evento) {
    if (evento == mNostro) return false;
    if (evento->type() == QEvent::Show && eRiquadro(*oggetto)) {
        raccogli();
        mRaccoglie = false;  // one that comes up while another is awaited is heard
        return false;
    }
    const QWidget* atteso = bersaglio();
    if (mRaccoglie || (atteso == nullptr && mFinestra.sordaDelTutto())) return raccolto(*evento);
    if (evento->type() != QEvent::KeyPress) return false;
    auto& premuto = *static_cast<QKeyEvent*>(evento);
    if (atteso == nullptr) return continua(premuto);
    // A key is looked at once, on its way to the widget that it is meant for.
    return oggetto == atteso && tasto(premuto);
}

void ScansioniInAttesa::raccogli() {
    const QScopedValueRollback raccoglie(mRaccoglie, true);
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers, durataRaccolta);
}

// Nothing that a hand did before the box reaches the screen behind it, nor what it did for a screen that has
// gone the one in its place.
bool ScansioniInAttesa::raccolto(QEvent& evento) {
    switch (evento.type()) {
        case QEvent::ShortcutOverride:
            evento.accept();  // a letter, and no command
            return true;
        case QEvent::KeyPress:
            inghiotti(static_cast<QKeyEvent&>(evento));
            return true;
        case QEvent::KeyRelease:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseButtonRelease:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::Wheel:
            return true;
        default:
            return false;
    }
}

void ScansioniInAttesa::inghiotti(const QKeyEvent& evento) {
    tasto(evento);
    mAMeta = !mCodice.isEmpty();
    if (const auto carattere = carattereDelTasto(evento)) mTagliata = !fineCodice(*carattere);
}

// What is missing of a code whose beginning was taken in is no key of the screen's: a scan is entered whole,
// and of what a hand types a half would be another product.
bool ScansioniInAttesa::continua(const QKeyEvent& evento) {
    if (!carattereDelTasto(evento)) return false;
    const qint64 pausa = istanteDelTasto(evento) - mUltimo;
    const bool scansione = mConPrefisso || (mAMeta && pausa <= RafficaTasti::passo);
    const bool resto = scansione || (mTagliata && pausa <= pausaDellaMano);
    mAMeta = mTagliata = false;
    if (resto) inghiotti(evento);
    return resto;
}

bool ScansioniInAttesa::tasto(const QKeyEvent& evento) {
    const auto carattere = carattereDelTasto(evento);
    if (!carattere) return false;
    const qint64 distanza = istanteDelTasto(evento) - mUltimo;
    mUltimo = istanteDelTasto(evento);
    if (mConPrefisso) return dopoIlPrefisso(*carattere);
    if (!gLaserChar.isEmpty() && *carattere == gLaserChar[0]) {
        mConPrefisso = true;
        mCodice.clear();
        mFinePrefisso.start();
        return true;
    }
    return !siDigitaNelRiquadro() && senzaPrefisso(*carattere, distanza <= RafficaTasti::passo);
}

bool ScansioniInAttesa::dopoIlPrefisso(QChar carattere) {
    mFinePrefisso.start();
    if (fineCodice(carattere)) {
        tieni();
    } else if (carattere == gLaserChar[0]) {
        tieni();  // a code without its Enter
        mConPrefisso = true;
        mFinePrefisso.start();
    } else {
        mCodice += carattere;
    }
    return true;
}

bool ScansioniInAttesa::senzaPrefisso(QChar carattere, bool svelto) {
    const frmMain* davanti = mFinestra.davanti();
    if (davanti == nullptr || !davanti->raffica.attiva) return false;
    if (!svelto) mCodice.clear();
    if (!fineCodice(carattere)) {
        mCodice += carattere;
        return svelto;
    }
    const bool scansione = mCodice.size() >= RafficaTasti::minima && mCodice.size() <= RafficaTasti::massima;
    if (scansione) {
        tieni();
    } else {
        mCodice.clear();
    }
    return scansione;
}

// No key has followed. A code without its Enter is a scan all the same. In the middle of a transaction
// nothing is given back: it would reach the screen that is being saved.
void ScansioniInAttesa::finePrefisso() {
    if (!mConPrefisso) return;
    if (gAdo.inTransazione()) return mFinePrefisso.start();
    if (!mCodice.isEmpty()) return tieni();
    mConPrefisso = false;
    if (bersaglio() != nullptr) premi(Qt::Key_unknown, gLaserChar.left(1));
}

void ScansioniInAttesa::tieni() {
    mConPrefisso = false;
    mFinePrefisso.stop();
    const QString codice = std::exchange(mCodice, {});
    if (!codice.isEmpty() && !prendeIlDialogo(codice)) mCoda << codice;
    if (!mCoda.isEmpty()) mRiprova.start();
}

void ScansioniInAttesa::riprova() {
    frmMain* davanti = mFinestra.davanti();
    if (mRaccoglie || QApplication::activeModalWidget() != nullptr || gAdo.inTransazione()) return;
    if (davanti != nullptr && !davanti->libero()) return;
    if (davanti == nullptr || gLaserChar.isEmpty() || mCoda.isEmpty()) {
        mCoda.clear();
        mRiprova.stop();
        return;
    }
    // Keys need somewhere to go: the window may not have come back to the front yet.
    if (!davanti->isAncestorOf(QApplication::focusWidget())) {
        if (QApplication::activeWindow() == nullptr) mFinestra.activateWindow();
        davanti->fuoco(davanti->vendita().txtCodProdotto);
        return;
    }
    const QString codice = mCoda.takeFirst();
    premi(Qt::Key_unknown, gLaserChar.left(1));
    for (const QChar c : codice)
        premi(Qt::Key_unknown, c);
    premi(Qt::Key_Return, "\r");
}

void ScansioniInAttesa::premi(Qt::Key tasto, const QString& testo) {
    for (const auto tipo : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QWidget* fuoco = QApplication::focusWidget();
        if (fuoco == nullptr) return;
        QKeyEvent evento(tipo, tasto, Qt::NoModifier, testo);
        const QScopedValueRollback<const QEvent*> nostro(mNostro, &evento);
        QApplication::sendEvent(fuoco, &evento);
    }
}
