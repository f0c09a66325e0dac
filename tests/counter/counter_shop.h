#pragma once

#include <gtest/gtest.h>

#include "core/globals.h"
#include "doubles/negozio.h"

// A shop with one product, A at 10,00 and 22 % (barcode 8001), and what tests of the counter do with it.
class BancoDiProva : public testing::Test {
  protected:
    BancoDiProva() { n.prodotto({.codice = "A", .listino1 = 10, .barcode = "8001", .descrizione = "Vite"}); }

    using Risposta = OperatorPort::Risposta;
    void rispondeAlSalvataggio(Risposta risposta) {
        n.operatore.attendiDomanda("Attenzione Salvare la vendita corrente?", risposta);
    }
    int vendite() { return n.conta("Movimenti"); }
    // Account `indice` with one unsaved row.
    ContoDiProva& contoConVendita(int indice = 0) {
        ContoDiProva& c = n.apriConto(indice);
        c.scansiona("8001");
        EXPECT_TRUE(c.vendita().venditaModificata);
        return c;
    }
    ContoDiProva& contoConCliente(int indice) {
        if (mCliente == 0) mCliente = n.cliente(7, "ROSSI");
        ContoDiProva& c = n.apriConto(indice);
        c.digita("7");
        c.invio();
        c.scansiona("8001");
        EXPECT_EQ(c.vendita().cliente(), mCliente);
        return c;
    }

    Negozio n;

  private:
    int mCliente = 0;
};
