#include "books.h"
#include "doubles/kit_di_prova.h"
#include "sale/recall.h"

namespace {

// A kit of 2 screws at 3,00 and a bracket at 4,00, sold and saved.
struct SaveKits : testing::Test {
    Negozio n;
    int vite = n.prodotto({.codice = "VITE", .listino1 = 5});
    int staffa = n.prodotto({.codice = "STAFFA", .listino1 = 4});
    int kit = distinta(n, "%KIT", {{vite, 2, 3}, {staffa, 1, 0}});
    int altro = n.prodotto({.codice = "ALTRO", .listino1 = 1});
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();

    void SetUp() override {
        vendi(c, "%KIT");
        c.tasto(Qt::Key_F5);
        ASSERT_EQ(n.conta("Movimenti"), 1);
    }
    QString testa() { return n.valore("SELECT RID FROM DettagliMovimento WHERE CODPRODOTTO = '%KIT'"); }
    QStringList colonna(Colonna quale) const {
        QStringList testi;
        for (int r = 1; r <= v.flxVB.ultima(); ++r)
            testi << v.flxVB.cella(r, quale);
        return testi;
    }
    double totaleDocumento() { return n.valore("SELECT TOTDOCUMENTO FROM Movimenti").toDouble(); }
};

TEST_F(SaveKits, HeadIsStoredWithoutMoney) {
    EXPECT_EQ(n.conta("DettagliMovimento",
                      "CODPRODOTTO = '%KIT' AND QUANTITA = 1 AND PREZZO = 0 AND SCONTONETTO = 0 AND "
                      "PREZZONETTO = 0 AND TOTPREZZONETTO = 0 AND IVA = 0 AND TOTALEIVA = 0 AND TOTALERIGA = "
                      "0 AND IK_DETTAGLIOMOVIMENTO IS NULL"),
              1);
}

TEST_F(SaveKits, ComponentsPointToTheirHead) {
    EXPECT_EQ(n.conta("DettagliMovimento", "IK_DETTAGLIOMOVIMENTO = " + testa()), 2);
    EXPECT_EQ(n.valore("SELECT TOTALERIGA FROM DettagliMovimento WHERE CODPRODOTTO = 'VITE'").toDouble(),
              7.32);
}

TEST_F(SaveKits, DocumentTotalsTheComponents) {
    EXPECT_DOUBLE_EQ(totaleDocumento(), 12.20);
    EXPECT_DOUBLE_EQ(n.valore("SELECT TOTIMPOSTA FROM Movimenti").toDouble(), 2.20);
}

TEST_F(SaveKits, RecalledHeadShowsTheSumsOfItsComponents) {
    EXPECT_EQ(colonna(Colonna::Codice), (QStringList{"%KIT", "VITE", "STAFFA"}));
    EXPECT_EQ(v.flxVB.cella(1, Colonna::PrezzoListino), "10,00");
    EXPECT_EQ(v.flxVB.cella(1, Colonna::PrezzoNetto), "10,00");
    EXPECT_EQ(v.flxVB.cella(1, Colonna::Importo), "12,20");
    EXPECT_EQ(v.lblMainDisplay.testo(), "12,20");
}

TEST_F(SaveKits, RecalledComponentsHoldTheKeyOfTheirHead) {
    EXPECT_EQ(colonna(Colonna::IdDistintaBase), (QStringList{"", testa(), testa()}));
}

TEST_F(SaveKits, ChangedQuantityOfARecalledKitIsSavedWhole) {
    c.clicRiga(1);
    c.clic(v.txtQta);
    c.digita("3");
    c.tasto(Qt::Key_F6);
    ASSERT_EQ(v.lblMainDisplay.testo(), "36,60");
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(n.valore("SELECT QUANTITA FROM DettagliMovimento WHERE CODPRODOTTO = 'VITE'").toDouble(), 6);
    EXPECT_EQ(n.conta("DettagliMovimento"), 3);
    EXPECT_DOUBLE_EQ(totaleDocumento(), 36.60);
    EXPECT_EQ(v.lblMainDisplay.testo(), "36,60");
}

TEST_F(SaveKits, TypedAgainOnARecalledSaleKeepsTheComponents) {
    vendi(c, "%KIT");
    EXPECT_EQ(colonna(Colonna::Codice), (QStringList{"%KIT", "VITE", "STAFFA"}));
    EXPECT_EQ(v.lblMainDisplay.testo(), "12,20");
}

TEST_F(SaveKits, ComponentBroughtBackToASavedKitJoinsItsHead) {
    n.sql("DELETE FROM DettagliMovimento WHERE CODPRODOTTO = 'STAFFA'");
    ContoDiProva& altra = c;
    altra.tasto(Qt::Key_F2);
    // Another kit is saved in between, so that the latest head is not this one's.
    distinta(n, "%DUE", {{altro, 1, 2}});
    vendi(c, "%DUE");
    c.tasto(Qt::Key_F5);
    const int movimento = n.valore("SELECT MAX(RID) FROM Movimenti").toInt();
    showVendita(v, movimento, -1, 1, -1);
    ASSERT_EQ(colonna(Colonna::Codice), (QStringList{"%KIT", "VITE"}));
    vendi(c, "%KIT");
    ASSERT_EQ(colonna(Colonna::Codice), (QStringList{"%KIT", "VITE", "STAFFA"}));
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(n.valore("SELECT IK_DETTAGLIOMOVIMENTO FROM DettagliMovimento WHERE CODPRODOTTO = 'STAFFA'"),
              testa());
}

TEST_F(SaveKits, DeletedHeadOfARecalledKitLeavesNoRow) {
    vendi(c, "ALTRO");
    c.clicRiga(1);
    n.operatore.attendiDomanda("Eliminare il prodotto [Kit KIT]?", OperatorPort::Risposta::Si);
    c.tasto(Qt::Key_F9);
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(n.conta("DettagliMovimento"), 1);
    EXPECT_DOUBLE_EQ(totaleDocumento(), 1.22);
}

TEST_F(SaveKits, KitInsideAKitBelongsToTheOuterHead) {
    c.tasto(Qt::Key_F2);
    distinta(n, "%FUORI", {{kit, 1, 0}, {altro, 1, 2}});
    vendi(c, "%FUORI");
    c.tasto(Qt::Key_F5);
    const QString fuori = n.valore("SELECT RID FROM DettagliMovimento WHERE CODPRODOTTO = '%FUORI'");
    EXPECT_EQ(n.conta("DettagliMovimento", "IK_DETTAGLIOMOVIMENTO = " + fuori), 4);
    EXPECT_EQ(v.flxVB.cella(1, Colonna::Importo), "14,64");
    EXPECT_EQ(v.lblMainDisplay.testo(), "14,64");
}

}  // namespace
