#pragma once

#include <gtest/gtest.h>

#include <QStringList>

#include "core/errors.h"
#include "data/server_driver.h"
#include "doubles/child_process.h"
#include "doubles/negozio.h"

// A product by its typed code, its quantity when it is not one, then a new row.
void vendi(ContoDiProva& conto, const QString& codice, const QString& quantita = {});

// What the operator sees of a sale: rows, numbers and totals, one line each.
QStringList schermata(const Vendita& v);

// An operator for error reports alone: goes on after every one and remembers them.
class RegistroAvvisi final : public OperatorPort {
  public:
    RegistroAvvisi() { gErr.impostaOperatore(this); }
    ~RegistroAvvisi() override { gErr.impostaOperatore(nullptr); }
    RegistroAvvisi(const RegistroAvvisi&) = delete;
    RegistroAvvisi& operator=(const RegistroAvvisi&) = delete;

    using OperatorPort::messaggio;
    void messaggio(const QString& testo, Icona, const QString&) override { messaggi << testo; }
    Risposta domanda(const QString&, Pulsanti, Icona) override { return Risposta::No; }
    bool avviso(const Errore& errore) override {
        moduli << errore.modulo;
        return true;
    }
    void beep() override {}
    void clessidra(bool) override {}
    void pausa(int) override {}
    void avvisoAttesa(const QString&) override {}

    QStringList messaggi;
    QStringList moduli;  // module and procedure of each report, in order
};

// Something happens at the n-th statement from now on, counted from 1; all are counted.
class AllaIstruzione {
  public:
    using Fatto = std::function<std::optional<ErroreServer>()>;
    AllaIstruzione(int numero, Fatto fatto);
    ~AllaIstruzione();
    AllaIstruzione(const AllaIstruzione&) = delete;
    AllaIstruzione& operator=(const AllaIstruzione&) = delete;

    bool accaduto = false;
    bool confermata = false;  // a COMMIT went through before it
    QString istruzione;       // the one it happened at

  private:
    int mViste = 0;
};
