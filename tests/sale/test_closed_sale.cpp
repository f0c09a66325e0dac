#include "gesti.h"
#include "sale/row_editor.h"
#include "sale/sale_document.h"

namespace {

struct ClosedSale : testing::Test {
    Negozio n;
    int idP = n.prodotto({.codice = "P", .listino1 = 10});
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();

    // The screen shows a saved sale.
    void salvata(const QString& dataStampa, bool conStampa) {
        gLockVBEdit = 1;
        v.txtProg.testo("0001");
        v.txtSottoProg.testo("0001");
        v.lblDataStampa.testo(dataStampa);
        v.pctPrint.visibile(conStampa);
    }
    std::vector<const Campo*> campiBloccabili() const {
        return {&v.txtCodProdotto,   &v.txtDescProdotto,      &v.txtQta,
                &v.txtPrezzoNetto,   &v.txtSconto1,           &v.txtSconto2,
                &v.txtSconto3,       &v.TxtPrezzoRiga,        &v.txtPrezzoFinito,
                &v.txtPrezzoListino, &v.txtPrezzoListinoLordo};
    }
    std::vector<const Campo*> campiPrezzo() const {
        return {&v.txtSconto1,
                &v.txtSconto2,
                &v.txtSconto3,
                &v.txtPrezzoFinito,
                &v.txtPrezzoListino,
                &v.txtPrezzoNetto,
                &v.txtPrezzoListinoLordo,
                &v.TxtPrezzoRiga};
    }
    static void attesi(const std::vector<const Campo*>& campi, bool bloccati) {
        for (const Campo* campo : campi) {
            EXPECT_EQ(campo->bloccato(), bloccati) << campo->nome().toStdString();
        }
    }
};

TEST_F(ClosedSale, PrintedDocumentIsClosed) {
    salvata("16/03/2026", true);
    checkPolicyDeleteUpadte(v);
    EXPECT_FALSE(v.modificaConsentita);
}

TEST_F(ClosedSale, DocumentNotYetPrintedIsOpen) {
    salvata("", true);
    checkPolicyDeleteUpadte(v);
    EXPECT_TRUE(v.modificaConsentita);
}

TEST_F(ClosedSale, SaleWithoutPrintingIsClosedOnceSaved) {
    salvata("", false);
    checkPolicyDeleteUpadte(v);
    EXPECT_FALSE(v.modificaConsentita);
}

TEST_F(ClosedSale, SaleWithoutItsNumbersIsOpen) {
    salvata("16/03/2026", false);
    v.txtSottoProg.testo("(Auto)");
    checkPolicyDeleteUpadte(v);
    EXPECT_TRUE(v.modificaConsentita);
}

TEST_F(ClosedSale, OptionOffLeavesItAsItIs) {
    salvata("16/03/2026", true);
    gLockVBEdit = 0;
    checkPolicyDeleteUpadte(v);
    EXPECT_TRUE(v.modificaConsentita);
    v.modificaConsentita = false;
    checkPolicyDeleteUpadte(v);
    EXPECT_FALSE(v.modificaConsentita);
}

TEST_F(ClosedSale, LocksFieldsAndCommands) {
    salvata("16/03/2026", true);
    checkPolicyDeleteUpadte(v);
    attesi(campiBloccabili(), true);
    for (const size_t comando : {4U, 6U, 9U}) {
        EXPECT_FALSE(v.cmdComando[comando].abilitato()) << comando;
    }
    EXPECT_FALSE(v.cmdConto[7].abilitato());
}

TEST_F(ClosedSale, OpenSaleUnlocksThemAgain) {
    v.modificaConsentita = false;
    applicaModificaConsentita(v);
    v.modificaConsentita = true;
    applicaModificaConsentita(v);
    attesi(campiBloccabili(), false);
    EXPECT_TRUE(v.cmdComando[9].abilitato());
}

TEST_F(ClosedSale, TypedCodeAddsNothing) {
    salvata("16/03/2026", true);
    checkPolicyDeleteUpadte(v);
    c.digita("P");
    c.invio();
    EXPECT_EQ(v.flxVB.righe(), 1);
}

TEST_F(ClosedSale, ScanAddsNothing) {
    n.sql("UPDATE Prodotti SET BARCODE = '8001'");
    salvata("16/03/2026", true);
    checkPolicyDeleteUpadte(v);
    c.scansiona("8001");
    EXPECT_EQ(v.flxVB.righe(), 1);
}

TEST_F(ClosedSale, F9DeletesNothing) {
    vendi(c, "P");
    salvata("16/03/2026", true);
    checkPolicyDeleteUpadte(v);
    c.clicRiga(1);
    c.tasto(Qt::Key_F9);
    EXPECT_EQ(codiciVivi(v), QStringList{"P"});
}

TEST_F(ClosedSale, NewDocumentIsOpen) {
    salvata("16/03/2026", true);
    checkPolicyDeleteUpadte(v);
    nuovoDocumento(v);
    EXPECT_TRUE(v.modificaConsentita);
    attesi(campiBloccabili(), false);
}

// ---- Locked prices

TEST_F(ClosedSale, PricesAreLockedForTheWalkInCustomer) {
    gLockVBPrezzo = 1;
    bloccaPrezzi(v);
    attesi(campiPrezzo(), true);
    EXPECT_FALSE(v.txtQta.bloccato());
    EXPECT_FALSE(v.cmdComando[16].abilitato());
}

TEST_F(ClosedSale, PricesStayFreeForANamedCustomer) {
    gLockVBPrezzo = 1;
    v.txtCodCliente.tag(QString::number(n.cliente(2, "DUE")));
    applicaModificaConsentita(v);
    attesi(campiPrezzo(), false);
    EXPECT_TRUE(v.cmdComando[16].abilitato());
}

TEST_F(ClosedSale, PricesStayFreeWithoutTheOption) {
    bloccaPrezzi(v);
    attesi(campiPrezzo(), false);
    EXPECT_TRUE(v.cmdComando[16].abilitato());
}

TEST_F(ClosedSale, ProductWithALockedPriceLocksThemForEveryone) {
    n.prodotto({.codice = "L", .listino1 = 10, .bloccaPrezzo = true});
    c.digita("L");
    c.invio();
    attesi(campiPrezzo(), true);
    EXPECT_EQ(cella(v, 1, Colonna::BloccaPrezzo), "1");
}

TEST_F(ClosedSale, NextProductIsFreeAgain) {
    n.prodotto({.codice = "L", .listino1 = 10, .bloccaPrezzo = true});
    vendi(c, "L");
    c.digita("P");
    c.invio();
    attesi(campiPrezzo(), false);
}

TEST_F(ClosedSale, RowOfALockedPriceLocksWhenLoaded) {
    n.prodotto({.codice = "L", .listino1 = 10, .bloccaPrezzo = true});
    vendi(c, "L");
    vendi(c, "P");
    c.clicRiga(1);
    attesi(campiPrezzo(), true);
    c.clicRiga(2);
    attesi(campiPrezzo(), false);
}

TEST_F(ClosedSale, TypingIntoALockedPriceChangesNothing) {
    n.prodotto({.codice = "L", .listino1 = 10, .bloccaPrezzo = true});
    c.digita("L");
    c.invio();
    scrivi(c, v.txtPrezzoNetto, "1");
    c.invio();
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "12,20");
}

// ---- A new header for the rows

TEST_F(ClosedSale, RowsMoveToANewHeader) {
    n.prodotto({.codice = "Q", .listino1 = 1});
    n.prodotto({.codice = "R", .listino1 = 1});
    for (const char* codice : {"P", "Q", "R"}) {
        vendi(c, codice);
    }
    v.lblRID.testo("5");
    v.idPrimaNota = 6;
    v.idPNPagamento = 7;
    v.flxVB.scrivi(1, Colonna::Gestione, "0");
    v.flxVB.scrivi(2, Colonna::Gestione, "2");
    v.flxVB.scrivi(3, Colonna::Gestione, "3");
    EXPECT_TRUE(setForNewMovimento(v));
    EXPECT_EQ(v.rid(), -1);
    EXPECT_EQ(v.idPrimaNota, -1);
    EXPECT_EQ(v.idPNPagamento, -1);
    EXPECT_EQ(v.flxVB.gestione(1), RigaNuova);
    EXPECT_EQ(v.flxVB.gestione(2), RigaNuova);
    EXPECT_EQ(v.flxVB.gestione(3), RigaCancellata);
}

TEST_F(ClosedSale, RowsToSaveAreTheTouchedOnes) {
    n.prodotto({.codice = "Q", .listino1 = 1});
    vendi(c, "P");
    vendi(c, "Q");
    EXPECT_EQ(contaRigheDaSalvare(v), 2);
    v.flxVB.scrivi(1, Colonna::Gestione, "0");
    EXPECT_EQ(contaRigheDaSalvare(v), 1);
    v.flxVB.scrivi(2, Colonna::Gestione, "3");
    EXPECT_EQ(contaRigheDaSalvare(v), 1);
}

// ---- A new document

TEST_F(ClosedSale, NewDocumentClearsTheSale) {
    vendi(c, "P");
    nuovoDocumento(v);
    EXPECT_EQ(v.flxVB.righe(), 1);
    EXPECT_EQ(v.rid(), -1);
    EXPECT_EQ(v.lblMainDisplay.testo(), "0,00");
    EXPECT_EQ(v.txtProg.testo(), "(Auto)");
    EXPECT_EQ(v.txtSottoProg.testo(), "(Auto)");
    EXPECT_EQ(v.txtData.testo(), "16/03/2026");
    EXPECT_EQ(v.cliente(), 1);
    EXPECT_FALSE(v.venditaModificata);
    EXPECT_FALSE(v.pctSave.visibile());
    EXPECT_EQ(c.fuocoSu(), &v.txtCodProdotto);
}

}  // namespace
