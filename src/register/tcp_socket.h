#pragma once

#include <deque>

#include <QTcpSocket>
#include <QTimer>

#include "register/interface_socket.h"

// The door on a real socket. An interface program that was just started refuses connections until it
// listens, and on the loopback address at once: an attempt knocks again until its time is over. Then it has
// failed, even if the other side would answer later.
class PresaTcp final : public QObject, public PresaRegCassa {
    Q_OBJECT
  public:
    static constexpr int durataTentativo = 5000;  // milliseconds

    explicit PresaTcp(int durata = durataTentativo);
    ~PresaTcp() override;

    void connetti(const QString& host, int porta) override;
    void chiudi() override;
    void invia(const QByteArray& dati) override;
    QByteArray leggi() override;

  private:
    void bussa();
    void collega(QTcpSocket* presa);
    void tentativoFallito();
    void scritti(qint64 byte);
    void completati();
    // Runs from the event loop, in the order of asking, unless the connection has gone by then.
    void notifica(std::function<void()> Notifiche::*quale);

    QTcpSocket* mPresa = nullptr;
    QString mHost;
    quint16 mPorta = 0;
    QTimer mTermine;         // runs as long as the attempt
    bool mConnessa = false;  // since connetti()
    bool mDatiAnnunciati = false;
    std::deque<qint64> mInvii;  // bytes that each send has still to write
};
