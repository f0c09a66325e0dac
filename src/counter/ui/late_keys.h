#pragma once

#include <vector>

#include <QAbstractNativeEventFilter>
#include <QByteArray>
#include <QElapsedTimer>
#include <QTimer>

class QWidget;

// Keys that were on their way to the counter's window when a box came up over it: typed while a query ran, or
// before the box had the focus. They would be dropped, a scan in the middle of its code. On X11 they are held
// back in their order, and sent again to whoever has the keys then.
class TastiInRitardo final : public QAbstractNativeEventFilter {
  public:
    // Watches the keys of that window, for as long as it lives.
    explicit TastiInRitardo(const QWidget& finestra);
    ~TastiInRitardo() override;
    TastiInRitardo(const TastiInRitardo&) = delete;
    TastiInRitardo& operator=(const TastiInRitardo&) = delete;

    bool nativeEventFilter(const QByteArray& tipo, void* messaggio, qintptr* risultato) override;

  private:
    // A key that was sent again has come back.
    void tornato();
    void trattieni(const void* evento);
    void riprova();
    void rispedisci();

    const QWidget& mFinestra;
    std::vector<QByteArray> mTrattenuti;  // events of the window system
    int mInViaggio = 0;                   // sent again and not back yet: those behind them wait
    QElapsedTimer mSpediti;
    QTimer mRiprova;
};
