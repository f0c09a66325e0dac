#include <thread>

#include "servers/mysql_trial.h"

using Classe = ErroreServer::Classe;

namespace {

class MySqlTurn : public testing::Test {
  protected:
    ~MySqlTurn() override { MySqlConnection::attesaMassima = mAttesa; }

    int quanti() { return database.altro.valore("SELECT COUNT(*) FROM Prova").toInt(); }
    // Without a wait worth speaking of.
    static void impaziente() { MySqlConnection::attesaMassima = 300; }

    DatabaseMySql database;
    const std::unique_ptr<MySqlConnection> una = database.apri();
    const std::unique_ptr<MySqlConnection> altra = database.apri();

  private:
    const int mAttesa = MySqlConnection::attesaMassima;
};

}  // namespace

TEST_F(MySqlTurn, ACommitKeepsWhatWasWritten) {
    ASSERT_TRUE(una->inizia());
    EXPECT_TRUE(una->inTransazione());
    esegui(*una, "INSERT INTO Prova (N) VALUES (1)");
    EXPECT_EQ(quanti(), 0);
    EXPECT_TRUE(una->conferma());
    EXPECT_FALSE(una->inTransazione());
    EXPECT_EQ(quanti(), 1);
}

TEST_F(MySqlTurn, ARollbackKeepsNothing) {
    ASSERT_TRUE(una->inizia());
    esegui(*una, "INSERT INTO Prova (N) VALUES (1)");
    EXPECT_TRUE(una->annulla());
    EXPECT_EQ(quanti(), 0);
}

TEST_F(MySqlTurn, OneDeskAtATime) {
    impaziente();
    ASSERT_TRUE(una->inizia());
    EXPECT_FALSE(altra->inizia());
    EXPECT_EQ(altra->errore().classe, Classe::Conflitto);
    EXPECT_EQ(altra->errore().descrizione,
              "Un'altra cassa sta salvando: il turno non si è liberato in 0.3 secondi. Riprovare.");
    EXPECT_FALSE(altra->inTransazione());
}

TEST_F(MySqlTurn, TheTurnIsFreeAfterACommitAndAfterARollback) {
    impaziente();
    ASSERT_TRUE(una->inizia());
    ASSERT_TRUE(una->conferma());
    ASSERT_TRUE(altra->inizia());
    ASSERT_TRUE(altra->annulla());
    EXPECT_TRUE(una->inizia());
}

TEST_F(MySqlTurn, TheTurnIsFreeWhenItsOwnerIsGone) {
    {
        const auto terza = database.apri();
        ASSERT_TRUE(terza->inizia());
        esegui(*terza, "INSERT INTO Prova (N) VALUES (1)");
    }
    EXPECT_TRUE(una->inizia());
    EXPECT_EQ(quanti(), 0);
}

TEST_F(MySqlTurn, WaitingIsShownAndEndsWithTheOthersTurn) {
    int avvisi = 0;
    ASSERT_TRUE(una->inizia());
    altra->impostaAttesa([&](int) {
        if (++avvisi == 2) una->conferma();
    });
    EXPECT_TRUE(altra->inizia());
    EXPECT_GE(avvisi, 2);
}

TEST_F(MySqlTurn, WorksAgainAfterAWaitInVain) {
    impaziente();
    ASSERT_TRUE(una->inizia());
    EXPECT_FALSE(altra->inizia());
    ASSERT_TRUE(una->conferma());
    EXPECT_TRUE(altra->inizia());
    esegui(*altra, "INSERT INTO Prova (N) VALUES (1)");
    EXPECT_TRUE(altra->conferma());
    EXPECT_EQ(quanti(), 1);
}

TEST_F(MySqlTurn, DesksOfAnotherShopDoNotWait) {
    const DatabaseMySql altroNegozio("driver_altro_" + QString::number(getpid()));
    const auto estranea = altroNegozio.apri();
    impaziente();
    ASSERT_TRUE(una->inizia());
    EXPECT_TRUE(estranea->inizia());
}

TEST_F(MySqlTurn, ADatabaseWithALongNameHasATurnToo) {
    const DatabaseMySql lungo(QString(50, u'x') + "_" + QString::number(getpid()));
    const auto prima = lungo.apri();
    const auto seconda = lungo.apri();
    impaziente();
    ASSERT_TRUE(prima->inizia());
    EXPECT_FALSE(seconda->inizia());
}

TEST_F(MySqlTurn, WhatIsReadInATurnCannotChangeUnderIt) {
    esegui(*una, "INSERT INTO Prova (N) VALUES (1)");
    impaziente();
    ASSERT_TRUE(una->inizia());
    EXPECT_EQ(valore(*una, "SELECT N FROM Prova").toInt(), 1);
    EXPECT_FALSE(altra->eseguiNativo("UPDATE Prova SET N = 2", nullptr));
    EXPECT_EQ(altra->errore().classe, Classe::Conflitto);
    EXPECT_TRUE(una->conferma());
}

TEST_F(MySqlTurn, ReadersDoNotWaitForATurn) {
    esegui(*una, "INSERT INTO Prova (N) VALUES (1)");
    ASSERT_TRUE(una->inizia());
    esegui(*una, "UPDATE Prova SET N = 2");
    EXPECT_EQ(valore(*altra, "SELECT N FROM Prova").toInt(), 1);
}

// ---- Locks of other programs

TEST_F(MySqlTurn, ALockedRowIsWaitedForUnderANotice) {
    esegui(*una, "INSERT INTO Prova (N) VALUES (1)");
    database.altro.esegui("START TRANSACTION");
    database.altro.esegui("UPDATE Prova SET N = 5");
    int avvisi = 0;
    una->impostaAttesa([&](int) {
        if (++avvisi == 1) database.altro.esegui("COMMIT");
    });
    EXPECT_TRUE(esegui(*una, "UPDATE Prova SET N = N + 1"));
    EXPECT_EQ(avvisi, 1);
    EXPECT_EQ(database.altro.valore("SELECT N FROM Prova"), "6");
}

TEST_F(MySqlTurn, ALockedRowInATurnIsWaitedForToo) {
    esegui(*una, "INSERT INTO Prova (N) VALUES (1)");
    database.altro.esegui("START TRANSACTION");
    database.altro.esegui("UPDATE Prova SET N = 5");
    ASSERT_TRUE(una->inizia());
    esegui(*una, "INSERT INTO Figli (FK_PROVA) VALUES (NULL)");
    una->impostaAttesa([&](int) { database.altro.esegui("COMMIT"); });
    EXPECT_TRUE(esegui(*una, "UPDATE Prova SET N = N + 1"));
    EXPECT_TRUE(una->conferma());
    EXPECT_EQ(database.altro.valore("SELECT COUNT(*) FROM Figli"), "1");
}

TEST_F(MySqlTurn, ALockThatStaysFailsTheStatement) {
    esegui(*una, "INSERT INTO Prova (N) VALUES (1)");
    impaziente();
    database.altro.esegui("START TRANSACTION");
    database.altro.esegui("UPDATE Prova SET N = 5");
    ASSERT_TRUE(una->inizia());
    EXPECT_FALSE(una->eseguiNativo("UPDATE Prova SET N = 7", nullptr));
    EXPECT_EQ(una->errore().codice, 1205);
    EXPECT_FALSE(una->inTransazione());
    EXPECT_TRUE(una->annulla());
    database.altro.esegui("ROLLBACK");
}

// ---- After the first error in a turn

TEST_F(MySqlTurn, NothingRunsBehindAnErrorButTheRollback) {
    ASSERT_TRUE(una->inizia());
    esegui(*una, "INSERT INTO Prova (RID, N) VALUES (1, 0)");
    QStringList inviate;
    sondaIstruzioni() = [&](const QString& sql) -> std::optional<ErroreServer> {
        inviate << sql;
        return std::nullopt;
    };
    EXPECT_FALSE(una->eseguiNativo("INSERT INTO Prova (RID, N) VALUES (1, 0)", nullptr));
    EXPECT_EQ(una->errore().codice, 1062);
    EXPECT_FALSE(una->eseguiNativo("INSERT INTO Prova (RID, N) VALUES (2, 0)", nullptr));
    EXPECT_FALSE(una->conferma());
    EXPECT_TRUE(una->annulla());
    sondaIstruzioni() = {};
    ASSERT_GE(inviate.size(), 2);
    EXPECT_EQ(inviate[0], "INSERT INTO Prova (RID, N) VALUES (1, 0)");
    EXPECT_EQ(inviate[1], "ROLLBACK");
    EXPECT_EQ(quanti(), 0);
}

// Only of a wait for a lock does the server promise that it left the transaction as it was.
TEST_F(MySqlTurn, AChangedRowIsNotReadAgain) {
    ASSERT_TRUE(una->inizia());
    int tentativi = 0;
    sondaIstruzioni() = [&](const QString& sql) -> std::optional<ErroreServer> {
        if (!sql.startsWith("UPDATE")) return std::nullopt;
        ++tentativi;
        return ErroreServer{Classe::Conflitto, 1020, "Record has changed since last read", "prova"};
    };
    EXPECT_FALSE(una->eseguiNativo("UPDATE Prova SET N = 7", nullptr));
    sondaIstruzioni() = {};
    EXPECT_EQ(tentativi, 1);
    EXPECT_EQ(una->errore().codice, 1020);
    EXPECT_TRUE(una->annulla());
}

// A server may be told to undo the whole transaction with a wait that was in vain.
TEST_F(MySqlTurn, AWaitThatTookTheTransactionAlongIsNotRepeated) {
    ASSERT_TRUE(una->inizia());
    esegui(*una, "INSERT INTO Prova (N) VALUES (1)");
    int tentativi = 0;
    sondaIstruzioni() = [&](const QString& sql) -> std::optional<ErroreServer> {
        if (!sql.startsWith("UPDATE")) return std::nullopt;
        if (++tentativi == 1) esegui(*una, "ROLLBACK");
        return ErroreServer{Classe::Conflitto, 1205, "Lock wait timeout exceeded", "prova"};
    };
    EXPECT_FALSE(una->eseguiNativo("UPDATE Prova SET N = 7", nullptr));
    sondaIstruzioni() = {};
    EXPECT_EQ(tentativi, 1);
    EXPECT_FALSE(una->inTransazione());
    EXPECT_TRUE(una->annulla());
    EXPECT_EQ(quanti(), 0);
}

TEST_F(MySqlTurn, AfterADeadlockNothingMoreIsWritten) {
    esegui(*una, "INSERT INTO Prova (RID, N) VALUES (1, 0), (2, 0)");
    ASSERT_TRUE(una->inizia());
    esegui(*una, "UPDATE Prova SET N = 1 WHERE RID = 1");
    // The other has more to lose, so that the server gives this one up.
    database.altro.esegui("START TRANSACTION");
    database.altro.esegui("INSERT INTO Figli (FK_PROVA) VALUES (2), (2), (2), (2), (2), (2), (2), (2)");
    database.altro.esegui("UPDATE Prova SET N = 2 WHERE RID = 2");
    std::thread incrocio([&] { database.altro.prova("UPDATE Prova SET N = 2 WHERE RID = 1"); });
    EXPECT_FALSE(una->eseguiNativo("UPDATE Prova SET N = 1 WHERE RID = 2", nullptr));
    incrocio.join();
    EXPECT_EQ(una->errore().codice, 1213);
    EXPECT_FALSE(una->inTransazione());
    EXPECT_FALSE(una->eseguiNativo("INSERT INTO Prova (N) VALUES (9)", nullptr));
    EXPECT_FALSE(una->conferma());
    EXPECT_TRUE(una->annulla());
    database.altro.esegui("COMMIT");
    EXPECT_EQ(quanti(), 2);
    EXPECT_TRUE(una->inizia());
}

TEST_F(MySqlTurn, ATransactionThatTheServerEndedIsNotCommitted) {
    ASSERT_TRUE(una->inizia());
    esegui(*una, "INSERT INTO Prova (N) VALUES (1)");
    esegui(*una, "ROLLBACK");
    EXPECT_FALSE(una->inTransazione());
    EXPECT_FALSE(una->conferma());
    EXPECT_EQ(una->errore().descrizione, "La transazione è stata annullata dal server.");
}
