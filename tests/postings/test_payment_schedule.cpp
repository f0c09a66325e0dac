#include "core/globals.h"
#include "postings/expected_books.h"
#include "postings/payment_schedule.h"

// The due dates of a sale on credit. Entry 1 is the sale's, entry 2 another's.

namespace {

struct PaymentSchedule : testing::Test {
    PaymentSchedule() {
        n.sql(
            "INSERT INTO PrimaNota (RID, PROGRESSIVO, DATA) VALUES (1,1,'2026-03-16 00:00:00'),"
            "(2,2,'2026-03-16 00:00:00')");
    }
    struct Rata {
        int giorni;
        double percentuale;
    };
    // Payment 20 with these terms.
    void pagamento(double acconto, bool rimessaDiretta, bool fineMese, int numeroRate,
                   const std::vector<Rata>& rate) {
        n.sql(QString("INSERT INTO Pagamenti (RID, CODICE, ACCONTO, RIMESSADIRETTA, FINEMESE, NRATE) VALUES "
                      "(20,'P',%1,%2,%3,%4)")
                  .arg(acconto)
                  .arg(rimessaDiretta ? 1 : 0)
                  .arg(fineMese ? 1 : 0)
                  .arg(numeroRate));
        for (const Rata& r : rate) {
            n.sql(QString(
                      "INSERT INTO DettagliPagamenti (FK_PAGAMENTO, NGIORNI, PERCENTUALE) VALUES (20,%1,%2)")
                      .arg(r.giorni)
                      .arg(r.percentuale));
        }
    }
    bool genera(double importo, QDate data = QDate(2026, 3, 16), bool negative = false) {
        return generaScadenzePagamento(1, 20, Currency::daDouble(importo), data, negative);
    }
    // "day amount" of each row of the sale.
    QStringList scadenze() {
        return n.righe("SELECT DATA, IMPORTO FROM Scadenze WHERE FK_PRIMANOTA = 1 ORDER BY RID")
            .replaceInStrings(" 00:00:00|", " ");
    }
    // The day that one instalment of everything falls due.
    QString scadenza(QDate data, int giorni, bool rimessaDiretta, bool fineMese) {
        n.sql("DELETE FROM DettagliPagamenti WHERE FK_PAGAMENTO = 20");
        n.sql("DELETE FROM Pagamenti WHERE RID = 20");
        pagamento(0, rimessaDiretta, fineMese, 1, {{giorni, 100}});
        EXPECT_TRUE(genera(100, data));
        return scadenze().join(',').section(' ', 0, 0);
    }
    Bottega n;
};

}  // namespace

// ---- Amounts

TEST_F(PaymentSchedule, NoRemainderIsCarried) {
    pagamento(0, false, false, 3, {{30, 33.33}, {60, 33.33}, {90, 33.33}});
    EXPECT_TRUE(genera(100));
    EXPECT_EQ(scadenze(), (QStringList{"2026-04-15 33.33", "2026-05-15 33.33", "2026-06-14 33.33"}));
}

TEST_F(PaymentSchedule, DownPaymentIsDueAtOnceBesideTheWholeAmount) {
    pagamento(20, false, false, 2, {{30, 50}, {60, 50}});
    EXPECT_TRUE(genera(100));
    EXPECT_EQ(scadenze(), (QStringList{"2026-03-16 20", "2026-04-15 50", "2026-05-15 50"}));
}

TEST_F(PaymentSchedule, InstalmentHasFourDecimals) {
    pagamento(0, false, false, 1, {{30, 66.67}});
    EXPECT_TRUE(genera(10.01));  // 6,673667
    EXPECT_EQ(n.conta("Scadenze", "IMPORTO = 6.6737"), 1);
}

TEST_F(PaymentSchedule, InstalmentInTheMiddleGoesToTheEvenOne) {
    pagamento(0, false, false, 2, {{30, 50}, {60, 150}});
    EXPECT_TRUE(genera(0.0625));  // 0,03125 and 0,09375
    EXPECT_EQ(n.conta("Scadenze", "IMPORTO = 0.0312"), 1);
    EXPECT_EQ(n.conta("Scadenze", "IMPORTO = 0.0938"), 1);
}

TEST_F(PaymentSchedule, DownPaymentIsAShareOfTheWholeAmount) {
    pagamento(33.33, false, false, 0, {{30, 0}});
    EXPECT_TRUE(genera(10.01));
    EXPECT_EQ(n.valore("SELECT ROUND(IMPORTO, 4) FROM Scadenze"), "3.3363");
}

TEST_F(PaymentSchedule, NegativeTurnsEverySign) {
    pagamento(20, false, false, 1, {{30, 80}});
    EXPECT_TRUE(genera(100, QDate(2026, 3, 16), true));
    EXPECT_EQ(scadenze(), (QStringList{"2026-03-16 -20", "2026-04-15 -80"}));
}

TEST_F(PaymentSchedule, NegativeOfAReturnIsPositive) {
    pagamento(0, false, false, 1, {{30, 100}});
    EXPECT_TRUE(genera(-12.2, QDate(2026, 3, 16), true));
    EXPECT_EQ(scadenze(), QStringList{"2026-04-15 12.2"});
}

TEST_F(PaymentSchedule, NothingDueHasItsRowsAllTheSame) {
    pagamento(20, false, false, 1, {{30, 80}});
    EXPECT_TRUE(genera(0));
    EXPECT_EQ(n.conta("Scadenze", "IMPORTO = 0"), 2);
}

// ---- How many

TEST_F(PaymentSchedule, RowsOfTheLastSaveGoAndOthersStay) {
    n.sql("INSERT INTO Scadenze (FK_PRIMANOTA, DATA, IMPORTO) VALUES (2,'2026-03-20 00:00:00',5)");
    pagamento(0, false, false, 1, {{30, 100}});
    EXPECT_TRUE(genera(100));
    EXPECT_TRUE(genera(50));
    EXPECT_EQ(leggiLibri(n).scadenze, (QStringList{"2||2026-03-20|5", "1||2026-04-15|50"}));
}

TEST_F(PaymentSchedule, NoInstalmentsAndNoDownPaymentWriteNothing) {
    pagamento(0, false, false, 0, {{30, 50}, {60, 50}});
    EXPECT_TRUE(genera(100));
    EXPECT_EQ(scadenze(), QStringList());
}

TEST_F(PaymentSchedule, OnlyAsManyInstalmentsAsThePaymentTells) {
    pagamento(10, false, false, 1, {{30, 50}, {60, 50}});
    EXPECT_TRUE(genera(100));
    EXPECT_EQ(scadenze(), (QStringList{"2026-03-16 10", "2026-04-15 50"}));
}

TEST_F(PaymentSchedule, PaymentWithoutRowsOnlyClears) {
    n.sql("INSERT INTO Scadenze (FK_PRIMANOTA, DATA, IMPORTO) VALUES (1,'2026-03-20 00:00:00',5)");
    pagamento(50, false, false, 2, {});
    EXPECT_TRUE(genera(100));
    EXPECT_EQ(n.conta("Scadenze"), 0);
}

TEST_F(PaymentSchedule, PaymentThatIsNotThereOnlyClears) {
    n.sql("INSERT INTO Scadenze (FK_PRIMANOTA, DATA, IMPORTO) VALUES (1,'2026-03-20 00:00:00',5)");
    EXPECT_TRUE(generaScadenzePagamento(1, 77, Currency::daDouble(100), QDate(2026, 3, 16), false));
    EXPECT_EQ(n.conta("Scadenze"), 0);
}

TEST_F(PaymentSchedule, MoreInstalmentsThanRowsAreReported) {
    gNomeModulo = "bBottegonClientVB";
    pagamento(0, false, false, 3, {{30, 50}, {60, 50}});
    n.operatore.attendiAvviso("bBottegonClientVB.generaScadenzePagamento");
    EXPECT_FALSE(genera(100));
}

TEST_F(PaymentSchedule, EveryFailingStatementEndsWithNo) {
    pagamento(20, false, false, 1, {{30, 80}});
    int prove = 0;
    for (int numero = 1; numero < 20; ++numero) {
        const RegistroAvvisi avvisi;
        int viste = 0;
        sondaIstruzioni() = [&](const QString& sql) -> std::optional<ErroreServer> {
            if (!(sql.contains("Scadenze") || sql.contains("Pagamenti")) || ++viste != numero)
                return std::nullopt;
            return ErroreServer{ErroreServer::Classe::Altro, 1, "guasto", "prova"};
        };
        const bool esito = genera(100);
        sondaIstruzioni() = {};
        if (viste < numero) break;
        ++prove;
        EXPECT_FALSE(esito) << numero;
    }
    EXPECT_EQ(prove, 4);  // terms, old rows, down payment, instalment
}

// ---- Days

TEST_F(PaymentSchedule, DaysCountFromTheDate) {
    EXPECT_EQ(scadenza(QDate(2026, 1, 31), 30, false, false), "2026-03-02");
    EXPECT_EQ(scadenza(QDate(2026, 3, 16), 0, false, false), "2026-03-16");
    EXPECT_EQ(scadenza(QDate(2026, 12, 15), 30, false, false), "2027-01-14");
}

TEST_F(PaymentSchedule, DirectRemittanceAloneCountsTheDays) {
    EXPECT_EQ(scadenza(QDate(2026, 3, 16), 30, true, false), "2026-04-15");
}

TEST_F(PaymentSchedule, EndOfTheMonthOfTheDayThatTheDaysReach) {
    EXPECT_EQ(scadenza(QDate(2026, 1, 31), 30, false, true), "2026-03-31");
    EXPECT_EQ(scadenza(QDate(2028, 1, 31), 30, false, true), "2028-03-31");
    EXPECT_EQ(scadenza(QDate(2028, 1, 15), 30, false, true), "2028-02-29");
    EXPECT_EQ(scadenza(QDate(2026, 1, 15), 30, false, true), "2026-02-28");
    EXPECT_EQ(scadenza(QDate(2026, 11, 30), 31, false, true), "2026-12-31");
    EXPECT_EQ(scadenza(QDate(2026, 4, 30), 0, false, true), "2026-04-30");
}

TEST_F(PaymentSchedule, EndOfTheMonthByDirectRemittanceIgnoresTheDays) {
    EXPECT_EQ(scadenza(QDate(2026, 1, 31), 30, true, true), "2026-01-31");
    EXPECT_EQ(scadenza(QDate(2026, 2, 10), 90, true, true), "2026-02-28");
}
