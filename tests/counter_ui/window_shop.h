#pragma once

#include <functional>

#include <QApplication>
#include <QPushButton>
#include <QTimer>

#include "counter/ui/scan_queue.h"
#include "counter_ui/counter_screen.h"
#include "kit/ui/message_port.h"

// The real window with real boxes, and a scanner in front of it. Beside the products of CounterScreen there
// is CHIODO at 1,00.
class WindowShop : public CounterScreen {
  protected:
    WindowShop();

    void apriFinestra();
    // What a scanner sends, to whatever has the focus then; `passo` milliseconds a key.
    void scansiona(const QString& codice, int passo = -1) const;
    // Keys as the window system queues them, a millisecond apart: the screen sees them when it looks at its
    // events.
    void arriva(const QString& tasti);
    // Runs while the next box stands; it must leave the box closed.
    void conRiquadro(const std::function<void(QWidget&)>& gesto);
    static void premi(QWidget& riquadro, const char* pulsante);
    // The codes of the rows that are alive.
    QStringList codici() const;
    void aspettaCodici(const QStringList& attesi) const;
    // The scans that wait for the screen to be free.
    QStringList coda() const;

    QtOperatorPort porta;

  private:
    quint64 mIstante = 0;  // of the last key that was queued
};
