#include "core/globals.h"
#include "doubles/kit_di_prova.h"
#include "postings/expected_books.h"
#include "postings/save_sale.h"
#include "sale/customer.h"
#include "sale/document_info.h"

// Sales saved for the first time, with every row of every book written down beforehand.

namespace {

struct BooksTable : testing::Test {
    Bottega n;

    // Two A and three B: 24,40 and 16,50.
    Vendita& dueAETreB() {
        ContoDiProva& c = n.apriConto();
        vendi(c, "A", "2");
        vendi(c, "B", "3");
        return c.vendita();
    }
    // The same, on credit by that payment.
    void aCredito(int idPagamento) {
        Vendita& v = dueAETreB();
        n.intesta(v, 0, idPagamento);
        ASSERT_TRUE(salvaERilegge(v));
    }
    // What stands in the books after it, but for the due dates.
    static LibriAttesi libriACredito(const QString& idPagamento, const QStringList& scadenze) {
        return {
            .movimenti = {"1|1|2026|2026-03-16|1|1||2|" + idPagamento + "|255|0|35|5.9|40.9|1||0|"},
            .dettagli = righeDueAETreB(),
            .prodotti = {"A|8||0"},
            .strati = {"1|1|6|2", "1|1|7|6"},
            .primaNota =
                {"1|1|2026-03-16|2026-03-16|1|2|Vendita al banco N° 0001 del 16/03/2026|||40.9|VB/1|" +
                 idPagamento + "|"},
            .righePrimaNota = {"1|1|40.9|0", "1|3|0|35", "1|4|0|5.9"},
            .scadenze = scadenze,
            .contatori = {"1|2026|1|n/d"},
        };
    }
    static QStringList righeDueAETreB() {
        return {"1|1|1|1|1|A|A|2|10|0|0|0|0|10|20|1|22|2.2|4.4|24.4|1|6|||2026-03-16 10:30:00",
                "2|1|1|2|2|B|Biscotti|3|5|0|0|0|0|5|15|2|10|0.5|1.5|16.5|1|0|||2026-03-16 10:30:00"};
    }
};

}  // namespace

TEST_F(BooksTable, CashSale) {
    ASSERT_TRUE(salvaERilegge(dueAETreB()));
    confrontaLibri(
        n, {
               .movimenti = {"1|1|2026|2026-03-16|1|1||1|1|255|0|35|5.9|40.9|1|2|0|"},
               .dettagli = righeDueAETreB(),
               .prodotti = {"A|8||0"},
               .strati = {"1|1|6|2", "1|1|7|6"},
               .primaNota =
                   {"1|1|2026-03-16|2026-03-16|1|1|Vendita al banco N° 0001 del 16/03/2026|||40.9|VB/1|1|",
                    "2|2|2026-03-16|2026-03-16|2|1|Incasso Vendita al banco N° 0001 del "
                    "16/03/2026|||40.9|VB/1|1|"},
               .righePrimaNota = {"1|1|40.9|0", "1|3|0|35", "1|4|0|5.9", "2|2|40.9|0", "2|1|0|40.9"},
               .contatori = {"1|2026|1|n/d"},
           });
    EXPECT_EQ(n.verifica(), QStringList());
}

// At the moving average a warehouse holds one row, and the sale remembers what the goods cost on it.
TEST_F(BooksTable, CashSaleAtTheMovingAverage) {
    gPrezzoMedio = 1;
    gMesiPrezzoMedio = 12;
    n.sql("DELETE FROM DettagliProdotto WHERE TAGLIO = 7");
    n.sql("UPDATE DettagliProdotto SET QUANTITA = 10");
    n.sql("UPDATE Prodotti SET PREZZOACQUISTO = 5.5 WHERE RID = 1");
    Vendita& v = dueAETreB();
    n.intesta(v, 0, 9);
    ASSERT_TRUE(salvaERilegge(v));
    LibriAttesi attesi = libriACredito("9", {"1||2026-04-15|20.45", "1||2026-05-15|20.45"});
    attesi.dettagli = {"1|1|1|1|1|A|A|2|10|0|0|0|0|10|20|1|22|2.2|4.4|24.4|1|5.5|||2026-03-16 10:30:00",
                       righeDueAETreB()[1]};
    attesi.strati = {"1|1|5.5|8"};
    confrontaLibri(n, attesi);
}

TEST_F(BooksTable, NamedCustomerPaidAtTheCounter) {
    Vendita& v = dueAETreB();
    n.intesta(v, 1, 9);
    ASSERT_TRUE(salvaERilegge(v));
    confrontaLibri(
        n, {
               .movimenti = {"1|1|2026|2026-03-16|1|1||2|1|255|0|35|5.9|40.9|1|2|0|"},
               .dettagli = righeDueAETreB(),
               .prodotti = {"A|8||0"},
               .strati = {"1|1|6|2", "1|1|7|6"},
               .primaNota =
                   {"1|1|2026-03-16|2026-03-16|1|2|Vendita al banco N° 0001 del 16/03/2026|||40.9|VB/1|1|",
                    "2|2|2026-03-16|2026-03-16|2|2|Incasso Vendita al banco N° 0001 del "
                    "16/03/2026|||40.9|VB/1|1|"},
               .righePrimaNota = {"1|1|40.9|0", "1|3|0|35", "1|4|0|5.9", "2|2|40.9|0", "2|1|0|40.9"},
               .contatori = {"1|2026|1|n/d"},
           });
}

// The walk-in customer's sale is collected whatever the tick says, and never due by instalments.
TEST_F(BooksTable, CashSaleByAPaymentWithInstalmentsIsCollectedAndNotScheduled) {
    Vendita& v = dueAETreB();
    v.chkPagato.valore(0);
    n.sql("UPDATE Anagrafiche SET FK_PAGAMENTO = 10 WHERE RID = 1");
    ASSERT_TRUE(mostraCliente(v, 1));
    ASSERT_TRUE(v.generaScad);
    ASSERT_TRUE(salvaERilegge(v));
    LibriAttesi attesi = libriACredito("10", {});
    attesi.movimenti = {"1|1|2026|2026-03-16|1|1||1|10|255|0|35|5.9|40.9|1|2|0|"};
    attesi.primaNota = {
        "1|1|2026-03-16|2026-03-16|1|1|Vendita al banco N° 0001 del 16/03/2026|||40.9|VB/1|10|",
        "2|2|2026-03-16|2026-03-16|2|1|Incasso Vendita al banco N° 0001 del 16/03/2026|||40.9|VB/1|10|"};
    attesi.righePrimaNota << "2|2|40.9|0"
                          << "2|1|0|40.9";
    confrontaLibri(n, attesi);
}

TEST_F(BooksTable, NamedCustomerOnCredit) {
    aCredito(9);
    confrontaLibri(n, libriACredito("9", {"1||2026-04-15|20.45", "1||2026-05-15|20.45"}));
    EXPECT_EQ(n.verifica(), QStringList());
}

// As the operator does it: an account of its own, the customer's number, the goods, F5.
TEST_F(BooksTable, CustomerByNumberGetsTheirTerms) {
    n.termini(9);
    n.apriConto();
    ContoDiProva& c = n.apriConto(1);
    c.digita("7");
    c.invio();
    vendi(c, "A", "2");
    vendi(c, "B", "3");
    c.tasto(Qt::Key_F5);
    confrontaLibri(n, libriACredito("9", {"1||2026-04-15|20.45", "1||2026-05-15|20.45"}));
}

TEST_F(BooksTable, DownPaymentIsDueAtOnceAndNotSubtracted) {
    aCredito(10);
    confrontaLibri(n,
                   libriACredito("10", {"1||2026-03-16|8.18", "1||2026-04-15|16.36", "1||2026-05-15|16.36"}));
}

TEST_F(BooksTable, DueAtTheEndOfTheMonth) {
    aCredito(11);
    confrontaLibri(n, libriACredito("11", {"1||2026-04-30|20.45", "1||2026-05-31|20.45"}));
}

TEST_F(BooksTable, DirectRemittanceAtTheEndOfTheMonthIgnoresTheDays) {
    aCredito(12);
    confrontaLibri(n, libriACredito("12", {"1||2026-03-31|20.45", "1||2026-03-31|20.45"}));
}

TEST_F(BooksTable, NegativeScheduleTurnsTheSign) {
    n.sql("UPDATE Causali SET SCADENZENEGATIVE = 1 WHERE RID = 1");
    aCredito(10);
    confrontaLibri(
        n, libriACredito("10", {"1||2026-03-16|-8.18", "1||2026-04-15|-16.36", "1||2026-05-15|-16.36"}));
}

TEST_F(BooksTable, NoPaymentMeansTheCountersOwn) {
    aCredito(-1);
    confrontaLibri(n, libriACredito("1", {}));
}

TEST_F(BooksTable, CausalWithoutJournalHasNoScheduleEither) {
    n.sql("UPDATE Causali SET GENERAPN = 0 WHERE RID = 1");
    aCredito(9);
    LibriAttesi attesi = libriACredito("9", {});
    attesi.movimenti = {"1|1|2026|2026-03-16|1|1||2|9|255|0|35|5.9|40.9|||0|"};
    attesi.primaNota = {};
    attesi.righePrimaNota = {};
    confrontaLibri(n, attesi);
}

TEST_F(BooksTable, CausalWithoutScheduleHasNone) {
    n.sql("UPDATE Causali SET GENERASCAD = 0 WHERE RID = 1");
    aCredito(9);
    confrontaLibri(n, libriACredito("9", {}));
}

// Negative VAT is not split off: the revenue line keeps the whole, the VAT line stands beside it.
TEST_F(BooksTable, Return) {
    ContoDiProva& c = n.apriConto();
    c.digita("A");
    c.invio();
    c.vendita().chkReso.valore(1);
    c.clic(c.vendita().txtQta);
    c.digita("1");
    c.tasto(Qt::Key_F6);
    ASSERT_TRUE(salvaERilegge(c.vendita()));
    confrontaLibri(
        n,
        {
            .movimenti = {"1|1|2026|2026-03-16|1|1||1|1|255|0|-10|-2.2|-12.2|1|2|0|"},
            .dettagli = {"1|1|1|1|1|A|A|-1|10|0|0|0|0|10|-10|1|22|2.2|-2.2|-12.2|1|6|||2026-03-16 10:30:00"},
            .prodotti = {"A|11||0"},
            .strati = {"1|1|6|5", "1|1|7|6"},
            .primaNota = {"1|1|2026-03-16|2026-03-16|1|1|Vendita al banco N° 0001 del "
                          "16/03/2026|||-12.2|VB/1|1|",
                          "2|2|2026-03-16|2026-03-16|2|1|Incasso Vendita al banco N° 0001 del "
                          "16/03/2026|||-12.2|VB/1|1|"},
            .righePrimaNota = {"1|1|-12.2|0", "1|3|0|-12.2", "1|4|0|-2.2", "2|2|-12.2|0", "2|1|0|-12.2"},
            .contatori = {"1|2026|1|n/d"},
        });
    EXPECT_EQ(n.verifica(), QStringList());
}

TEST_F(BooksTable, MixedRatesAndADiscount) {
    ContoDiProva& c = n.apriConto();
    vendi(c, "C", "4");
    vendi(c, "B");
    vendi(c, "A");
    ASSERT_TRUE(salvaERilegge(c.vendita()));
    confrontaLibri(
        n, {
               .movimenti = {"1|1|2026|2026-03-16|1|1||1|1|255|0|24|3.06|27.06|1|2|0|"},
               .dettagli =
                   {"1|1|1|1|3|C|Caffè|4|2.5|10|0|0|0.25|2.25|9|3|4|0.09|0.36|9.36|1|0|||2026-03-16 10:30:00",
                    "2|1|1|2|2|B|Biscotti|1|5|0|0|0|0|5|5|2|10|0.5|0.5|5.5|1|0|||2026-03-16 10:30:00",
                    "3|1|1|3|1|A|A|1|10|0|0|0|0|10|10|1|22|2.2|2.2|12.2|1|6|||2026-03-16 10:30:00"},
               .prodotti = {"A|9||0"},
               .strati = {"1|1|6|3", "1|1|7|6"},
               .primaNota =
                   {"1|1|2026-03-16|2026-03-16|1|1|Vendita al banco N° 0001 del 16/03/2026|||27.06|VB/1|1|",
                    "2|2|2026-03-16|2026-03-16|2|1|Incasso Vendita al banco N° 0001 del "
                    "16/03/2026|||27.06|VB/1|1|"},
               .righePrimaNota = {"1|1|27.06|0", "1|3|0|24", "1|4|0|3.06", "2|2|27.06|0", "2|1|0|27.06"},
               .contatori = {"1|2026|1|n/d"},
           });
}

// It has that year's numbers, in the journal too; its sub-number follows this year's document of the same
// number.
TEST_F(BooksTable, SaleOfAnotherYearOnCredit) {
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();
    vendi(c, "A");
    c.tasto(Qt::Key_F5);
    n.orologio.istante = n.orologio.istante.addDays(1);
    c.tasto(Qt::Key_F2);
    v.txtData.testo("30/12/2025");
    n.intesta(v, 0, 9);
    vendi(c, "A", "2");
    vendi(c, "B", "3");
    ASSERT_TRUE(salvaERilegge(v));
    confrontaLibri(
        n, {
               .movimenti = {"1|1|2026|2026-03-16|1|1||1|1|255|0|10|2.2|12.2|1|2|0|",
                             "2|1|2025|2025-12-30|1|1||2|9|255|0|35|5.9|40.9|3||0|"},
               .dettagli = {"1|1|1|1|1|A|A|1|10|0|0|0|0|10|10|1|22|2.2|2.2|12.2|1|6|||2026-03-16 10:30:00",
                            "2|2|2|1|1|A|A|2|10|0|0|0|0|10|20|1|22|2.2|4.4|24.4|1|6|||2026-03-17 10:30:00",
                            "3|2|2|2|2|B|Biscotti|3|5|0|0|0|0|5|15|2|10|0.5|1.5|16.5|1|0|||2026-03-17 "
                            "10:30:00"},
               .prodotti = {"A|7||0"},
               .strati = {"1|1|6|1", "1|1|7|6"},
               .primaNota =
                   {"1|1|2026-03-16|2026-03-16|1|1|Vendita al banco N° 0001 del 16/03/2026|||12.2|VB/1|1|",
                    "2|2|2026-03-16|2026-03-16|2|1|Incasso Vendita al banco N° 0001 del "
                    "16/03/2026|||12.2|VB/1|1|",
                    "3|1|2025-12-30|2025-12-30|1|2|Vendita al banco N° 0001 del 30/12/2025|||40.9|VB/1|9|"},
               .righePrimaNota = {"1|1|12.2|0", "1|3|0|10", "1|4|0|2.2", "2|2|12.2|0", "2|1|0|12.2",
                                  "3|1|40.9|0", "3|3|0|35", "3|4|0|5.9"},
               .scadenze = {"3||2026-01-29|20.45", "3||2026-02-28|20.45"},
               .contatori = {"1|2025|1|n/d", "1|2026|1|n/d"},
           });
    EXPECT_EQ(v.txtData.testo(), "30/12/2025");
    EXPECT_EQ(n.verifica(), QStringList());
}

// The head carries no money and moves no stock, even when its own product takes part in it; the
// components do both.
TEST_F(BooksTable, Kit) {
    const int kit = distinta(n, "%KIT", {{1, 2, 3}, {2, 1, 0, 2}});
    n.sql(QString("UPDATE Prodotti SET SETGIACENZA = 1 WHERE RID = %1").arg(kit));
    ContoDiProva& c = n.apriConto();
    vendi(c, "%KIT");
    ASSERT_TRUE(salvaERilegge(c.vendita()));
    confrontaLibri(
        n, {
               .movimenti = {"1|1|2026|2026-03-16|1|1||1|1|255|0|11|1.82|12.82|1|2|0|"},
               .dettagli = {"1|1|1|1|4|%KIT|Kit KIT|1|0|0|0|0|0|0|0|1|22|0|0|0|1|0|||2026-03-16 10:30:00",
                            "2|1|1|2|1|A|A|2|3|0|0|0|0|3|6|1|22|0.66|1.32|7.32|1|6|1||2026-03-16 10:30:00",
                            "3|1|1|3|2|B|Biscotti|1|5|0|0|0|0|5|5|2|10|0.5|0.5|5.5|1|0|1||2026-03-16 "
                            "10:30:00"},
               .prodotti = {"A|8||0", "%KIT|0||0"},
               .strati = {"1|1|6|2", "1|1|7|6"},
               .primaNota =
                   {"1|1|2026-03-16|2026-03-16|1|1|Vendita al banco N° 0001 del 16/03/2026|||12.82|VB/1|1|",
                    "2|2|2026-03-16|2026-03-16|2|1|Incasso Vendita al banco N° 0001 del "
                    "16/03/2026|||12.82|VB/1|1|"},
               .righePrimaNota = {"1|1|12.82|0", "1|3|0|11", "1|4|0|1.82", "2|2|12.82|0", "2|1|0|12.82"},
               .contatori = {"1|2026|1|n/d"},
           });
}

TEST_F(BooksTable, FreeRowWithItsOwnTextAndPrice) {
    n.prodotto({.codice = "/LIB", .listino1 = 0});
    ContoDiProva& c = n.apriConto();
    c.digita("/LIB");
    c.invio();
    c.clic(c.vendita().txtDescProdotto);
    c.vendita().txtDescProdotto.testo("");
    c.digita("Lavoro");
    c.clic(c.vendita().txtPrezzoListino);
    c.digita("15");
    c.tasto(Qt::Key_F6);
    ASSERT_TRUE(salvaERilegge(c.vendita()));
    confrontaLibri(
        n, {
               .movimenti = {"1|1|2026|2026-03-16|1|1||1|1|255|0|15|3.3|18.3|1|2|0|"},
               .dettagli = {"1|1|1|1|4|/LIB|Lavoro|1|15|0|0|0|0|15|15|1|22|3.3|3.3|18.3|1|0|||2026-03-16 "
                            "10:30:00"},
               .prodotti = {"A|10||0"},
               .strati = {"1|1|6|4", "1|1|7|6"},
               .primaNota =
                   {"1|1|2026-03-16|2026-03-16|1|1|Vendita al banco N° 0001 del 16/03/2026|||18.3|VB/1|1|",
                    "2|2|2026-03-16|2026-03-16|2|1|Incasso Vendita al banco N° 0001 del "
                    "16/03/2026|||18.3|VB/1|1|"},
               .righePrimaNota = {"1|1|18.3|0", "1|3|0|15", "1|4|0|3.3", "2|2|18.3|0", "2|1|0|18.3"},
               .contatori = {"1|2026|1|n/d"},
           });
}

// Valued at cost, without discounts, without a counterparty, journal or schedule; the total stock stays.
TEST_F(BooksTable, TransferBetweenWarehouses) {
    gTipoDocVb = 6;
    n.sql("UPDATE Prodotti SET SCONTO = 5 WHERE RID = 1");
    ContoDiProva& c = n.apriConto();
    vendi(c, "A", "2");
    vendi(c, "B");
    ASSERT_TRUE(salvaVendita(c.vendita(), false, -1));
    confrontaLibri(
        n, {
               .movimenti = {"1|1|2026|2026-03-16|6|1|2||1|255|0|12|2.64|14.64|||0|"},
               .dettagli = {"1|1|1|1|1|A|A|2|6|0|0|0|0|6|12|1|22|1.32|2.64|14.64|1|6|||2026-03-16 10:30:00",
                            "2|1|1|2|2|B|Biscotti|1|0|0|0|0|0|0|0|2|10|0|0|0|1|0|||2026-03-16 10:30:00"},
               .prodotti = {"A|10||0"},
               .strati = {"1|1|6|2", "1|1|7|6", "1|2|6|2"},
               .contatori = {"3|2026|1|n/d"},
           });
    EXPECT_EQ(c.vendita().lblMainDisplay.testo(), "14,64");
    EXPECT_EQ(n.verifica(), QStringList());
}

// Each amount of a transfer is worked out of those that the cells show.
TEST_F(BooksTable, TransferAtACostOfThreeDecimals) {
    n.sql("UPDATE DettagliProdotto SET TAGLIO = 6.335 WHERE TAGLIO = 6");
    gTipoDocVb = 6;
    ContoDiProva& c = n.apriConto();
    vendi(c, "A", "3");
    ASSERT_TRUE(salvaVendita(c.vendita(), false, -1));
    EXPECT_EQ(leggiLibri(n).dettagli,
              QStringList{"1|1|1|1|1|A|A|3|6.34|0|0|0|0|6.34|19.01|1|22|1.39|4.17|23.18|1|6.335|||2026-03-16 "
                          "10:30:00"});
    EXPECT_EQ(n.riga("SELECT TOTIMPONIBILE, TOTIMPOSTA, TOTDOCUMENTO FROM Movimenti"), "19.01|4.17|23.18");
}

// At the average, of which half a cent is left: the cost 6,125 shows as 6,13, and three of them, 18,375, as
// 18,38; the tax on one is 1,3475, on three three times 1,35.
TEST_F(BooksTable, TransferAtAnAverageOfHalfACent) {
    gPrezzoMedio = 1;
    n.sql("DELETE FROM DettagliProdotto WHERE TAGLIO = 7");
    n.sql("UPDATE DettagliProdotto SET TAGLIO = 6.125, QUANTITA = 10");
    gTipoDocVb = 6;
    ContoDiProva& c = n.apriConto();
    vendi(c, "A", "3");
    ASSERT_TRUE(salvaVendita(c.vendita(), false, -1));
    const LibriAttesi letti = leggiLibri(n);
    EXPECT_EQ(letti.dettagli,
              QStringList{"1|1|1|1|1|A|A|3|6.13|0|0|0|0|6.13|18.38|1|22|1.35|4.05|22.43|1|6.125|||2026-03-16 "
                          "10:30:00"});
    EXPECT_EQ(letti.strati, (QStringList{"1|1|6.125|7", "1|2|6.125|3"}));
    EXPECT_EQ(n.riga("SELECT TOTIMPONIBILE, TOTIMPOSTA, TOTDOCUMENTO FROM Movimenti"), "18.38|4.05|22.43");
    EXPECT_EQ(n.verifica(), QStringList());
}

// A document made of the sale is of today, keeps its own payment, and is collected only when that is the
// counter's.
TEST_F(BooksTable, ConvertedSaleOnCreditIsNotCollectedThoughTicked) {
    Vendita& v = dueAETreB();
    n.intesta(v, 1, 9);
    v.txtData.testo("31/12/2025");
    setInfoDocumento(v, 5);
    ASSERT_TRUE(salvaVendita(v, true, 5));
    LibriAttesi attesi = libriACredito("9", {"1||2026-04-15|20.45", "1||2026-05-15|20.45"});
    attesi.movimenti = {"1|1|2026|2026-03-16|5|1||2|9|255|0|35|5.9|40.9|1||0|"};
    attesi.primaNota = {"1|1|2026-03-16|2026-03-16|1|2|Fattura N° 0001 del 16/03/2026|||40.9|FT/1|9|"};
    attesi.contatori = {"2|2026|1|n/d"};
    confrontaLibri(n, attesi);
}

TEST_F(BooksTable, ConvertedSaleWithTheCountersPaymentIsCollected) {
    Vendita& v = dueAETreB();
    n.intesta(v, 1, 1);
    setInfoDocumento(v, 5);
    ASSERT_TRUE(salvaVendita(v, true, 5));
    LibriAttesi attesi = libriACredito("1", {});
    attesi.movimenti = {"1|1|2026|2026-03-16|5|1||2|1|255|0|35|5.9|40.9|1|2|0|"};
    attesi.primaNota = {
        "1|1|2026-03-16|2026-03-16|1|2|Fattura N° 0001 del 16/03/2026|||40.9|FT/1|1|",
        "2|2|2026-03-16|2026-03-16|2|2|Incasso Fattura N° 0001 del 16/03/2026|||40.9|FT/1|1|"};
    attesi.righePrimaNota << "2|2|40.9|0"
                          << "2|1|0|40.9";
    attesi.contatori = {"2|2026|1|n/d"};
    confrontaLibri(n, attesi);
}
