#include <deque>

#include "data/gateway_archive.h"
#include "data/sqlserver_connection.h"
#include "doubles/sql_server_finto.h"

// The conversation with a SQL Server, whose part a script plays: what is sent, and what follows from the
// answers. The connection below is a real one to another server, so that it can be lost and opened again.

namespace {

using Classe = ErroreServer::Classe;

struct Risposta {
    QVariantList riga;
    Classe errore = Classe::Nessuno;
};

class SqlServerScritto final : public SqlServerConnection {
  public:
    SqlServerScritto() : SqlServerConnection("prova", dati(), 5) { EXPECT_TRUE(connetti()); }

    QStringList inviate;
    std::deque<Risposta> risposte;  // what comes behind the script succeeds, without rows
    using ConnessioneSql::database;

  protected:
    bool spedisci(const QString& sql, Recordset* righe) override {
        const bool eco = sql.startsWith("SELECT N'");
        if (eco && righe != nullptr) *righe = Recordset({"0"}, {sql.mid(9).chopped(1)});
        if (eco) return true;
        inviate << sql;
        Risposta risposta;
        if (!risposte.empty()) {
            risposta = risposte.front();
            risposte.pop_front();
        }
        if (risposta.errore != Classe::Nessuno) return fallita({risposta.errore, 4711, "guasto", "prova"});
        fallita({});
        QStringList colonne;
        for (int i = 0; i < risposta.riga.size(); ++i)
            colonne << QString::number(i);
        if (righe != nullptr) *righe = Recordset(colonne, {risposta.riga.begin(), risposta.riga.end()});
        return true;
    }

  private:
    static DatiConnessione dati() {
        DatiConnessione d;
        d.driver = "SQLite3";
        d.database = ":memory:";
        return d;
    }
};

class SqlServerTurn : public testing::Test {
  protected:
    SqlServerTurn() { SqlServerConnection::attesaMassima = 200; }
    ~SqlServerTurn() override { SqlServerConnection::attesaMassima = mAttesa; }

    // A turn that is taken; what was said so far is forgotten.
    void iniziata() {
        server.risposte = {{{0}}};
        ASSERT_TRUE(server.inizia());
        server.inviate.clear();
    }
    // What the server says of the transaction before a commit.
    const Risposta viva{{1, 1}};

    SqlServerScritto server;

  private:
    const int mAttesa = SqlServerConnection::attesaMassima;
};

}  // namespace

TEST_F(SqlServerTurn, TheSessionIsMadeReadyOnce) {
    ASSERT_EQ(server.inviate.size(), 1);
    EXPECT_TRUE(server.inviate.front().contains("XACT_ABORT ON"));
    EXPECT_TRUE(server.inviate.front().contains("SET LOCK_TIMEOUT 1000"));
}

TEST_F(SqlServerTurn, TheTransactionOwnsTheLockOfTheTurn) {
    server.inviate.clear();
    server.risposte = {{{0}}};
    EXPECT_TRUE(server.inizia());
    ASSERT_EQ(server.inviate.size(), 1);
    EXPECT_TRUE(server.inviate.front().startsWith("IF @@TRANCOUNT = 0 BEGIN TRANSACTION;"));
    EXPECT_TRUE(server.inviate.front().contains("@LockOwner = 'Transaction'"));
    EXPECT_TRUE(server.inTransazione());
}

TEST_F(SqlServerTurn, AnotherDesksTurnIsWaitedForUnderANotice) {
    int avvisi = 0;
    server.impostaAttesa([&](int) { ++avvisi; });
    server.risposte = {{{-1}}, {{-3}}, {{1}}};
    EXPECT_TRUE(server.inizia());
    EXPECT_EQ(avvisi, 2);
}

TEST_F(SqlServerTurn, ATurnThatDoesNotComeIsSaid) {
    server.risposte = std::deque<Risposta>(1000, {{-1}});
    EXPECT_FALSE(server.inizia());
    EXPECT_EQ(server.errore().classe, Classe::Conflitto);
    EXPECT_EQ(server.errore().descrizione,
              "Un'altra cassa sta salvando: il turno non si è liberato in 0.2 secondi. Riprovare.");
    EXPECT_FALSE(server.inTransazione());
    EXPECT_FALSE(server.database().isOpen());
}

TEST_F(SqlServerTurn, AServerThatGivesNoTurnIsAFailedBegin) {
    server.risposte = {{{-999}}};
    EXPECT_FALSE(server.inizia());
    EXPECT_EQ(server.errore().codice, -999);
    EXPECT_FALSE(server.inTransazione());
}

TEST_F(SqlServerTurn, ADeadConnectionIsReplacedBeforeTheTurn) {
    server.inviate.clear();
    server.risposte = {{{}, Classe::ConnessionePersa}, {}, {{0}}};
    EXPECT_TRUE(server.inizia());
    ASSERT_EQ(server.inviate.size(), 3);
    EXPECT_TRUE(server.inviate[1].contains("XACT_ABORT ON"));
}

TEST_F(SqlServerTurn, ACommitLooksFirst) {
    iniziata();
    server.risposte = {viva};
    EXPECT_TRUE(server.conferma());
    EXPECT_EQ(server.inviate, QStringList({"SELECT @@TRANCOUNT, XACT_STATE()", "COMMIT TRANSACTION"}));
    EXPECT_FALSE(server.inTransazione());
}

TEST_F(SqlServerTurn, ATransactionThatIsGoneIsNotCommitted) {
    for (const Risposta& gone : {Risposta{{0, 0}}, Risposta{{1, -1}}}) {
        iniziata();
        server.risposte = {gone};
        EXPECT_FALSE(server.conferma());
        EXPECT_EQ(server.errore().classe, Classe::Conflitto);
        EXPECT_FALSE(server.inviate.contains("COMMIT TRANSACTION"));
        EXPECT_TRUE(server.annulla());
    }
}

TEST_F(SqlServerTurn, ALostAnswerToACommitIsOfUnknownOutcome) {
    iniziata();
    server.risposte = {viva, {{}, Classe::ConnessionePersa}};
    EXPECT_FALSE(server.conferma());
    EXPECT_EQ(server.errore().classe, Classe::EsitoIgnoto);
    EXPECT_FALSE(server.inTransazione());
    EXPECT_FALSE(server.database().isOpen());
}

TEST_F(SqlServerTurn, ARefusedCommitIsAFailedOne) {
    iniziata();
    server.risposte = {viva, {{}, Classe::DiscoPieno}};
    EXPECT_FALSE(server.conferma());
    EXPECT_EQ(server.errore().classe, Classe::DiscoPieno);
    EXPECT_TRUE(server.annulla());
    EXPECT_EQ(server.inviate.last(), "IF @@TRANCOUNT > 0 ROLLBACK TRANSACTION");
}

// With XACT_ABORT the server has rolled back at any error, a lock waited for in vain included.
TEST_F(SqlServerTurn, NothingRunsBehindAnErrorButTheRollback) {
    for (const Classe classe : {Classe::Conflitto, Classe::Integrita, Classe::Altro}) {
        iniziata();
        server.risposte = {{{}, classe}};
        EXPECT_FALSE(server.eseguiNativo("UPDATE T SET N = 1", nullptr));
        EXPECT_FALSE(server.eseguiNativo("UPDATE T SET N = 2", nullptr));
        EXPECT_FALSE(server.inTransazione());
        EXPECT_FALSE(server.conferma());
        EXPECT_EQ(server.inviate, QStringList("UPDATE T SET N = 1"));
        EXPECT_TRUE(server.annulla());
        EXPECT_EQ(server.inviate.last(), "IF @@TRANCOUNT > 0 ROLLBACK TRANSACTION");
    }
}

TEST_F(SqlServerTurn, AConnectionLostInsideATransactionIsNotReplaced) {
    iniziata();
    server.risposte = {{{}, Classe::ConnessionePersa}};
    EXPECT_FALSE(server.eseguiNativo("SELECT 1", nullptr));
    EXPECT_FALSE(server.eseguiNativo("SELECT 1", nullptr));
    EXPECT_EQ(server.inviate.count("SELECT 1"), 1);
    EXPECT_TRUE(server.annulla());
}

TEST_F(SqlServerTurn, ARollbackThatFailsClosesTheConnection) {
    iniziata();
    server.risposte = {{{}, Classe::Altro}};
    EXPECT_TRUE(server.annulla());
    EXPECT_FALSE(server.database().isOpen());
}

// What the program itself says to the server around its statements, for the parser that reads it.
TEST(SqlServerConversation, IsOfStatementsThatTheServerKnows) {
    SqlServerScritto server;
    const Risposta viva{{1, 1}};
    for (const bool conferma : {true, false}) {
        server.risposte = {{{0}}, viva};
        ASSERT_TRUE(server.inizia());
        EXPECT_TRUE(conferma ? server.conferma() : server.annulla());
    }
    ASSERT_TRUE(server.ancoraValida());
    EXPECT_TRUE(server.eseguiNativo("SELECT 1", nullptr));
    EXPECT_GE(server.inviate.size(), 6);
    for (const QString& sql : server.inviate)
        raccogliTSql(sql);
}

// ---- Outside a transaction

TEST_F(SqlServerTurn, AReadOnADeadConnectionIsRepeatedOnANewOne) {
    server.inviate.clear();
    server.risposte = {{{}, Classe::ConnessionePersa}, {}, {{5}}};
    Recordset righe;
    EXPECT_TRUE(server.eseguiNativo("SELECT N FROM T", &righe));
    EXPECT_EQ(server.inviate.count("SELECT N FROM T"), 2);
    EXPECT_EQ(righe.campo(0).toInt(), 5);
}

TEST_F(SqlServerTurn, AReadIsRepeatedOnce) {
    server.risposte = {{{}, Classe::ConnessionePersa}, {}, {{}, Classe::ConnessionePersa}};
    EXPECT_FALSE(server.eseguiNativo("SELECT N FROM T", nullptr));
    EXPECT_EQ(server.inviate.count("SELECT N FROM T"), 2);
    EXPECT_EQ(server.errore().classe, Classe::ConnessionePersa);
}

TEST_F(SqlServerTurn, AWriteWhoseAnswerWasLostIsNotSentTwice) {
    server.inviate.clear();
    server.risposte = {{{}, Classe::ConnessionePersa}};
    EXPECT_FALSE(server.eseguiNativo("UPDATE T SET N = 1", nullptr));
    EXPECT_EQ(server.inviate.count("UPDATE T SET N = 1"), 1);
}

TEST_F(SqlServerTurn, AWriteAsksAWarmConnectionFirst) {
    ASSERT_TRUE(server.ancoraValida());
    server.inviate.clear();
    server.risposte = {{{}, Classe::ConnessionePersa}};
    EXPECT_TRUE(server.eseguiNativo("UPDATE T SET N = 1", nullptr));
    ASSERT_EQ(server.inviate.size(), 3);
    EXPECT_EQ(server.inviate[0], "SELECT 1");
    EXPECT_TRUE(server.inviate[1].contains("XACT_ABORT ON"));
    EXPECT_EQ(server.inviate[2], "UPDATE T SET N = 1");
}

TEST_F(SqlServerTurn, ALockOfAnotherDeskIsWaitedFor) {
    int avvisi = 0;
    server.impostaAttesa([&](int) { ++avvisi; });
    server.risposte = {{{}, Classe::Conflitto}, {{}, Classe::Conflitto}, {}};
    EXPECT_TRUE(server.eseguiNativo("SELECT N FROM T", nullptr));
    EXPECT_EQ(avvisi, 2);
}

TEST_F(SqlServerTurn, ALockThatIsNeverGivenUpIsSaid) {
    server.risposte = std::deque<Risposta>(1000, {{}, Classe::Conflitto});
    EXPECT_FALSE(server.eseguiNativo("SELECT N FROM T", nullptr));
    EXPECT_EQ(server.errore().classe, Classe::Conflitto);
}

// ---- The gateway over it

TEST(UnknownCommit, IsLoggedAndLeftToTheCaller) {
    GatewayDiProva g;
    auto* server = new SqlServerScritto;
    struct Dato final : ServerDriver {
        std::unique_ptr<Connessione> apri(const QString&, int, const AttesaServer&, ErroreServer&) override {
            return std::move(pronta);
        }
        void restituisci(std::unique_ptr<Connessione>) override {}
        void chiudi() override {}
        std::unique_ptr<Connessione> pronta;
    };
    auto driver = std::make_unique<Dato>();
    driver->pronta.reset(server);
    g.ado.impostaDriver(SqlServer, std::move(driver));
    g.ado.TipoServer = SqlServer;
    server->risposte = {{{0}}, {{1, 1}}, {{}, Classe::ConnessionePersa}};
    ASSERT_TRUE(g.ado.beginTrasaction("prova"));
    EXPECT_FALSE(g.ado.commitTrasaction("modulo.procedura"));
    EXPECT_TRUE(g.ado.commitDiEsitoIgnoto());
    EXPECT_TRUE(g.operatore.mostrati.isEmpty());
    EXPECT_TRUE(g.registro().join('\n').contains("commitTrasaction -> modulo.procedura"));
    EXPECT_FALSE(g.ado.inTransazione());
}

TEST(UnknownCommit, IsForgottenByTheNextOne) {
    GatewayDiProva g;
    EXPECT_FALSE(g.ado.commitDiEsitoIgnoto());
    ASSERT_TRUE(g.ado.beginTrasaction("prova"));
    EXPECT_TRUE(g.ado.commitTrasaction("prova"));
    EXPECT_FALSE(g.ado.commitDiEsitoIgnoto());
}
