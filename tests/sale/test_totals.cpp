#include "gesti.h"
#include "sale/totals.h"

namespace {

struct Totals : testing::Test {
    Negozio n;
    Vendita& v = n.apriConto().vendita();

    // A row as the writer leaves it.
    int riga(const QString& codice, const QString& qta, const QString& listino, const QString& iva,
             const QString& sconto1, const QString& importo) {
        const int r = v.flxVB.aggiungi();
        v.flxVB.scrivi(r, Colonna::Codice, codice);
        v.flxVB.scrivi(r, Colonna::Quantita, qta);
        v.flxVB.scrivi(r, Colonna::PrezzoListino, listino);
        v.flxVB.scrivi(r, Colonna::Iva, iva);
        v.flxVB.scrivi(r, Colonna::Sconto1, sconto1);
        v.flxVB.scrivi(r, Colonna::Sconto2, "0,00");
        v.flxVB.scrivi(r, Colonna::Sconto3, "0,00");
        v.flxVB.scrivi(r, Colonna::Importo, importo);
        v.flxVB.scrivi(r, Colonna::Gestione, "1");
        return r;
    }
    void unaRigaConta(const QString& totale) {
        calcolaTotali(v, false);
        EXPECT_EQ(v.lblMainDisplay.testo(), totale);
        EXPECT_EQ(v.lblTotRighe.testo(), "1");
    }
};

TEST_F(Totals, SumOfTwoRows) {
    riga("A", "3,00", "10,00", "22,00", "10,00", "32,94");
    riga("B", "1,50", "4,00", "10,00", "0,00", "6,60");
    calcolaTotali(v, false);
    EXPECT_EQ(v.lblMainDisplay.testo(), "39,54");
    EXPECT_EQ(v.lblMainDisplay.tag(), "39,54");
    EXPECT_EQ(v.lblTotNetto.testo(), "33,00");  // 27 + 6
    EXPECT_EQ(v.lblTotLordo.testo(), "43,20");  // 36,60 + 6,60, before discounts
    EXPECT_EQ(v.lblTOtQta.testo(), "4,50");
    EXPECT_EQ(v.lblTotRighe.testo(), "2");
}

TEST_F(Totals, DisplayIsTheSumOfTheRoundedRows) {
    for (int i = 0; i < 3; ++i) {
        riga("A", "1,00", "0,0041", "22,00", "0,00", "0,01");
    }
    calcolaTotali(v, false);
    EXPECT_EQ(v.lblMainDisplay.testo(), "0,03");
    EXPECT_EQ(v.lblTotNetto.testo(), "0,01");  // 0,0123
}

struct TreSconti {
    const char* nome;
    const char* sconti[3];
    const char* netto;
};

class NetTotal : public Totals, public testing::WithParamInterface<TreSconti> {};

TEST_P(NetTotal, TakesTheThreeDiscountsOfEachRow) {
    const auto& [nome, sconti, netto] = GetParam();
    const int r = riga("A", "1,00", "100,00", "22,00", sconti[0], "0,00");
    v.flxVB.scrivi(r, Colonna::Sconto2, sconti[1]);
    v.flxVB.scrivi(r, Colonna::Sconto3, sconti[2]);
    riga("B", "1,00", "100,00", "22,00", "", "122,00");  // keeps nothing of the row before
    calcolaTotali(v, false);
    EXPECT_EQ(v.lblTotNetto.testo(), netto);
}

INSTANTIATE_TEST_SUITE_P(Discounts, NetTotal,
                         testing::Values(TreSconti{"AllThree", {"10,00", "20,00", "50,00"}, "136,00"},
                                         TreSconti{"One", {"50,00", "0,00", "0,00"}, "150,00"},
                                         TreSconti{"NoNumbers", {"abc", "", "-"}, "200,00"}),
                         [](const auto& info) { return std::string(info.param.nome); });

TEST_F(Totals, ReturnedPieceLowersTheAmountsNotThePieces) {
    riga("A", "2,00", "10,00", "22,00", "0,00", "24,40");
    riga("B", "-1,00", "10,00", "22,00", "0,00", "-12,20");
    calcolaTotali(v, false);
    EXPECT_EQ(v.lblMainDisplay.testo(), "12,20");
    EXPECT_EQ(v.lblTotNetto.testo(), "10,00");
    EXPECT_EQ(v.lblTotLordo.testo(), "12,20");
    EXPECT_EQ(v.lblTOtQta.testo(), "2,00");
    EXPECT_EQ(v.lblTotRighe.testo(), "2");
}

TEST_F(Totals, DeletedRowDoesNotCount) {
    riga("A", "2,00", "10,00", "22,00", "0,00", "24,40");
    v.flxVB.scrivi(riga("B", "1,00", "10,00", "22,00", "0,00", "12,20"), Colonna::Gestione, "3");
    unaRigaConta("24,40");
}

TEST_F(Totals, HeadOfAKitDoesNotCountItsComponentsDo) {
    riga("%KIT", "1,00", "99,00", "22,00", "0,00", "99,00");
    v.flxVB.scrivi(riga("B", "1,00", "10,00", "22,00", "0,00", "12,20"), Colonna::IdDistintaBase, "1*");
    unaRigaConta("12,20");
}

TEST_F(Totals, OnlyDeletedRowsShowZero) {
    v.lblMainDisplay.testo("99,00");
    v.flxVB.scrivi(riga("A", "1,00", "10,00", "22,00", "0,00", "12,20"), Colonna::Gestione, "3");
    calcolaTotali(v, false);
    EXPECT_EQ(v.lblMainDisplay.testo(), "0,00");
    EXPECT_EQ(v.lblTotRighe.testo(), "0");
}

TEST_F(Totals, NoRowsLeaveTheDisplaysAlone) {
    v.lblMainDisplay.testo("99,00");
    v.lblTotNetto.testo("88,00");
    calcolaTotali(v, true);
    EXPECT_EQ(v.lblMainDisplay.testo(), "99,00");
    EXPECT_EQ(v.lblTotNetto.testo(), "88,00");
}

TEST_F(Totals, SavedAmountIsPartOfTheBalance) {
    riga("A", "1,00", "10,00", "22,00", "0,00", "12,20");
    calcolaTotali(v, true);
    EXPECT_EQ(v.lblLastMainDisplay.testo(), "12,20");
}

TEST_F(Totals, EditedAmountRaisesTheBalanceShown) {
    v.lblSaldo.tag("100,00");
    v.lblLastMainDisplay.testo("12,20");
    riga("A", "2,00", "10,00", "22,00", "0,00", "24,40");
    calcolaTotali(v, false);
    EXPECT_EQ(v.lblSaldo.testo(), "112,20");
    EXPECT_EQ(v.lblLastMainDisplay.testo(), "12,20");
}

TEST_F(Totals, ThousandsAreGrouped) {
    riga("A", "1000,00", "10,00", "22,00", "0,00", "12.200,00");
    calcolaTotali(v, false);
    EXPECT_EQ(v.lblMainDisplay.testo(), "12.200,00");
    EXPECT_EQ(v.lblTotNetto.testo(), "10.000,00");
    EXPECT_EQ(v.lblTOtQta.testo(), "1.000,00");
}

TEST_F(Totals, TwoThousandRowsAreSummedExactly) {
    for (int i = 0; i < 2000; ++i) {
        riga("A", "1,00", "0,01", "22,00", "0,00", "0,01");
    }
    calcolaTotali(v, false);
    EXPECT_EQ(v.lblMainDisplay.testo(), "20,00");
    EXPECT_EQ(v.lblTotNetto.testo(), "20,00");
    EXPECT_EQ(v.lblTotRighe.testo(), "2000");
}

// ---- What changes between two totals

TEST_F(Totals, FollowEveryChangeOfARow) {
    const int r = riga("A", "1,00", "10,00", "22,00", "0,00", "12,20");
    riga("B", "1,00", "1,00", "22,00", "0,00", "1,22");
    calcolaTotali(v, false);
    ASSERT_EQ(v.lblMainDisplay.testo(), "13,42");
    v.flxVB.scrivi(r, Colonna::Importo, "6,10");
    calcolaTotali(v, false);
    EXPECT_EQ(v.lblMainDisplay.testo(), "7,32");
    v.flxVB.scrivi(r, Colonna::Quantita, "3,00");
    calcolaTotali(v, false);
    EXPECT_EQ(v.lblTOtQta.testo(), "4,00");
    EXPECT_EQ(v.lblTotNetto.testo(), "31,00");
    v.flxVB.scrivi(r, Colonna::Gestione, "3");
    calcolaTotali(v, false);
    EXPECT_EQ(v.lblMainDisplay.testo(), "1,22");
}

TEST_F(Totals, FollowARowThatIsPutBetween) {
    riga("A", "1,00", "10,00", "22,00", "0,00", "12,20");
    riga("B", "1,00", "1,00", "22,00", "0,00", "1,22");
    calcolaTotali(v, false);
    const int r = v.flxVB.aggiungi(2);
    v.flxVB.scrivi(r, Colonna::Quantita, "1,00");
    v.flxVB.scrivi(r, Colonna::Importo, "5,00");
    calcolaTotali(v, false);
    EXPECT_EQ(v.lblMainDisplay.testo(), "18,42");
    EXPECT_EQ(v.lblTotRighe.testo(), "3");
}

TEST_F(Totals, OfTheNextSaleHoldNothingOfThisOne) {
    riga("A", "1,00", "10,00", "22,00", "0,00", "12,20");
    calcolaTotali(v, false);
    v.flxVB.svuota();
    riga("B", "1,00", "1,00", "22,00", "0,00", "1,22");
    calcolaTotali(v, false);
    EXPECT_EQ(v.lblMainDisplay.testo(), "1,22");
}

TEST_F(Totals, FollowThePrefixOfKits) {
    riga("#KIT", "1,00", "10,00", "22,00", "0,00", "12,20");
    calcolaTotali(v, false);
    ASSERT_EQ(v.lblMainDisplay.testo(), "12,20");
    gDistintaBase = "#";
    calcolaTotali(v, false);
    EXPECT_EQ(v.lblMainDisplay.testo(), "0,00");
}

// ---- Sums over saved rows

struct SavedSums : testing::Test {
    Negozio n;
    Vendita& v = n.apriConto().vendita();
    void SetUp() override {
        n.sql(
            "INSERT INTO Movimenti (RID, PROGRESSIVO, ANNO, DATA, FK_TIPODOCUMENTO) VALUES "
            "(1,1,2026,'2026-03-16',1),(2,2,2026,'2026-03-16',1)");
        n.sql(
            "INSERT INTO DettagliMovimento (FK_MOVIMENTO, TOTALEIVA, TOTALERIGA) VALUES "
            "(1,2.2,12.2),(1,4.4,24.4)");
    }
};

TEST_F(SavedSums, VatOfAMovement) {
    Currency iva;
    EXPECT_TRUE(getTotIva(1, iva));
    EXPECT_EQ(iva.testo(), "6,6");
}

TEST_F(SavedSums, MovementWithoutRowsHasNoVat) {
    Currency iva = Currency::daIntero(9);
    EXPECT_TRUE(getTotIva(2, iva));
    EXPECT_EQ(iva.testo(), "0");
}

TEST_F(SavedSums, TotalOfAMovementIsShown) {
    EXPECT_TRUE(getTotaleConto(v, 1));
    EXPECT_EQ(v.lblTotConto.testo(), "36,60");
}

TEST_F(SavedSums, TotalOfAMovementWithoutRowsIsZero) {
    EXPECT_TRUE(getTotaleConto(v, 2));
    EXPECT_EQ(v.lblTotConto.testo(), "0,00");
}

}  // namespace
