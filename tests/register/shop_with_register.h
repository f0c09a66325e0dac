#pragma once

#include <gtest/gtest.h>

#include "doubles/negozio.h"
#include "register/link_bench.h"
#include "sale/gesti.h"

// A shop whose desk has a register: sales on real books, receipts to the test's peer.
class NegozioConRegistratore : public testing::Test {
  protected:
    NegozioConRegistratore() {
        gNomeModulo = "bBottegonClientVB";
        gTCPPort = peer.porta();
        gRegCassa = "Prova";
        impostaFrmRegCassa(&link);
        n.prodotto({.codice = "A", .listino1 = 10, .descrizione = "Vite"});
        n.sql("INSERT INTO Iva (RID, CODICE, DESCRIZIONE, VALORE) VALUES (4,'00','Esente',0)");
        n.prodotto({.codice = "B", .listino1 = 1.99, .descrizione = "Colla", .idIva = 4});
    }
    ~NegozioConRegistratore() override { impostaFrmRegCassa(nullptr); }

    void connetti() {
        link.connetti();
        ASSERT_TRUE(diventa([this] { return link.statoConnessione() && peer.collegato(); }));
    }
    bool finito() const { return link.Buffer().isEmpty() && link.stato() == StatoRegCassa::Pronto; }
    static void vendiQuantita(ContoDiProva& c, const QString& codice, const QString& quantita) {
        c.digita(codice);
        c.invio();
        scrivi(c, c.vendita().txtQta, quantita);
        c.tasto(Qt::Key_F6);
    }
    // The frames of the receipt without the reset and without checksums.
    QStringList scontrino() const {
        QStringList comandi;
        for (const QString& corpo : peer.cornici()) {
            if (!corpo.startsWith("RST")) comandi << corpo.chopped(2);
        }
        return comandi;
    }
    QStringList senzaScontrino() const {
        QStringList tutte;
        for (const auto& voce : link.scontrini.voci()) {
            tutte << voce.vendita + " | " + descrizione(voce);
        }
        return tutte;
    }

    Negozio n;
    PeerDiProva peer;
    InterfacciaRegCassa link;
    DialoghiScritti dialoghi;
};
