#include "core/run_time_error.h"
#include "doubles/kit_di_prova.h"
#include "gesti.h"
#include "sale/kits.h"
#include "sale/row_writer.h"

namespace {

// A kit of 2 screws at 3,00 and a bracket at the customer's price, 4,00: list price 10,00, with VAT 12,20.
struct Kits : testing::Test {
    Negozio n;
    int vite = n.prodotto({.codice = "VITE", .listino1 = 5, .descrizione = "Vite"});
    int staffa = n.prodotto({.codice = "STAFFA", .listino1 = 4, .descrizione = "Staffa"});
    int kit = distinta(n, "%KIT", {{vite, 2, 3}, {staffa, 1, 0}}, "8100");
    int altro = n.prodotto({.codice = "ALTRO", .listino1 = 1, .barcode = "8200"});
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();

    void entra() {
        c.digita("%KIT");
        c.invio();
    }
    QStringList colonna(Colonna quale) const {
        QStringList testi;
        for (int r = 1; r <= v.flxVB.ultima(); ++r)
            testi << cella(v, r, quale);
        return testi;
    }
    void quantita(const QString& testo) {
        scrivi(c, v.txtQta, testo);
        c.tasto(Qt::Key_F6);
    }
};

// ---- Entry

TEST_F(Kits, ComponentsFollowTheirHead) {
    entra();
    EXPECT_EQ(codiciVivi(v), (QStringList{"%KIT", "VITE", "STAFFA"}));
    EXPECT_EQ(colonna(Colonna::Quantita), (QStringList{"1,00", "2,00", "1,00"}));
    EXPECT_EQ(colonna(Colonna::Descrizione), (QStringList{"Kit KIT", "Vite", "Staffa"}));
}

TEST_F(Kits, ComponentsShareAReferenceToTheirHead) {
    entra();
    EXPECT_EQ(colonna(Colonna::IdDistintaBase), (QStringList{"", "1*", "1*"}));
}

TEST_F(Kits, ComponentWithoutAPriceCostsWhatTheCustomerPays) {
    n.sql(QString("UPDATE Prodotti SET LISTINO2 = 7 WHERE RID = %1").arg(staffa));
    n.sql("UPDATE Anagrafiche SET LISTINO = 2 WHERE RID = 1");
    entra();
    EXPECT_EQ(cella(v, 2, Colonna::PrezzoListino), "3,00");
    EXPECT_EQ(cella(v, 3, Colonna::PrezzoListino), "7,00");
}

TEST_F(Kits, ComponentIsAWholeRow) {
    entra();
    EXPECT_EQ(v.flxVB.chiave(2, Colonna::IdProdotto), vite);
    EXPECT_EQ(cella(v, 2, Colonna::Marca), "MA");
    EXPECT_EQ(cella(v, 2, Colonna::CodIva), "22");
    EXPECT_EQ(cella(v, 2, Colonna::DescIva), "Iva 22%");
    EXPECT_EQ(cella(v, 2, Colonna::Iva), "22,00");
    EXPECT_EQ(cella(v, 2, Colonna::Um), "PZ");
    EXPECT_EQ(cella(v, 2, Colonna::PrezzoNetto), "3,00");
    EXPECT_EQ(cella(v, 2, Colonna::Importo), "7,32");
    EXPECT_EQ(cella(v, 2, Colonna::OldQuantita), "0");
    EXPECT_EQ(cella(v, 2, Colonna::TotPrNetto), "6");
    EXPECT_EQ(v.flxVB.currency(2, Colonna::IvaProd), Currency::daDouble(0.66));
    EXPECT_EQ(v.flxVB.currency(2, Colonna::TotIvaProd), Currency::daDouble(1.32));
    EXPECT_EQ(v.flxVB.gestione(2), RigaNuova);
    EXPECT_EQ(cella(v, 2, Colonna::ElencoSpeciale), "0");
    EXPECT_EQ(cella(v, 2, Colonna::BloccaPrezzo), "0");
}

TEST_F(Kits, HeadShowsTheSumsOfItsComponents) {
    entra();
    EXPECT_EQ(cella(v, 1, Colonna::PrezzoListino), "10,00");
    EXPECT_EQ(cella(v, 1, Colonna::PrezzoNetto), "10,00");
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "12,20");
}

TEST_F(Kits, EditorShowsThePriceOfTheWholeKit) {
    entra();
    EXPECT_EQ(v.txtPrezzoListino.testo(), "10,00");
    EXPECT_EQ(v.txtPrezzoListinoLordo.testo(), "12,20");
    EXPECT_EQ(v.txtPrezzoNetto.testo(), "10,00");
    EXPECT_EQ(v.txtCodProdotto.chiave(), kit);
    EXPECT_EQ(v.lblPos.testo(), "1");
    EXPECT_EQ(c.fuocoSu(), &v.txtQta);
}

TEST_F(Kits, OnlyTheComponentsAreInTheTotals) {
    entra();
    EXPECT_EQ(v.lblMainDisplay.testo(), "12,20");
    EXPECT_EQ(v.lblTotNetto.testo(), "10,00");
    EXPECT_EQ(v.lblTOtQta.testo(), "3,00");
    EXPECT_EQ(v.lblTotRighe.testo(), "2");
}

TEST_F(Kits, EndingTheRowChangesNothing) {
    entra();
    const QStringList importi = colonna(Colonna::Importo);
    c.tasto(Qt::Key_F6);
    EXPECT_EQ(colonna(Colonna::Importo), importi);
    EXPECT_EQ(colonna(Colonna::Quantita), (QStringList{"1,00", "2,00", "1,00"}));
}

TEST_F(Kits, ComponentThatStandsTwiceInAKitGivesTwoRows) {
    distinta(n, "%DOPPIO", {{vite, 1, 3}, {staffa, 1, 2}, {vite, 1, 1}});
    c.digita("%DOPPIO");
    c.invio();
    EXPECT_EQ(codiciVivi(v), (QStringList{"%DOPPIO", "VITE", "STAFFA", "VITE"}));
    EXPECT_EQ(v.lblMainDisplay.testo(), "7,32");  // 6,00 and VAT
}

TEST_F(Kits, ProductSoldAloneIsNotTheComponent) {
    entra();
    c.tasto(Qt::Key_F6);
    vendi(c, "VITE");
    EXPECT_EQ(codiciVivi(v), (QStringList{"%KIT", "VITE", "STAFFA", "VITE"}));
    EXPECT_EQ(cella(v, 4, Colonna::IdDistintaBase), "");
    EXPECT_EQ(cella(v, 4, Colonna::PrezzoListino), "5,00");
}

TEST_F(Kits, EachRateCounts) {
    distinta(n, "%MISTO", {{vite, 1, 10, 1}, {staffa, 1, 10, 3}});
    c.digita("%MISTO");
    c.invio();
    EXPECT_EQ(v.lblMainDisplay.testo(), "22,60");  // 12,20 + 10,40
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "22,60");
}

TEST_F(Kits, KitWithoutComponentsIsAHeadAlone) {
    distinta(n, "%VUOTO", {});
    c.digita("%VUOTO");
    c.invio();
    EXPECT_EQ(codiciVivi(v), QStringList{"%VUOTO"});
    EXPECT_EQ(v.lblMainDisplay.testo(), "0,00");
}

TEST_F(Kits, KitInsideAKitBringsItsOwnComponents) {
    distinta(n, "%FUORI", {{altro, 1, 2}, {kit, 2, 0}});
    c.digita("%FUORI");
    c.invio();
    EXPECT_EQ(codiciVivi(v), (QStringList{"%FUORI", "ALTRO", "%KIT", "VITE", "STAFFA"}));
    EXPECT_EQ(colonna(Colonna::Quantita), (QStringList{"1,00", "1,00", "2,00", "4,00", "2,00"}));
    EXPECT_EQ(v.lblMainDisplay.testo(), "26,84");  // (2 + 2 x 10) x 1,22
}

TEST_F(Kits, KitThatContainsItselfIsOpenedOnce) {
    n.sql(
        QString("UPDATE DistintaBaseDettagli SET FK_PRODOTTO = %1, CODPRODOTTO = '%KIT' WHERE CODPRODOTTO = "
                "'STAFFA'")
            .arg(kit));
    entra();
    EXPECT_EQ(codiciVivi(v), (QStringList{"%KIT", "VITE", "%KIT"}));
}

TEST_F(Kits, KitWhoseComponentsCannotBeReadIsNotSold) {
    const IstruzioneRotta rotta("DBD.POS");
    n.operatore.attendiAvviso("cAdoSqlServer.getNewRecordset -> frmMain.getProdFigli");
    entra();
    EXPECT_EQ(v.flxVB.righe(), 1);
    EXPECT_EQ(v.txtCodProdotto.chiave(), -1);
}

TEST_F(Kits, PrefixOfTheShopMakesAKit) {
    gDistintaBase = "#";
    distinta(n, "#K", {{vite, 1, 3}});
    c.digita("#K");
    c.invio();
    EXPECT_EQ(codiciVivi(v), (QStringList{"#K", "VITE"}));
}

TEST_F(Kits, AmountOutOfRangeLeavesNoHalfKit) {
    distinta(n, "%CARO", {{vite, 1, 3}, {staffa, 1000000000, 900000000000.0}});
    n.operatore.attendiAvviso("frmMain.getProdotto");
    c.digita("%CARO");
    c.invio();
    EXPECT_EQ(v.flxVB.righe(), 1);
}

// ---- The same kit again

TEST_F(Kits, TypedAgainShowsTheHeadAndKeepsItsComponents) {
    entra();
    c.tasto(Qt::Key_F6);
    entra();
    EXPECT_EQ(codiciVivi(v), (QStringList{"%KIT", "VITE", "STAFFA"}));
    EXPECT_EQ(colonna(Colonna::IdDistintaBase), (QStringList{"", "1*", "1*"}));
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "12,20");
    EXPECT_EQ(v.lblMainDisplay.testo(), "12,20");
    EXPECT_EQ(v.txtCodProdotto.testo(), "%KIT");
}

TEST_F(Kits, ScannedAgainIsOneKitMore) {
    c.scansiona("8100");
    c.scansiona("8100");
    EXPECT_EQ(colonna(Colonna::Quantita), (QStringList{"2,00", "4,00", "2,00"}));
    EXPECT_EQ(v.lblMainDisplay.testo(), "24,40");
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "24,40");
}

TEST_F(Kits, TypedAgainBringsBackAComponentThatWasDeleted) {
    entra();
    c.tasto(Qt::Key_F6);
    delRowToGrid(v, 3, false);
    ASSERT_EQ(v.lblMainDisplay.testo(), "7,32");
    entra();
    EXPECT_EQ(codiciVivi(v), (QStringList{"%KIT", "VITE", "STAFFA"}));
    EXPECT_EQ(v.lblMainDisplay.testo(), "12,20");
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "12,20");
}

// ---- Quantity

TEST_F(Kits, QuantityScalesTheComponents) {
    entra();
    quantita("2");
    c.clicRiga(1);
    quantita("3");
    EXPECT_EQ(colonna(Colonna::Quantita), (QStringList{"3,00", "6,00", "3,00"}));
    EXPECT_EQ(colonna(Colonna::Importo), (QStringList{"36,60", "21,96", "14,64"}));
    EXPECT_EQ(v.lblMainDisplay.testo(), "36,60");
}

TEST_F(Kits, FromTwoToThreeTakesAComponentFromFourToSix) {
    entra();
    quantita("2");
    ASSERT_EQ(cella(v, 2, Colonna::Quantita), "4,00");
    c.clicRiga(1);
    quantita("3");
    EXPECT_EQ(cella(v, 2, Colonna::Quantita), "6,00");
}

TEST_F(Kits, QuantityTakesNetAmountAndVatAlong) {
    entra();
    quantita("3");
    EXPECT_EQ(cella(v, 2, Colonna::TotPrNetto), "18");
    EXPECT_EQ(v.flxVB.currency(2, Colonna::TotIvaProd), Currency::daDouble(3.96));
}

TEST_F(Kits, QuantityLeavesAnUnsavedComponentNew) {
    entra();
    quantita("3");
    EXPECT_EQ(v.flxVB.gestione(2), RigaNuova);
}

TEST_F(Kits, QuantityMarksASavedComponentAsChanged) {
    entra();
    c.tasto(Qt::Key_F6);
    for (int r = 1; r <= 3; ++r) {
        v.flxVB.scrivi(r, Colonna::Rid, QString::number(50 + r));
        v.flxVB.scrivi(r, Colonna::Gestione, "0");
    }
    c.clicRiga(1);
    quantita("3");
    EXPECT_EQ(v.flxVB.gestione(2), RigaModificata);
    EXPECT_EQ(v.flxVB.gestione(3), RigaModificata);
}

TEST_F(Kits, DeletedComponentIsNotBroughtBackByTheQuantity) {
    entra();
    c.tasto(Qt::Key_F6);
    delRowToGrid(v, 2, false);
    c.clicRiga(1);
    quantita("3");
    EXPECT_EQ(v.flxVB.gestione(2), RigaCancellata);
    EXPECT_EQ(v.lblMainDisplay.testo(), "14,64");
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "14,64");
}

TEST_F(Kits, HeadOfNoPiecesCannotBeScaled) {
    entra();
    c.tasto(Qt::Key_F6);
    v.flxVB.scrivi(1, Colonna::Quantita, "0,00");
    c.clicRiga(1);
    n.operatore.attendiAvviso("frmMain.txtQta_LostFocus");
    scriviELascia(c, v.txtQta, "2");
    ASSERT_EQ(n.operatore.avvisi.size(), 1U);
    EXPECT_EQ(n.operatore.avvisi[0].numero, RunTimeError::DivisionePerZero);
    EXPECT_EQ(cella(v, 2, Colonna::Quantita), "2,00");
}

TEST_F(Kits, ReturnedKitReturnsItsComponents) {
    entra();
    c.tasto(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(colonna(Colonna::Quantita), (QStringList{"-1,00", "-2,00", "-1,00"}));
    EXPECT_EQ(v.lblMainDisplay.testo(), "-12,20");
    for (int r = 1; r <= 3; ++r)
        EXPECT_EQ(v.flxVB.coloreTesto(r), 0xFF0000) << r;
}

// ---- Discounts

TEST_F(Kits, DiscountOfTheProductReachesEveryComponent) {
    n.sql(QString("UPDATE Prodotti SET SCONTO = 10 WHERE RID = %1").arg(kit));
    entra();
    EXPECT_EQ(colonna(Colonna::ScontoTesto), (QStringList(3, "10,00+0,00+0,00")));
    EXPECT_EQ(cella(v, 2, Colonna::PrezzoNetto), "2,70");
    EXPECT_EQ(cella(v, 2, Colonna::Importo), "6,59");  // 3 x 1,22 x 0,90 x 2
    EXPECT_EQ(v.lblMainDisplay.testo(), "10,98");
}

TEST_F(Kits, TypedDiscountIsWrittenToTheComponentsAndTheirPricesStay) {
    entra();
    scriviELascia(c, v.txtSconto1, "50");
    EXPECT_EQ(colonna(Colonna::Sconto1), (QStringList{"50,00", "50,00", "50,00"}));
    EXPECT_EQ(cella(v, 2, Colonna::ScontoTesto), "50,00+0,00+0,00");
    EXPECT_EQ(cella(v, 2, Colonna::PrezzoNetto), "3,00");
    EXPECT_EQ(v.lblMainDisplay.testo(), "12,20");
}

TEST_F(Kits, TypedDiscountReachesTheAmountsWithTheNextChange) {
    entra();
    scriviELascia(c, v.txtSconto1, "50");
    c.tasto(Qt::Key_F6);
    EXPECT_EQ(cella(v, 2, Colonna::PrezzoNetto), "1,50");
    EXPECT_EQ(cella(v, 2, Colonna::Importo), "3,66");
    EXPECT_EQ(v.flxVB.currency(2, Colonna::IvaProd), Currency::daDouble(0.33));
    EXPECT_EQ(cella(v, 2, Colonna::TotPrNetto), "3");
    EXPECT_EQ(v.lblMainDisplay.testo(), "6,10");
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "6,10");
}

// ---- Deletion and replacement

TEST_F(Kits, DeletedHeadTakesItsComponentsWithIt) {
    entra();
    c.tasto(Qt::Key_F6);
    vendi(c, "ALTRO");
    c.clicRiga(1);
    n.operatore.attendiDomanda("Eliminare il prodotto [Kit KIT]?", OperatorPort::Risposta::Si);
    c.tasto(Qt::Key_F9);
    EXPECT_EQ(codiciVivi(v), QStringList{"ALTRO"});
    for (int r = 1; r <= 3; ++r)
        EXPECT_TRUE(v.flxVB.nascosta(r)) << r;
    EXPECT_EQ(v.lblMainDisplay.testo(), "1,22");
}

TEST_F(Kits, DeletedHeadLeavesTheNextKitAlone) {
    distinta(n, "%DUE", {{vite, 1, 1}});
    entra();
    c.tasto(Qt::Key_F6);
    vendi(c, "%DUE");
    delRowToGrid(v, 1, false);
    EXPECT_EQ(codiciVivi(v), (QStringList{"%DUE", "VITE"}));
}

TEST_F(Kits, DeletedKitCanBeSoldAgain) {
    entra();
    delRowToGrid(v, 1, false);
    entra();
    EXPECT_EQ(codiciVivi(v), (QStringList{"%KIT", "VITE", "STAFFA"}));
    EXPECT_EQ(v.lblMainDisplay.testo(), "12,20");
}

TEST_F(Kits, DeletedComponentLowersItsHead) {
    entra();
    c.tasto(Qt::Key_F6);
    delRowToGrid(v, 2, false);
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "4,88");
    EXPECT_EQ(v.lblMainDisplay.testo(), "4,88");
}

TEST_F(Kits, KitTypedOverAnotherRowTakesItsPlace) {
    vendi(c, "ALTRO");
    vendi(c, "VITE");
    c.clicRiga(1);
    scrivi(c, v.txtCodProdotto, "%KIT");
    c.invio();
    EXPECT_EQ(codiciVivi(v), (QStringList{"%KIT", "VITE", "STAFFA", "VITE"}));
    EXPECT_EQ(v.lblMainDisplay.testo(), "18,30");
}

TEST_F(Kits, CodeTypedOverAKitTakesItsPlace) {
    entra();
    c.tasto(Qt::Key_F6);
    vendi(c, "VITE");
    c.clicRiga(1);
    scrivi(c, v.txtCodProdotto, "ALTRO");
    c.invio();
    EXPECT_EQ(codiciVivi(v), (QStringList{"ALTRO", "VITE"}));
    EXPECT_EQ(v.lblMainDisplay.testo(), "7,32");
}

TEST_F(Kits, TwoKitsNeverShareAReference) {
    distinta(n, "%DUE", {{vite, 1, 1}});
    vendi(c, "ALTRO");   // 1
    vendi(c, "STAFFA");  // 2
    entra();             // 3, reference 3*
    c.tasto(Qt::Key_F6);
    c.clicRiga(1);
    scrivi(c, v.txtCodProdotto, "VITE");
    c.invio();  // 1; ALTRO goes to 2, STAFFA to 3, the kit to 4
    c.tasto(Qt::Key_F6);
    c.clicRiga(3);
    scrivi(c, v.txtCodProdotto, "%DUE");
    c.invio();  // 3
    ASSERT_EQ(codiciVivi(v), (QStringList{"VITE", "%DUE", "VITE", "%KIT", "VITE", "STAFFA"}));
    EXPECT_NE(cella(v, 4, Colonna::IdDistintaBase), cella(v, 7, Colonna::IdDistintaBase));
}

TEST_F(Kits, CodeTypedWhileAComponentIsSelectedReplacesTheRowInTheEditor) {
    vendi(c, "ALTRO");
    entra();
    c.tasto(Qt::Key_F6);
    c.clicRiga(1);
    c.clicRiga(3);
    ASSERT_EQ(v.txtCodProdotto.testo(), "ALTRO");
    scrivi(c, v.txtCodProdotto, "VITE");
    c.invio();
    EXPECT_EQ(codiciVivi(v), (QStringList{"VITE", "%KIT", "VITE", "STAFFA"}));
}

// ---- On the screen

TEST_F(Kits, SelectedComponentLeavesTheEditorAlone) {
    entra();
    c.tasto(Qt::Key_F6);
    c.clicRiga(2);
    EXPECT_EQ(v.flxVB.selezionata(), 2);
    EXPECT_EQ(v.txtCodProdotto.testo(), "");
}

TEST_F(Kits, FoldedComponentsAreOutOfSightAndStillCount) {
    entra();
    c.tasto(Qt::Key_F6);
    piegaFigli(v, 1);
    EXPECT_TRUE(v.flxVB.nascosta(2));
    EXPECT_TRUE(v.flxVB.nascosta(3));
    EXPECT_FALSE(v.flxVB.nascosta(1));
    c.clicRiga(1);
    quantita("2");
    EXPECT_EQ(v.lblMainDisplay.testo(), "24,40");
    piegaFigli(v, 1);
    EXPECT_FALSE(v.flxVB.nascosta(2));
}

TEST_F(Kits, CursorKeysPassFoldedComponents) {
    entra();
    c.tasto(Qt::Key_F6);
    vendi(c, "ALTRO");
    piegaFigli(v, 1);
    c.clicRiga(1);
    c.tasto(Qt::Key_Down);
    EXPECT_EQ(v.flxVB.corrente(), 4);
}

}  // namespace
