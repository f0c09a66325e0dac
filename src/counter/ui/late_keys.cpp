#include "counter/ui/late_keys.h"

#include <xcb/xcb.h>

#include <QApplication>
#include <QWidget>
#include <QWindow>

namespace {

constexpr int spedito = 0x80;        // set in the type of an event that a program sent
constexpr int intervallo = 10;       // milliseconds between two looks at who has the focus
constexpr int attesaRitorno = 1000;  // milliseconds; a window that has gone gives nothing back

xcb_connection_t* schermoX() {
    const auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 == nullptr ? nullptr : x11->connection();
}

bool eTasto(const xcb_generic_event_t& evento) {
    const int genere = evento.response_type & ~spedito;
    return genere == XCB_KEY_PRESS || genere == XCB_KEY_RELEASE;
}

// A box is up, and another window still has the keys.
bool riquadroSenzaFuoco() {
    const QWidget* riquadro = QApplication::activeModalWidget();
    return riquadro != nullptr && QGuiApplication::focusWindow() != riquadro->windowHandle();
}

}  // namespace

TastiInRitardo::TastiInRitardo(const QWidget& finestra) : mFinestra(finestra) {
    mRiprova.setInterval(intervallo);
    QObject::connect(&mRiprova, &QTimer::timeout, &mRiprova, [this] { riprova(); });
    if (schermoX() != nullptr) qApp->installNativeEventFilter(this);
}

TastiInRitardo::~TastiInRitardo() {
    if (qApp != nullptr) qApp->removeNativeEventFilter(this);
}

bool TastiInRitardo::nativeEventFilter(const QByteArray& tipo, void* messaggio, qintptr*) {
    if (tipo != "xcb_generic_event_t") return false;
    const auto& evento = *static_cast<const xcb_generic_event_t*>(messaggio);
    if (!eTasto(evento)) return false;
    if (mInViaggio > 0 && (evento.response_type & spedito) != 0) {
        tornato();
        return false;
    }
    if (mTrattenuti.empty() && mInViaggio == 0 && !riquadroSenzaFuoco()) return false;
    trattieni(messaggio);
    return true;
}

void TastiInRitardo::trattieni(const void* evento) {
    mTrattenuti.emplace_back(static_cast<const char*>(evento), sizeof(xcb_key_press_event_t));
    if (!mRiprova.isActive()) mRiprova.start();
}

void TastiInRitardo::tornato() {
    if (--mInViaggio == 0) riprova();
}

void TastiInRitardo::riprova() {
    if (mInViaggio > 0 && mSpediti.elapsed() < attesaRitorno) return;
    mInViaggio = 0;
    if (mTrattenuti.empty()) return mRiprova.stop();
    if (!riquadroSenzaFuoco()) rispedisci();
}

void TastiInRitardo::rispedisci() {
    const QWidget* riquadro = QApplication::activeModalWidget();
    const auto finestra =
        static_cast<xcb_window_t>((riquadro == nullptr ? &mFinestra : riquadro)->internalWinId());
    for (QByteArray& dati : mTrattenuti) {
        reinterpret_cast<xcb_key_press_event_t*>(dati.data())->event = finestra;
        xcb_send_event(schermoX(), 0, finestra, XCB_EVENT_MASK_NO_EVENT, dati.constData());
    }
    xcb_flush(schermoX());
    mInViaggio = static_cast<int>(mTrattenuti.size());
    mSpediti.start();
    mTrattenuti.clear();
}
