#pragma once

#include <functional>

#include <QStringList>

#include "core/clock.h"
#include "core/operator_port.h"

// An operator who writes down what is shown and gives one answer to every warning dialogue.
class OperatoreRegistrato : public OperatorPort {
  public:
    void messaggio(const QString& testo, Icona icona, const QString& titolo) override {
        mostrati << titolo + "|" + testo;
        icone.push_back(icona);
    }
    Risposta domanda(const QString& testo, Pulsanti, Icona) override {
        mostrati << testo;
        return Risposta::No;
    }
    bool avviso(const Errore& errore) override {
        mostrati << errore.descrizione;
        avvisi.push_back(errore);
        if (duranteAvviso) duranteAvviso();
        return prosegue;
    }
    void beep() override {}
    void clessidra(bool) override {}
    void pausa(int) override {}
    void avvisoAttesa(const QString&) override {}
    using OperatorPort::messaggio;

    QStringList mostrati;
    std::vector<Icona> icone;
    std::vector<Errore> avvisi;
    bool prosegue = true;
    std::function<void()> duranteAvviso;
};

class OrologioFermo : public Clock {
  public:
    explicit OrologioFermo(QDateTime istante) : mIstante(std::move(istante)) { impostaOrologio(this); }
    ~OrologioFermo() override { impostaOrologio(nullptr); }
    OrologioFermo(const OrologioFermo&) = delete;
    OrologioFermo& operator=(const OrologioFermo&) = delete;
    QDateTime adesso() const override { return mIstante; }

  private:
    QDateTime mIstante;
};
