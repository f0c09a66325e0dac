#include "gesti.h"
#include "sale/product_entry.h"
#include "sale/product_row.h"

namespace {

struct ProductEntry : testing::Test {
    Negozio n;
    int idA = n.prodotto({.codice = "A1",
                          .listino1 = 10,
                          .barcode = "8001",
                          .descrizione = "Martello",
                          .extraCodice = "EX-1"});
    int idB = n.prodotto({.codice = "B1", .listino1 = 20, .barcode = "8002"});
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();
};

TEST_F(ProductEntry, TypedCodeGivesARowThatIsToBeSaved) {
    c.digita("A1");
    c.invio();
    ASSERT_EQ(v.flxVB.righe(), 2);
    EXPECT_EQ(cella(v, 1, Colonna::Codice), "A1");
    EXPECT_EQ(v.flxVB.chiave(1, Colonna::IdProdotto), idA);
    EXPECT_EQ(cella(v, 1, Colonna::Descrizione), "Martello");
    EXPECT_EQ(cella(v, 1, Colonna::Marca), "MA");
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "1,00");
    EXPECT_EQ(cella(v, 1, Colonna::OldQuantita), "0");
    EXPECT_EQ(v.flxVB.gestione(1), RigaNuova);
    EXPECT_EQ(cella(v, 1, Colonna::Key), "");
    EXPECT_EQ(cella(v, 1, Colonna::Rid), "");
    EXPECT_EQ(cella(v, 1, Colonna::IdDistintaBase), "");
}

TEST_F(ProductEntry, RowCarriesPricesVatAndUnit) {
    c.digita("A1");
    c.invio();
    EXPECT_EQ(cella(v, 1, Colonna::PrezzoListino), "10,00");
    EXPECT_EQ(cella(v, 1, Colonna::PrezzoNetto), "10,00");
    EXPECT_EQ(v.flxVB.currency(1, Colonna::PrezzoNettoEsteso), Currency::daIntero(10));
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "12,20");
    EXPECT_EQ(cella(v, 1, Colonna::ScontoTesto), "0,00+0,00+0,00");
    EXPECT_EQ(cella(v, 1, Colonna::Iva), "22,00");
    EXPECT_EQ(cella(v, 1, Colonna::CodIva), "22");
    EXPECT_EQ(v.flxVB.chiave(1, Colonna::IdIva), 1);
    EXPECT_EQ(cella(v, 1, Colonna::DescIva), "Iva 22%");
    EXPECT_EQ(cella(v, 1, Colonna::Um), "PZ");
    EXPECT_EQ(v.flxVB.chiave(1, Colonna::IdUm), 1);
    EXPECT_EQ(v.flxVB.currency(1, Colonna::BloccaPrezzo), Currency());
}

TEST_F(ProductEntry, EditorShowsTheProductAndWaitsForTheQuantity) {
    c.digita("A1");
    c.invio();
    EXPECT_EQ(c.fuocoSu(), &v.txtQta);
    EXPECT_EQ(v.txtCodProdotto.testo(), "A1");
    EXPECT_EQ(v.txtCodProdotto.chiave(), idA);
    EXPECT_EQ(v.lblCodProdotto.testo(), "A1");
    EXPECT_EQ(v.txtDescProdotto.testo(), "Martello");
    EXPECT_EQ(v.txtPrezzoListinoLordo.testo(), "12,20");
    EXPECT_EQ(v.txtIVA.testo(), "22");
    EXPECT_EQ(v.lblPos.testo(), "1");
    EXPECT_EQ(v.lblMainDisplay.testo(), "12,20");
    EXPECT_TRUE(v.venditaModificata);
    EXPECT_TRUE(v.mRigaDaCodice);
}

TEST_F(ProductEntry, ScreenPaintsAgainAndTheHourglassIsGoneAfterEveryOutcome) {
    for (const char* codice : {"A1", "NONCE"}) {
        c.digita(codice);
        c.invio();
        EXPECT_TRUE(c.ridisegnoAcceso()) << codice;
        EXPECT_EQ(n.operatore.clessidre, 0) << codice;
        c.tasto(Qt::Key_F6);
    }
}

TEST_F(ProductEntry, BarcodeFindsTheProductAndShowsItsCode) {
    c.digita("8001");
    c.invio();
    ASSERT_EQ(codiciVivi(v), QStringList{"A1"});
    EXPECT_EQ(v.txtCodProdotto.testo(), "A1");
}

TEST_F(ProductEntry, ExtraCodeFindsTheProduct) {
    c.digita("EX-1");
    c.invio();
    EXPECT_EQ(codiciVivi(v), QStringList{"A1"});
}

TEST_F(ProductEntry, CodeIsFoundWhateverItsCase) {
    c.digita("a1");
    c.invio();
    EXPECT_EQ(codiciVivi(v), QStringList{"A1"});
    EXPECT_EQ(v.txtCodProdotto.testo(), "A1");
}

TEST_F(ProductEntry, ScanNeedsNoKeyButThePrefix) {
    c.scansiona("8001");
    c.scansiona("8002");
    EXPECT_EQ(codiciVivi(v), (QStringList{"A1", "B1"}));
    EXPECT_FALSE(v.mDaLaser);
}

TEST_F(ProductEntry, ScanFromAnotherFieldGoesToTheCodeBox) {
    c.clic(v.txtSconto1);
    c.scansiona("8001");
    EXPECT_EQ(codiciVivi(v), QStringList{"A1"});
    EXPECT_EQ(v.txtSconto1.testo(), "0,00");
}

TEST_F(ProductEntry, PrefixDropsAHalfTypedCode) {
    c.digita("B");
    c.scansiona("8001");
    EXPECT_EQ(codiciVivi(v), QStringList{"A1"});
}

TEST_F(ProductEntry, PrefixEndsTheFieldBeingTypedIn) {
    c.scansiona("8001");
    scrivi(c, v.txtQta, "3");
    c.scansiona("8002");
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "3,00");
    EXPECT_EQ(cella(v, 2, Colonna::Codice), "B1");
    EXPECT_EQ(v.lblMainDisplay.testo(), "61,00");  // 3 x 12,20 + 24,40
}

TEST_F(ProductEntry, F6EndsTheFieldBeingTypedIn) {
    c.scansiona("8001");
    scrivi(c, v.txtQta, "4");
    c.tasto(Qt::Key_F6);
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "4,00");
    EXPECT_EQ(v.txtCodProdotto.chiave(), -1);
    EXPECT_EQ(c.fuocoSu(), &v.txtCodProdotto);
}

TEST_F(ProductEntry, ScannedBarcodeIsNeverMatchedInPart) {
    v.chkCodiceProdotto.valore(1);
    c.digita("800");
    c.invio();
    EXPECT_EQ(v.flxVB.righe(), 1);
}

TEST_F(ProductEntry, WildcardSearchLooksInsideCodeAndExtraCode) {
    n.prodotto({.codice = "LUNGOCODICE", .listino1 = 1});
    v.chkCodiceProdotto.valore(1);
    c.digita("GOCO");
    c.invio();
    c.tasto(Qt::Key_F6);
    c.digita("X-");
    c.invio();
    EXPECT_EQ(codiciVivi(v), (QStringList{"LUNGOCODICE", "A1"}));
}

TEST_F(ProductEntry, F4TurnsTheWildcardSearchOnAndOff) {
    c.tasto(Qt::Key_F4);
    EXPECT_EQ(v.chkCodiceProdotto.valore(), 1);
    c.tasto(Qt::Key_F4);
    EXPECT_EQ(v.chkCodiceProdotto.valore(), 0);
}

TEST_F(ProductEntry, UnknownCodeIsShownForHalfASecond) {
    QString codice, descrizione;
    n.operatore.durantePausa = [&] {
        codice = v.txtCodProdotto.testo();
        descrizione = v.txtDescProdotto.testo();
    };
    c.digita("ZZZ");
    c.invio();
    EXPECT_EQ(codice, "ARTICOLO");
    EXPECT_EQ(descrizione, "NON TROVATO!");
    EXPECT_EQ(n.operatore.pause, std::vector<int>{500});
}

TEST_F(ProductEntry, UnknownCodeColoursBothBoxesOnlyMeanwhile) {
    const auto prima = v.txtCodProdotto.coloreFondo();
    const auto primaDesc = v.txtDescProdotto.coloreFondo();
    const auto testoPrima = v.txtCodProdotto.coloreTesto();
    const auto testoDescPrima = v.txtDescProdotto.coloreTesto();
    bool codiceCambiato = false, descrizioneCambiata = false;
    n.operatore.durantePausa = [&] {
        codiceCambiato = v.txtCodProdotto.coloreTesto() != testoPrima;
        descrizioneCambiata =
            v.txtDescProdotto.coloreFondo() != primaDesc || v.txtDescProdotto.coloreTesto() != testoDescPrima;
    };
    c.digita("ZZZ");
    c.invio();
    EXPECT_TRUE(codiceCambiato);
    EXPECT_TRUE(descrizioneCambiata);
    EXPECT_EQ(v.txtCodProdotto.coloreFondo(), prima);
    EXPECT_EQ(v.txtCodProdotto.coloreTesto(), testoPrima);
    EXPECT_EQ(v.txtDescProdotto.coloreFondo(), primaDesc);
    EXPECT_EQ(v.txtDescProdotto.coloreTesto(), testoDescPrima);
}

TEST_F(ProductEntry, UnknownCodeLeavesAnEmptyEditorAndNoRow) {
    c.digita("ZZZ");
    c.invio();
    EXPECT_EQ(v.flxVB.righe(), 1);
    EXPECT_EQ(v.txtCodProdotto.testo(), "");
    EXPECT_EQ(v.txtDescProdotto.testo(), "");
    EXPECT_EQ(v.txtCodProdotto.chiave(), -1);
    EXPECT_EQ(c.fuocoSu(), &v.txtCodProdotto);
    EXPECT_FALSE(v.venditaModificata);
}

TEST_F(ProductEntry, UnknownScanLeavesTheNextOneUsable) {
    c.scansiona("9999");
    c.scansiona("8001");
    EXPECT_EQ(codiciVivi(v), QStringList{"A1"});
}

TEST_F(ProductEntry, DisabledProductIsNotFound) {
    n.prodotto({.codice = "D1", .listino1 = 1, .barcode = "8009", .disabilitato = true});
    QString descrizione;
    n.operatore.durantePausa = [&] { descrizione = v.txtDescProdotto.testo(); };
    c.scansiona("8009");
    EXPECT_EQ(descrizione, "NON TROVATO!");
    EXPECT_EQ(v.flxVB.righe(), 1);
}

TEST_F(ProductEntry, SeveralFoundAreOfferedInAList) {
    n.prodotto({.codice = "C1", .barcode = "777"});
    n.prodotto({.codice = "777"});
    c.scelte = {0};
    c.digita("777");
    c.invio();
    EXPECT_EQ(c.elenchiMostrati,
              QStringList{"Marca¤800¤CODMARCA|Codice¤1800¤CODICE|Descrizione¤4500¤PRODOTTO|"});
    EXPECT_EQ(v.flxVB.righe(), 2);
}

TEST_F(ProductEntry, EachChoiceOfTheListGivesItsOwnProduct) {
    n.prodotto({.codice = "C1", .barcode = "777"});
    n.prodotto({.codice = "777"});
    c.scelte = {0, 1};
    vendi(c, "777");
    vendi(c, "777");
    QStringList codici = codiciVivi(v);
    codici.sort();
    EXPECT_EQ(codici, (QStringList{"777", "C1"}));
}

TEST_F(ProductEntry, CancelledListGivesNoRow) {
    n.prodotto({.codice = "C1", .barcode = "777"});
    n.prodotto({.codice = "777"});
    c.scelte = {std::nullopt};
    c.digita("777");
    c.invio();
    EXPECT_EQ(v.flxVB.righe(), 1);
    EXPECT_EQ(c.fuocoSu(), &v.txtCodProdotto);
    EXPECT_EQ(n.operatore.clessidre, 0);
}

TEST_F(ProductEntry, EnterOnAProcessedCodeDoesNothing) {
    c.digita("A1");
    c.invio();
    c.clic(v.txtCodProdotto);
    ContaIstruzioni conta;
    c.invio();
    EXPECT_EQ(conta.istruzioni, QStringList{});
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "1,00");
    EXPECT_EQ(v.flxVB.righe(), 2);
}

TEST_F(ProductEntry, EnterOnAnEmptyCodeDoesNothing) {
    ContaIstruzioni conta;
    c.invio();
    EXPECT_EQ(conta.istruzioni, QStringList{});
    EXPECT_EQ(v.flxVB.righe(), 1);
}

TEST_F(ProductEntry, TypedCodeWinsOverTheKey) {
    int riga = 0;
    bool presente = false;
    EXPECT_TRUE(getProdotto(v, idA, "B1", riga, false, presente));
    EXPECT_EQ(codiciVivi(v), QStringList{"B1"});
    EXPECT_EQ(riga, 1);
    EXPECT_FALSE(presente);
}

TEST_F(ProductEntry, KeyAloneFindsTheProduct) {
    int riga = 0;
    bool presente = false;
    EXPECT_TRUE(getProdotto(v, idB, {}, riga, false, presente));
    EXPECT_EQ(codiciVivi(v), QStringList{"B1"});
}

TEST_F(ProductEntry, BatchOfKeysGivesARowEach) {
    setArticoloGrid(v, QString("%1|%2|").arg(idA).arg(idB));
    EXPECT_EQ(codiciVivi(v), (QStringList{"A1", "B1"}));
    EXPECT_EQ(v.lblMainDisplay.testo(), "36,60");
    EXPECT_EQ(c.fuocoSu(), &v.txtCodProdotto);
    EXPECT_TRUE(c.ridisegnoAcceso());
}

TEST_F(ProductEntry, EmptyBatchGivesNoRow) {
    setArticoloGrid(v, {});
    EXPECT_EQ(v.flxVB.righe(), 1);
}

TEST_F(ProductEntry, ChangedCodeReplacesTheRowAtItsPlace) {
    n.prodotto({.codice = "C1", .listino1 = 30});
    vendi(c, "A1");
    vendi(c, "B1");
    c.clicRiga(1);
    scrivi(c, v.txtCodProdotto, "C1");
    c.invio();
    EXPECT_EQ(codiciVivi(v), (QStringList{"C1", "B1"}));
    EXPECT_EQ(v.lblMainDisplay.testo(), "61,00");  // 36,60 + 24,40
}

TEST_F(ProductEntry, ReplacedRowIsMarkedForDeletion) {
    vendi(c, "A1");
    c.clicRiga(1);
    scrivi(c, v.txtCodProdotto, "B1");
    c.invio();
    ASSERT_EQ(v.flxVB.righe(), 3);
    const int vecchia = cella(v, 1, Colonna::Codice) == "A1" ? 1 : 2;
    EXPECT_EQ(v.flxVB.gestione(vecchia), RigaCancellata);
    EXPECT_TRUE(v.flxVB.nascosta(vecchia));
}

TEST_F(ProductEntry, NewRowSettingEndsTheRowByItself) {
    gNuovaRiga = 1;
    c.digita("A1");
    c.invio();
    EXPECT_EQ(codiciVivi(v), QStringList{"A1"});
    EXPECT_EQ(v.txtCodProdotto.chiave(), -1);
    EXPECT_EQ(v.txtCodProdotto.testo(), "");
    EXPECT_EQ(v.lblPos.testo(), "-1");
    EXPECT_EQ(c.fuocoSu(), &v.txtCodProdotto);
}

TEST_F(ProductEntry, FreeRowWaitsForItsDescription) {
    n.prodotto({.codice = "/LIB", .listino1 = 5});
    c.digita("/LIB");
    c.invio();
    EXPECT_EQ(c.fuocoSu(), &v.txtDescProdotto);
    EXPECT_EQ(codiciVivi(v), QStringList{"/LIB"});
}

TEST_F(ProductEntry, FreeRowsAreNeverSummed) {
    n.prodotto({.codice = "/LIB", .listino1 = 5});
    vendi(c, "/LIB");
    vendi(c, "/LIB");
    EXPECT_EQ(codiciVivi(v), (QStringList{"/LIB", "/LIB"}));
}

TEST_F(ProductEntry, FreeRowTakesTheTypedDescription) {
    n.prodotto({.codice = "/LIB", .listino1 = 5});
    c.digita("/LIB");
    c.invio();
    scrivi(c, v.txtDescProdotto, "lavoro a ore");
    c.tasto(Qt::Key_F6);
    EXPECT_TRUE(cella(v, 1, Colonna::Descrizione).endsWith("lavoro a ore"))
        << cella(v, 1, Colonna::Descrizione).toStdString();
}

TEST_F(ProductEntry, ZeroQuantityIsRefusedAndAskedFor) {
    c.digita("A1");
    c.invio();
    n.operatore.attendiMessaggio("Attenzione:\n - Campo [Quantità] Obbligatorio");
    scriviELascia(c, v.txtQta, "0");
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "1,00");
}

TEST_F(ProductEntry, DateOfAnotherDayCanStopTheSale) {
    gVenditeGiorniDiversi = 1;
    gBloccaVenditeGiorniDiversi = true;
    v.txtData.testoETag("15/03/2026");
    n.operatore.attendiMessaggio(
        "Attenzione, la Data della Vendita corrente è diversa dalla Data attuale.\nImpossibile continuare!",
        OperatorPort::Icona::Critica);
    c.digita("A1");
    c.invio();
    EXPECT_EQ(v.flxVB.righe(), 1);
}

TEST_F(ProductEntry, DateOfAnotherDayCanBeAccepted) {
    gVenditeGiorniDiversi = 1;
    gAvvisaVenditeGiorniDiversi = true;
    v.txtData.testoETag("15/03/2026");
    n.operatore.attendiDomanda(
        "Attenzione, la Data della Vendita corrente è diversa dalla Data attuale.\nSi desidera "
        "continuare?",
        OperatorPort::Risposta::Si);
    c.digita("A1");
    c.invio();
    EXPECT_EQ(v.flxVB.righe(), 2);
}

TEST_F(ProductEntry, DateOfAnotherDayMattersOnlyWhenTheShopSaysSo) {
    gBloccaVenditeGiorniDiversi = true;
    v.txtData.testoETag("15/03/2026");
    c.digita("A1");
    c.invio();
    EXPECT_EQ(v.flxVB.righe(), 2);
}

TEST_F(ProductEntry, OneScanCostsOneProductQuery) {
    ContaIstruzioni conta;
    c.scansiona("8001");
    int prodotto = 0;
    for (const QString& sql : conta.istruzioni) {
        prodotto += sql.contains("FK_SOSTITUITO") ? 1 : 0;
    }
    EXPECT_EQ(prodotto, 1);
}

// ---- Replaced products

struct ReplacedProduct : testing::Test {
    Negozio n;
    int idNuovo = n.prodotto({.codice = "NU", .listino1 = 30, .descrizione = "Nuovo"});
    int idVecchio =
        n.prodotto({.codice = "VE", .listino1 = 10, .descrizione = "Vecchio", .idSostituito = idNuovo});
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();
    const QString domanda =
        "Il prodotto [Vecchio] è stato sostituito.\nScegliere quello relativo [NU - Nuovo]?";
};

TEST_F(ReplacedProduct, YesTakesTheReplacement) {
    n.operatore.attendiDomanda(domanda, OperatorPort::Risposta::Si,
                               [&] { EXPECT_TRUE(c.ridisegnoAcceso()); });
    c.digita("VE");
    c.invio();
    EXPECT_EQ(codiciVivi(v), QStringList{"NU"});
    EXPECT_EQ(v.txtCodProdotto.chiave(), idNuovo);
    EXPECT_EQ(v.txtCodProdotto.testo(), "NU");
}

TEST_F(ReplacedProduct, NoSellsTheOldOne) {
    n.operatore.attendiDomanda(domanda, OperatorPort::Risposta::No);
    c.digita("VE");
    c.invio();
    EXPECT_EQ(codiciVivi(v), QStringList{"VE"});
}

TEST_F(ReplacedProduct, ReplacementThatWasReplacedAsksAgain) {
    const int idTerzo = n.prodotto({.codice = "TE", .descrizione = "Terzo"});
    n.sql(QString("UPDATE Prodotti SET FK_SOSTITUITO = %1 WHERE RID = %2").arg(idTerzo).arg(idNuovo));
    n.operatore.attendiDomanda(domanda, OperatorPort::Risposta::Si);
    n.operatore.attendiDomanda(
        "Il prodotto [Nuovo] è stato sostituito.\nScegliere quello relativo [TE - Terzo]?",
        OperatorPort::Risposta::Si);
    c.digita("VE");
    c.invio();
    EXPECT_EQ(codiciVivi(v), QStringList{"TE"});
}

TEST_F(ReplacedProduct, DisabledReplacementIsNotFound) {
    n.sql(QString("UPDATE Prodotti SET DISABILITATO = 1 WHERE RID = %1").arg(idNuovo));
    n.operatore.attendiDomanda(domanda, OperatorPort::Risposta::Si);
    c.digita("VE");
    c.invio();
    EXPECT_EQ(v.flxVB.righe(), 1);
    EXPECT_EQ(n.operatore.pause, std::vector<int>{500});
}

// ---- What the scanner sends besides products

TEST(ScannedCard, CustomerCardGoesToTheCustomerBox) {
    Negozio n;
    const int id = n.cliente(7, "ROSSI");
    n.sql("UPDATE Anagrafiche SET CODICEEXTRA = 'A123' WHERE NUMERO = 7");
    n.apriConto();
    ContoDiProva& c = n.apriConto(1);
    c.clic(c.vendita().txtCodProdotto);
    c.scansiona("A123");
    EXPECT_EQ(c.vendita().cliente(), id);
    EXPECT_EQ(c.vendita().lblDescCliente.testo(), "ROSSI");
    EXPECT_FALSE(c.vendita().mDaLaser);
}

TEST(ScannedCard, CustomerCardOnTheTillOpensAnAccount) {
    Negozio n;
    const int id = n.cliente(7, "ROSSI");
    n.sql("UPDATE Anagrafiche SET CODICEEXTRA = 'A123' WHERE NUMERO = 7");
    ContoDiProva& c = n.apriConto();
    c.digita("$A");
    ASSERT_TRUE(gConti[1]);
    auto& nuovo = static_cast<ContoDiProva&>(*gConti[1]);
    nuovo.digita("123");
    nuovo.invio();
    EXPECT_EQ(nuovo.vendita().cliente(), id);
    EXPECT_EQ(c.vendita().cliente(), 1);
}

TEST(ScannedCard, CustomerLetterInsideACodeIsAnOrdinaryOne) {
    Negozio n;
    n.prodotto({.codice = "P", .listino1 = 1, .barcode = "80A1"});
    ContoDiProva& c = n.apriConto();
    c.scansiona("80A1");
    EXPECT_EQ(codiciVivi(c.vendita()), QStringList{"P"});
}

// ---- Cost and margin beside the row

struct MarginPanel : testing::Test {
    Negozio n;
    int id = n.prodotto({.codice = "P", .listino1 = 10, .prezzoAcquisto = 6});
    Vendita& entra() {
        ContoDiProva& c = n.apriConto();
        c.digita("P");
        c.invio();
        return c.vendita();
    }
};

TEST_F(MarginPanel, MarginIsOnTheCost) {
    gPCType = 1;
    Vendita& v = entra();
    EXPECT_EQ(v.lblPrezzoCosto.testo(), "6,00");
    EXPECT_EQ(v.lblMargineEuro.testo(), "4,00");
    EXPECT_EQ(v.lblMarginePerc.testo(), "66,67");
    EXPECT_EQ(v.lblPrezzoAcquisto.testo(), "6,00");
}

TEST_F(MarginPanel, AverageOfTheLayersInTheDocumentsWarehouse) {
    n.sql("INSERT INTO Magazzini (RID, CODICE) VALUES (2,'ALT')");
    n.sql(QString(
              "INSERT INTO DettagliProdotto (FK_PRODOTTO, FK_MAGAZZINO, TAGLIO, QUANTITA) VALUES (%1,1,4,1),"
              "(%1,1,6,9),(%1,2,90,5)")
              .arg(id));
    EXPECT_EQ(entra().lblPrezzoCosto.testo(), "5,00");
}

TEST_F(MarginPanel, NoCostAtAllIsSaidSo) {
    Vendita& v = entra();
    EXPECT_EQ(v.lblPrezzoCosto.testo(), "N/D");
    EXPECT_EQ(v.lblMargineEuro.testo(), "N/D");
    EXPECT_EQ(v.lblMarginePerc.testo(), "N/D");
}

TEST_F(MarginPanel, PurchaseTablesServeWhenThereIsNoLayer) {
    n.sql("INSERT INTO CategorieSconti (RID, CODICE) VALUES (1,'C')");
    n.sql("UPDATE Prodotti SET FK_CATSCOACQ = 1");
    EXPECT_EQ(entra().lblPrezzoCosto.testo(), "6,00");
}

}  // namespace

TEST(BatchEntry, AnUnknownLastKeyLeavesTheTotalsOfTheOthersRight) {
    Negozio n;
    const int a = n.prodotto({.codice = "A", .listino1 = 10});
    ContoDiProva& c = n.apriConto();
    setArticoloGrid(c.vendita(), QString::number(a) + "|999999|");
    EXPECT_EQ(c.vendita().lblMainDisplay.testo(), "12,20");
}
