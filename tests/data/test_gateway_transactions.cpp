#include <future>
#include <thread>

#include "data/gateway_archive.h"

namespace {

// Makes the first statement from now on that begins like this fail, and counts all of them but what gives a
// server's turn back.
struct Guasto {
    explicit Guasto(const QString& inizio) {
        sondaIstruzioni() = [this, inizio](const QString& sql) -> std::optional<ErroreServer> {
            if (sql.startsWith("DO RELEASE_LOCK")) return std::nullopt;
            viste << sql;
            if (sql.startsWith(inizio) && !std::exchange(mFatto, true)) return erroreFinto();
            return std::nullopt;
        };
    }
    ~Guasto() { sondaIstruzioni() = {}; }
    QStringList viste;

  private:
    bool mFatto = false;
};

// The server ends the transaction by itself.
bool annullaDalServer(GatewayDiProva& g) {
    return g.ado.getActiveConnection()->eseguiNativo("ROLLBACK", nullptr);
}

// The connection in force to a file.
SqliteConnection& nativa(GatewayDiProva& g) {
    return *dynamic_cast<SqliteConnection*>(g.ado.getActiveConnection());
}

const char* const quanteProve = "SELECT COUNT(*) FROM Prova";

}  // namespace

TEST(Transactions, CommitWithoutOneTouchesNothing) {
    GatewayDiProva g;
    EXPECT_FALSE(g.ado.commitTrasaction("prova"));
    EXPECT_EQ(g.ado.getConnectionCount(), 0);
    EXPECT_TRUE(g.operatore.avvisi.empty());
}

TEST(Transactions, RollbackAfterCommitIsHarmless) {
    GatewayDiProva g;
    ASSERT_TRUE(g.ado.beginTrasaction("prova"));
    g.inserisci("A");
    EXPECT_TRUE(g.ado.commitTrasaction("prova"));
    EXPECT_FALSE(g.ado.rollbackTrasaction("prova"));
    EXPECT_EQ(g.valore(quanteProve), "1");
}

TEST(Transactions, StatementsShareOneConnection) {
    GatewayDiProva g;
    ASSERT_TRUE(g.ado.beginTrasaction("prova"));
    const Connessione* connessione = g.ado.getActiveConnection();
    g.inserisci("A");
    g.ado.getValueBySQL(quanteProve, "prova");
    g.ado.getDataOraServer("prova");
    EXPECT_EQ(g.ado.getActiveConnection(), connessione);
    EXPECT_EQ(g.ado.getConnectionCount(), 1);
    g.ado.rollbackTrasaction("prova");
    EXPECT_EQ(g.ado.getConnectionCount(), 0);
}

TEST(Transactions, DisconnectInsideChangesNothing) {
    GatewayDiProva g;
    ASSERT_TRUE(g.ado.beginTrasaction("prova"));
    g.inserisci("A");
    g.ado.disconnect();
    EXPECT_EQ(g.ado.getConnectionCount(), 1);
    EXPECT_TRUE(g.inserisci("B"));
    EXPECT_TRUE(g.ado.commitTrasaction("prova"));
    EXPECT_EQ(g.valore(quanteProve), "2");
}

TEST(Transactions, NewKeyServesTheNextInsert) {
    GatewayDiProva g;
    ASSERT_TRUE(g.ado.beginTrasaction("prova"));
    const int rid =
        g.ado.getIDByInsert(QString("INSERT INTO Prova (CODICE) VALUES (¤A¤)"), "prova", "RID", "Prova");
    EXPECT_EQ(rid, 1);
    EXPECT_TRUE(
        g.ado.executeSQL("INSERT INTO Figli (FK_PROVA) VALUES (" + QString::number(rid) + ")", "prova"));
    EXPECT_TRUE(g.ado.commitTrasaction("prova"));
    EXPECT_EQ(g.valore("SELECT FK_PROVA FROM Figli"), "1");
}

TEST(Transactions, RollbackUndoesEverything) {
    GatewayDiProva g;
    ASSERT_TRUE(g.ado.beginTrasaction("prova"));
    g.inserisci("A");
    EXPECT_TRUE(g.ado.rollbackTrasaction("prova"));
    EXPECT_EQ(g.valore(quanteProve), "0");
}

TEST(Transactions, TerminatingTheConnectionRollsBack) {
    GatewayDiProva g;
    ASSERT_TRUE(g.ado.beginTrasaction("prova"));
    g.inserisci("A");
    g.ado.TerminateConnection();
    EXPECT_FALSE(g.ado.inTransazione());
    EXPECT_EQ(g.ado.getActiveConnection(), nullptr);
    EXPECT_EQ(g.valore(quanteProve), "0");
}

TEST(Transactions, OthersSeeNothingBeforeTheCommit) {
    GatewayDiProva g;
    ASSERT_TRUE(g.ado.beginTrasaction("prova"));
    g.inserisci("A");
    EXPECT_EQ(g.valore(quanteProve), "0");
    g.ado.commitTrasaction("prova");
    EXPECT_EQ(g.valore(quanteProve), "1");
}

// ---- After the first failure

TEST(Transactions, AfterAFailureOnlyTheRollbackRuns) {
    GatewayDiProva g;
    ASSERT_TRUE(g.ado.beginTrasaction("prova"));
    Guasto guasto("INSERT");
    EXPECT_FALSE(g.inserisci("A"));
    EXPECT_FALSE(g.inserisci("B"));
    EXPECT_EQ(g.ado.executeSQLWithRA(QString("DELETE FROM Prova"), "prova"), -1);
    EXPECT_TRUE(g.ado.getValueBySQL(quanteProve, "prova").isNull());
    EXPECT_EQ(
        g.ado.getIDByInsert(QString("INSERT INTO Prova (CODICE) VALUES (¤C¤)"), "prova", "RID", "Prova"), -1);
    EXPECT_TRUE(g.ado.rollbackTrasaction("prova"));
    EXPECT_EQ(guasto.viste, QStringList({"INSERT INTO Prova (CODICE) VALUES ('A')", "ROLLBACK"}));
}

TEST(Transactions, AfterAFailureTheCommitIsRefused) {
    GatewayDiProva g;
    ASSERT_TRUE(g.ado.beginTrasaction("prova"));
    g.inserisci("A");
    EXPECT_FALSE(g.ado.executeSQL(QString("DELETE FROM NonEsiste"), "prova"));
    EXPECT_FALSE(g.ado.commitTrasaction("prova"));
    EXPECT_FALSE(g.ado.inTransazione());
    EXPECT_EQ(g.valore(quanteProve), "0");
}

TEST(Transactions, OnlyTheFirstFailureIsReported) {
    GatewayDiProva g;
    ASSERT_TRUE(g.ado.beginTrasaction("prova"));
    g.ado.executeSQL(QString("DELETE FROM NonEsiste"), "prova");
    g.ado.executeSQL(QString("DELETE FROM NemmenoQuesta"), "prova");
    g.ado.rollbackTrasaction("prova");
    ASSERT_EQ(g.operatore.avvisi.size(), 1u);
    EXPECT_TRUE(g.operatore.avvisi.front().descrizione.contains("NonEsiste"));
    EXPECT_EQ(g.registro().size(), 7);
}

TEST(Transactions, ReportIsLoggedAtOnceAndShownAfterTheRollback) {
    GatewayDiProva g;
    ASSERT_TRUE(g.ado.beginTrasaction("prova"));
    g.ado.executeSQL(QString("DELETE FROM NonEsiste"), "prova");
    EXPECT_EQ(g.registro().size(), 7);
    EXPECT_TRUE(g.operatore.avvisi.empty());
    bool dentro = true;
    g.operatore.duranteAvviso = [&] { dentro = g.ado.inTransazione(); };
    g.ado.rollbackTrasaction("prova");
    EXPECT_EQ(g.operatore.avvisi.size(), 1u);
    EXPECT_FALSE(dentro);
}

TEST(Transactions, IntegrityBoxWaitsForTheRollback) {
    GatewayDiProva g;
    ASSERT_TRUE(g.ado.beginTrasaction("prova"));
    EXPECT_FALSE(g.ado.executeSQL(QString("INSERT INTO Figli (FK_PROVA) VALUES (77)"), "prova"));
    EXPECT_TRUE(g.operatore.mostrati.isEmpty());
    g.ado.rollbackTrasaction("prova");
    ASSERT_EQ(g.operatore.mostrati.size(), 1);
    EXPECT_TRUE(g.operatore.mostrati.front().contains("[Messaggio Originale]:"));
}

TEST(Transactions, TheNextOneStartsAfresh) {
    GatewayDiProva g;
    ASSERT_TRUE(g.ado.beginTrasaction("prova"));
    g.ado.executeSQL(QString("DELETE FROM NonEsiste"), "prova");
    g.ado.rollbackTrasaction("prova");
    ASSERT_TRUE(g.ado.beginTrasaction("prova"));
    EXPECT_TRUE(g.inserisci("A"));
    EXPECT_TRUE(g.ado.commitTrasaction("prova"));
    EXPECT_EQ(g.valore(quanteProve), "1");
}

// ---- Begin and commit themselves

TEST(Transactions, FailedBeginIsReportedAndLeavesNothing) {
    GatewayDiProva g;
    const QString inizio = g.ado.TipoServer == MySql ? "START TRANSACTION" : "BEGIN IMMEDIATE";
    const Guasto guasto(inizio);
    EXPECT_FALSE(g.ado.beginTrasaction("modulo.procedura"));
    ASSERT_EQ(guasto.viste.last(), inizio);
    EXPECT_FALSE(g.ado.inTransazione());
    EXPECT_EQ(g.ado.getConnectionCount(), 0);
    ASSERT_EQ(g.operatore.avvisi.size(), 1u);
    EXPECT_EQ(g.operatore.avvisi.front().modulo, "cAdoSqlServer.beginTrasaction -> modulo.procedura");
}

TEST(Transactions, FailedCommitRollsBackAndIsReported) {
    GatewayDiProva g;
    ASSERT_TRUE(g.ado.beginTrasaction("prova"));
    g.inserisci("A");
    {
        const Guasto guasto("COMMIT");
        EXPECT_FALSE(g.ado.commitTrasaction("modulo.procedura"));
        EXPECT_EQ(guasto.viste, QStringList({"COMMIT", "ROLLBACK"}));
    }
    EXPECT_EQ(g.valore(quanteProve), "0");
    ASSERT_EQ(g.operatore.avvisi.size(), 1u);
    EXPECT_EQ(g.operatore.avvisi.front().modulo, "cAdoSqlServer.commitTrasaction -> modulo.procedura");
    EXPECT_TRUE(g.inserisci("A"));
}

TEST(Transactions, OneThatTheServerGaveUpCanOnlyRollBack) {
    GatewayDiProva g;
    ASSERT_TRUE(g.ado.beginTrasaction("prova"));
    g.inserisci("A");
    ASSERT_TRUE(annullaDalServer(g));
    EXPECT_FALSE(g.ado.commitTrasaction("modulo.procedura"));
    EXPECT_FALSE(g.ado.inTransazione());
    EXPECT_EQ(g.valore(quanteProve), "0");
    ASSERT_EQ(g.operatore.avvisi.size(), 1u);
    EXPECT_EQ(g.operatore.avvisi.front().modulo, "cAdoSqlServer.commitTrasaction -> modulo.procedura");
    EXPECT_EQ(g.operatore.avvisi.front().descrizione, "La transazione è stata annullata dal server.");
}

TEST(Transactions, NothingIsWrittenAfterTheServerGaveUp) {
    GatewayDiProva g;
    ASSERT_TRUE(g.ado.beginTrasaction("prova"));
    ASSERT_TRUE(annullaDalServer(g));
    g.inserisci("A");
    g.ado.commitTrasaction("prova");
    EXPECT_EQ(g.valore(quanteProve), "0");
}

// ---- Other desks

TEST(OtherDesksOnFile, ATurnIsWaitedForUnderANotice) {
    GatewayDiProva g;
    const auto altra = g.altraCassa();
    ASSERT_TRUE(altra->eseguiNativo("BEGIN EXCLUSIVE"));
    std::promise<void> pronta;
    std::thread rilascio([&] {
        pronta.set_value();
        std::this_thread::sleep_for(std::chrono::seconds(1));
        altra->eseguiNativo("COMMIT");
    });
    pronta.get_future().wait();
    EXPECT_TRUE(g.ado.beginTrasaction("prova"));
    rilascio.join();
    EXPECT_GT(g.operatore.avvisiDiAttesa, 0);
    EXPECT_EQ(g.operatore.attesa, QString());
    EXPECT_TRUE(g.inserisci("A"));
    EXPECT_TRUE(g.ado.commitTrasaction("prova"));
}

class BusyForEverOnFile : public testing::Test {
  protected:
    BusyForEverOnFile() {
        SqliteConnection::attesaMassima = 700;
        EXPECT_TRUE(altra->eseguiNativo("BEGIN EXCLUSIVE"));
    }
    ~BusyForEverOnFile() override { SqliteConnection::attesaMassima = attesa; }

    GatewayDiProva g;
    const int attesa = SqliteConnection::attesaMassima;
    const std::unique_ptr<SqliteConnection> altra = g.altraCassa();
};

TEST_F(BusyForEverOnFile, BeginGivesUpAndSaysSo) {
    EXPECT_FALSE(g.ado.beginTrasaction("prova"));
    EXPECT_FALSE(g.ado.inTransazione());
    ASSERT_EQ(g.operatore.avvisi.size(), 1u);
    EXPECT_EQ(g.operatore.avvisi.front().descrizione, "database is locked");
    EXPECT_EQ(g.operatore.attesa, QString());
}

TEST_F(BusyForEverOnFile, SingleStatementGivesUpAndSaysSo) {
    EXPECT_FALSE(g.inserisci("A"));
    ASSERT_EQ(g.operatore.avvisi.size(), 1u);
    EXPECT_EQ(g.operatore.attesa, QString());
    EXPECT_EQ(g.valore(quanteProve), "0");
}

TEST_F(BusyForEverOnFile, WorksAgainWhenTheOtherHasDone) {
    EXPECT_FALSE(g.inserisci("A"));
    ASSERT_TRUE(altra->eseguiNativo("COMMIT"));
    EXPECT_TRUE(g.inserisci("A"));
}

// Another program that takes the whole archive for itself keeps even a connection from being opened.
TEST(OtherDesksOnFile, ArchiveTakenByAnotherProgramIsSaid) {
    GatewayDiProva g;
    const auto altra = g.altraCassa();
    ASSERT_TRUE(altra->eseguiNativo("PRAGMA locking_mode = EXCLUSIVE"));
    ASSERT_TRUE(altra->eseguiNativo("PRAGMA journal_mode = DELETE"));
    ASSERT_TRUE(altra->eseguiNativo("BEGIN EXCLUSIVE"));
    const int attesa = std::exchange(SqliteConnection::attesaMassima, 700);
    EXPECT_FALSE(g.inserisci("A"));
    SqliteConnection::attesaMassima = attesa;
    ASSERT_EQ(g.operatore.avvisi.size(), 1u);
    EXPECT_TRUE(g.operatore.avvisi.front().descrizione.contains("database is locked"))
        << g.operatore.avvisi.front().descrizione.toStdString();
    EXPECT_FALSE(g.operatore.avvisi.front().descrizione.contains("danneggiato"));
    EXPECT_EQ(g.operatore.attesa, QString());
}

// ---- A full disk

class FullDiskOnFile : public testing::Test {
  protected:
    // The archive may not grow by more than three pages on the connection in force.
    void riempiDisco() {
        Recordset pagine;
        ASSERT_TRUE(nativa(g).eseguiNativo("PRAGMA page_count", &pagine));
        limita(pagine.campo(0).toInt() + 3);
    }
    void limita(int pagine) {
        ASSERT_TRUE(nativa(g).eseguiNativo("PRAGMA max_page_count = " + QString::number(pagine)));
    }
    GatewayDiProva g;
};

TEST_F(FullDiskOnFile, SaveIsRolledBackAndSaid) {
    g.inserisci("prima");
    ASSERT_TRUE(g.ado.beginTrasaction("prova"));
    riempiDisco();
    EXPECT_TRUE(g.inserisci("A"));
    EXPECT_FALSE(g.ado.executeSQL(QString("INSERT INTO Prova (DATI) VALUES (zeroblob(100000))"), "prova"));
    EXPECT_FALSE(g.inserisci("dopo"));
    g.ado.rollbackTrasaction("prova");
    ASSERT_EQ(g.operatore.avvisi.size(), 1u);
    EXPECT_EQ(g.operatore.avvisi.front().numero, 13);
    EXPECT_EQ(g.valore("SELECT group_concat(CODICE) FROM Prova"), "prima");
    EXPECT_EQ(g.valore("PRAGMA integrity_check"), "ok");
}

TEST_F(FullDiskOnFile, NextSaveWorksWhenThereIsRoomAgain) {
    ASSERT_TRUE(g.ado.beginTrasaction("prova"));
    riempiDisco();
    g.ado.executeSQL(QString("INSERT INTO Prova (DATI) VALUES (zeroblob(100000))"), "prova");
    g.ado.rollbackTrasaction("prova");
    ASSERT_TRUE(g.ado.beginTrasaction("prova"));
    limita(1000000);
    EXPECT_TRUE(g.ado.executeSQL(QString("INSERT INTO Prova (DATI) VALUES (zeroblob(100000))"), "prova"));
    EXPECT_TRUE(g.ado.commitTrasaction("prova"));
    EXPECT_EQ(g.valore(quanteProve), "1");
}
