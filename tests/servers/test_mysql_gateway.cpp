#include "data/gateway_archive.h"
#include "data/server_drivers.h"
#include "servers/mysql_trial.h"

// The gateway over a MySQL server: what only a server can suffer, as the shop sees it and as it is logged.

namespace {

class MySqlGateway : public testing::Test {
  protected:
    MySqlGateway() {
        g.ado.TipoServer = MySql;
        g.ado.impostaDriver(MySql, nuovoDriver(MySql));
        g.stringa = database.stringa();
    }
    bool inserisci(const QString& codice) { return g.inserisci(codice); }
    QString quanti() { return database.altro.valore("SELECT COUNT(*) FROM Prova"); }

    const AperturaSenzaVerifica senzaVerifica;
    DatabaseMySql database;
    GatewayDiProva g;
};

}  // namespace

TEST_F(MySqlGateway, ATurnThatDoesNotComeIsAFailedBegin) {
    const int attesa = std::exchange(MySqlConnection::attesaMassima, 700);
    const auto altra = database.apri();
    ASSERT_TRUE(altra->inizia());
    EXPECT_FALSE(g.ado.beginTrasaction("modulo.procedura"));
    MySqlConnection::attesaMassima = attesa;
    EXPECT_GT(g.operatore.avvisiDiAttesa, 0);
    EXPECT_EQ(g.operatore.attesa, QString());
    ASSERT_EQ(g.operatore.avvisi.size(), 1u);
    EXPECT_EQ(g.operatore.avvisi.front().modulo, "cAdoSqlServer.beginTrasaction -> modulo.procedura");
    EXPECT_TRUE(g.operatore.avvisi.front().descrizione.startsWith("Un'altra cassa sta salvando"));
    EXPECT_FALSE(g.ado.inTransazione());
}

TEST_F(MySqlGateway, ACommitOfUnknownOutcomeIsLoggedAndLeftToTheCaller) {
    ASSERT_TRUE(g.ado.beginTrasaction("prova"));
    EXPECT_TRUE(inserisci("A"));
    database.uccidi(dynamic_cast<MySqlConnection&>(*g.ado.getActiveConnection()));
    EXPECT_FALSE(g.ado.commitTrasaction("modulo.procedura"));
    EXPECT_TRUE(g.ado.commitDiEsitoIgnoto());
    EXPECT_TRUE(g.operatore.avvisi.empty());
    EXPECT_TRUE(g.registro().join('\n').contains("commitTrasaction -> modulo.procedura"));
    EXPECT_TRUE(inserisci("B"));
    EXPECT_EQ(quanti(), "1");
}

TEST_F(MySqlGateway, ARefusedCommitIsNotOfUnknownOutcome) {
    ASSERT_TRUE(g.ado.beginTrasaction("prova"));
    inserisci("A");
    ASSERT_TRUE(g.ado.getActiveConnection()->eseguiNativo("ROLLBACK", nullptr));
    EXPECT_FALSE(g.ado.commitTrasaction("prova"));
    EXPECT_FALSE(g.ado.commitDiEsitoIgnoto());
    EXPECT_EQ(g.operatore.avvisi.size(), 1u);
}

TEST_F(MySqlGateway, AFailedConnectionNeverTellsThePassword) {
    g.ado.chiudiConnessioniCalde();
    g.stringa = database.indirizzo() + "Uid=commessa;\nPassword = \"se;greta\";";
    EXPECT_FALSE(inserisci("A"));
    ASSERT_EQ(g.operatore.avvisi.size(), 1u);
    const QString detto = g.registro().join('\n') + g.operatore.avvisi.front().avanzate +
                          g.operatore.avvisi.front().descrizione;
    EXPECT_FALSE(detto.contains("greta")) << detto.toStdString();
    EXPECT_TRUE(detto.contains("sStrConnection=Server=127.0.0.1"));
    EXPECT_TRUE(detto.contains("ha rifiutato il nome dell'utente o la password"));
}
