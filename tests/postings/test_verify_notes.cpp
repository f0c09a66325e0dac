#include "core/globals.h"
#include "postings/delete_sale.h"
#include "postings/expected_books.h"
#include "postings/save_sale.h"
#include "sale/document_info.h"
#include "sale/recall.h"
#include "sale/sale_document.h"

// Books that the program keeps by its rules and that look wrong: the archive tool finds no error in them.

namespace {

struct BooksThatLookWrong : ContoInBottega {
    void senzaErrori() { EXPECT_EQ(n.verifica(), QStringList()); }
};

}  // namespace

TEST_F(BooksThatLookWrong, HeaderTotalsAfterTheDeletionOfOneSaleOfTwo) {
    vendiESalva("A", "2");
    nuovaVendita();
    vendiESalva("B");
    ASSERT_TRUE(cancella());
    ASSERT_EQ(n.valore("SELECT TOTDOCUMENTO FROM Movimenti"), "29.9");
    senzaErrori();
}

// Nothing of the sale is linked, and no gap tells of it.
TEST_F(BooksThatLookWrong, TheSameUnderACausalWithoutJournal) {
    n.sql("UPDATE Causali SET GENERAPN = 0 WHERE RID = 1");
    v.generaPN = false;
    n.intesta(v, 0, 9);
    vendiESalva("A", "2");
    nuovaVendita();
    vendiESalva("B");
    ASSERT_TRUE(cancella());
    ASSERT_EQ(n.riga("SELECT TOTDOCUMENTO, FK_PRIMANOTA FROM Movimenti"), "29.9|");
    senzaErrori();
}

TEST_F(BooksThatLookWrong, VatLinesOfANetReturn) {
    c.digita("A");
    c.invio();
    v.chkReso.valore(1);
    c.clic(v.txtQta);
    c.digita("1");
    c.tasto(Qt::Key_F6);
    ASSERT_TRUE(salvaERilegge(v));
    ASSERT_EQ(n.righe("SELECT DARE, AVERE FROM PrimaNotaDettagli WHERE FK_PRIMANOTA = 1 ORDER BY RID"),
              (QStringList{"-12.2|0", "0|-12.2", "0|-2.2"}));
    senzaErrori();
}

TEST_F(BooksThatLookWrong, CausalWithAccountsOnOneSide) {
    n.sql("UPDATE Causali SET FK_CONTOAVERE1 = 0 WHERE RID = 2");
    vendiESalva("A", "2");
    senzaErrori();
}

TEST_F(BooksThatLookWrong, CausalWithoutItsFirstCreditAccount) {
    n.sql("UPDATE Causali SET FK_CONTOAVERE1 = NULL WHERE RID = 1");
    vendiESalva("A", "2");
    ASSERT_EQ(
        n.righe("SELECT FK_CONTO, DARE, AVERE FROM PrimaNotaDettagli WHERE FK_PRIMANOTA = 1 ORDER BY RID"),
        (QStringList{"1|24.4|0", "4|0|4.4"}));
    senzaErrori();
}

// The second sale is begun on New Year's Eve and saved when the year has turned: it looks for its sub-number
// in the new year, and gets the first one's.
TEST_F(BooksThatLookWrong, SubNumberOfASaleSavedInTheNewYear) {
    n.orologio.istante = QDateTime(QDate(2026, 12, 31), QTime(23, 50));
    v.txtData.testo("31/12/2026");
    v.giornoDocumento = n.orologio.oggi();
    vendiESalva("A", "2");
    nuovaVendita();
    vendi(c, "A");
    n.orologio.istante = QDateTime(QDate(2027, 1, 1), QTime(0, 5));
    ASSERT_TRUE(salvaVendita(v, false, -1));
    ASSERT_EQ(n.righe("SELECT FK_MOVIMENTO, EXTRAPROG, POS FROM DettagliMovimento ORDER BY RID"),
              (QStringList{"1|1|1", "1|1|1"}));
    senzaErrori();
}

TEST_F(BooksThatLookWrong, EntryLeftByTheDeletionOfASaleWithoutJournal) {
    n.sql("UPDATE Causali SET GENERAPN = 0 WHERE RID = 1");
    v.generaPN = false;
    vendiESalva("A", "2");
    ASSERT_TRUE(cancella());
    ASSERT_EQ(n.conta("PrimaNota"), 1);
    senzaErrori();
}

// ---- The changed cost of a load

namespace {

struct LoadThatLooksWrong : BooksThatLookWrong {
    // Five A come in at 10,00, and then at 8,00 after all.
    void SetUp() override {
        n.vendePerCarico(v);
        n.intesta(v, 0, 9);
        vendiESalva("A", "5");
        c.clicRiga(1);
        c.clic(v.txtPrezzoListino);
        c.digita("8");
        c.tasto(Qt::Key_F6);
        ASSERT_TRUE(salvaERilegge(v));
        ASSERT_EQ(n.valore("SELECT GIACENZA FROM Prodotti WHERE RID = 1"), "20");
    }
};

}  // namespace

TEST_F(LoadThatLooksWrong, CountsTwiceInTheTotal) {
    senzaErrori();
}

TEST_F(LoadThatLooksWrong, CountsTwiceWhenItIsDeletedToo) {
    ASSERT_TRUE(cancella());
    ASSERT_EQ(n.conta("Movimenti"), 0);
    senzaErrori();
}
