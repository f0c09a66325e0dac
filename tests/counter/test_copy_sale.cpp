#include "counter/copy_sale.h"
#include "counter/counter_shop.h"
#include "doubles/kit_di_prova.h"

namespace {

constexpr int comandoPagamento = 10;
constexpr int comandoRicopia = 14;

class CopySale : public BancoDiProva {
  protected:
    void siRicopia(Risposta risposta = Risposta::Si) {
        n.operatore.attendiDomanda("Ricopiare la vendita corrente in nuovo conto?", risposta);
    }
    // The copy is named to a customer and saved.
    void ricopiaEVende(ContoDiProva& c) {
        siRicopia();
        c.premiComando(comandoRicopia);
        ContoDiProva& copia = n.apriConto(1);
        n.cliente(7, "ROSSI");
        copia.clic(copia.vendita().txtCodCliente);
        copia.digita("7");
        copia.invio();
        copia.tasto(Qt::Key_F5);
    }
    // The first account holds a kit of two parts.
    void vendiKit() {
        const int vite = n.prodotto({.codice = "V", .listino1 = 3});
        distinta(n, "%KIT", {{vite, 2, 3}, {n.prodotto({.codice = "S", .listino1 = 4}), 1, 0}}, "8100");
        n.apriConto().scansiona("8100");
    }
};

}  // namespace

TEST_F(CopySale, AllLiveRowsArriveAsNewOnes) {
    ContoDiProva& c = contoConVendita();
    c.tasto(Qt::Key_F5);
    siRicopia();
    c.premiComando(comandoRicopia);
    Vendita& copia = n.vendita(1);
    ASSERT_EQ(copia.flxVB.ultima(), 1);
    EXPECT_EQ(copia.flxVB.cella(1, Colonna::Codice), "A");
    EXPECT_EQ(copia.flxVB.gestione(1), RigaNuova);
    EXPECT_EQ(copia.lblMainDisplay.testo(), "12,20");
    EXPECT_TRUE(copia.venditaModificata);
    EXPECT_EQ(copia.rid(), -1);
}

TEST_F(CopySale, CopyKeepsEveryOtherCell) {
    ContoDiProva& c = contoConVendita();
    c.clic(c.vendita().txtQta);
    c.digita("3");
    c.tasto(Qt::Key_F6);
    siRicopia();
    c.premiComando(comandoRicopia);
    for (int i = 0; i < numeroColonne; ++i) {
        const auto colonna = static_cast<Colonna>(i);
        EXPECT_EQ(n.vendita(1).flxVB.cella(1, colonna), c.vendita().flxVB.cella(1, colonna)) << i;
    }
}

TEST_F(CopySale, KitArrivesWithAllItsColumns) {
    vendiKit();
    siRicopia();
    n.apriConto().premiComando(comandoRicopia);
    const FlexVB& copia = n.vendita(1).flxVB;
    ASSERT_EQ(copia.ultima(), 3);
    for (int r = 1; r <= 3; ++r) {
        for (int i = 0; i < numeroColonne; ++i) {
            const auto colonna = static_cast<Colonna>(i);
            EXPECT_EQ(copia.cella(r, colonna), n.vendita().flxVB.cella(r, colonna)) << r << " " << i;
        }
        EXPECT_EQ(copia.nascosta(r), n.vendita().flxVB.nascosta(r)) << r;
    }
    EXPECT_FALSE(copia.cella(3, Colonna::IdDistintaBase).isEmpty());
}

TEST_F(CopySale, PartsOfACopiedKitBelongToTheCopysHead) {
    vendiKit();
    ContoDiProva& c = n.apriConto();
    c.tasto(Qt::Key_F5);
    ricopiaEVende(c);
    ASSERT_EQ(vendite(), 2);
    EXPECT_EQ(n.conta("DettagliMovimento"), 6);
    // Each part with the head of its own sale.
    EXPECT_EQ(n.righe("SELECT COUNT(*) FROM DettagliMovimento D INNER JOIN DettagliMovimento T ON "
                      "D.IK_DETTAGLIOMOVIMENTO = T.RID AND D.FK_MOVIMENTO = T.FK_MOVIMENTO WHERE "
                      "T.CODPRODOTTO = '%KIT'"),
              QStringList{"4"});
}

TEST_F(CopySale, DeletedRowsStayBehind) {
    ContoDiProva& c = contoConVendita();
    c.tasto(Qt::Key_F5);
    n.operatore.attendiDomanda("Eliminare il prodotto [Vite]?", Risposta::Si);
    c.clicRiga(1);
    c.tasto(Qt::Key_F9);
    ASSERT_EQ(c.vendita().flxVB.gestione(1), RigaCancellata);
    siRicopia();
    c.premiComando(comandoRicopia);
    EXPECT_EQ(n.vendita(1).flxVB.ultima(), 0);
}

TEST_F(CopySale, CopyIsSoldOnceMore) {
    ContoDiProva& c = contoConVendita();
    c.tasto(Qt::Key_F5);
    ricopiaEVende(c);
    EXPECT_EQ(vendite(), 2);
    EXPECT_EQ(n.conta("DettagliMovimento"), 2);
}

TEST_F(CopySale, RowChangedInTheCopyLeavesTheOriginalAlone) {
    ContoDiProva& c = contoConVendita();
    c.tasto(Qt::Key_F5);
    const QString originale = n.riga("SELECT RID, FK_MOVIMENTO, QUANTITA + 0.0 FROM DettagliMovimento");
    siRicopia();
    c.premiComando(comandoRicopia);
    ContoDiProva& copia = n.apriConto(1);
    n.cliente(7, "ROSSI");
    copia.digita("7");
    copia.invio();
    copia.scansiona("8001");
    ASSERT_EQ(copia.vendita().flxVB.cella(1, Colonna::Quantita), "2,00");
    copia.tasto(Qt::Key_F5);
    EXPECT_EQ(n.riga("SELECT RID, FK_MOVIMENTO, QUANTITA + 0.0 FROM DettagliMovimento ORDER BY RID"),
              originale);
    EXPECT_EQ(n.conta("DettagliMovimento"), 2);
}

TEST_F(CopySale, RowTakenAwayFromTheCopyStaysInTheOriginal) {
    ContoDiProva& c = contoConVendita();
    c.tasto(Qt::Key_F5);
    siRicopia();
    c.premiComando(comandoRicopia);
    ContoDiProva& copia = n.apriConto(1);
    n.operatore.attendiDomanda("Eliminare il prodotto [Vite]?", Risposta::Si);
    copia.clicRiga(1);
    copia.tasto(Qt::Key_F9);
    EXPECT_EQ(copia.vendita().flxVB.gestione(1), RigaCancellata);
    n.operatore.attendiMessaggio(
        "Attenzione! non vi è nessun elemento da salvare.\nAggiungere almeno un prodotto");
    copia.tasto(Qt::Key_F5);
    EXPECT_EQ(n.conta("DettagliMovimento"), 1);
}

TEST_F(CopySale, OtherPaymentOfASavedSaleDoesNotGoBackToIt) {
    n.apriConto(0);
    const int rossi = n.cliente(8, "BIANCHI");
    ContoDiProva& c = n.apriConto(1);
    c.digita("8");
    c.invio();
    c.scansiona("8001");
    ASSERT_TRUE(c.vendita().cliente() == rossi);
    c.tasto(Qt::Key_F5);
    ASSERT_TRUE(apriContoConVendita(n.valore("SELECT RID FROM Movimenti").toInt()));
    ContoDiProva& richiamata = n.apriConto(1);
    richiamata.rispondeRicerca("2|");
    richiamata.premiComando(comandoPagamento);
    EXPECT_EQ(n.vendita(2).cliente(), rossi);
    EXPECT_EQ(n.vendita(2).rid(), -1);
    EXPECT_EQ(n.vendita(2).flxVB.gestione(1), RigaNuova);
}

TEST_F(CopySale, AnsweredNoNothingOpens) {
    ContoDiProva& c = contoConVendita();
    siRicopia(Risposta::No);
    c.premiComando(comandoRicopia);
    EXPECT_FALSE(gConti[1]);
}

TEST_F(CopySale, NothingSoldIsTold) {
    ContoDiProva& c = n.apriConto();
    n.operatore.attendiMessaggio("Nessun prodotto venduto! Impossibile ricopiare la vendita.",
                                 OperatorPort::Icona::Esclamazione);
    c.premiComando(comandoRicopia);
}

TEST_F(CopySale, AllAccountsTakenIsTold) {
    ContoDiProva& c = contoConVendita();
    for (int i = 1; i < contiMassimi; ++i) {
        n.apriConto(i);
    }
    siRicopia();
    n.operatore.attendiMessaggio("Nessun conto disponibile!\nChiudere prima un conto e riprovare.",
                                 OperatorPort::Icona::Critica);
    c.premiComando(comandoRicopia);
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
}

TEST_F(CopySale, OtherPaymentTakesTheSaleToANewAccount) {
    n.sql("UPDATE Causali SET MOSTRAVB = 1 WHERE RID = 2");
    ContoDiProva& c = contoConVendita();
    c.rispondeRicerca("2|");
    c.premiComando(comandoPagamento);
    EXPECT_EQ(c.ricercheAperte.back().sql,
              "SELECT TOP 9 RID, CODICE, DESCRIZIONE FROM Causali WHERE MOSTRAVB = 1");
    EXPECT_EQ(n.vendita(1).flxVB.ultima(), 1);
    EXPECT_EQ(n.vendita(1).lblDescPagamento.tag(), "2");
    EXPECT_EQ(n.vendita(1).idCausalePagamento, 2);
    EXPECT_EQ(n.vendita(1).cliente(), gClientePredefinito);
    EXPECT_EQ(c.vendita().flxVB.ultima(), 0);
}

TEST_F(CopySale, OtherPaymentKeepsTheCustomer) {
    n.apriConto(0);
    ContoDiProva& c = contoConCliente(1);
    const int cliente = c.vendita().cliente();
    c.rispondeRicerca("2|");
    c.premiComando(comandoPagamento);
    EXPECT_EQ(n.vendita(2).cliente(), cliente);
}

TEST_F(CopySale, CancelledPaymentKeepsTheSale) {
    ContoDiProva& c = contoConVendita();
    c.rispondeRicerca({});
    c.premiComando(comandoPagamento);
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
    EXPECT_EQ(c.fuocoSu(), &c.vendita().txtCodProdotto);
    EXPECT_FALSE(gConti[1]);
}
