#include "core/run_time_error.h"
#include "gesti.h"
#include "sale/line_pricing.h"

namespace {

struct PricingBackward : testing::Test {
    Negozio n;
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();

    void calcola(const QString& totale, const QString& iva, const QString& qta, const QString& s1,
                 const QString& s2 = "0,00", const QString& s3 = "0,00") {
        v.TxtPrezzoRiga.testo(totale);
        v.lblValoraIva.testo(iva);
        v.txtQta.testo(qta);
        v.txtSconto1.testo(s1);
        v.txtSconto2.testo(s2);
        v.txtSconto3.testo(s3);
        ricalcolaPrezzi(v, true, false);
    }
    int errore(const QString& qta, const QString& sconto) {
        try {
            calcola("10,00", "22,00", qta, sconto);
        } catch (const RunTimeError& e) {
            return e.numero();
        }
        return 0;
    }
};

TEST_F(PricingBackward, UndoesTheDiscountsFromTheRowTotal) {
    // 104,31 / 1,22 = 85,50; / 0,95 = 90; / 0,90 = 100.
    calcola("104,31", "22,00", "1,00", "10,00", "5,00");
    EXPECT_EQ(v.txtPrezzoListinoLordo.testo(), "104,31");
    EXPECT_EQ(v.lblPrezzoListinoLordo.testo(), "104,31");
    EXPECT_EQ(v.txtPrezzoNetto.testo(), "85,50");
    EXPECT_EQ(v.txtPrezzoNetto.tag(), "85,50");
    EXPECT_EQ(v.lblPrezzoNetto.testo(), "85,50");
    EXPECT_EQ(v.txtPrezzoListino.testo(), "100,00");
    EXPECT_EQ(v.txtPrezzoListino.tag(), "100,00");
    EXPECT_EQ(v.lblPrezzoListino.testo(), "100,00");
}

TEST_F(PricingBackward, DividesByTheQuantityFirst) {
    // 10 / 3 = 3,3333; / 1,22 = 2,73221.
    calcola("10,00", "22,00", "3,00", "0,00");
    EXPECT_EQ(v.txtPrezzoListinoLordo.testo(), "3,33");
    EXPECT_EQ(v.txtPrezzoNetto.testo(), "2,73");
    EXPECT_EQ(v.txtPrezzoListino.testo(), "2,73");
}

TEST_F(PricingBackward, ListPriceStartsFromTheRoundedNetPrice) {
    // 10 / 1,22 = 8,196721, shown 8,20; 8,20 / 0,50 = 16,40 and not 16,39.
    calcola("10,00", "22,00", "1,00", "50,00");
    EXPECT_EQ(v.txtPrezzoListino.testo(), "16,40");
}

TEST_F(PricingBackward, ThirdDiscountIsUndoneToo) {
    // 50 / 0,80 = 62,50; / 0,50 = 125; / 0,90 = 138,8889.
    calcola("50,00", "0,00", "1,00", "10,00", "50,00", "20,00");
    EXPECT_EQ(v.txtPrezzoListino.testo(), "138,89");
}

TEST_F(PricingBackward, DecimalsFollowTheWorkstation) {
    gDecimaliDopo = 4;
    calcola("10,00", "22,00", "1,00", "0,00");
    EXPECT_EQ(v.txtPrezzoNetto.testo(), "8,1967");
}

TEST_F(PricingBackward, QuantityZeroOverflows) {
    EXPECT_EQ(errore("0,00", "0,00"), RunTimeError::Overflow);
}

TEST_F(PricingBackward, FullDiscountOverflows) {
    EXPECT_EQ(errore("1,00", "100,00"), RunTimeError::Overflow);
}

TEST_F(PricingBackward, FullDiscountLeavesTheStepsBeforeIt) {
    EXPECT_EQ(errore("1,00", "100,00"), RunTimeError::Overflow);
    EXPECT_EQ(v.txtPrezzoListinoLordo.testo(), "10,00");
    EXPECT_EQ(v.txtPrezzoNetto.testo(), "8,20");
}

// ---- A document type whose prices include VAT

struct PricesWithVat : testing::Test {
    Negozio n;
    ContoDiProva& entra(int prezzoType) {
        n.sql("UPDATE TipoDocumenti SET USAPREZZIIVA = 1");
        n.prodotto({.codice = "P", .listino1 = 10});
        gPrezzoType = prezzoType;
        ContoDiProva& c = n.apriConto();
        c.digita("P");
        c.invio();
        return c;
    }
};

TEST_F(PricesWithVat, LeavingThePriceKeepsTheRowInTheEditor) {
    ContoDiProva& c = entra(2);
    Vendita& v = c.vendita();
    scriviELascia(c, v.TxtPrezzoRiga, "24,40");
    EXPECT_EQ(v.lblPos.testo(), "1");
    EXPECT_EQ(v.txtPrezzoListinoLordo.testo(), "24,40");
    EXPECT_EQ(cella(v, 1, Colonna::PrezzoListino), "20,00");
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "24,40");
}

// Three pieces under prices with VAT; "10" typed into the price at the end of the row.
struct PrezzoConIva {
    const char* nome;
    int prezzoType;
    Campo Vendita::*campo;
    const char* lordo;
    const char* listino;
    const char* importo;
};

class PriceWithVat : public PricesWithVat, public testing::WithParamInterface<PrezzoConIva> {};

TEST_P(PriceWithVat, IsTakenBackFromTheRowTotalThatItGives) {
    ContoDiProva& c = entra(GetParam().prezzoType);
    Vendita& v = c.vendita();
    scrivi(c, v.txtQta, "3");
    scriviELascia(c, v.*GetParam().campo, "10");
    EXPECT_EQ(v.txtPrezzoListinoLordo.testo(), GetParam().lordo);
    EXPECT_EQ(cella(v, 1, Colonna::PrezzoListino), GetParam().listino);
    EXPECT_EQ(cella(v, 1, Colonna::Importo), GetParam().importo);
    EXPECT_EQ(v.lblPos.testo(), "1");
}

// Final price: row total 30; 10,00 a piece; / 1,22 = 8,1967, list 8,20; 8,20 x 3 x 1,22 = 30,012.
// Row total: 10 / 1,22 / 3 = 2,7322, list 2,73; 2,73 x 3 x 1,22 = 9,9918; 9,99 / 3 = 3,33; / 1,22 = 2,7295.
INSTANTIATE_TEST_SUITE_P(
    Boxes, PriceWithVat,
    testing::Values(PrezzoConIva{"FinalPrice", 1, &Vendita::txtPrezzoFinito, "10,00", "8,20", "30,01"},
                    PrezzoConIva{"RowTotal", 2, &Vendita::TxtPrezzoRiga, "3,33", "2,73", "9,99"}),
    [](const auto& info) { return std::string(info.param.nome); });

TEST_F(PricesWithVat, DiscountedRowEndsWithoutDiscounts) {
    ContoDiProva& c = entra(0);
    Vendita& v = c.vendita();
    scrivi(c, v.txtSconto1, "10");
    scriviELascia(c, v.txtPrezzoNetto, "9");
    EXPECT_EQ(cella(v, 1, Colonna::Sconto1), "0,00");
    EXPECT_EQ(cella(v, 1, Colonna::PrezzoListino), "9,00");
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "10,98");
}

}  // namespace
