#include "doubles/kit_di_prova.h"
#include "entry_shop.h"
#include "sale/product_entry.h"

namespace {

struct EntryEdges : NegozioDiIngresso {};

// ---- Cost and margin

TEST_F(EntryEdges, CostIsUnknownToATypedCodeUntilTheMarginFillsIt) {
    strato(idA, 6, 5);
    gPCType = 1;
    n.sql("UPDATE Prodotti SET PREZZOACQUISTO = 9");
    gSottoCosto = 1;
    n.sql("UPDATE Prodotti SET LISTINO1 = 5");
    entra("A1");  // no question: the cost came after the row
    EXPECT_EQ(codiciVivi(v), QStringList{"A1"});
    EXPECT_EQ(v.lblPrezzoAcquisto.testo(), "9,00");
}

TEST_F(EntryEdges, CostIsTheOldestLayerWithStockForAnEntryByKey) {
    strato(idA, 3, 0);
    strato(idA, 6, 5);
    strato(idA, 8, 5);
    setArticoloGrid(v, QString("%1|").arg(idA));
    EXPECT_EQ(v.lblPrezzoAcquisto.testo(), "6,00");
}

TEST_F(EntryEdges, CostIsTheOldestLayerWhenNoneHasStock) {
    strato(idA, 3, 0);
    strato(idA, 6, 0);
    setArticoloGrid(v, QString("%1|").arg(idA));
    EXPECT_EQ(v.lblPrezzoAcquisto.testo(), "3,00");
}

TEST_F(EntryEdges, EntryByKeyBelowCostAsksBeforeTheRow) {
    strato(idA, 12, 5);
    gSottoCosto = 1;
    n.operatore.attendiDomanda("Attenzione! Vendita sottocosto.\nContinuare?", OperatorPort::Risposta::No);
    setArticoloGrid(v, QString("%1|").arg(idA));
    EXPECT_EQ(v.flxVB.righe(), 1);
    EXPECT_EQ(v.txtCodProdotto.chiave(), -1);
}

TEST_F(EntryEdges, MarginIsOnTheAverageOfTheLayers) {
    strato(idA, 4, 5);
    strato(idA, 6, 5);
    entra("A1");
    EXPECT_EQ(v.lblPrezzoCosto.testo(), "5,00");
    EXPECT_EQ(v.lblMargineEuro.testo(), "5,00");
    EXPECT_EQ(v.lblMarginePerc.testo(), "100,00");
}

TEST_F(EntryEdges, MarginIsOnThePurchasePriceWhereTheDeskSaysSo) {
    strato(idA, 4, 5);
    gPCType = 1;
    n.sql("UPDATE Prodotti SET PREZZOACQUISTO = 8");
    entra("A1");
    EXPECT_EQ(v.lblPrezzoCosto.testo(), "8,00");
    EXPECT_EQ(v.lblMarginePerc.testo(), "25,00");
}

TEST_F(EntryEdges, MarginWithoutACostIsNotAvailable) {
    entra("A1");
    EXPECT_EQ(v.lblPrezzoCosto.testo(), "N/D");
    EXPECT_EQ(v.lblMargineEuro.testo(), "N/D");
    EXPECT_EQ(v.lblMarginePerc.testo(), "N/D");
}

// ---- Stock in several layers of cost

TEST_F(EntryEdges, ProductInSeveralLayersIsFoundOnce) {
    gGiacenzaMagazzino = 1;
    gIDMagazzino = 1;
    n.sql("UPDATE Prodotti SET SETGIACENZA = 1");
    strato(idA, 4, 2);
    strato(idA, 6, 3);
    entra("A1");
    EXPECT_EQ(c.elenchiMostrati, QStringList{});
    EXPECT_EQ(codiciVivi(v), QStringList{"A1"});
    EXPECT_EQ(v.lblGiacenza.testo(), "5,00");
}

TEST_F(EntryEdges, EmptyLayerStopsNothingWhileAnotherHasStock) {
    gGiacenzaMagazzino = 1;
    gIDMagazzino = 1;
    gSottoScorta = 1;
    gBloccaSottoScorta = true;
    n.sql("UPDATE Prodotti SET SETGIACENZA = 1");
    strato(idA, 4, 0);
    strato(idA, 6, 3);
    entra("A1");
    EXPECT_EQ(codiciVivi(v), QStringList{"A1"});
}

TEST_F(EntryEdges, ProductsOfSeveralLayersStandOnceInTheList) {
    gGiacenzaMagazzino = 1;
    gIDMagazzino = 1;
    n.sql(QString("UPDATE Prodotti SET EXTRACODICE = 'DUE'"));
    strato(idA, 4, 2);
    strato(idA, 6, 3);
    int offerti = 0;
    c.quandoOffre = [&](Recordset& righe, const QString&) { offerti = righe.righe(); };
    c.scelte = {1};
    entra("DUE");
    EXPECT_EQ(offerti, 2);
    EXPECT_EQ(codiciVivi(v), QStringList{"B1"});
}

TEST_F(EntryEdges, SelectedRowShowsTheStockOfAllLayers) {
    gGiacenzaMagazzino = 1;
    gIDMagazzino = 1;
    strato(idA, 4, 2);
    strato(idA, 6, 3);
    vendi(c, "A1");
    c.clicRiga(1);
    c.scade(SchermoVendita::Timer::Griglia);
    EXPECT_EQ(v.lblGiacenza.testo(), "5,00");
}

// ---- A replaced product

TEST_F(EntryEdges, ReplacedProductFromASearchTouchesNoOtherRow) {
    const int vecchio = n.prodotto({.codice = "VE", .descrizione = "Vecchio", .idSostituito = idB});
    vendi(c, "A1");
    n.operatore.attendiDomanda(
        "Il prodotto [Vecchio] è stato sostituito.\nScegliere quello relativo [B1 - Pinza]?",
        OperatorPort::Risposta::Si);
    setArticoloGrid(v, QString("%1|").arg(vecchio));
    EXPECT_EQ(codiciVivi(v), (QStringList{"A1", "B1"}));
}

// ---- Repeat and below cost

TEST_F(EntryEdges, RepeatScanBelowCostAsksAndNoLeavesTheRow) {
    gSottoCosto = 1;
    gPCType = 1;
    n.sql("UPDATE Prodotti SET PREZZOACQUISTO = 15 WHERE CODICE = 'A1'");
    c.scansiona("8001");
    n.operatore.attendiDomanda("Attenzione! Vendita sottocosto.\nContinuare?", OperatorPort::Risposta::No);
    c.scansiona("8001");
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "1,00");
    EXPECT_EQ(v.txtQta.testo(), "1,00");
    EXPECT_EQ(v.lblMainDisplay.testo(), "12,20");
}

TEST_F(EntryEdges, FixedDiscountStaysOverARepeatScan) {
    n.sql("UPDATE Prodotti SET SCONTO = 10 WHERE CODICE = 'A1'");
    c.scansiona("8001");
    c.scansiona("8001");
    EXPECT_EQ(cella(v, 1, Colonna::ScontoTesto), "10,00+0,00+0,00");
    EXPECT_EQ(v.lblMainDisplay.testo(), "21,96");
}

TEST_F(EntryEdges, EnterCanLeaveTheRowInTheEditor) {
    gDisabilitaInvio = 1;
    entra("A1");
    scrivi(c, v.txtPrezzoNetto, "8");
    c.invio();
    EXPECT_EQ(v.txtCodProdotto.testo(), "A1");
    EXPECT_EQ(c.fuocoSu(), &v.txtCodProdotto);
    EXPECT_EQ(v.lblMainDisplay.testo(), "9,76");
}

TEST_F(EntryEdges, EnterOnThePriceEndsTheRow) {
    entra("A1");
    scrivi(c, v.txtPrezzoNetto, "8");
    c.invio();
    EXPECT_EQ(v.txtCodProdotto.testo(), "");
    EXPECT_EQ(v.lblMainDisplay.testo(), "9,76");
}

// ---- Returns

TEST_F(EntryEdges, EmptyShelfAnsweredWithAReturnIsOneAtOnce) {
    gSottoScorta = 1;
    gBloccaSottoScorta = true;
    n.sql("UPDATE Prodotti SET SETGIACENZA = 1 WHERE CODICE = 'A1'");
    n.operatore.attendiDomanda(
        "Impossibile scaricare il prodotto [Martello].\nLa scorta di [0,00] è inferiore al limite "
        "consentito.\nSi desidera effettuare il reso?",
        OperatorPort::Risposta::Si);
    c.scansiona("8001");
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "-1,00");
    EXPECT_EQ(v.lblMainDisplay.testo(), "-12,20");
    c.scansiona("8002");
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "-1,00");
    EXPECT_EQ(v.lblMainDisplay.testo(), "12,20");
}

TEST_F(EntryEdges, ReturnedPriceStaysPositiveAndItsRowNegative) {
    entra("A1");
    c.tasto(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(cella(v, 1, Colonna::PrezzoListino), "10,00");
    EXPECT_EQ(cella(v, 1, Colonna::PrezzoNetto), "10,00");
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "-12,20");
}

TEST_F(EntryEdges, TickOfAReturnIsOfTheRowAndNotOfTheSale) {
    entra("A1");
    c.tasto(Qt::Key_F6, Qt::ShiftModifier);
    c.tasto(Qt::Key_F6);
    EXPECT_EQ(v.chkReso.valore(), 0);
    vendi(c, "B1");
    EXPECT_EQ(cella(v, 2, Colonna::Quantita), "1,00");
}

TEST_F(EntryEdges, SelectedReturnTicksTheReturnAndShowsItsPieces) {
    entra("A1");
    rendi(c, "2");
    c.clicRiga(1);
    EXPECT_EQ(v.chkReso.valore(), 1);
    EXPECT_EQ(v.txtQta.testo(), "2,00");
}

// ---- The archive changes while a product is in the editor

TEST_F(EntryEdges, ProductDeletedMeanwhileCanStillBeCounted) {
    entra("A1");
    n.sql(QString("DELETE FROM Prodotti WHERE RID = %1").arg(idA));
    scrivi(c, v.txtQta, "3");
    c.tasto(Qt::Key_F6);
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "3,00");
    EXPECT_EQ(v.lblMainDisplay.testo(), "36,60");
}

TEST_F(EntryEdges, ProductDeletedMeanwhileIsNotFoundAgain) {
    entra("A1");
    c.tasto(Qt::Key_F6);
    n.sql(QString("DELETE FROM Prodotti WHERE RID = %1").arg(idA));
    entra("A1");
    EXPECT_EQ(n.operatore.pause, std::vector<int>{500});
    EXPECT_EQ(codiciVivi(v), QStringList{"A1"});
}

TEST_F(EntryEdges, ProductWithoutAVatCodeIsSoldWithoutVat) {
    n.sql("UPDATE Prodotti SET FK_IVA = NULL WHERE CODICE = 'A1'");
    entra("A1");
    EXPECT_EQ(cella(v, 1, Colonna::Iva), "0,00");
    EXPECT_EQ(cella(v, 1, Colonna::IdIva), "");
    EXPECT_EQ(v.lblMainDisplay.testo(), "10,00");
}

// ---- A row is written whole or not at all

TEST_F(EntryEdges, QuantityBeyondEveryAmountLeavesTheRowAsItWas) {
    entra("A1");
    n.operatore.attendiAvviso("frmMain.txtQta_LostFocus");
    scriviELascia(c, v.txtQta, QString(30, '9'));
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "1,00");
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "12,20");
    EXPECT_EQ(v.lblMainDisplay.testo(), "12,20");
    EXPECT_EQ(v.flxVB.righe(), 2);
}

TEST_F(EntryEdges, DiscountThatMakesAnAmountUnreadableStopsNoLaterScan) {
    entra("A1");
    n.operatore.attendiAvviso("frmMain.txtSconto1_LostFocus");
    scriviELascia(c, v.txtSconto1, "-" + QString(20, '9'));
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "12,20");
    c.scansiona("8002");
    EXPECT_EQ(codiciVivi(v), (QStringList{"A1", "B1"}));
    EXPECT_EQ(v.lblMainDisplay.testo(), "36,60");
}

TEST_F(EntryEdges, ProductWhoseAmountOverflowsGivesNoRow) {
    n.sql("UPDATE Prodotti SET LISTINO1 = 900000000000000 WHERE CODICE = 'A1'");
    n.operatore.attendiAvviso("frmMain.getProdotto");
    entra("A1");
    EXPECT_EQ(v.flxVB.righe(), 1);
}

// ---- Marks of a row

TEST_F(EntryEdges, RowAtItsListPriceHasNoMark) {
    vendi(c, "A1");
    EXPECT_FALSE(v.flxVB.index(0, 0).data(FlexVB::RuoloPrezzoCambiato).toBool());
}

TEST_F(EntryEdges, RowWhosePriceWasChangedSaysSo) {
    entra("A1");
    scrivi(c, v.txtPrezzoListino, "8");
    c.tasto(Qt::Key_F6);
    EXPECT_TRUE(v.flxVB.index(0, 0).data(FlexVB::RuoloPrezzoCambiato).toBool());
}

TEST_F(EntryEdges, PriceThatIsSetBackFollowsTheListAgain) {
    entra("A1");
    scriviELascia(c, v.txtPrezzoListino, "8");
    scriviELascia(c, v.txtPrezzoListino, "10");
    EXPECT_FALSE(v.flxVB.index(0, 0).data(FlexVB::RuoloPrezzoCambiato).toBool());
}

TEST_F(EntryEdges, RowThatCostsNothingSaysSo) {
    n.sql("UPDATE Prodotti SET LISTINO1 = 0 WHERE CODICE = 'A1'");
    vendi(c, "A1");
    EXPECT_TRUE(v.flxVB.index(0, 0).data(FlexVB::RuoloPrezzoZero).toBool());
}

TEST_F(EntryEdges, RowOfALockedPriceSaysSo) {
    n.sql("UPDATE Prodotti SET BLOCCAPREZZO = 1 WHERE CODICE = 'A1'");
    vendi(c, "A1");
    EXPECT_TRUE(v.flxVB.index(0, 0).data(FlexVB::RuoloPrezzoBloccato).toBool());
}

}  // namespace
