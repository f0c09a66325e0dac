#pragma once

#include <functional>

#include <QByteArray>
#include <QString>

// The link's door to the network: one TCP connection.
class PresaRegCassa {
  public:
    // What happens on the connection. Each comes from the event loop, never from inside a call.
    struct Notifiche {
        std::function<void()> connessa;
        std::function<void()> chiusa;  // by the other side
        std::function<void()> datiArrivati;
        std::function<void()> invioCompletato;  // once for each invia(), an empty one too
    };

    virtual ~PresaRegCassa() = default;
    void ascolta(Notifiche notifiche) { mNotifiche = std::move(notifiche); }

    // One attempt, of several seconds; nothing is said when it fails.
    virtual void connetti(const QString& host, int porta) = 0;
    // Without a notification.
    virtual void chiudi() = 0;
    // What is sent while there is no connection is lost.
    virtual void invia(const QByteArray& dati) = 0;
    // All that has arrived.
    virtual QByteArray leggi() = 0;

  protected:
    const Notifiche& notifiche() const { return mNotifiche; }

  private:
    Notifiche mNotifiche;
};
