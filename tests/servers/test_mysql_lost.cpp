#include "data/mysql_driver.h"
#include "servers/mysql_trial.h"

// Connections that the server drops.

using Classe = ErroreServer::Classe;

namespace {

class MySqlLost : public testing::Test {
  protected:
    // As between two operations.
    std::unique_ptr<Connessione> attraversoIlDriver(std::unique_ptr<Connessione> connessione = {}) {
        const AperturaSenzaVerifica senzaVerifica;
        if (connessione) driver.restituisci(std::move(connessione));
        ErroreServer errore;
        auto presa = driver.apri(database.stringa(), 5, {}, errore);
        EXPECT_TRUE(presa) << errore.descrizione.toStdString();
        return presa;
    }
    int quanti() { return database.altro.valore("SELECT COUNT(*) FROM Prova").toInt(); }
    void uccidi() { database.uccidi(dynamic_cast<MySqlConnection&>(*connessione)); }

    DatabaseMySql database;
    MySqlDriver driver;
    std::unique_ptr<Connessione> connessione = attraversoIlDriver();
};

}  // namespace

TEST_F(MySqlLost, AWarmConnectionIsGivenOutAgain) {
    const QVariant prima = valore(*connessione, "SELECT CONNECTION_ID()");
    connessione = attraversoIlDriver(std::move(connessione));
    EXPECT_EQ(valore(*connessione, "SELECT CONNECTION_ID()"), prima);
}

TEST_F(MySqlLost, AReadGoesOnOnANewOne) {
    uccidi();
    connessione = attraversoIlDriver(std::move(connessione));
    EXPECT_EQ(valore(*connessione, "SELECT COUNT(*) FROM Prova").toInt(), 0);
}

TEST_F(MySqlLost, AWriteGoesOnOnANewOneAndIsDoneOnce) {
    uccidi();
    connessione = attraversoIlDriver(std::move(connessione));
    EXPECT_TRUE(esegui(*connessione, "INSERT INTO Prova (N) VALUES (1)"));
    EXPECT_EQ(quanti(), 1);
}

TEST_F(MySqlLost, ATurnBeginsOnANewOne) {
    uccidi();
    connessione = attraversoIlDriver(std::move(connessione));
    ASSERT_TRUE(connessione->inizia());
    EXPECT_TRUE(esegui(*connessione, "INSERT INTO Prova (N) VALUES (1)"));
    EXPECT_TRUE(connessione->conferma());
    EXPECT_EQ(quanti(), 1);
}

TEST_F(MySqlLost, OneThatTheServerClosesAfterAWhileIsReplaced) {
    esegui(*connessione, "SET SESSION wait_timeout = 1");
    const QString id = valore(*connessione, "SELECT CONNECTION_ID()").toString();
    while (database.altro.valore("SELECT COUNT(*) FROM information_schema.PROCESSLIST WHERE ID = " + id) !=
           "0") {
    }
    connessione = attraversoIlDriver(std::move(connessione));
    EXPECT_TRUE(esegui(*connessione, "INSERT INTO Prova (N) VALUES (1)"));
    EXPECT_EQ(quanti(), 1);
}

TEST_F(MySqlLost, TheSessionOfTheNewOneIsMadeReady) {
    uccidi();
    connessione = attraversoIlDriver(std::move(connessione));
    EXPECT_EQ(valore(*connessione, "SELECT '\\'").toString(), "\\");
    EXPECT_FALSE(connessione->eseguiNativo("SELECT 1; SELECT 2", nullptr));
}

TEST_F(MySqlLost, InsideATransactionEverythingFails) {
    ASSERT_TRUE(connessione->inizia());
    esegui(*connessione, "INSERT INTO Prova (N) VALUES (1)");
    uccidi();
    EXPECT_FALSE(connessione->eseguiNativo("SELECT 1", nullptr));
    EXPECT_EQ(connessione->errore().classe, Classe::ConnessionePersa);
    EXPECT_TRUE(connessione->errore().descrizione.startsWith("La connessione con il server MySQL è caduta."));
    EXPECT_FALSE(connessione->inTransazione());
    EXPECT_FALSE(connessione->eseguiNativo("INSERT INTO Prova (N) VALUES (2)", nullptr));
    EXPECT_FALSE(connessione->conferma());
    EXPECT_TRUE(connessione->annulla());
    EXPECT_EQ(quanti(), 0);
}

TEST_F(MySqlLost, TheNextOperationAfterThatWorks) {
    ASSERT_TRUE(connessione->inizia());
    uccidi();
    EXPECT_FALSE(connessione->eseguiNativo("SELECT 1", nullptr));
    connessione->annulla();
    connessione = attraversoIlDriver(std::move(connessione));
    EXPECT_TRUE(esegui(*connessione, "INSERT INTO Prova (N) VALUES (1)"));
}

TEST_F(MySqlLost, ACommitWithoutAnAnswerIsOfUnknownOutcome) {
    ASSERT_TRUE(connessione->inizia());
    esegui(*connessione, "INSERT INTO Prova (N) VALUES (1)");
    uccidi();
    EXPECT_FALSE(connessione->conferma());
    EXPECT_EQ(connessione->errore().classe, Classe::EsitoIgnoto);
    EXPECT_TRUE(connessione->annulla());
    EXPECT_EQ(quanti(), 0);
}

TEST_F(MySqlLost, AConnectionGivenBackInATurnRollsBack) {
    ASSERT_TRUE(connessione->inizia());
    esegui(*connessione, "INSERT INTO Prova (N) VALUES (1)");
    connessione = attraversoIlDriver(std::move(connessione));
    EXPECT_EQ(quanti(), 0);
    EXPECT_TRUE(connessione->inizia());
}

TEST_F(MySqlLost, OtherSettingsGetOtherConnections) {
    const DatabaseMySql altro("driver_altro_" + QString::number(getpid()));
    driver.restituisci(std::move(connessione));
    const AperturaSenzaVerifica senzaVerifica;
    ErroreServer errore;
    const auto presa = driver.apri(altro.stringa(), 5, {}, errore);
    ASSERT_TRUE(presa);
    EXPECT_EQ(valore(*presa, "SELECT DATABASE()").toString(), altro.nome());
}
