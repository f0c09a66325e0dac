#include "counter/counter_shop.h"
#include "counter/go_to_sale.h"

namespace {

constexpr int comandoVaiA = 3;

class GoToSale : public BancoDiProva {
  protected:
    // Sales 1 and 2 of the day on account 0, with 1 and 2 pieces.
    GoToSale() : c(contoConVendita()) {
        c.tasto(Qt::Key_F5);
        c.tasto(Qt::Key_F2);
        c.scansiona("8001");
        c.scansiona("8001");
        c.tasto(Qt::Key_F5);
        c.tasto(Qt::Key_F2);
        EXPECT_EQ(n.righe("SELECT EXTRAPROG FROM DettagliMovimento ORDER BY RID"), QStringList({"1", "2"}));
    }
    void vaiA(std::function<void(VaiVendita&)> scelta) {
        c.vaiA.push_back(std::move(scelta));
        c.premiComando(comandoVaiA);
    }
    QString mostrata() { return c.vendita().txtProg.testo() + "/" + c.vendita().txtSottoProg.testo(); }
    void nessuna() {
        n.operatore.attendiMessaggio("Nessuna vendita trovata!", OperatorPort::Icona::Informazione);
    }

    ContoDiProva& c;
};

}  // namespace

TEST_F(GoToSale, NumberAndSubNumberShowThatSale) {
    vaiA([](VaiVendita& s) {
        s.txtProg.testo("1");
        s.txtSottoProg.testo("1");
    });
    EXPECT_EQ(mostrata(), "0001/0001");
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
}

TEST_F(GoToSale, NumberAloneShowsItsLastSale) {
    vaiA([](VaiVendita& s) { s.txtProg.testo("1"); });
    EXPECT_EQ(mostrata(), "0001/0002");
}

TEST_F(GoToSale, DayShowsItsLastSale) {
    vaiA([](VaiVendita& s) { s.txtData.testo("16/03/2026"); });
    EXPECT_EQ(mostrata(), "0001/0002");
}

TEST_F(GoToSale, DayMayBeTypedAsDigits) {
    vaiA([](VaiVendita& s) {
        s.txtData.testo("160326");
        s.cmdInvio();
    });
    EXPECT_EQ(mostrata(), "0001/0002");
}

TEST_F(GoToSale, UnknownNumberIsTold) {
    nessuna();
    vaiA([](VaiVendita& s) { s.txtProg.testo("99"); });
}

TEST_F(GoToSale, DayWithoutSalesIsTold) {
    nessuna();
    vaiA([](VaiVendita& s) { s.txtData.testo("15/03/2026"); });
}

TEST_F(GoToSale, NumberOfAnotherYearIsLookedUpThere) {
    nessuna();
    vaiA([](VaiVendita& s) {
        s.txtProg.testo("1");
        s.txtAnno.testo("2025");
    });
}

TEST_F(GoToSale, LeftWithoutAnswerNothingHappens) {
    vaiA([](VaiVendita& s) { s.cmdEsci(); });
    EXPECT_EQ(c.vendita().flxVB.ultima(), 0);
}

TEST_F(GoToSale, ConfirmedWithoutAnAnswerIsTold) {
    nessuna();
    vaiA([](VaiVendita& s) { s.cmdInvio(); });
}

TEST_F(GoToSale, DayThatIsNoneIsTold) {
    nessuna();
    vaiA([](VaiVendita& s) {
        s.txtData.testo("310226");
        s.cmdInvio();
    });
    EXPECT_EQ(c.vendita().flxVB.ultima(), 0);
}

TEST_F(GoToSale, NumberBeyondAllSalesIsTold) {
    nessuna();
    vaiA([](VaiVendita& s) {
        s.txtProg.testo("8001234567890");
        s.txtAnno.testo("99999999999");
    });
}

TEST_F(GoToSale, FullNumberBeyondAllSalesIsTold) {
    n.operatore.attendiMessaggio("Movimento inesistente ", OperatorPort::Icona::Informazione);
    vaiA([](VaiVendita& s) {
        s.txtProg.testo("8001234567890");
        s.txtSottoProg.testo("99999999999");
    });
}

TEST_F(GoToSale, NextCustomerIsServedRightBehindAMissingSale) {
    n.operatore.attendiMessaggio("Movimento inesistente ", OperatorPort::Icona::Informazione);
    vaiA([](VaiVendita& s) {
        s.txtProg.testo("999");
        s.txtSottoProg.testo("1");
    });
    c.scansiona("8001");
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(n.conta("DettagliMovimento"), 3);
}

TEST_F(GoToSale, NumberGoesBeforeTheDay) {
    vaiA([](VaiVendita& s) {
        s.txtProg.testo("1");
        s.txtSottoProg.testo("1");
        s.txtData.testo("15/03/2026");
    });
    EXPECT_EQ(mostrata(), "0001/0001");
}

TEST_F(GoToSale, UnsavedSaleIsAskedAboutFirst) {
    c.scansiona("8001");
    rispondeAlSalvataggio(Risposta::Annulla);
    c.premiComando(comandoVaiA);
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
}

TEST_F(GoToSale, StartsWithThisYearAndEmptiesBackToIt) {
    VaiVendita s;
    EXPECT_EQ(s.txtAnno.testo(), "2026");
    s.txtProg.testo("12");
    s.txtAnno.testo("2020");
    s.cmdCE();
    EXPECT_EQ(s.txtProg.testo(), "");
    EXPECT_EQ(s.txtAnno.testo(), "2026");
}

TEST_F(GoToSale, SaleOfAnotherDeskIsShownByItsFullNumber) {
    gIDCassa = 9;
    vaiA([](VaiVendita& s) {
        s.txtProg.testo("1");
        s.txtSottoProg.testo("2");
    });
    EXPECT_EQ(mostrata(), "0001/0002");
}

TEST_F(GoToSale, SaleOfAnotherDeskIsNotFoundByItsNumberAlone) {
    gIDCassa = 9;
    nessuna();
    vaiA([](VaiVendita& s) { s.txtProg.testo("1"); });
}
