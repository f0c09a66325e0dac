#include "gesti.h"

namespace {

struct StockPolicy : testing::Test {
    Negozio n;
    void SetUp() override { gSottoScorta = 1; }
    // The product "P" is entered by its code.
    Vendita& entra(double giacenza, bool gestita = true) {
        n.prodotto({.codice = "P",
                    .listino1 = 10,
                    .barcode = "8001",
                    .descrizione = "Pala",
                    .giacenza = giacenza,
                    .gestioneGiacenza = gestita});
        ContoDiProva& c = n.apriConto();
        c.digita("P");
        c.invio();
        return c.vendita();
    }
    ContoDiProva& conto() { return n.apriConto(); }
    static QString bloccoAllIngresso(const QString& scorta) {
        return "Impossibile scaricare il prodotto [Pala].\nLa scorta di [" + scorta +
               "] è inferiore al limite consentito.\nSi desidera effettuare il reso?";
    }
    static QString avviso(const QString& quantita) {
        return "Attenzione! La giacenza del prodotto [Pala] è inferiore a [" + quantita +
               "].\nScegliere [Sì] per continuare oppure [No] per annullare l'operazione";
    }
};

TEST_F(StockPolicy, EmptyShelfAsksForAReturnAndNoSellsNothing) {
    gBloccaSottoScorta = true;
    n.operatore.attendiDomanda(bloccoAllIngresso("0,00"), OperatorPort::Risposta::No);
    Vendita& v = entra(0);
    EXPECT_EQ(v.flxVB.righe(), 1);
    EXPECT_EQ(v.txtCodProdotto.chiave(), -1);
    EXPECT_EQ(v.txtCodProdotto.testo(), "P");
    EXPECT_EQ(conto().fuocoSu(), &v.txtCodProdotto);
}

TEST_F(StockPolicy, RefusedCodeIsSelectedSoThatTheNextOneReplacesIt) {
    gBloccaSottoScorta = true;
    n.operatore.attendiDomanda(bloccoAllIngresso("0,00"), OperatorPort::Risposta::No);
    n.prodotto({.codice = "ALTRO", .listino1 = 1});
    Vendita& v = entra(0);
    conto().digita("ALTRO");
    conto().invio();
    EXPECT_EQ(codiciVivi(v), QStringList{"ALTRO"});
}

TEST_F(StockPolicy, EmptyShelfSoldAsAReturnTicksTheReturn) {
    gBloccaSottoScorta = true;
    n.operatore.attendiDomanda(bloccoAllIngresso("-2,50"), OperatorPort::Risposta::Si);
    Vendita& v = entra(-2.5);
    EXPECT_EQ(v.flxVB.righe(), 2);
    EXPECT_EQ(v.chkReso.valore(), 1);
}

TEST_F(StockPolicy, EmptyShelfWarnsWithALiteralOne) {
    gAvvisaSottoScorta = true;
    n.operatore.attendiDomanda(avviso("1"), OperatorPort::Risposta::Si);
    EXPECT_EQ(entra(0).flxVB.righe(), 2);
}

TEST_F(StockPolicy, RefusedWarningSellsNothing) {
    gAvvisaSottoScorta = true;
    n.operatore.attendiDomanda(avviso("1"), OperatorPort::Risposta::No);
    EXPECT_EQ(entra(0).flxVB.righe(), 1);
}

TEST_F(StockPolicy, BlockingWinsOverWarning) {
    gBloccaSottoScorta = gAvvisaSottoScorta = true;
    n.operatore.attendiDomanda(bloccoAllIngresso("0,00"), OperatorPort::Risposta::No);
    EXPECT_EQ(entra(0).flxVB.righe(), 1);
}

TEST_F(StockPolicy, OnePieceIsSoldWithoutAWord) {
    gBloccaSottoScorta = true;
    EXPECT_EQ(entra(1).flxVB.righe(), 2);
}

TEST_F(StockPolicy, ProductWithoutStockIsNeverStopped) {
    gBloccaSottoScorta = true;
    Vendita& v = entra(0, false);
    EXPECT_EQ(v.lblGiacenza.tag(), "0");
    scriviELascia(conto(), v.txtQta, "9");
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "9,00");
}

TEST_F(StockPolicy, OptionOffStopsNothing) {
    gSottoScorta = 0;
    gBloccaSottoScorta = true;
    Vendita& v = entra(0);
    EXPECT_EQ(v.lblGiacenza.tag(), "1");
    scriviELascia(conto(), v.txtQta, "9");
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "9,00");
}

TEST_F(StockPolicy, NeitherBlockNorWarningSellsOn) {
    Vendita& v = entra(0);
    scriviELascia(conto(), v.txtQta, "9");
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "9,00");
}

TEST_F(StockPolicy, QuantityEqualToTheStockPasses) {
    gBloccaSottoScorta = true;
    Vendita& v = entra(3);
    scriviELascia(conto(), v.txtQta, "3");
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "3,00");
}

TEST_F(StockPolicy, QuantityBeyondTheStockIsRefused) {
    gBloccaSottoScorta = true;
    Vendita& v = entra(3);
    n.operatore.attendiMessaggio(
        "Impossibile scaricare la quantità desiderata per il prodotto [Pala].\nLa scorta di "
        "[3,00] è inferiore alla quantità [4,00] scelta!",
        OperatorPort::Icona::Critica);
    scriviELascia(conto(), v.txtQta, "4");
    EXPECT_EQ(v.txtQta.testo(), "1,00");
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "1,00");
    EXPECT_EQ(v.lblMainDisplay.testo(), "12,20");
}

TEST_F(StockPolicy, QuantityBeyondTheStockCanBeAccepted) {
    gAvvisaSottoScorta = true;
    Vendita& v = entra(3);
    n.operatore.attendiDomanda(avviso("4,00"), OperatorPort::Risposta::Si);
    scriviELascia(conto(), v.txtQta, "4");
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "4,00");
}

TEST_F(StockPolicy, RefusedQuantityGoesBack) {
    gAvvisaSottoScorta = true;
    Vendita& v = entra(3);
    n.operatore.attendiDomanda(avviso("4,00"), OperatorPort::Risposta::No);
    scriviELascia(conto(), v.txtQta, "4");
    EXPECT_EQ(v.txtQta.testo(), "1,00");
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "1,00");
}

TEST_F(StockPolicy, RepeatScanBeyondTheStockIsRefused) {
    gBloccaSottoScorta = true;
    Vendita& v = entra(1);
    conto().tasto(Qt::Key_F6);
    n.operatore.attendiMessaggio(
        "Impossibile scaricare la quantità desiderata per il prodotto [Pala].\nLa scorta di "
        "[1,00] è inferiore alla quantità [2,00] scelta!",
        OperatorPort::Icona::Critica);
    conto().scansiona("8001");
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "1,00");
    EXPECT_EQ(v.txtQta.testo(), "1,00");
}

TEST_F(StockPolicy, ReturnIsNeverStopped) {
    gBloccaSottoScorta = true;
    Vendita& v = entra(1);
    rendi(conto(), "9");
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "-9,00");
}

TEST_F(StockPolicy, StockOfTheChosenWarehouseCounts) {
    gGiacenzaMagazzino = 1;
    gIDMagazzino = 1;
    gBloccaSottoScorta = true;
    const int id = n.prodotto({.codice = "X", .listino1 = 10, .giacenza = 0, .gestioneGiacenza = true});
    n.sql(QString(
              "INSERT INTO DettagliProdotto (FK_PRODOTTO, FK_MAGAZZINO, TAGLIO, QUANTITA) VALUES (%1,1,4,5)")
              .arg(id));
    ContoDiProva& c = conto();
    c.digita("X");
    c.invio();
    EXPECT_EQ(c.vendita().flxVB.righe(), 2);
    EXPECT_EQ(c.vendita().lblGiacenza.testo(), "5,00");
}

// ---- Below cost: the purchase price is 9,00, the list price 10,00

struct BelowCost : testing::Test {
    Negozio n;
    int id = n.prodotto({.codice = "P", .listino1 = 10, .prezzoAcquisto = 9});
    const QString domanda = "Attenzione! Vendita sottocosto.\nContinuare?";
    Vendita& entra() {
        gSottoCosto = 1;
        gPCType = 1;
        ContoDiProva& c = n.apriConto();
        c.digita("P");
        c.invio();
        return c.vendita();
    }
    ContoDiProva& conto() { return n.apriConto(); }
};

TEST_F(BelowCost, YesSellsAndIsAskedOnceForTheRow) {
    Vendita& v = entra();
    n.operatore.attendiDomanda(domanda, OperatorPort::Risposta::Si);
    scriviELascia(conto(), v.txtSconto1, "50");
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "6,10");
    scriviELascia(conto(), v.txtSconto1, "60");
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "4,88");
}

TEST_F(BelowCost, NoToADiscountLeavesRowAndEditorAsTheyWere) {
    Vendita& v = entra();
    n.operatore.attendiDomanda(domanda, OperatorPort::Risposta::No);
    scriviELascia(conto(), v.txtSconto1, "50");
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "12,20");
    EXPECT_EQ(cella(v, 1, Colonna::Sconto1), "0,00");
    EXPECT_EQ(v.lblMainDisplay.testo(), "12,20");
    EXPECT_EQ(v.txtSconto1.testo(), "0,00");
    EXPECT_EQ(v.txtPrezzoListino.testo(), "10,00");
}

TEST_F(BelowCost, NoToAListPriceLeavesRowAndEditorAsTheyWere) {
    Vendita& v = entra();
    n.operatore.attendiDomanda(domanda, OperatorPort::Risposta::No);
    scriviELascia(conto(), v.txtPrezzoListino, "8");
    EXPECT_EQ(cella(v, 1, Colonna::PrezzoListino), "10,00");
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "12,20");
    EXPECT_EQ(v.txtPrezzoListino.testo(), "10,00");
}

TEST_F(BelowCost, RowEndedAfterANoIsNotAskedForAgain) {
    Vendita& v = entra();
    n.operatore.attendiDomanda(domanda, OperatorPort::Risposta::No);
    scrivi(conto(), v.txtSconto1, "20");
    conto().tasto(Qt::Key_F6);
    EXPECT_EQ(cella(v, 1, Colonna::PrezzoNetto), "10,00");
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "12,20");
}

TEST_F(BelowCost, PriceAtTheCostIsNotBelowIt) {
    Vendita& v = entra();
    scriviELascia(conto(), v.txtSconto1, "10");
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "10,98");
}

TEST_F(BelowCost, OptionOffAsksNothing) {
    Vendita& v = entra();
    gSottoCosto = 0;
    scriviELascia(conto(), v.txtSconto1, "50");
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "6,10");
}

TEST_F(BelowCost, NextRowAsksAgain) {
    Vendita& v = entra();
    n.operatore.attendiDomanda(domanda, OperatorPort::Risposta::Si);
    scrivi(conto(), v.txtSconto1, "50");
    conto().tasto(Qt::Key_F6);
    conto().digita("P");
    conto().invio();
    n.operatore.attendiDomanda(domanda, OperatorPort::Risposta::Si);
    scriviELascia(conto(), v.txtSconto1, "60");
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "4,88");
}

}  // namespace
