#include <tuple>

#include "gesti.h"

namespace {

// ---- NoBarcode, NuovaRiga, scanned
class RepeatEntry : public testing::TestWithParam<std::tuple<bool, bool, bool>> {};

TEST_P(RepeatEntry, GrowsTheRowOrOnlyShowsIt) {
    const auto [noBarcode, nuovaRiga, scansione] = GetParam();
    Negozio n;
    n.prodotto({.codice = "P", .listino1 = 10, .barcode = "8001"});
    gNoBarcode = noBarcode;
    gNuovaRiga = nuovaRiga;
    ContoDiProva& c = n.apriConto();
    for (int i = 0; i < 2; ++i) {
        if (scansione) {
            c.scansiona("8001");
        } else {
            vendi(c, "8001");
        }
    }
    const bool cresce = nuovaRiga || (scansione && !noBarcode);
    ASSERT_EQ(codiciVivi(c.vendita()), QStringList{"P"});
    EXPECT_EQ(cella(c.vendita(), 1, Colonna::Quantita), cresce ? "2,00" : "1,00");
    EXPECT_EQ(c.vendita().lblMainDisplay.testo(), cresce ? "24,40" : "12,20");
}

INSTANTIATE_TEST_SUITE_P(AllSettings, RepeatEntry,
                         testing::Combine(testing::Bool(), testing::Bool(), testing::Bool()),
                         [](const auto& info) {
                             return std::string(std::get<0>(info.param) ? "NoBarcode" : "Barcode") +
                                    (std::get<1>(info.param) ? "NewRow" : "SameRow") +
                                    (std::get<2>(info.param) ? "Scanned" : "Typed");
                         });

struct RepeatScan : testing::Test {
    Negozio n;
    int id = n.prodotto({.codice = "P", .listino1 = 10, .barcode = "8001"});
    int altro = n.prodotto({.codice = "Q", .listino1 = 1, .barcode = "8002"});
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();
};

TEST_F(RepeatScan, GrowsItsOwnRowAlsoWhenItIsNotTheLast) {
    c.scansiona("8001");
    c.scansiona("8002");
    c.scansiona("8001");
    EXPECT_EQ(codiciVivi(v), (QStringList{"P", "Q"}));
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "2,00");
    EXPECT_EQ(cella(v, 2, Colonna::Quantita), "1,00");
    EXPECT_EQ(v.lblPos.testo(), "1");
}

TEST_F(RepeatScan, HundredScansAreAHundredPieces) {
    for (int i = 0; i < 100; ++i) {
        c.scansiona("8001");
    }
    EXPECT_EQ(codiciVivi(v), QStringList{"P"});
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "100,00");
    EXPECT_EQ(v.lblMainDisplay.testo(), "1.220,00");
}

TEST_F(RepeatScan, AddsOneToAFractionOfAPiece) {
    c.scansiona("8001");
    scrivi(c, v.txtQta, "1,5");
    c.scansiona("8001");
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "2,50");
}

TEST_F(RepeatScan, ReturnOfTwoBecomesAReturnOfThree) {
    c.scansiona("8001");
    rendi(c, "2");
    ASSERT_EQ(cella(v, 1, Colonna::Quantita), "-2,00");
    c.scansiona("8001");
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "-3,00");
    EXPECT_EQ(v.chkReso.valore(), 1);
    EXPECT_EQ(v.lblMainDisplay.testo(), "-36,60");
}

struct RowBefore {
    const char* nome;
    const char* prima;
    const char* dopo;
};

class RepeatScanOf : public testing::TestWithParam<RowBefore> {};

TEST_P(RepeatScanOf, AddsAPieceAboveZeroAndTakesOneOffBelow) {
    Negozio n;
    n.prodotto({.codice = "P", .listino1 = 10, .barcode = "8001"});
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();
    c.scansiona("8001");
    c.tasto(Qt::Key_F6);
    v.flxVB.scrivi(1, Colonna::Quantita, GetParam().prima);
    c.scansiona("8001");
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), GetParam().dopo);
    EXPECT_EQ(v.txtQta.testo(), GetParam().dopo);
    EXPECT_EQ(v.txtQta.tag(), GetParam().dopo);
    EXPECT_EQ(v.chkReso.valore(), v.flxVB.single(1, Colonna::Quantita) < 0 ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(Quantities, RepeatScanOf,
                         testing::Values(RowBefore{"Nothing", "0,00", "-1,00"},
                                         RowBefore{"HalfAPiece", "0,50", "1,50"},
                                         RowBefore{"HalfAReturn", "-0,50", "-1,50"},
                                         RowBefore{"AReturn", "-1,00", "-2,00"}),
                         [](const auto& info) { return std::string(info.param.nome); });

TEST_F(RepeatScan, KeepsAPriceSetByHand) {
    c.scansiona("8001");
    scrivi(c, v.txtPrezzoListino, "8");
    c.scansiona("8001");
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "2,00");
    EXPECT_EQ(cella(v, 1, Colonna::PrezzoListino), "8,00");
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "19,52");
}

TEST_F(RepeatScan, OfADeletedRowStartsANewOne) {
    c.scansiona("8001");
    c.tasto(Qt::Key_F6);
    c.clicRiga(1);
    n.operatore.attendiDomanda("Eliminare il prodotto [P]?", OperatorPort::Risposta::Si);
    c.tasto(Qt::Key_F9);
    c.scansiona("8001");
    EXPECT_EQ(codiciVivi(v), QStringList{"P"});
    ASSERT_EQ(v.flxVB.righe(), 3);
    EXPECT_EQ(cella(v, 2, Colonna::Quantita), "1,00");
}

TEST_F(RepeatScan, OfAScannerWithoutPrefixLeavesTheNextEnterItsStep) {
    n.prodotto({.codice = "R", .listino1 = 1, .barcode = "80012345"});
    c.scansiona("8001");
    c.clic(v.txtQta);
    c.raffica("80012345");
    ASSERT_EQ(codiciVivi(v), (QStringList{"P", "R"}));
    c.clic(v.txtCodProdotto);
    c.invio();
    EXPECT_EQ(c.fuocoSu(), &v.txtDescProdotto);
}

TEST_F(RepeatScan, OnlyBeepsUnlessTheMessageIsAskedFor) {
    c.scansiona("8001");
    ASSERT_EQ(n.operatore.suoni, 0);
    c.scansiona("8001");
    EXPECT_EQ(n.operatore.suoni, 1);
}

TEST_F(RepeatScan, SaysSoWhenTheMessageIsAskedFor) {
    gPrdEsistente = 1;
    c.scansiona("8001");
    n.operatore.attendiMessaggio("Prodotto già inserito!");
    c.scansiona("8001");
    EXPECT_EQ(n.operatore.suoni, 0);
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "2,00");
}

TEST_F(RepeatScan, TypedAgainShowsTheQuantityForEditing) {
    c.scansiona("8001");
    scrivi(c, v.txtQta, "5");
    c.tasto(Qt::Key_F6);
    c.digita("P");
    c.invio();
    EXPECT_EQ(v.txtQta.testo(), "5,00");
    EXPECT_EQ(c.fuocoSu(), &v.txtQta);
    scriviELascia(c, v.txtQta, "7");
    EXPECT_EQ(codiciVivi(v), QStringList{"P"});
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "7,00");
}

TEST_F(RepeatScan, TypedReturnShowsTheQuantityOfItsRow) {
    c.scansiona("8001");
    rendi(c, "2");
    c.digita("P");
    c.invio();
    EXPECT_EQ(v.txtQta.testo(), "-2,00");
    EXPECT_EQ(v.chkReso.valore(), 1);
    EXPECT_EQ(cella(v, 1, Colonna::Quantita), "-2,00");
}

}  // namespace
