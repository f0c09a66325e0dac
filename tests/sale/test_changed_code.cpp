#include "doubles/kit_di_prova.h"
#include "gesti.h"

namespace {

// A code typed over that of a row in the editor: another product takes the row's place.
struct ChangedCode : testing::Test {
    Negozio n;
    int idA = n.prodotto({.codice = "A1", .listino1 = 10, .barcode = "8001", .descrizione = "Martello"});
    int idB = n.prodotto({.codice = "B1", .listino1 = 20, .barcode = "8002", .descrizione = "Pinza"});
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();

    void entra(const QString& codice) {
        c.digita(codice);
        c.invio();
    }
    // Rows 1 "A1" and 2 "CODA"; the code is typed over the first.
    void scriviSopra(const QString& codice) {
        n.prodotto({.codice = "CODA", .listino1 = 1});
        vendi(c, "A1");
        vendi(c, "CODA");
        c.clicRiga(1);
        scrivi(c, v.txtCodProdotto, codice);
        c.invio();
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
    entra("A1");
    scrivi(c, v.txtQta, "4");
    c.tasto(Qt::Key_F6);
    c.clicRiga(1);
    scrivi(c, v.txtCodProdotto, "B1");
    c.invio();
    EXPECT_EQ(codiciVivi(v), QStringList{"B1"});
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "4,00");
    EXPECT_EQ(v.lblMainDisplay.testo(), "97,60");
}

TEST_F(ChangedCode, ReplacingCodeKeepsAReturn) {
    entra("A1");
    rendi(c, "2");
    c.clicRiga(1);
    scrivi(c, v.txtCodProdotto, "B1");
    c.invio();
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "-2,00");
}

TEST_F(ChangedCode, KeptQuantityIsHeldAgainstTheStock) {
    gSottoScorta = 1;
    gBloccaSottoScorta = true;
    n.sql(QString("UPDATE Prodotti SET SETGIACENZA = 1, GIACENZA = 3 WHERE RID = %1").arg(idB));
    entra("A1");
    scrivi(c, v.txtQta, "4");
    c.tasto(Qt::Key_F6);
    c.clicRiga(1);
    n.operatore.attendiMessaggio(
        "Impossibile scaricare la quantità desiderata per il prodotto [Pinza].\nLa scorta di [3,00] è "
        "inferiore alla quantità [4,00] scelta!",
        OperatorPort::Icona::Critica);
    scrivi(c, v.txtCodProdotto, "B1");
    c.invio();
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
    c.clicRiga(1);
    n.operatore.attendiDomanda(
        "Attenzione! La giacenza del prodotto [Pinza] è inferiore a [1].\nScegliere [Sì] per continuare "
        "oppure [No] per annullare l'operazione",
        OperatorPort::Risposta::No);
    scrivi(c, v.txtCodProdotto, "B1");
    c.invio();
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
    n.sql(QString("INSERT INTO DettagliProdotto (FK_PRODOTTO, FK_MAGAZZINO, TAGLIO, QUANTITA) VALUES "
                  "(%1,1,30,5)")
              .arg(idB));
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
    c.clicRiga(3);
    scrivi(c, v.txtCodProdotto, "%KIT");
    c.invio();
    EXPECT_EQ(codiciVivi(v), (QStringList{"%KIT", "B1"}));
    EXPECT_EQ(v.lblMainDisplay.testo(), "6,10");
}

TEST_F(ChangedCode, SavedRowIsDeletedAndTheNewOneSaved) {
    vendi(c, "A1");
    c.tasto(Qt::Key_F5);
    ASSERT_EQ(n.valore("SELECT CODPRODOTTO FROM DettagliMovimento"), "A1");
    c.clicRiga(1);
    scrivi(c, v.txtCodProdotto, "B1");
    c.invio();
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(n.righe("SELECT CODPRODOTTO FROM DettagliMovimento"), QStringList{"B1"});
    EXPECT_EQ(n.valore("SELECT TOTDOCUMENTO FROM Movimenti"), "24.4");
}

}  // namespace
