#include "gesti.h"
#include "sale/recall.h"

namespace {

// A saved header of 10/03/2026 with two sales: number 12, sub-numbers 1 (two rows) and 2 (one row).
struct Recall : testing::Test {
    Negozio n;
    int idP = n.prodotto({.codice = "P", .listino1 = 10});
    int idQ = n.prodotto({.codice = "Q", .listino1 = 20});
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();

    void SetUp() override {
        n.sql(
            "INSERT INTO Movimenti (RID, PROGRESSIVO, ANNO, DATA, FK_TIPODOCUMENTO, FK_CONTROPARTITA, "
            "ID_CASSA, "
            "USAPREZZIIVA) VALUES (40,12,2026,'2026-03-10',1,1,255,0)");
        riga(101, 1, 1, idP, "2.125", "10", "23.18");
        riga(102, 1, 2, idQ, "1", "20", "24.4");
        riga(103, 2, 1, idQ, "3", "20", "73.2");
    }
    void riga(int rid, int extraProg, int pos, int prodotto, const char* qta, const char* prezzo,
              const char* totale) {
        n.sql(
            QString(
                "INSERT INTO DettagliMovimento (RID, FK_MOVIMENTO, EXTRAPROG, POS, FK_PRODOTTO, CODPRODOTTO, "
                "DESCPRODOTTO, QUANTITA, PREZZO, SCONTO, SCONTO2, SCONTO3, SCONTONETTO, PREZZONETTO, "
                "TOTPREZZONETTO, FK_IVA, VALOREIVA, IVA, TOTALEIVA, TOTALERIGA, FK_UM, TAGLIO, ORA) SELECT "
                "%1,40,%2,%3,RID,CODICE,'Descr "
                "'||CODICE,%4,%5,10,5,0,1.45,8.55,17.1,1,22,1.881,3.762,%6,1,4.5,"
                "'2026-03-10 09:15:00' FROM Prodotti WHERE RID = %7")
                .arg(rid)
                .arg(extraProg)
                .arg(pos)
                .arg(qta, prezzo, totale)
                .arg(prodotto));
    }
};

TEST_F(Recall, HeaderIsShown) {
    showVendita(v, 40, -1, 1, -1);
    EXPECT_EQ(v.rid(), 40);
    EXPECT_EQ(v.txtProg.testo(), "0012");
    EXPECT_EQ(v.txtSottoProg.testo(), "0001");
    EXPECT_EQ(v.txtData.testo(), "10/03/2026");
    EXPECT_EQ(v.cliente(), 1);
    EXPECT_EQ(v.lblDescCliente.testo(), "CLIENTE DEL BANCO");
    EXPECT_EQ(v.lblDataStampa.testo(), "");
    EXPECT_FALSE(v.pctSave.visibile());
    EXPECT_TRUE(v.txtData.bloccato());
    EXPECT_TRUE(v.txtCodCliente.bloccato());
}

TEST_F(Recall, NumberFindsTheSaleOfTheYear) {
    showVendita(v, 0, 12, 2, 2026);
    EXPECT_EQ(v.rid(), 40);
    EXPECT_EQ(codiciVivi(v), QStringList{"Q"});
}

TEST_F(Recall, NegativeYearIsThisOne) {
    showVendita(v, 0, 12, 2, -1);
    EXPECT_EQ(v.rid(), 40);
}

TEST_F(Recall, NumberOfAnotherYearIsMissing) {
    n.operatore.attendiMessaggio("Movimento inesistente ");
    showVendita(v, 0, 12, 1, 2025);
    EXPECT_EQ(v.rid(), -1);
}

// The screen held a closed sale, and is free for the next one now.
void aspettaSgombra(const Vendita& v) {
    EXPECT_EQ(v.rid(), -1);
    EXPECT_EQ(v.txtProg.testo(), "(Auto)");
    EXPECT_EQ(v.flxVB.ultima(), 0);
    EXPECT_EQ(v.cliente(), gClientePredefinito);
    EXPECT_EQ(v.lblDescCliente.testo(), "CLIENTE DEL BANCO");
    EXPECT_FALSE(v.txtData.bloccato());
    EXPECT_FALSE(v.txtCodCliente.bloccato());
    EXPECT_FALSE(v.venditaModificata);
    EXPECT_TRUE(v.modificaConsentita);
}

TEST_F(Recall, MissingSaleLeavesTheScreenReadyForTheNext) {
    gLockVBEdit = 1;
    n.sql("UPDATE Movimenti SET DATASTAMPA = '2026-03-11'");
    showVendita(v, 40, -1, 1, -1);
    n.operatore.attendiMessaggio("Movimento inesistente ");
    showVendita(v, 0, 999, 1, 2026);
    aspettaSgombra(v);
}

TEST_F(Recall, HeaderThatCannotBeReadLeavesTheScreenReadyForTheNext) {
    vendi(c, "P");
    n.operatore.attendiAvviso("cAdoSqlServer.getNewRecordset -> frmMain.showVendita");
    const IstruzioneRotta rotta("SELECT M.RID, M.PROGRESSIVO, M.DATA");
    showVendita(v, 40, -1, 1, -1);
    aspettaSgombra(v);
}

TEST_F(Recall, RowsThatCannotBeReadLeaveTheScreenReadyForTheNext) {
    showVendita(v, 40, -1, 2, -1);
    n.operatore.attendiAvviso("cAdoSqlServer.getNewRecordset -> frmMain.showDettagli");
    const IstruzioneRotta rotta("SELECT DM.RID, DM.QUANTITA");
    showVendita(v, 40, -1, 1, -1);
    aspettaSgombra(v);
}

TEST_F(Recall, WithoutKeyAndNumberNothingHappens) {
    vendi(c, "P");
    showVendita(v, 0, 0, 1, -1);
    EXPECT_EQ(codiciVivi(v), QStringList{"P"});
}

TEST_F(Recall, OnlyOneOfTheSalesUnderAHeaderIsShown) {
    showVendita(v, 40, -1, 1, -1);
    EXPECT_EQ(codiciVivi(v), (QStringList{"P", "Q"}));
}

TEST_F(Recall, RowsComeInTheirPositions) {
    n.sql("UPDATE DettagliMovimento SET POS = 9 WHERE RID = 101");
    showVendita(v, 40, -1, 1, -1);
    EXPECT_EQ(codiciVivi(v), (QStringList{"Q", "P"}));
}

TEST_F(Recall, RowIsUnchangedAndKnowsItsPlaceInTheBooks) {
    showVendita(v, 40, -1, 1, -1);
    EXPECT_EQ(cella(v, 1, Colonna::Key), "DM_101");
    EXPECT_EQ(cella(v, 1, Colonna::Rid), "101");
    EXPECT_EQ(v.flxVB.gestione(1), RigaInvariata);
    EXPECT_FALSE(v.venditaModificata);
}

TEST_F(Recall, RowShowsWhatWasSold) {
    showVendita(v, 40, -1, 1, -1);
    EXPECT_EQ(cella(v, 1, Colonna::Marca), "MA");
    EXPECT_EQ(cella(v, 1, Colonna::Descrizione), "Descr P");
    EXPECT_EQ(cella(v, 1, Colonna::Iva), "22,00");
    EXPECT_EQ(cella(v, 1, Colonna::CodIva), "22");
    EXPECT_EQ(cella(v, 1, Colonna::PrezzoListino), "10,00");
    EXPECT_EQ(cella(v, 1, Colonna::Sconto1), "10,00");
    EXPECT_EQ(cella(v, 1, Colonna::Sconto2), "5,00");
    EXPECT_EQ(cella(v, 1, Colonna::PrezzoNetto), "8,55");
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "23,18");
    EXPECT_EQ(v.flxVB.currency(1, Colonna::Taglio), Currency::daScalato(45000));
}

TEST_F(Recall, StoredQuantityIsKeptExactly) {
    showVendita(v, 40, -1, 1, -1);
    EXPECT_EQ(cella(v, 1, Colonna::OldQuantita), "2,125");
    EXPECT_EQ(v.flxVB.single(1, Colonna::OldQuantita), 2.125F);
}

TEST_F(Recall, AmountThatWasNotStoredIsComputed) {
    n.sql("UPDATE DettagliMovimento SET TOTALERIGA = 0, QUANTITA = 2 WHERE RID = 101");
    showVendita(v, 40, -1, 1, -1);
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "20,86");  // (8,55 + 1,881) x 2 = 20,862
}

TEST_F(Recall, TotalsAreTheScreensAndTheHeaders) {
    showVendita(v, 40, -1, 1, -1);
    EXPECT_EQ(v.lblMainDisplay.testo(), "47,58");
    EXPECT_EQ(v.lblLastMainDisplay.testo(), "47,58");
    EXPECT_EQ(v.lblTotConto.testo(), "120,78");
}

TEST_F(Recall, LastRowIsSelected) {
    showVendita(v, 40, -1, 1, -1);
    EXPECT_EQ(v.flxVB.selezionata(), 2);
    EXPECT_TRUE(v.lblOra.testo().startsWith("Vendita del 10/03/2026 Ora: 09"))
        << v.lblOra.testo().toStdString();
}

TEST_F(Recall, RowOfAProductThatIsGoneDisappears) {
    n.sql("UPDATE DettagliMovimento SET FK_PRODOTTO = NULL WHERE RID = 101");
    showVendita(v, 40, -1, 1, -1);
    EXPECT_EQ(codiciVivi(v), QStringList{"Q"});
}

TEST_F(Recall, PaidTickFollowsTheCollection) {
    n.sql("INSERT INTO PrimaNota (RID, PROGRESSIVO, DATA) VALUES (9,1,'2026-03-10')");
    n.sql("UPDATE Movimenti SET FK_PNPAGAMENTO = 9");
    showVendita(v, 40, -1, 1, -1);
    EXPECT_EQ(v.chkPagato.valore(), 1);
    EXPECT_EQ(v.idPNPagamento, 9);
}

TEST_F(Recall, ClosedSaleRefusesEdits) {
    gLockVBEdit = 1;
    n.sql("UPDATE Movimenti SET DATASTAMPA = '2026-03-11'");
    showVendita(v, 40, -1, 1, -1);
    EXPECT_EQ(v.lblDataStampa.testo().left(10), "11/03/2026");
    EXPECT_FALSE(v.modificaConsentita);
    EXPECT_TRUE(v.txtQta.bloccato());
}

TEST_F(Recall, EditedRowIsToBeUpdated) {
    showVendita(v, 40, -1, 1, -1);
    c.clicRiga(2);
    scrivi(c, v.txtQta, "4");
    c.tasto(Qt::Key_F6);
    EXPECT_EQ(v.flxVB.gestione(1), RigaInvariata);
    EXPECT_EQ(v.flxVB.gestione(2), RigaModificata);
    EXPECT_EQ(cella(v, 2, Colonna::OldQuantita), "1");
    EXPECT_EQ(cella(v, 2, Colonna::Quantita), "4,00");
}

TEST_F(Recall, RowsBehindADeletedOneAreToBeUpdated) {
    showVendita(v, 40, -1, 1, -1);
    c.clicRiga(1);
    n.operatore.attendiDomanda("Eliminare il prodotto [Descr P]?", OperatorPort::Risposta::Si);
    c.tasto(Qt::Key_F9);
    EXPECT_EQ(v.flxVB.gestione(1), RigaCancellata);
    EXPECT_EQ(v.flxVB.gestione(2), RigaModificata);
}

TEST_F(Recall, DayGoesOnUnderTheHeaderOfToday) {
    n.sql("UPDATE Movimenti SET DATA = '2026-03-16 00:00:00'");
    c.tasto(Qt::Key_F2);
    EXPECT_EQ(v.rid(), 40);
    EXPECT_EQ(v.txtProg.testo(), "0012");
    EXPECT_EQ(v.txtSottoProg.testo(), "(Auto)");
    EXPECT_EQ(v.flxVB.righe(), 1);
}

}  // namespace
