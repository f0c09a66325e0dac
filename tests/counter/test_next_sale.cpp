#include "counter/counter_shop.h"

namespace {

class NextSale : public BancoDiProva {
  protected:
    void nuovaDopoSalva(const QString& valore) {
        n.impostazioni.scrivi("prgBottegonClientVB", "Client", "NuovaVenditaDopoSalva", valore);
    }
    ContoDiProva& salvata() {
        ContoDiProva& c = contoConVendita();
        c.tasto(Qt::Key_F5);
        return c;
    }
    void nuovoGiorno(Risposta risposta) {
        n.orologio.istante = QDateTime(QDate(2026, 3, 17), QTime(0, 5));
        n.operatore.attendiDomanda(
            "È cominciato un nuovo giorno (17/03/2026).\nIniziare una nuova vendita con la data di oggi?",
            risposta);
    }
};

}  // namespace

TEST_F(NextSale, SavedSaleSaysSo) {
    ContoDiProva& c = salvata();
    EXPECT_TRUE(c.vendita().pctSalvata.visibile());
    EXPECT_EQ(c.vendita().pctSalvata.testo(), "VENDITA SALVATA, F2 nuova vendita");
}

TEST_F(NextSale, NewSaleSaysNothing) {
    ContoDiProva& c = salvata();
    c.tasto(Qt::Key_F2);
    EXPECT_FALSE(c.vendita().pctSalvata.visibile());
}

TEST_F(NextSale, ChangedSavedSaleSaysNothingMore) {
    ContoDiProva& c = salvata();
    c.scansiona("8001");
    EXPECT_FALSE(c.vendita().pctSalvata.visibile());
    EXPECT_TRUE(c.vendita().pctSave.visibile());
}

TEST_F(NextSale, ScanAfterASaveGoesOnWithItUnlessTheWorkstationWantsOtherwise) {
    ContoDiProva& c = salvata();
    c.scansiona("8001");
    EXPECT_EQ(c.vendita().txtSottoProg.testo(), "0001");
    EXPECT_EQ(c.vendita().flxVB.cella(1, Colonna::Quantita), "2,00");
}

TEST_F(NextSale, ScanAfterASaveBeginsANewOne) {
    nuovaDopoSalva("1");
    ContoDiProva& c = salvata();
    c.scansiona("8001");
    EXPECT_EQ(c.vendita().txtSottoProg.testo(), "(Auto)");
    EXPECT_EQ(c.vendita().flxVB.cella(1, Colonna::Quantita), "1,00");
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(n.righe("SELECT EXTRAPROG FROM DettagliMovimento ORDER BY RID"), QStringList({"1", "2"}));
}

TEST_F(NextSale, ScanWithoutPrefixBeginsANewOne) {
    nuovaDopoSalva("1");
    n.prodotto({.codice = "EAN", .listino1 = 1, .barcode = "80012345"});
    ContoDiProva& c = salvata();
    c.clic(c.vendita().txtQta);
    c.raffica("80012345");
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
    EXPECT_EQ(c.vendita().flxVB.cella(1, Colonna::Codice), "EAN");
}

TEST_F(NextSale, TypedCodeBeginsANewOne) {
    nuovaDopoSalva("1");
    ContoDiProva& c = salvata();
    c.clic(c.vendita().txtCodProdotto);
    c.digita("A");
    c.invio();
    EXPECT_EQ(c.vendita().txtSottoProg.testo(), "(Auto)");
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
}

TEST_F(NextSale, SearchedProductBeginsANewOne) {
    nuovaDopoSalva("1");
    ContoDiProva& c = salvata();
    c.rispondeRicerca(n.valore("SELECT RID FROM Prodotti WHERE CODICE = 'A'") + "|");
    c.clic(c.vendita().txtCodProdotto);
    c.tasto(Qt::Key_F3);
    EXPECT_EQ(c.vendita().txtSottoProg.testo(), "(Auto)");
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
}

TEST_F(NextSale, RowOfTheSavedSaleCanStillBeChanged) {
    nuovaDopoSalva("1");
    ContoDiProva& c = salvata();
    c.clicRiga(1);
    c.clic(c.vendita().txtQta);
    c.digita("4");
    c.tasto(Qt::Key_F6);
    EXPECT_EQ(c.vendita().txtSottoProg.testo(), "0001");
    EXPECT_EQ(c.vendita().flxVB.cella(1, Colonna::Quantita), "4,00");
}

TEST_F(NextSale, ScanBeginsANewOneAlsoBehindARowOfTheSavedSale) {
    nuovaDopoSalva("1");
    ContoDiProva& c = salvata();
    c.clicRiga(1);
    c.scansiona("8001");
    EXPECT_EQ(c.vendita().txtSottoProg.testo(), "(Auto)");
    EXPECT_EQ(c.vendita().flxVB.cella(1, Colonna::Quantita), "1,00");
}

TEST_F(NextSale, RecalledSaleGoesOn) {
    nuovaDopoSalva("1");
    ContoDiProva& c = salvata();
    c.tasto(Qt::Key_F2);
    c.scansiona("8001");
    c.tasto(Qt::Key_F5);
    c.tasto(Qt::Key_Left, Qt::ShiftModifier);
    ASSERT_EQ(c.vendita().txtSottoProg.testo(), "0001");
    c.scansiona("8001");
    EXPECT_EQ(c.vendita().txtSottoProg.testo(), "0001");
    EXPECT_EQ(c.vendita().flxVB.cella(1, Colonna::Quantita), "2,00");
}

TEST_F(NextSale, FirstProductOfANewDayGetsADocumentOfThatDay) {
    ContoDiProva& c = n.apriConto(0);
    nuovoGiorno(Risposta::Si);
    c.scansiona("8001");
    EXPECT_EQ(c.vendita().txtData.testo(), "17/03/2026");
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
}

TEST_F(NextSale, DeclinedNewDayIsNotOfferedTwice) {
    ContoDiProva& c = n.apriConto(0);
    nuovoGiorno(Risposta::No);
    c.scansiona("8001");
    c.scansiona("8001");
    EXPECT_EQ(c.vendita().txtData.testo(), "16/03/2026");
    EXPECT_EQ(c.vendita().flxVB.cella(1, Colonna::Quantita), "2,00");
}

TEST_F(NextSale, OpenSaleIsAskedAboutBeforeTheNewDay) {
    ContoDiProva& c = contoConVendita();
    nuovoGiorno(Risposta::Si);
    rispondeAlSalvataggio(Risposta::Si);
    c.scansiona("8001");
    EXPECT_EQ(n.valore("SELECT COUNT(*) FROM Movimenti"), "1");
    EXPECT_EQ(c.vendita().txtData.testo(), "17/03/2026");
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
}
