#include "gesti.h"
#include "sale/row_writer.h"

namespace {

struct RowDeletion : testing::Test {
    Negozio n;
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();

    void SetUp() override {
        for (const char* codice : {"A", "B", "C"}) {
            n.prodotto({.codice = codice, .listino1 = 10, .descrizione = QString("Prodotto ") + codice});
            vendi(c, codice);
        }
    }
    void cancella(int riga, const QString& codice) {
        c.clicRiga(riga);
        n.operatore.attendiDomanda("Eliminare il prodotto [Prodotto " + codice + "]?",
                                   OperatorPort::Risposta::Si);
        c.tasto(Qt::Key_F9);
    }
};

TEST_F(RowDeletion, YesMarksAndHidesTheRow) {
    v.venditaModificata = false;
    cancella(2, "B");
    EXPECT_EQ(v.flxVB.righe(), 4);
    EXPECT_EQ(v.flxVB.gestione(2), RigaCancellata);
    EXPECT_TRUE(v.flxVB.nascosta(2));
    EXPECT_EQ(codiciVivi(v), (QStringList{"A", "C"}));
    EXPECT_TRUE(v.venditaModificata);
    EXPECT_TRUE(v.pctSave.visibile());
}

TEST_F(RowDeletion, TotalsFollowAtOnce) {
    cancella(2, "B");
    EXPECT_EQ(v.lblMainDisplay.testo(), "24,40");
    EXPECT_EQ(v.lblTotRighe.testo(), "2");
}

TEST_F(RowDeletion, EditorThatShowedTheRowIsCleared) {
    cancella(2, "B");
    EXPECT_EQ(v.txtCodProdotto.testo(), "");
    EXPECT_EQ(v.txtCodProdotto.chiave(), -1);
    EXPECT_EQ(v.lblPos.testo(), "-1");
    EXPECT_EQ(c.fuocoSu(), &v.txtCodProdotto);
    EXPECT_TRUE(c.ridisegnoAcceso());
    EXPECT_EQ(n.operatore.clessidre, 0);
}

TEST_F(RowDeletion, NoLeavesEverything) {
    c.clicRiga(2);
    n.operatore.attendiDomanda("Eliminare il prodotto [Prodotto B]?", OperatorPort::Risposta::No);
    c.tasto(Qt::Key_F9);
    EXPECT_EQ(codiciVivi(v), (QStringList{"A", "B", "C"}));
    EXPECT_EQ(v.txtCodProdotto.testo(), "B");
    EXPECT_EQ(v.lblMainDisplay.testo(), "36,60");
}

TEST_F(RowDeletion, SaleOfDeletedRowsHasNothingToDelete) {
    cancella(1, "A");
    cancella(2, "B");
    cancella(3, "C");
    c.tasto(Qt::Key_F9);
    EXPECT_EQ(v.flxVB.righe(), 4);
    EXPECT_EQ(v.lblMainDisplay.testo(), "0,00");
}

TEST_F(RowDeletion, PriceModeIsFreeAgainOnlyWithoutLiveRows) {
    cancella(1, "A");
    cancella(2, "B");
    EXPECT_FALSE(v.chkPrezziIva.abilitato());
    cancella(3, "C");
    EXPECT_TRUE(v.chkPrezziIva.abilitato());
}

TEST_F(RowDeletion, RowsBehindItAreToBeSavedAnew) {
    for (int r = 1; r <= 3; ++r) {
        v.flxVB.scrivi(r, Colonna::Gestione, "0");
    }
    cancella(2, "B");
    EXPECT_EQ(v.flxVB.gestione(1), RigaInvariata);
    EXPECT_EQ(v.flxVB.gestione(2), RigaCancellata);
    EXPECT_EQ(v.flxVB.gestione(3), RigaModificata);
}

TEST_F(RowDeletion, NewAndDeletedRowsBehindItStayWhatTheyAre) {
    v.flxVB.scrivi(2, Colonna::Gestione, "3");
    updateNextRow(v, 1);
    EXPECT_EQ(v.flxVB.gestione(1), RigaNuova);
    EXPECT_EQ(v.flxVB.gestione(2), RigaCancellata);
    EXPECT_EQ(v.flxVB.gestione(3), RigaNuova);
}

TEST_F(RowDeletion, WithoutAQuestionTheGivenRowGoes) {
    delRowToGrid(v, 3, false);
    EXPECT_EQ(codiciVivi(v), (QStringList{"A", "B"}));
}

TEST_F(RowDeletion, FieldBeingTypedInIsEndedFirst) {
    c.clicRiga(2);
    scrivi(c, v.txtQta, "5");
    n.operatore.attendiDomanda("Eliminare il prodotto [Prodotto B]?", OperatorPort::Risposta::No,
                               [&] { EXPECT_EQ(cella(v, 2, Colonna::Quantita), "5,00"); });
    c.tasto(Qt::Key_F9);
    EXPECT_EQ(v.lblMainDisplay.testo(), "85,40");
}

TEST_F(RowDeletion, ProductCanBeSoldAgain) {
    cancella(2, "B");
    vendi(c, "B");
    EXPECT_EQ(codiciVivi(v), (QStringList{"A", "C", "B"}));
    EXPECT_EQ(v.lblMainDisplay.testo(), "36,60");
}

TEST(RowDeletionOfNothing, EmptySaleStaysAsItIs) {
    Negozio n;
    ContoDiProva& c = n.apriConto();
    c.tasto(Qt::Key_F9);
    EXPECT_EQ(c.vendita().flxVB.righe(), 1);
    EXPECT_FALSE(c.vendita().venditaModificata);
}

}  // namespace
