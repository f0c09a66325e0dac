#include "core/globals.h"
#include "data/gateway.h"
#include "postings/expected_books.h"
#include "postings/journal.h"

// Entries of the journal and their lines. Accounts: 1 customers, 2 cash, 3 sales, 4 VAT, 5 suppliers, 6
// discounts.

namespace {

struct Journal : testing::Test {
    Journal() {
        gContoFornitori = 5;
        n.sql(
            "INSERT INTO PianoConti (RID, CODICE, DESCRIZIONE) VALUES (5,'5','Fornitori'),(6,'6','Abbuoni')");
    }
    // Causal 20 with these accounts, 0 for none.
    void causale(int dare1, int dare2, int avere1, int avere2) {
        n.sql(QString("INSERT INTO Causali (RID, CODICE, FK_CONTODARE1, FK_CONTODARE2, FK_CONTOAVERE1, "
                      "FK_CONTOAVERE2) VALUES (20,'P',%1,%2,%3,%4)")
                  .arg(dare1)
                  .arg(dare2)
                  .arg(avere1)
                  .arg(avere2));
    }
    static RegistrazionePN registrazione() {
        RegistrazionePN r;
        r.idCausale = 1;
        r.idAnagrafe = 2;
        r.descrizione = "Vendita";
        r.importo = Currency::daDouble(122);
        r.data = r.dataValuta = QDate(2026, 3, 16);
        r.imposta = Currency::daDouble(22);
        r.idPagamento = 9;
        r.codicePartita = "VB/1";
        return r;
    }
    // "account dare/avere" of each line of a new entry of causal 20.
    QString righe(double importo, double imposta, double terzo) {
        RegistrazionePN r = registrazione();
        r.idCausale = 20;
        r.importo = Currency::daDouble(importo);
        r.imposta = Currency::daDouble(imposta);
        r.terzoImporto = Currency::daDouble(terzo);
        const int id = salvaPrimaNota(r);
        EXPECT_GE(id, 1);
        QStringList tutte;
        for (const QString& riga :
             n.righe("SELECT FK_CONTO, DARE, AVERE FROM PrimaNotaDettagli WHERE FK_PRIMANOTA = " +
                     QString::number(id) + " ORDER BY RID")) {
            tutte << riga.section('|', 0, 0) + " " + riga.section('|', 1).replace('|', '/');
        }
        return tutte.join(", ");
    }
    Bottega n;
};

}  // namespace

// ---- The entry

TEST_F(Journal, NewEntryHoldsWhatItWasTold) {
    RegistrazionePN r = registrazione();
    r.riferimenti = "Rif. 7";
    r.numDocumento = "12/A";
    r.dataValuta = QDate(2026, 4, 1);
    EXPECT_EQ(salvaPrimaNota(r), 1);
    EXPECT_EQ(leggiLibri(n).primaNota,
              QStringList{"1|1|2026-03-16|2026-04-01|1|2|Vendita|Rif. 7|12/A|122|VB/1|9|"});
}

TEST_F(Journal, WithoutCustomerAndPaymentTheyAreNull) {
    RegistrazionePN r = registrazione();
    r.idAnagrafe = 0;
    r.idPagamento = -1;
    salvaPrimaNota(r);
    EXPECT_EQ(n.conta("PrimaNota", "FK_ANAGRAFE IS NULL AND FK_PAGAMENTO IS NULL"), 1);
}

TEST_F(Journal, TextsAreCutToTheirColumns) {
    RegistrazionePN r = registrazione();
    r.descrizione = QString(254, 'd') + "'¤zz";
    r.riferimenti = QString(300, 'r');
    r.codicePartita = "VB/12345678901234567890";
    EXPECT_EQ(salvaPrimaNota(r), 1);
    EXPECT_EQ(n.valore("SELECT DESCRIZIONE FROM PrimaNota"), QString(254, 'd') + "'");
    EXPECT_EQ(n.valore("SELECT RIFERIMENTI FROM PrimaNota"), QString(255, 'r'));
    EXPECT_EQ(n.valore("SELECT CODICEPARTITA FROM PrimaNota"), "VB/12345678901234567");
}

TEST_F(Journal, TextsThatJustFitAreWhole) {
    RegistrazionePN r = registrazione();
    r.descrizione = QString(255, 'd');
    r.codicePartita = QString(20, 'p');
    salvaPrimaNota(r);
    EXPECT_EQ(n.valore("SELECT DESCRIZIONE FROM PrimaNota"), QString(255, 'd'));
    EXPECT_EQ(n.valore("SELECT CODICEPARTITA FROM PrimaNota"), QString(20, 'p'));
}

TEST_F(Journal, RewriteKeepsKeyAndProgressiveAndReplacesAllLines) {
    salvaPrimaNota(registrazione());
    salvaPrimaNota(registrazione());
    RegistrazionePN r = registrazione();
    r.idPrimaNota = 1;
    r.descrizione = "Cambiata";
    r.importo = Currency::daDouble(61);
    r.imposta = Currency::daDouble(11);
    r.data = r.dataValuta = QDate(2027, 1, 2);
    EXPECT_EQ(salvaPrimaNota(r), 1);
    EXPECT_EQ(leggiLibri(n).primaNota, (QStringList{"1|1|2027-01-02|2027-01-02|1|2|Cambiata|||61|VB/1|9|",
                                                    "2|2|2026-03-16|2026-03-16|1|2|Vendita|||122|VB/1|9|"}));
    EXPECT_EQ(n.righe("SELECT RID, FK_CONTO, DARE, AVERE FROM PrimaNotaDettagli WHERE FK_PRIMANOTA = 1 ORDER "
                      "BY RID"),
              (QStringList{"7|1|61|0", "8|3|0|50", "9|4|0|11"}));
}

TEST_F(Journal, NumbersStartAgainEveryYear) {
    RegistrazionePN r = registrazione();
    salvaPrimaNota(r);
    salvaPrimaNota(r);
    r.data = QDate(2027, 1, 1);
    salvaPrimaNota(r);
    r.data = QDate(2026, 12, 31);
    salvaPrimaNota(r);
    EXPECT_EQ(n.righe("SELECT PROGRESSIVO FROM PrimaNota ORDER BY RID"), (QStringList{"1", "2", "1", "3"}));
}

TEST_F(Journal, EntryOfACausalThatIsNotThereIsRefused) {
    RegistrazionePN r = registrazione();
    r.idCausale = -1;
    n.operatore.attendiMessaggio("Impossibile assegnare i conti DARE/AVERE!", OperatorPort::Icona::Critica);
    EXPECT_EQ(salvaPrimaNota(r), -1);
    EXPECT_EQ(n.conta("PrimaNotaDettagli"), 0);
}

TEST_F(Journal, MessageWaitsForTheEndOfTheTransaction) {
    RegistrazionePN r = registrazione();
    r.idCausale = -1;
    ASSERT_TRUE(gAdo.beginTrasaction("prova"));
    EXPECT_EQ(salvaPrimaNota(r), -1);
    EXPECT_TRUE(n.operatore.visti.empty());
    n.operatore.attendiMessaggio("Impossibile assegnare i conti DARE/AVERE!", OperatorPort::Icona::Critica);
    gAdo.rollbackTrasaction("prova");
    EXPECT_EQ(n.conta("PrimaNota"), 0);
}

TEST_F(Journal, FailingStatementIsTheGatewaysToTell) {
    int prove = 0;
    for (int numero = 1; numero < 20; ++numero) {
        const RegistroAvvisi avvisi;
        int viste = 0;
        ASSERT_TRUE(gAdo.beginTrasaction("prova"));
        sondaIstruzioni() = [&](const QString& sql) -> std::optional<ErroreServer> {
            if (!(sql.contains("PrimaNota") || sql.contains("Causali")) || ++viste != numero)
                return std::nullopt;
            return ErroreServer{ErroreServer::Classe::Altro, 1, "guasto", "prova"};
        };
        const int esito = salvaPrimaNota(registrazione());
        sondaIstruzioni() = {};
        gAdo.rollbackTrasaction("prova");
        if (viste < numero) break;
        ++prove;
        EXPECT_EQ(esito, -1) << numero;
        EXPECT_EQ(avvisi.moduli.size(), 1) << numero;
        EXPECT_EQ(avvisi.messaggi, QStringList()) << numero;
        EXPECT_EQ(n.conta("PrimaNota"), 0);
    }
    EXPECT_GE(prove, 7);  // number, entry, accounts, old lines, three lines
}

// ---- Two sides

TEST_F(Journal, OneAccountASideTakesTheWhole) {
    causale(1, 0, 3, 0);
    EXPECT_EQ(righe(122, 22, 0), "1 122/0, 3 0/122");
}

TEST_F(Journal, SecondCreditAccountTakesTheVat) {
    causale(1, 0, 3, 4);
    EXPECT_EQ(righe(122, 22, 0), "1 122/0, 3 0/100, 4 0/22");
}

TEST_F(Journal, SecondDebitAccountTakesTheVat) {
    causale(3, 4, 1, 0);
    EXPECT_EQ(righe(122, 22, 0), "3 100/0, 4 22/0, 1 0/122");
}

TEST_F(Journal, OfTwoSecondAccountsOnlyTheDebitOneIsUsed) {
    causale(3, 4, 1, 6);
    EXPECT_EQ(righe(122, 22, 0), "3 100/0, 4 22/0, 1 0/122");
}

TEST_F(Journal, WithoutVatTheSecondAccountHasALineOfNothing) {
    causale(1, 0, 3, 4);
    EXPECT_EQ(righe(122, 0, 0), "1 122/0, 3 0/122, 4 0/0");
}

TEST_F(Journal, NegativeVatIsNotSplitOff) {
    causale(1, 0, 3, 4);
    EXPECT_EQ(righe(-122, -22, 0), "1 -122/0, 3 0/-122, 4 0/-22");
}

TEST_F(Journal, EntryOfNothingStillHasItsLines) {
    causale(1, 0, 3, 4);
    EXPECT_EQ(righe(0, 0, 0), "1 0/0, 3 0/0, 4 0/0");
}

TEST_F(Journal, CausalWithoutAccountsMakesAnEntryWithoutLines) {
    causale(0, 0, 0, 0);
    EXPECT_EQ(righe(122, 22, 0), "");
    n.sql(
        "UPDATE Causali SET FK_CONTODARE1 = NULL, FK_CONTODARE2 = NULL, FK_CONTOAVERE1 = NULL, "
        "FK_CONTOAVERE2 = NULL WHERE RID = 20");
    EXPECT_EQ(righe(122, 22, 0), "");
    EXPECT_EQ(n.conta("PrimaNota"), 2);
}

TEST_F(Journal, CausalWithOneAccountMakesAnEntryOfOneLine) {
    causale(2, 0, 0, 0);
    EXPECT_EQ(righe(122, 22, 0), "2 122/0");
}

// ---- A third amount

TEST_F(Journal, ThirdAmountBesideTheCustomersDebit) {
    causale(1, 6, 3, 0);
    EXPECT_EQ(righe(122, 22, 2), "1 120/0, 6 2/0, 3 0/100");
}

TEST_F(Journal, ThirdAmountBesideTheSuppliersDebit) {
    causale(5, 6, 2, 0);
    EXPECT_EQ(righe(122, 0, 2), "5 120/0, 6 2/0, 2 0/122");
}

TEST_F(Journal, ThirdAmountAndASecondCreditAccountForTheVat) {
    causale(1, 6, 3, 4);
    EXPECT_EQ(righe(122, 22, 2), "1 120/0, 6 2/0, 3 0/100, 4 0/22");
}

// The customers' credit starts from nothing.
TEST_F(Journal, ThirdAmountBesideTheCustomersCreditTurnsItNegative) {
    causale(2, 0, 1, 6);
    EXPECT_EQ(righe(122, 0, 2), "2 122/0, 1 0/-2, 6 0/2");
}

TEST_F(Journal, ThirdAmountBesideTheSuppliersCreditAndASecondDebitAccount) {
    causale(2, 4, 5, 6);
    EXPECT_EQ(righe(122, 22, 2), "2 100/0, 4 22/0, 5 0/-2, 6 0/2");
}

TEST_F(Journal, ThirdAmountWithoutAControlAccountLeavesAllLinesAtNothing) {
    causale(2, 6, 3, 4);
    EXPECT_EQ(righe(122, 22, 2), "2 0/0, 3 0/0");
}

TEST_F(Journal, ThirdAmountWithoutASecondAccountLeavesAllLinesAtNothing) {
    causale(1, 0, 2, 0);
    EXPECT_EQ(righe(122, 22, 2), "1 0/0, 2 0/0");
}

TEST_F(Journal, NegativeThirdAmountIsOneToo) {
    causale(1, 6, 3, 0);
    EXPECT_EQ(righe(122, 0, -2), "1 124/0, 6 -2/0, 3 0/122");
}
