#pragma once

#include <utility>

#include "register/interface_socket.h"

// A socket without a network: connected, closed and spoken to when the test says so. It keeps what is sent.
class PresaFinta final : public PresaRegCassa {
  public:
    void connetti(const QString&, int) override { ++tentativi; }
    void chiudi() override {}
    void invia(const QByteArray& dati) override { inviati += dati; }
    QByteArray leggi() override { return std::exchange(arrivati, {}); }

    void apri() { notifiche().connessa(); }
    void cade() { notifiche().chiusa(); }
    void arriva(const QByteArray& dati) {
        arrivati = dati;
        notifiche().datiArrivati();
    }

    int tentativi = 0;
    QByteArray inviati;
    QByteArray arrivati;
};
