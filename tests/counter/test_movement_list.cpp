#include "counter/commands.h"
#include "counter/counter_shop.h"
#include "counter/movement_list.h"

namespace {

// Sales 1/1 with product A and 1/2 with products A and B, on account 0.
class MovementList : public BancoDiProva {
  protected:
    MovementList() : c(contoConVendita()) {
        n.prodotto({.codice = "B", .listino1 = 5, .barcode = "8002", .descrizione = "Dado"});
        c.tasto(Qt::Key_F5);
        c.tasto(Qt::Key_F2);
        c.scansiona("8001");
        c.scansiona("8002");
        c.tasto(Qt::Key_F5);
    }
    void elenco(std::function<QString(ElencoMovimento&)> scelta) {
        c.righeMovimento.push_back(std::move(scelta));
        cmdConto_Click(c, contoProgressivo);
    }

    ContoDiProva& c;
};

}  // namespace

TEST_F(MovementList, ShowsTheRowsOfAllSalesOfTheNumber) {
    elenco([](ElencoMovimento& m) {
        EXPECT_EQ(m.righe().size(), 3U);
        EXPECT_EQ(m.righe()[0].celle, QStringList({"0001", "A", "Vite", "1,00", "PZ", "10,00",
                                                   "0,00+0,00+0,00", "10,00", "12,20"}));
        EXPECT_EQ(m.righe()[2].celle[1], "B");
        return QString();
    });
}

TEST_F(MovementList, ShowsTheHeader) {
    elenco([](ElencoMovimento& m) {
        EXPECT_EQ(m.lblData.testo(), "16/03/2026");
        EXPECT_EQ(m.lblNumero.testo(), "0001");
        EXPECT_EQ(m.lblCodCliente.testo(), "1");
        EXPECT_EQ(m.lblTotale.testo(), "30,50");
        return QString();
    });
}

TEST_F(MovementList, RowOfTheSaleOnTheScreenIsSelected) {
    elenco([](ElencoMovimento& m) { return m.righe()[1].chiave; });
    EXPECT_EQ(c.vendita().txtSottoProg.testo(), "0002");
    EXPECT_EQ(c.vendita().flxVB.selezionata(), 1);
}

TEST_F(MovementList, RowOfAnotherSaleBringsThatSale) {
    elenco([](ElencoMovimento& m) { return m.righe()[0].chiave; });
    EXPECT_EQ(c.vendita().txtSottoProg.testo(), "0001");
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
    EXPECT_EQ(c.vendita().flxVB.selezionata(), 1);
}

TEST_F(MovementList, LeftWithoutAPickNothingChanges) {
    elenco([](ElencoMovimento&) { return QString(); });
    EXPECT_EQ(c.vendita().txtSottoProg.testo(), "0002");
    EXPECT_EQ(c.vendita().flxVB.ultima(), 2);
}

TEST_F(MovementList, SaleNotInTheBooksShowsNone) {
    n.orologio.istante = QDateTime(QDate(2026, 3, 18), QTime(9, 0));
    c.tasto(Qt::Key_F2);
    cmdConto_Click(c, contoProgressivo);
}

TEST_F(MovementList, UnsavedSaleIsAskedAboutBeforeItIsLeft) {
    c.scansiona("8001");
    rispondeAlSalvataggio(Risposta::Annulla);
    elenco([](ElencoMovimento& m) { return m.righe()[0].chiave; });
    EXPECT_EQ(c.vendita().txtSottoProg.testo(), "0002");
}
