#include "gesti.h"
#include "sale/document_info.h"

namespace {

struct DocumentInfo : testing::Test {
    Negozio n;
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();
};

TEST_F(DocumentInfo, TypeAndCausalAreRead) {
    n.sql(
        "INSERT INTO Causali (RID, CODICE, DESCRIZIONE, OPERAZIONE, ORIGINE, DESTINAZIONE, FK_MAGAZZINOORIG, "
        "FK_MAGAZZINODEST, TAGLIO, GENERAPN, GENERASCAD, SCADENZENEGATIVE) VALUES "
        "(5,'X','Altra',1,3,2,1,1,1,1,1,1)");
    n.sql(
        "INSERT INTO TipoDocumenti (RID, CODICE, DESCRIZIONE, FK_CAUSALE, NCONTATORE, REPORT, USAPREZZIIVA, "
        "ACCOMPAGNATORIO) VALUES (5,'FT','Fattura',5,8,'Fattura.rpt',1,1)");
    setInfoDocumento(v, 5);
    EXPECT_EQ(v.idTipoDocumento, 5);
    EXPECT_EQ(v.codTipoDocumento, "FT");
    EXPECT_EQ(v.descTipoDocumento, "Fattura");
    EXPECT_EQ(v.reportDocumento, "Fattura.rpt");
    EXPECT_EQ(v.numeratore, 8);
    EXPECT_EQ(v.mCausaleDoc, 5);
    EXPECT_TRUE(v.mUsaPrezziIva && v.generaPN && v.generaScad && v.scadenzeNegative && v.operazione);
    EXPECT_TRUE(v.mGestioneTaglio && v.mAccompagnatorio);
    EXPECT_EQ(v.origine, 3);
    EXPECT_EQ(v.destinazione, 2);
    EXPECT_EQ(v.magazzinoOrigine, 1);
    EXPECT_EQ(v.magazzinoDestinazione, 1);
    EXPECT_TRUE(c.vendita().pctIVA.visibile());
}

TEST_F(DocumentInfo, CounterSaleHasNoVatLayout) {
    EXPECT_FALSE(v.mUsaPrezziIva);
    EXPECT_FALSE(c.vendita().pctIVA.visibile());
    EXPECT_TRUE(v.generaPN);
    EXPECT_TRUE(v.generaScad);
    EXPECT_EQ(v.magazzinoOrigine, 1);
}

TEST_F(DocumentInfo, MissingTypeChangesNothing) {
    setInfoDocumento(v, 99);
    EXPECT_EQ(v.idTipoDocumento, 1);
    EXPECT_EQ(v.codTipoDocumento, "VB");
}

TEST_F(DocumentInfo, VatLayoutStays) {
    setViewMode(v, true);
    setViewMode(v, false);
    EXPECT_TRUE(c.vendita().pctIVA.visibile());
}

TEST_F(DocumentInfo, ReasonIsShownWithItsKey) {
    setInfoPagamento(v, 2);
    EXPECT_EQ(v.lblDescPagamento.testo(), "Incasso contanti");
    EXPECT_EQ(v.lblDescPagamento.tag(), "2");
}

TEST_F(DocumentInfo, MissingReasonChangesNothing) {
    setInfoPagamento(v, 2);
    setInfoPagamento(v, 99);
    EXPECT_EQ(v.lblDescPagamento.testo(), "Incasso contanti");
}

TEST_F(DocumentInfo, NewReasonIsTheSalesOwn) {
    setNuovoPagamento(v, 1);
    EXPECT_EQ(v.idCausalePagamento, 1);
    EXPECT_EQ(v.lblDescPagamento.testo(), "Vendita al banco");
}

}  // namespace
