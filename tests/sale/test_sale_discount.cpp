#include "core/run_time_error.h"
#include "gesti.h"
#include "sale/sale_discount.h"

namespace {

TEST(DiscountOnTop, IsTakenFromWhatTheFirstOneLeft) {
    EXPECT_EQ(getNewScontoByOldAndAdd(15, 10), 23.5F);
    EXPECT_EQ(getNewScontoByOldAndAdd(0, 10), 10.0F);
    EXPECT_EQ(getNewScontoByOldAndAdd(50, 50), 75.0F);
    EXPECT_EQ(getNewScontoByOldAndAdd(20, 0), 20.0F);
    EXPECT_EQ(getNewScontoByOldAndAdd(100, 10), 100.0F);
}

TEST(DiscountOnTop, NegativeOneRaisesThePrice) {
    EXPECT_EQ(getNewScontoByOldAndAdd(20, -10), 12.0F);
}

// Two rows: "A" 7 pieces at 10,00 with discounts 10 and 5, VAT 22; "B" one piece at 3,33, VAT 10.
struct SaleDiscount : testing::Test {
    Negozio n;
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();

    void SetUp() override {
        n.prodotto({.codice = "A", .listino1 = 10});
        n.prodotto({.codice = "B", .listino1 = 3.33, .idIva = 2});
        c.digita("A");
        c.invio();
        scrivi(c, v.txtSconto1, "10");
        scrivi(c, v.txtSconto2, "5");
        scriviELascia(c, v.txtQta, "7");
        c.tasto(Qt::Key_F6);
        vendi(c, "B");
        ASSERT_EQ(v.lblMainDisplay.testo(), "76,68");  // 73,02 + 3,66
    }
    QString nella(int riga, Colonna colonna) const { return cella(v, riga, colonna); }
    // The tender dialogue gives back another total.
    void cambiaTotale(const QString& totale) {
        v.lblMainDisplay.testo(totale);
        ricalcolaDaTotale(v);
    }
};

// ---- What is left of the total after tender

struct ExtraDiscount : SaleDiscount {};

TEST_F(ExtraDiscount, AddsTheThreeDiscountsUpIntoOne) {
    ricalcolaScontiAfterPag(v, 10);
    EXPECT_EQ(nella(1, Colonna::Sconto1), "23,50");  // on 15, not on 14,5
    EXPECT_EQ(nella(1, Colonna::Sconto2), "0,00");
    EXPECT_EQ(nella(1, Colonna::Sconto3), "0,00");
    EXPECT_EQ(nella(1, Colonna::ScontoTesto), "23,50+0+0");
}

TEST_F(ExtraDiscount, WritesTheAmountsOfTheRow) {
    ricalcolaScontiAfterPag(v, 10);
    EXPECT_EQ(nella(1, Colonna::ScNetto), "2,35");
    EXPECT_EQ(nella(1, Colonna::PrezzoNettoEsteso), "7,65");
    EXPECT_EQ(nella(1, Colonna::PrezzoNetto), "7,65");
    EXPECT_EQ(nella(1, Colonna::TotPrNetto), "53,55");
    EXPECT_EQ(nella(1, Colonna::IvaProd), "1,683");
    EXPECT_EQ(v.flxVB.currency(1, Colonna::TotIvaProd), Currency::daScalato(117810));
    EXPECT_EQ(nella(1, Colonna::Importo), "65,33");  // 53,55 + 11,781
}

TEST_F(ExtraDiscount, RowTotalIsNetAmountAndVatOfTheRoundedNetPrice) {
    // Net 1,66 = 3,33 - 1,67; ten pieces 16,60 + 1,66. From the list price it were 18,32.
    v.flxVB.scrivi(2, Colonna::Quantita, "10,00");
    ricalcolaScontiAfterPag(v, 50);
    EXPECT_EQ(nella(2, Colonna::ScNetto), "1,67");
    EXPECT_EQ(nella(2, Colonna::PrezzoNetto), "1,66");
    EXPECT_EQ(nella(2, Colonna::Importo), "18,26");
}

TEST_F(ExtraDiscount, ReturnedPiecesKeepTheirSign) {
    vendi(c, "A");
    v.flxVB.scrivi(1, Colonna::Quantita, "-7,00");
    ricalcolaScontiAfterPag(v, 10);
    EXPECT_EQ(nella(1, Colonna::TotPrNetto), "-53,55");
    EXPECT_EQ(nella(1, Colonna::Importo), "-65,33");
}

TEST_F(ExtraDiscount, OfZeroDoesNothing) {
    v.venditaModificata = false;
    ricalcolaScontiAfterPag(v, 0);
    EXPECT_EQ(nella(1, Colonna::ScontoTesto), "10,00+5,00+0,00");
    EXPECT_FALSE(v.venditaModificata);
}

TEST_F(ExtraDiscount, LeavesDeletedRowsAlone) {
    v.flxVB.scrivi(1, Colonna::Gestione, "3");
    ricalcolaScontiAfterPag(v, 10);
    EXPECT_EQ(nella(1, Colonna::ScontoTesto), "10,00+5,00+0,00");
    EXPECT_EQ(nella(1, Colonna::Gestione), "3");
    EXPECT_EQ(nella(2, Colonna::Sconto1), "10,00");
}

TEST_F(ExtraDiscount, MarksSaleAndRowsToBeSaved) {
    v.venditaModificata = false;
    v.flxVB.scrivi(1, Colonna::Gestione, "0");
    ricalcolaScontiAfterPag(v, 10);
    EXPECT_EQ(nella(1, Colonna::Gestione), "1");
    EXPECT_TRUE(v.venditaModificata);
    EXPECT_EQ(v.pctSave.testo(), "Vendita non salvata");
}

TEST_F(ExtraDiscount, OnASavedSaleEntersEveryRowAnew) {
    c.tasto(Qt::Key_F5);
    ASSERT_EQ(nella(1, Colonna::Gestione), "0");
    cambiaTotale("69,01");
    EXPECT_EQ(nella(1, Colonna::Gestione), "1");
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(n.conta("DettagliMovimento"), 4);
}

TEST_F(ExtraDiscount, RowInTheEditorDoesNotBringTheOldPriceBack) {
    c.clicRiga(1);
    ricalcolaScontiAfterPag(v, 10);
    c.tasto(Qt::Key_F6);
    EXPECT_EQ(nella(1, Colonna::Sconto1), "23,50");
    EXPECT_EQ(nella(1, Colonna::PrezzoNetto), "7,65");
}

TEST_F(ExtraDiscount, ComesFromTheChangedTotal) {
    cambiaTotale("69,012");
    EXPECT_EQ(nella(1, Colonna::Sconto1), "23,50");  // 69,012 of 76,68: ten per cent
    EXPECT_EQ(nella(2, Colonna::Sconto1), "10,00");
    EXPECT_EQ(v.lblMainDisplay.testo(), "69,01");
    EXPECT_EQ(v.lblMainDisplay.tag(), "69,012");
}

TEST_F(ExtraDiscount, UnchangedTotalChangesNothing) {
    cambiaTotale("76,68");
    EXPECT_EQ(nella(1, Colonna::ScontoTesto), "10,00+5,00+0,00");
}

TEST_F(ExtraDiscount, TotalOfZeroGivesEverythingAway) {
    cambiaTotale("0,00");
    EXPECT_EQ(nella(1, Colonna::Sconto1), "100,00");
    EXPECT_EQ(nella(1, Colonna::Importo), "0,00");
    EXPECT_EQ(nella(2, Colonna::Importo), "0,00");
}

TEST_F(ExtraDiscount, HigherTotalIsANegativeDiscount) {
    cambiaTotale("84,348");
    EXPECT_EQ(nella(1, Colonna::Sconto1), "6,50");  // 100 - (85 + 8,5)
    EXPECT_EQ(nella(2, Colonna::Sconto1), "-10,00");
}

TEST_F(ExtraDiscount, EmptyTotalDoesNothing) {
    cambiaTotale({});
    EXPECT_EQ(nella(1, Colonna::ScontoTesto), "10,00+5,00+0,00");
}

TEST_F(ExtraDiscount, AmountBeforeOfZeroOverflows) {
    v.lblMainDisplay.tag("0,00");
    v.lblMainDisplay.testo("10,00");
    try {
        ricalcolaDaTotale(v);
        FAIL();
    } catch (const RunTimeError& e) {
        EXPECT_EQ(e.numero(), RunTimeError::Overflow);
    }
    EXPECT_EQ(nella(1, Colonna::ScontoTesto), "10,00+5,00+0,00");
}

// ---- The immediate discount

struct ImmediateDiscount : SaleDiscount {
    void SetUp() override {
        SaleDiscount::SetUp();
        n.sql(
            "INSERT INTO ScontiImmediati (RID, CODICE, DESCRIZIONE, VALORE) VALUES (4,'S20','Venti per "
            "cento',20),(5,'S12','Dodici e mezzo',12.5)");
    }
    void scegli(const QString& risposta) {
        c.rispondeRicerca(risposta);
        c.premiComando(16);
    }
};

TEST_F(ImmediateDiscount, OffersTheFirstNine) {
    scegli({});
    ASSERT_EQ(c.ricercheAperte.size(), 1U);
    EXPECT_EQ(c.ricercheAperte[0].sql, "SELECT TOP 9 RID, CODICE, DESCRIZIONE FROM ScontiImmediati");
    EXPECT_EQ(c.ricercheAperte[0].campoChiave, "DESCRIZIONE");
    EXPECT_FALSE(c.ricercheAperte[0].multi);
}

TEST_F(ImmediateDiscount, StandsOnItsKey) {
    scegli("5|");
    EXPECT_EQ(v.cmdComando[16].testo(), "S12");
    EXPECT_EQ(v.cmdComando[16].tag(), "12,5");
    EXPECT_EQ(c.fuocoSu(), &v.txtCodProdotto);
}

TEST_F(ImmediateDiscount, ReplacesTheDiscountsOfEveryRow) {
    scegli("4|");
    EXPECT_EQ(nella(1, Colonna::ScontoTesto), "20+0+0");
    EXPECT_EQ(nella(1, Colonna::Sconto1), "20");
    EXPECT_EQ(nella(1, Colonna::Sconto2), "0");
    EXPECT_EQ(nella(1, Colonna::Sconto3), "0");
    EXPECT_EQ(nella(2, Colonna::ScontoTesto), "20+0+0");
}

TEST_F(ImmediateDiscount, WritesTheAmountsOfTheRow) {
    scegli("4|");
    EXPECT_EQ(nella(1, Colonna::PrezzoNetto), "8,00");
    EXPECT_EQ(nella(1, Colonna::PrezzoNettoEsteso), "8");
    EXPECT_EQ(nella(1, Colonna::Importo), "68,32");  // 12,20 x 7 x 0,80
    EXPECT_EQ(nella(1, Colonna::TotPrNetto), "56");
    EXPECT_EQ(nella(1, Colonna::IvaProd), "1,76");
    EXPECT_EQ(v.flxVB.currency(1, Colonna::TotIvaProd), Currency::daScalato(123200));
    EXPECT_EQ(nella(1, Colonna::PrezzoListino), "10,00");
}

TEST_F(ImmediateDiscount, PutsThePercentageWhereTheAmountStood) {
    scegli("4|");
    EXPECT_EQ(nella(1, Colonna::ScNetto), "20");
}

TEST_F(ImmediateDiscount, KeepsTheNetPriceToFourDecimals) {
    scegli("5|");  // 3,33 x 0,875 = 2,91375
    EXPECT_EQ(nella(2, Colonna::PrezzoNettoEsteso), "2,9138");
    EXPECT_EQ(nella(2, Colonna::PrezzoNetto), "2,91");
    EXPECT_EQ(nella(2, Colonna::Importo), "3,21");  // 3,33 x 1,10 x 0,875 = 3,205125
}

TEST_F(ImmediateDiscount, LeavesTheSaveStates) {
    v.flxVB.scrivi(1, Colonna::Gestione, "0");
    scegli("4|");
    EXPECT_EQ(nella(1, Colonna::Gestione), "0");
    EXPECT_EQ(nella(2, Colonna::Gestione), "1");
}

TEST_F(ImmediateDiscount, TouchesDeletedRowsToo) {
    v.flxVB.scrivi(1, Colonna::Gestione, "3");
    scegli("4|");
    EXPECT_EQ(nella(1, Colonna::Sconto1), "20");
    EXPECT_EQ(nella(1, Colonna::Gestione), "3");
}

TEST_F(ImmediateDiscount, LeavesThePricesOfAKitsHead) {
    v.flxVB.scrivi(1, Colonna::Codice, "%KIT");
    scegli("4|");
    EXPECT_EQ(nella(1, Colonna::Sconto1), "20");
    EXPECT_EQ(nella(1, Colonna::PrezzoNetto), "8,55");
    EXPECT_EQ(nella(1, Colonna::Importo), "73,02");
    EXPECT_EQ(nella(1, Colonna::TotPrNetto), "56");
}

TEST_F(ImmediateDiscount, RenewsTheTotals) {
    v.venditaModificata = false;
    scegli("4|");
    EXPECT_EQ(v.lblMainDisplay.testo(), "71,25");  // 68,32 + 2,93
    EXPECT_TRUE(v.venditaModificata);
}

TEST_F(ImmediateDiscount, CancelledClearsTheCaptionAndStaysInForce) {
    scegli("4|");
    scegli({});
    EXPECT_EQ(v.cmdComando[16].testo(), " ");
    EXPECT_EQ(v.cmdComando[16].tag(), "20");
    EXPECT_EQ(nella(1, Colonna::Sconto1), "20");
    EXPECT_EQ(c.fuocoSu(), &v.txtCodProdotto);
}

TEST_F(ImmediateDiscount, GoneFromTheTableMeanwhileChangesNothing) {
    scegli("99|");
    EXPECT_EQ(v.cmdComando[16].testo(), " ");
    EXPECT_EQ(v.cmdComando[16].tag(), "0");
    EXPECT_EQ(nella(1, Colonna::ScontoTesto), "10,00+5,00+0,00");
}

TEST_F(ImmediateDiscount, EndsWithTheSale) {
    scegli("4|");
    v.venditaModificata = false;
    c.tasto(Qt::Key_F2);
    EXPECT_EQ(v.cmdComando[16].tag(), "0");
    EXPECT_EQ(v.cmdComando[16].testo(), "");
}

TEST_F(ImmediateDiscount, RowInTheEditorTakesItToo) {
    n.sql(
        "INSERT INTO DettagliProdotto (FK_PRODOTTO, FK_MAGAZZINO, TAGLIO, QUANTITA) SELECT RID, 1, 5, 1 FROM "
        "Prodotti");
    c.clicRiga(1);
    scegli("4|");
    EXPECT_EQ(v.txtSconto1.testo(), "20,00");
    EXPECT_EQ(v.lblMargineEuro.testo(), "3,00");  // 8,00 less the cost of 5,00
    c.tasto(Qt::Key_F6);
    EXPECT_EQ(v.flxVB.single(1, Colonna::Sconto1), 20.0F);
    EXPECT_EQ(nella(1, Colonna::Importo), "68,32");
}

TEST_F(ImmediateDiscount, DoesNotOpenWhilePricesAreLocked) {
    v.cmdComando[16].abilitato(false);
    c.premiComando(16);
    EXPECT_TRUE(c.ricercheAperte.empty());
}

TEST_F(ImmediateDiscount, OnAnEmptySaleWaitsForTheRows) {
    v.venditaModificata = false;
    c.tasto(Qt::Key_F2);
    scegli("4|");
    EXPECT_EQ(v.cmdComando[16].tag(), "20");
    EXPECT_EQ(v.flxVB.righe(), 1);
}

}  // namespace
