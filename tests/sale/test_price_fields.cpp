#include "gesti.h"
#include "sale/row_editor.h"

namespace {

struct PriceFields : testing::Test {
    Negozio n;
    int id = n.prodotto({.codice = "P", .listino1 = 10});
    ContoDiProva* conto = nullptr;
    Vendita* vendita = nullptr;

    // The product is in the editor; list 10,00, VAT 22.
    void entra(int prezzoType = 0) {
        gPrezzoType = prezzoType;
        conto = &n.apriConto();
        vendita = &conto->vendita();
        conto->digita("P");
        conto->invio();
    }
    QString nella(Colonna colonna) const { return cella(*vendita, 1, colonna); }
    bool editorVuoto() const {
        return vendita->lblPos.testo() == "-1" && vendita->txtCodProdotto.chiave() == -1;
    }
};

// ---- List price

TEST_F(PriceFields, ListPriceReprisesTheRowAndKeepsItInTheEditor) {
    entra();
    scriviELascia(*conto, vendita->txtPrezzoListino, "12");
    EXPECT_EQ(vendita->txtPrezzoListino.testo(), "12,00");
    EXPECT_EQ(nella(Colonna::PrezzoListino), "12,00");
    EXPECT_EQ(nella(Colonna::Importo), "14,64");
    EXPECT_EQ(vendita->lblMainDisplay.testo(), "14,64");
    EXPECT_EQ(vendita->lblPrezzoListino.testo(), "12,00");
    EXPECT_EQ(vendita->lblPos.testo(), "1");
}

TEST_F(PriceFields, ListPriceKeepsTheDiscounts) {
    entra();
    scrivi(*conto, vendita->txtSconto1, "10");
    scriviELascia(*conto, vendita->txtPrezzoListino, "20");
    EXPECT_EQ(nella(Colonna::Sconto1), "10,00");
    EXPECT_EQ(nella(Colonna::PrezzoNetto), "18,00");
    EXPECT_EQ(nella(Colonna::Importo), "21,96");
}

TEST_F(PriceFields, ListPriceWithoutAProductDoesNothing) {
    conto = &n.apriConto();
    vendita = &conto->vendita();
    scriviELascia(*conto, vendita->txtPrezzoListino, "12");
    EXPECT_EQ(vendita->flxVB.righe(), 1);
    EXPECT_EQ(vendita->txtPrezzoNetto.testo(), "0,00");
}

TEST_F(PriceFields, GrossListPriceIsTakenBackWithSixDecimals) {
    gPrezzoListinoLordo = 1;
    entra();
    // 10 / 1,22 = 8,196721.
    scriviELascia(*conto, vendita->txtPrezzoListinoLordo, "10");
    EXPECT_EQ(vendita->txtPrezzoListino.testo(), "8,196721");
    EXPECT_EQ(nella(Colonna::PrezzoListino), "8,20");
    EXPECT_EQ(vendita->txtPrezzoNetto.tag(), "8,1967");
    EXPECT_EQ(nella(Colonna::Importo), "10,00");
    EXPECT_EQ(vendita->lblPrezzoListinoLordo.testo(), "10,00");
}

TEST_F(PriceFields, WorkstationShowsOneOfTheTwoListPrices) {
    entra();
    EXPECT_TRUE(vendita->txtPrezzoListino.visibile());
    EXPECT_FALSE(vendita->txtPrezzoListinoLordo.visibile());
}

TEST_F(PriceFields, WorkstationShowsTheGrossListPrice) {
    gPrezzoListinoLordo = 1;
    entra();
    EXPECT_FALSE(vendita->txtPrezzoListino.visibile());
    EXPECT_TRUE(vendita->txtPrezzoListinoLordo.visibile());
}

class PriceAtTheEnd : public testing::TestWithParam<int> {};

TEST_P(PriceAtTheEnd, IsTheOneThatTheWorkstationChose) {
    Negozio n;
    gPrezzoType = GetParam();
    Vendita& v = n.apriConto().vendita();
    const Campo* prezzi[] = {&v.txtPrezzoNetto, &v.txtPrezzoFinito, &v.TxtPrezzoRiga};
    const char* didascalie[] = {"P.NET", "P.FIN", "P.TOT"};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(prezzi[i]->visibile(), i == GetParam()) << i;
    }
    EXPECT_EQ(v.cmdConto[12].testo(), didascalie[GetParam()]);
}

INSTANTIATE_TEST_SUITE_P(PrezzoType, PriceAtTheEnd, testing::Values(0, 1, 2));

TEST(PriceBox, StaysAsItIsWhenTheSettingNamesNone) {
    Negozio n;
    gPrezzoType = 1;
    Vendita& v = n.apriConto().vendita();
    for (const int ignoto : {-1, 3}) {
        gPrezzoType = ignoto;
        impostaCampiPrezzo(v);
        EXPECT_FALSE(v.txtPrezzoNetto.visibile());
        EXPECT_TRUE(v.txtPrezzoFinito.visibile());
        EXPECT_FALSE(v.TxtPrezzoRiga.visibile());
        EXPECT_EQ(v.cmdConto[12].testo(), "P.FIN");
    }
}

// ---- Net price

TEST_F(PriceFields, NetPriceBecomesTheListPriceAndEndsTheRow) {
    entra();
    scrivi(*conto, vendita->txtPrezzoNetto, "8");
    conto->invio();
    EXPECT_EQ(nella(Colonna::PrezzoListino), "8,00");
    EXPECT_EQ(nella(Colonna::Importo), "9,76");
    EXPECT_EQ(vendita->lblMainDisplay.testo(), "9,76");
    EXPECT_TRUE(editorVuoto());
    EXPECT_EQ(conto->fuocoSu(), &vendita->txtCodProdotto);
}

TEST_F(PriceFields, UnchangedNetPriceEndsTheRowToo) {
    entra();
    conto->clic(vendita->txtPrezzoNetto);
    conto->invio();
    EXPECT_TRUE(editorVuoto());
    EXPECT_EQ(nella(Colonna::Importo), "12,20");
}

TEST_F(PriceFields, OneCentAwayKeepsTheDiscounts) {
    entra();
    scrivi(*conto, vendita->txtSconto1, "10");
    scrivi(*conto, vendita->txtPrezzoNetto, "9,01");
    conto->invio();
    EXPECT_EQ(nella(Colonna::Sconto1), "10,00");
    EXPECT_EQ(nella(Colonna::PrezzoListino), "10,00");
}

TEST_F(PriceFields, OneCentBelowKeepsTheDiscounts) {
    entra();
    scrivi(*conto, vendita->txtSconto1, "10");
    scrivi(*conto, vendita->txtPrezzoNetto, "8,99");
    conto->invio();
    EXPECT_EQ(nella(Colonna::Sconto1), "10,00");
}

TEST_F(PriceFields, TwoCentsAwayDropTheDiscounts) {
    entra();
    scrivi(*conto, vendita->txtSconto1, "10");
    scrivi(*conto, vendita->txtPrezzoNetto, "9,02");
    conto->invio();
    EXPECT_EQ(nella(Colonna::ScontoTesto), "0,00+0,00+0,00");
    EXPECT_EQ(nella(Colonna::PrezzoListino), "9,02");
    EXPECT_EQ(nella(Colonna::Importo), "11,00");  // 11,0044
}

TEST_F(PriceFields, NetPriceRenewsTheRowTotalButNotTheFinalPrice) {
    entra();
    scrivi(*conto, vendita->txtQta, "3");
    gDisabilitaInvio = 1;
    scrivi(*conto, vendita->txtPrezzoNetto, "8");
    conto->invio();
    EXPECT_EQ(vendita->TxtPrezzoRiga.testo(), "29,28");  // 9,76 x 3
    EXPECT_EQ(vendita->txtPrezzoFinito.testo(), "12,20");
}

TEST_F(PriceFields, RowStaysInTheEditorWhenEnterDoesNotEndIt) {
    gDisabilitaInvio = 1;
    entra();
    scrivi(*conto, vendita->txtPrezzoNetto, "8");
    conto->invio();
    EXPECT_EQ(nella(Colonna::Importo), "9,76");
    EXPECT_EQ(vendita->lblPos.testo(), "1");
    EXPECT_EQ(vendita->txtCodProdotto.chiave(), id);
    EXPECT_EQ(conto->fuocoSu(), &vendita->txtCodProdotto);
}

TEST_F(PriceFields, EmptiedNetPriceIsZero) {
    entra();
    conto->clic(vendita->txtPrezzoNetto);
    vendita->txtPrezzoNetto.testo({});
    conto->invio();
    EXPECT_EQ(nella(Colonna::Importo), "0,00");
}

TEST_F(PriceFields, NetPriceSetByHandIsTheOneThatIsStored) {
    entra();
    scrivi(*conto, vendita->txtQta, "3");
    scrivi(*conto, vendita->txtSconto1, "10");
    scrivi(*conto, vendita->txtPrezzoNetto, "8");
    conto->invio();
    EXPECT_EQ(nella(Colonna::PrezzoNetto), "8,00");
    EXPECT_EQ(nella(Colonna::PrezzoNettoEsteso), "8");
    EXPECT_EQ(nella(Colonna::TotPrNetto), "24");
}

TEST_F(PriceFields, NetPriceSetByHandIsShownWhenTheRowIsRecalled) {
    entra();
    scrivi(*conto, vendita->txtPrezzoNetto, "8");
    conto->invio();
    conto->clicRiga(1);
    EXPECT_EQ(vendita->txtPrezzoNetto.testo(), "8,00");
    conto->tasto(Qt::Key_F6);
    EXPECT_EQ(nella(Colonna::PrezzoListino), "8,00");
    EXPECT_EQ(nella(Colonna::Importo), "9,76");
}

TEST_F(PriceFields, NetPriceSetByHandKeepsTheAmountsOfTheLastComputation) {
    entra();
    scrivi(*conto, vendita->txtSconto1, "10");
    scrivi(*conto, vendita->txtPrezzoNetto, "8");
    conto->invio();
    EXPECT_EQ(vendita->flxVB.currency(1, Colonna::ScNetto), Currency::daIntero(1));
    EXPECT_EQ(vendita->flxVB.currency(1, Colonna::IvaProd), Currency::daScalato(19800));
}

TEST_F(PriceFields, NetPriceWithinACentIsNotTheRowsPrice) {
    entra();
    scrivi(*conto, vendita->txtSconto1, "10");
    scrivi(*conto, vendita->txtPrezzoNetto, "9,01");
    conto->invio();
    EXPECT_EQ(nella(Colonna::PrezzoNetto), "9,00");
    EXPECT_EQ(nella(Colonna::Importo), "10,98");
}

TEST_F(PriceFields, LockedPriceEndsTheRowToo) {
    n.sql("UPDATE Prodotti SET BLOCCAPREZZO = 1");
    entra();
    conto->clic(vendita->txtPrezzoNetto);
    conto->invio();
    EXPECT_TRUE(editorVuoto());
    EXPECT_EQ(nella(Colonna::Importo), "12,20");
}

// ---- Final price and row total

TEST_F(PriceFields, FinalPriceGivesTheNetPrice) {
    entra(1);
    scrivi(*conto, vendita->txtPrezzoFinito, "6,10");
    conto->invio();
    EXPECT_EQ(nella(Colonna::PrezzoListino), "5,00");
    EXPECT_EQ(nella(Colonna::Importo), "6,10");
    EXPECT_TRUE(editorVuoto());
}

TEST_F(PriceFields, FinalPriceIsTheOneThatIsStored) {
    entra(1);
    scrivi(*conto, vendita->txtQta, "3");
    scrivi(*conto, vendita->txtPrezzoFinito, "10");
    conto->invio();
    EXPECT_EQ(nella(Colonna::PrezzoNetto), "8,20");
    EXPECT_EQ(nella(Colonna::PrezzoNettoEsteso), "8,2");
    EXPECT_EQ(nella(Colonna::TotPrNetto), "24,6");
}

TEST_F(PriceFields, UnchangedFinalPriceEndsTheRowToo) {
    entra(1);
    conto->clic(vendita->txtPrezzoFinito);
    conto->invio();
    EXPECT_TRUE(editorVuoto());
    EXPECT_EQ(nella(Colonna::Importo), "12,20");
}

TEST_F(PriceFields, UnchangedRowTotalEndsTheRowToo) {
    entra(2);
    conto->clic(vendita->TxtPrezzoRiga);
    conto->invio();
    EXPECT_TRUE(editorVuoto());
    EXPECT_EQ(nella(Colonna::Importo), "12,20");
}

TEST_F(PriceFields, RowTotalOfNoPiecesDoesNothing) {
    entra(2);
    vendita->txtQta.testoETag("0,00");
    scrivi(*conto, vendita->TxtPrezzoRiga, "40");
    conto->invio();
    EXPECT_FALSE(editorVuoto());
    EXPECT_EQ(nella(Colonna::Importo), "12,20");
    EXPECT_EQ(vendita->txtPrezzoNetto.testo(), "10,00");
}

TEST_F(PriceFields, FinalPriceOfManyPiecesPassesThroughTheShownNetPrice) {
    entra(1);
    scrivi(*conto, vendita->txtQta, "3");
    // 10 / 1,22 = 8,1967, shown 8,20; 8,20 x 1,22 x 3 = 30,012.
    scrivi(*conto, vendita->txtPrezzoFinito, "10");
    conto->invio();
    EXPECT_EQ(nella(Colonna::PrezzoListino), "8,20");
    EXPECT_EQ(nella(Colonna::Importo), "30,01");
}

TEST_F(PriceFields, RowTotalGivesTheUnitPrice) {
    entra(2);
    scrivi(*conto, vendita->txtQta, "4");
    // 40 / 1,22 / 4 = 8,1967, shown 8,20; 8,20 x 4 x 1,22 = 40,016.
    scrivi(*conto, vendita->TxtPrezzoRiga, "40");
    conto->invio();
    EXPECT_EQ(nella(Colonna::PrezzoListino), "8,20");
    EXPECT_EQ(nella(Colonna::PrezzoNetto), "8,20");
    EXPECT_EQ(nella(Colonna::Importo), "40,02");
    EXPECT_TRUE(editorVuoto());
}

TEST_F(PriceFields, RowTotalDropsTheDiscounts) {
    entra(2);
    scrivi(*conto, vendita->txtSconto1, "10");
    scrivi(*conto, vendita->TxtPrezzoRiga, "6,10");
    conto->invio();
    EXPECT_EQ(nella(Colonna::ScontoTesto), "0,00+0,00+0,00");
    EXPECT_EQ(nella(Colonna::PrezzoListino), "5,00");
    EXPECT_EQ(nella(Colonna::Importo), "6,10");
}

TEST_F(PriceFields, RowTotalOfAReturnIsNegative) {
    entra(2);
    vendita->chkReso.valore(1);
    scrivi(*conto, vendita->txtQta, "2");
    scrivi(*conto, vendita->TxtPrezzoRiga, "12,20");
    conto->invio();
    EXPECT_EQ(nella(Colonna::Quantita), "-2,00");
    EXPECT_EQ(nella(Colonna::PrezzoListino), "5,00");
    EXPECT_EQ(nella(Colonna::Importo), "-12,20");
}

TEST_F(PriceFields, RowTotalOfAReturnShowsItsSign) {
    gDisabilitaInvio = 1;
    entra(2);
    vendita->chkReso.valore(1);
    scrivi(*conto, vendita->txtQta, "2");
    scrivi(*conto, vendita->TxtPrezzoRiga, "12,20");
    conto->invio();
    EXPECT_EQ(vendita->TxtPrezzoRiga.testo(), "-12,20");
}

TEST_F(PriceFields, FinalPriceOfAReturnStaysPositive) {
    gDisabilitaInvio = 1;
    entra(1);
    vendita->chkReso.valore(1);
    scrivi(*conto, vendita->txtQta, "1");
    conto->clic(vendita->txtPrezzoFinito);
    vendita->txtPrezzoFinito.testo("-6,10");
    conto->invio();
    EXPECT_EQ(vendita->txtPrezzoFinito.testo(), "6,10");
    EXPECT_EQ(nella(Colonna::Importo), "-6,10");
}

TEST_F(PriceFields, NetPriceOfAReturnStaysPositive) {
    gDisabilitaInvio = 1;
    entra();
    vendita->chkReso.valore(1);
    scrivi(*conto, vendita->txtQta, "1");
    conto->clic(vendita->txtPrezzoNetto);
    vendita->txtPrezzoNetto.testo("-5,00");
    conto->invio();
    EXPECT_EQ(vendita->txtPrezzoNetto.testo(), "5,00");
    EXPECT_EQ(nella(Colonna::Importo), "-6,10");
}

// ---- Discounts

class DiscountField : public testing::TestWithParam<int> {};

TEST_P(DiscountField, ReprisesTheRowAndKeepsItInTheEditor) {
    Negozio n;
    n.prodotto({.codice = "P", .listino1 = 10});
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();
    c.digita("P");
    c.invio();
    Campo* sconti[] = {&v.txtSconto1, &v.txtSconto2, &v.txtSconto3};
    scriviELascia(c, *sconti[GetParam()], "12,5");
    EXPECT_EQ(sconti[GetParam()]->testo(), "12,50");
    EXPECT_EQ(cella(v, 1, Colonna::PrezzoNetto), "8,75");
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "10,68");  // 10,675
    EXPECT_EQ(v.lblPos.testo(), "1");
}

INSTANTIATE_TEST_SUITE_P(AllThree, DiscountField, testing::Values(0, 1, 2));

TEST_F(PriceFields, EmptiedDiscountIsZero) {
    entra();
    scriviELascia(*conto, vendita->txtSconto1, "10");
    conto->clic(vendita->txtSconto1);
    vendita->txtSconto1.testo("  ");
    conto->clic(vendita->txtDescProdotto);
    EXPECT_EQ(vendita->txtSconto1.testo(), "0,00");
    EXPECT_EQ(nella(Colonna::Importo), "12,20");
}

TEST_F(PriceFields, NegativeDiscountRaisesThePrice) {
    entra();
    conto->clic(vendita->txtSconto1);
    vendita->txtSconto1.testo("-10");
    conto->clic(vendita->txtDescProdotto);
    EXPECT_EQ(nella(Colonna::ScontoTesto), "0,00+0,00+0,00");
    EXPECT_EQ(nella(Colonna::PrezzoListino), "11,00");
    EXPECT_EQ(nella(Colonna::Importo), "13,42");
}

TEST_F(PriceFields, FullDiscountGivesAFreeRow) {
    entra();
    scriviELascia(*conto, vendita->txtSconto1, "100");
    EXPECT_EQ(nella(Colonna::PrezzoNetto), "0,00");
    EXPECT_EQ(nella(Colonna::Importo), "0,00");
    EXPECT_EQ(nella(Colonna::PrezzoListino), "10,00");
}

TEST_F(PriceFields, UnchangedDiscountAsksTheServerNothing) {
    entra();
    conto->clic(vendita->txtSconto1);
    ContaIstruzioni conta;
    conto->clic(vendita->txtSconto2);
    EXPECT_EQ(conta.istruzioni, QStringList{});
}

// ---- VAT

TEST_F(PriceFields, OtherVatRateReprisesTheRow) {
    entra();
    scriviELascia(*conto, vendita->txtIVA, "10");
    EXPECT_EQ(nella(Colonna::Iva), "10,00");
    EXPECT_EQ(nella(Colonna::CodIva), "10");
    EXPECT_EQ(nella(Colonna::IdIva), "2");
    EXPECT_EQ(nella(Colonna::PrezzoListino), "10,00");
    EXPECT_EQ(nella(Colonna::Importo), "11,00");
    EXPECT_EQ(vendita->lblIVA.testo(), "Iva 10%");
}

TEST_F(PriceFields, UnknownVatCodeChangesNothing) {
    entra();
    scriviELascia(*conto, vendita->txtIVA, "99");
    EXPECT_EQ(vendita->lblCodIva.testo(), "22");
    EXPECT_EQ(vendita->lblValoraIva.testo(), "22,00");
    EXPECT_EQ(nella(Colonna::CodIva), "22");
    EXPECT_EQ(nella(Colonna::Importo), "12,20");
}

TEST_F(PriceFields, EmptiedVatCodeIsTheOneOfItsKey) {
    entra();
    conto->clic(vendita->txtIVA);
    vendita->txtIVA.tag("2");
    vendita->txtIVA.testo({});
    conto->clic(vendita->txtDescProdotto);
    EXPECT_EQ(vendita->txtIVA.testo(), "10");
    EXPECT_EQ(nella(Colonna::CodIva), "10");
    EXPECT_EQ(nella(Colonna::Importo), "11,00");
}

TEST_F(PriceFields, EmptiedVatCodeWithoutAKeyChangesNothing) {
    entra();
    conto->clic(vendita->txtIVA);
    vendita->txtIVA.tag("-1");
    vendita->txtIVA.testo({});
    conto->clic(vendita->txtDescProdotto);
    EXPECT_EQ(nella(Colonna::CodIva), "22");
    EXPECT_EQ(nella(Colonna::Importo), "12,20");
}

TEST_F(PriceFields, VatRateUnderPricesWithVatKeepsTheRowTotal) {
    entra();
    vendita->chkPrezziIva.valore(1);
    // 12,20 / 1,10 = 11,0909; 11,09 x 1,10 = 12,199.
    scriviELascia(*conto, vendita->txtIVA, "10");
    EXPECT_EQ(nella(Colonna::PrezzoListino), "11,09");
    EXPECT_EQ(nella(Colonna::Importo), "12,20");
}

TEST_F(PriceFields, PriceModeIsFixedOnceThereIsARow) {
    conto = &n.apriConto();
    EXPECT_TRUE(conto->vendita().chkPrezziIva.abilitato());
    entra();
    EXPECT_FALSE(vendita->chkPrezziIva.abilitato());
}

// ---- Quantity

TEST_F(PriceFields, QuantityReprisesTheRow) {
    entra();
    scriviELascia(*conto, vendita->txtQta, "2,5");
    EXPECT_EQ(vendita->txtQta.testo(), "2,50");
    EXPECT_EQ(nella(Colonna::Quantita), "2,50");
    EXPECT_EQ(nella(Colonna::Importo), "30,50");
    EXPECT_EQ(vendita->TxtPrezzoRiga.testo(), "30,50");
}

TEST_F(PriceFields, AmountsOfTheRowFollowTheQuantity) {
    entra();
    scrivi(*conto, vendita->txtSconto1, "10");
    scriviELascia(*conto, vendita->txtQta, "7");
    const FlexVB& g = vendita->flxVB;
    EXPECT_EQ(g.currency(1, Colonna::ScNetto), Currency::daIntero(1));
    EXPECT_EQ(g.currency(1, Colonna::TotPrNetto), Currency::daIntero(63));
    EXPECT_EQ(g.currency(1, Colonna::IvaProd), Currency::daScalato(19800));      // 1,98
    EXPECT_EQ(g.currency(1, Colonna::TotIvaProd), Currency::daScalato(138600));  // 13,86
}

}  // namespace
