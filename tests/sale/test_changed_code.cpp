#include "doubles/kit_di_prova.h"
#include "entry_shop.h"

namespace {

// A code typed over that of a row in the editor: another product takes the row's place.
struct ChangedCode : NegozioDiIngresso {
    void riscrivi(int riga, const QString& codice) {
        c.clicRiga(riga);
        scrivi(c, v.txtCodProdotto, codice);
        c.invio();
    }
    // Row 1: "A1", four pieces.
    void quattroMartelli() {
        entra("A1");
        scrivi(c, v.txtQta, "4");
        c.tasto(Qt::Key_F6);
    }
    // Rows 1 "A1" and 2 "CODA"; the code is typed over the first.
    void scriviSopra(const QString& codice) {
        n.prodotto({.codice = "CODA", .listino1 = 1});
        vendi(c, "A1");
        vendi(c, "CODA");
        riscrivi(1, codice);
    }
    // Nothing came of it: the row stands as it was, and so does the total.
    void rigaRimasta() {
        EXPECT_EQ(codiciVivi(v), (QStringList{"A1", "CODA"}));
        EXPECT_EQ(v.flxVB.righe(), 3);
        EXPECT_EQ(cella(v, 1, Colonna::Importo), "12,20");
        EXPECT_EQ(v.lblMainDisplay.testo(), "13,42");
    }
};

TEST_F(ChangedCode, ReplacingCodeKeepsTheQuantity) {
    quattroMartelli();
    riscrivi(1, "B1");
    EXPECT_EQ(codiciVivi(v), QStringList{"B1"});
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "4,00");
    EXPECT_EQ(v.lblMainDisplay.testo(), "97,60");
}

TEST_F(ChangedCode, ReplacingCodeKeepsAReturn) {
    entra("A1");
    rendi(c, "2");
    riscrivi(1, "B1");
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "-2,00");
}

TEST_F(ChangedCode, KeptQuantityIsHeldAgainstTheStock) {
    gSottoScorta = 1;
    gBloccaSottoScorta = true;
    n.sql(QString("UPDATE Prodotti SET SETGIACENZA = 1, GIACENZA = 3 WHERE RID = %1").arg(idB));
    quattroMartelli();
    n.operatore.attendiMessaggio(
        "Impossibile scaricare la quantità desiderata per il prodotto [Pinza].\nLa scorta di [3,00] è "
        "inferiore alla quantità [4,00] scelta!",
        OperatorPort::Icona::Critica);
    riscrivi(1, "B1");
    EXPECT_EQ(codiciVivi(v), QStringList{"B1"});
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "1,00");
    EXPECT_EQ(v.txtQta.testo(), "1,00");
}

TEST_F(ChangedCode, LettersTypedOverACodeNeverReachTheRow) {
    vendi(c, "A1");
    c.clicRiga(1);
    scrivi(c, v.txtCodProdotto, "XYZ");
    c.tasto(Qt::Key_F6);
    EXPECT_EQ(cella(v, 1, Colonna::Codice), "A1");
}

TEST_F(ChangedCode, RefusedCodeOverARowLeavesTheRow) {
    gSottoScorta = 1;
    gAvvisaSottoScorta = true;
    vendi(c, "A1");
    n.sql("UPDATE Prodotti SET SETGIACENZA = 1 WHERE CODICE = 'B1'");
    n.operatore.attendiDomanda(
        "Attenzione! La giacenza del prodotto [Pinza] è inferiore a [1].\nScegliere [Sì] per continuare "
        "oppure [No] per annullare l'operazione",
        OperatorPort::Risposta::No);
    riscrivi(1, "B1");
    c.tasto(Qt::Key_F6);
    EXPECT_EQ(codiciVivi(v), QStringList{"A1"});
    EXPECT_EQ(v.flxVB.chiave(1, Colonna::IdProdotto), idA);
}

// ---- The row is lost only to one that stands

TEST_F(ChangedCode, UnknownOneLeavesTheRow) {
    scriviSopra("NIENTE");
    rigaRimasta();
}

TEST_F(ChangedCode, AmountOutOfRangeLeavesTheRow) {
    n.sql("UPDATE Prodotti SET LISTINO1 = 900000000000000 WHERE CODICE = 'B1'");
    n.operatore.attendiAvviso("frmMain.getProdotto");
    scriviSopra("B1");
    rigaRimasta();
}

TEST_F(ChangedCode, KitThatCannotBeReadLeavesTheRow) {
    distinta(n, "%KIT", {{idB, 1, 5}});
    n.operatore.attendiAvviso("cAdoSqlServer.getNewRecordset -> frmMain.getProdFigli");
    const IstruzioneRotta rotta("DBD.POS");
    scriviSopra("%KIT");
    rigaRimasta();
}

TEST_F(ChangedCode, NoToASaleBelowCostLeavesTheRow) {
    n.prodotto({.codice = "VE", .descrizione = "Vecchio", .idSostituito = idB});
    strato(idB, 30, 5);
    gSottoCosto = 1;
    n.operatore.attendiDomanda(
        "Il prodotto [Vecchio] è stato sostituito.\nScegliere quello relativo [B1 - Pinza]?",
        OperatorPort::Risposta::Si);
    n.operatore.attendiDomanda("Attenzione! Vendita sottocosto.\nContinuare?", OperatorPort::Risposta::No);
    scriviSopra("VE");
    rigaRimasta();
    EXPECT_EQ(v.txtCodProdotto.chiave(), -1);
}

TEST_F(ChangedCode, ProductThatHasItsRowIsShownThereAndTheOldRowGoes) {
    scriviSopra("CODA");
    EXPECT_EQ(codiciVivi(v), QStringList{"CODA"});
    EXPECT_EQ(v.txtCodProdotto.testo(), "CODA");
    EXPECT_EQ(v.lblPos.testo(), "2");
    EXPECT_EQ(cella(v, 2, Colonna::Quantita), "1,00");
    EXPECT_EQ(v.lblMainDisplay.testo(), "1,22");
}

TEST_F(ChangedCode, KitThatGetsItsComponentsBackAboveTheRowTakesThatRowAway) {
    distinta(n, "%KIT", {{idB, 1, 5}});
    vendi(c, "%KIT");
    c.clicRiga(2);
    n.operatore.attendiDomanda("Eliminare il prodotto [Pinza]?", OperatorPort::Risposta::Si);
    c.tasto(Qt::Key_F9);
    vendi(c, "A1");
    riscrivi(3, "%KIT");
    EXPECT_EQ(codiciVivi(v), (QStringList{"%KIT", "B1"}));
    EXPECT_EQ(v.lblMainDisplay.testo(), "6,10");
}

TEST_F(ChangedCode, SavedRowIsDeletedAndTheNewOneSaved) {
    vendi(c, "A1");
    c.tasto(Qt::Key_F5);
    ASSERT_EQ(n.valore("SELECT CODPRODOTTO FROM DettagliMovimento"), "A1");
    riscrivi(1, "B1");
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(n.righe("SELECT CODPRODOTTO FROM DettagliMovimento"), QStringList{"B1"});
    EXPECT_EQ(n.valore("SELECT TOTDOCUMENTO FROM Movimenti"), "24.4");
}

}  // namespace
