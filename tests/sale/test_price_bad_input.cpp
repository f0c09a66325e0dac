#include <cmath>

#include "gesti.h"

namespace {

struct CampoPrezzo {
    const char* nome;
    int prezzoType;
    int listinoLordo;
    // What the row comes to with a pasted "-5", and with "1.2.3,4", which is 123,4.
    const char* conMenoCinque;
    const char* conTroppiPunti;
};

std::string nomeCampo(const testing::TestParamInfo<CampoPrezzo>& info) {
    return info.param.nome;
}

const auto campiPrezzo = testing::Values(
    CampoPrezzo{"txtPrezzoListino", 0, 0, "-12,20", "301,10"},
    CampoPrezzo{"txtPrezzoListinoLordo", 0, 1, "-10,00", "246,80"},
    CampoPrezzo{"txtPrezzoNetto", 0, 0, "-12,20", "301,10"},
    CampoPrezzo{"txtPrezzoFinito", 1, 0, "-10,00", "246,81"},  // net 4,10 and 101,15
    CampoPrezzo{"TxtPrezzoRiga", 2, 0, "-5,00", "123,39"},     // net 2,05 and 50,57
    CampoPrezzo{"txtSconto1", 0, 0, "25,62", "-5,71"},         // list price 10,50; net -2,34
    CampoPrezzo{"txtSconto2", 0, 0, "25,62", "-5,71"}, CampoPrezzo{"txtSconto3", 0, 0, "25,62", "-5,71"});

// Two pieces of a product at 10,00, VAT 22, in the editor and in row 1.
struct StrangePrice : testing::TestWithParam<CampoPrezzo> {
    Negozio n;
    ContoDiProva* conto = nullptr;
    Vendita* vendita = nullptr;
    Campo* campo = nullptr;

    void SetUp() override {
        gPrezzoType = GetParam().prezzoType;
        gPrezzoListinoLordo = GetParam().listinoLordo;
        gDisabilitaInvio = 1;
        n.prodotto({.codice = "P", .listino1 = 10});
        conto = &n.apriConto();
        vendita = &conto->vendita();
        conto->digita("P");
        conto->invio();
        scriviELascia(*conto, vendita->txtQta, "2");
        campo = vendita->elenco.trova(GetParam().nome);
        ASSERT_EQ(cella(*vendita, 1, Colonna::Importo), "24,40");
    }
    bool sconto() const { return campo->nome().startsWith("txtSconto"); }
    void incolla(const QString& testo) { ::incolla(*conto, *campo, testo); }
    QString importo() const { return cella(*vendita, 1, Colonna::Importo); }
};

TEST_P(StrangePrice, LettersCannotBeTyped) {
    scriviELascia(*conto, *campo, "abc");
    EXPECT_EQ(importo(), "24,40");
}

TEST_P(StrangePrice, PastedLettersAreZero) {
    incolla("abc");
    EXPECT_EQ(campo->testo(), "0,00");
    EXPECT_EQ(importo(), sconto() ? "24,40" : "0,00");
}

TEST_P(StrangePrice, PastedNumberWithTwoCommasIsZero) {
    incolla("1,2,3");
    EXPECT_EQ(campo->testo(), "0,00");
    EXPECT_EQ(importo(), sconto() ? "24,40" : "0,00");
}

TEST_P(StrangePrice, PastedLineBreakIsZero) {
    incolla("5\n6");
    EXPECT_EQ(campo->testo(), "0,00");
    EXPECT_EQ(importo(), sconto() ? "24,40" : "0,00");
}

TEST_P(StrangePrice, PastedNegativeNumberIsComputedWith) {
    incolla("-5");
    EXPECT_EQ(importo(), GetParam().conMenoCinque);
    EXPECT_EQ(vendita->lblMainDisplay.testo(), GetParam().conMenoCinque);
}

TEST_P(StrangePrice, PastedPointsAreThousandsWhereverTheyStand) {
    incolla("1.2.3,4");
    EXPECT_EQ(importo(), GetParam().conTroppiPunti);
    EXPECT_EQ(vendita->lblMainDisplay.testo(), GetParam().conTroppiPunti);
}

TEST_P(StrangePrice, ZeroSellsForNothing) {
    scriviELascia(*conto, *campo, "0");
    EXPECT_EQ(importo(), sconto() ? "24,40" : "0,00");
    EXPECT_EQ(vendita->lblMainDisplay.testo(), importo());
}

TEST_P(StrangePrice, ThirtyDigitsAreReportedAndLeaveTheRow) {
    n.operatore.attendiAvviso("frmMain." + campo->nome() + "_LostFocus");
    const auto prima = vendita->flxVB.cella(1, Colonna::PrezzoNettoEsteso);
    incolla(QString(30, '9'));
    EXPECT_EQ(importo(), "24,40");
    EXPECT_EQ(cella(*vendita, 1, Colonna::PrezzoNettoEsteso), prima);
    EXPECT_EQ(cella(*vendita, 1, Colonna::PrezzoListino), "10,00");
    EXPECT_EQ(vendita->lblMainDisplay.testo(), "24,40");
}

TEST_P(StrangePrice, ThirtyDigitsCannotBeSaved) {
    conto->clic(*campo);
    campo->testo(QString(30, '9'));
    n.operatore.attendiAvviso("frmMain." + campo->nome() + "_LostFocus");
    conto->tasto(Qt::Key_F5);
    EXPECT_EQ(n.conta("Movimenti"), 0);
}

INSTANTIATE_TEST_SUITE_P(Fields, StrangePrice, campiPrezzo, nomeCampo);

// ---- The quantity, of a product at 10,00 and VAT 22

struct QuantitaStrana {
    const char* nome;
    const char* testo;
    const char* campo;  // what the box shows afterwards; "0,00" is refused with a word
    const char* importo;
};

class StrangeQuantity : public testing::TestWithParam<QuantitaStrana> {};

TEST_P(StrangeQuantity, IsTakenAsANumberOrRefused) {
    Negozio n;
    n.prodotto({.codice = "P", .listino1 = 10});
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();
    c.digita("P");
    c.invio();
    const bool rifiutata = QString(GetParam().campo) == "0,00";
    if (rifiutata) n.operatore.attendiMessaggio("Attenzione:\n - Campo [Quantità] Obbligatorio");
    incolla(c, v.txtQta, GetParam().testo);
    EXPECT_EQ(v.txtQta.testo(), GetParam().campo);
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), rifiutata ? "1,00" : GetParam().campo);
    EXPECT_EQ(cella(v, 1, Colonna::Importo), GetParam().importo);
    EXPECT_EQ(v.lblMainDisplay.testo(), GetParam().importo);
}

INSTANTIATE_TEST_SUITE_P(Texts, StrangeQuantity,
                         testing::Values(QuantitaStrana{"Letters", "abc", "0,00", "12,20"},
                                         QuantitaStrana{"Negative", "-3", "3,00", "36,60"},
                                         QuantitaStrana{"ManyPoints", "1.2.3,4", "123,40", "1.505,48"},
                                         QuantitaStrana{"TwoCommas", "1,2,3", "0,00", "12,20"},
                                         QuantitaStrana{"LineBreak", "5\n6", "0,00", "12,20"},
                                         QuantitaStrana{"Zero", "0", "0,00", "12,20"},
                                         QuantitaStrana{"TooSmall", "0,004", "0,00", "12,20"},
                                         QuantitaStrana{"Empty", "", "0,00", "12,20"}),
                         [](const auto& info) { return std::string(info.param.nome); });

// ---- A quantity of 0 under prices with VAT: the row total cannot be taken back to one piece

TEST(QuantityZeroWithVat, IsReportedAndLeavesTheRow) {
    Negozio n;
    n.sql("UPDATE TipoDocumenti SET USAPREZZIIVA = 1");
    n.prodotto({.codice = "P", .listino1 = 10});
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();
    c.digita("P");
    c.invio();
    v.txtQta.testoETag("0,00");
    n.operatore.attendiAvviso("frmMain.txtPrezzoNetto_LostFocus");
    c.clic(v.txtPrezzoNetto);
    c.clic(v.txtDescProdotto);
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "12,20");
}

TEST(FullDiscountWithVat, IsReportedAndLeavesTheRow) {
    Negozio n;
    n.sql("UPDATE TipoDocumenti SET USAPREZZIIVA = 1");
    n.prodotto({.codice = "P", .listino1 = 10});
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();
    c.digita("P");
    c.invio();
    scriviELascia(c, v.txtSconto1, "100");
    ASSERT_EQ(cella(v, 1, Colonna::Importo), "0,00");
    n.operatore.attendiAvviso("frmMain.txtPrezzoNetto_LostFocus");
    c.clic(v.txtPrezzoNetto);
    c.clic(v.txtDescProdotto);
    EXPECT_EQ(cella(v, 1, Colonna::PrezzoListino), "10,00");
    EXPECT_EQ(cella(v, 1, Colonna::Sconto1), "100,00");
}

}  // namespace
