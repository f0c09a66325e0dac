#include <arpa/inet.h>
#include <sys/socket.h>

#include "data/schema.h"
#include "data/server_drivers.h"
#include "servers/mysql_trial.h"

namespace {

// A port that takes calls and never says a word, as long as it lives.
class PortaMuta {
  public:
    PortaMuta() : mSocket(socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in dove{};
        dove.sin_family = AF_INET;
        dove.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t lunghezza = sizeof dove;
        auto* indirizzo = reinterpret_cast<sockaddr*>(&dove);
        EXPECT_EQ(bind(mSocket, indirizzo, lunghezza) + listen(mSocket, 4), 0);
        EXPECT_EQ(getsockname(mSocket, indirizzo, &lunghezza), 0);
        mPorta = ntohs(dove.sin_port);
    }
    ~PortaMuta() { close(mSocket); }
    PortaMuta(const PortaMuta&) = delete;
    PortaMuta& operator=(const PortaMuta&) = delete;

    QString stringa() const { return QString("Server=127.0.0.1;Port=%1;Database=d;").arg(mPorta); }

  private:
    int mSocket;
    int mPorta = 0;
};

class MySqlOpening : public testing::Test {
  protected:
    // An account with some password, which may see the database.
    void conto(const QString& password, const QString& diritti = "ALL PRIVILEGES ON %1.*") {
        database.altro.esegui("CREATE OR REPLACE USER 'commessa'@'%' IDENTIFIED BY '" +
                              QString(password).replace("'", "''") + "'");
        database.altro.esegui("GRANT " + QString(diritti).replace("%1", database.nome()) +
                              " TO 'commessa'@'%'");
    }
    QString conAccount(const QString& password) const {
        return database.indirizzo() + "Uid=commessa;Pwd=" + password;
    }
    ~MySqlOpening() override { database.altro.esegui("DROP USER IF EXISTS 'commessa'@'%'"); }

    DatabaseMySql database;
};

}  // namespace

TEST_F(MySqlOpening, ByTheSocket) {
    const QString socket = qEnvironmentVariable("BOTTEGON_PROVA_MYSQL_SOCKET");
    const QString account = "Uid=" + database.stringa().section("Uid=", 1);
    EXPECT_EQ(DatabaseMySql::rifiuto("Socket=" + socket + ";" + account), "");
}

TEST_F(MySqlOpening, LocalhostWithAPortMeansTheNetwork) {
    EXPECT_EQ(DatabaseMySql::rifiuto(database.stringa().replace("127.0.0.1", "localhost")), "");
}

TEST_F(MySqlOpening, PasswordsOfAnyCharacters) {
    for (const QString& password :
         {QString("a;b=c"), QString("pa ss"), QString("è€\U0001F600"), QString("a\\b`%")}) {
        conto(password);
        EXPECT_EQ(DatabaseMySql::rifiuto(conAccount("\"" + password + "\"")), "") << password.toStdString();
    }
    conto("a\"b'c}");
    EXPECT_EQ(DatabaseMySql::rifiuto(conAccount("\"a\"\"b'c}\"")), "");
}

TEST_F(MySqlOpening, AWrongPasswordIsSaidPlainlyAndNotShown) {
    conto("giusta");
    const QString detto = DatabaseMySql::rifiuto(conAccount("sbagliata"));
    EXPECT_TRUE(detto.startsWith("Il server MySQL ha rifiutato il nome dell'utente o la password."))
        << detto.toStdString();
    EXPECT_FALSE(detto.contains("sbagliata"));
}

TEST_F(MySqlOpening, AMissingDatabaseIsSaid) {
    EXPECT_TRUE(DatabaseMySql::rifiuto(database.stringa("Database=manca;"))
                    .startsWith("Il database indicato non esiste sul server MySQL."));
}

TEST_F(MySqlOpening, ADatabaseOfSomebodyElseIsSaid) {
    conto("p", "USAGE ON *.*");
    EXPECT_TRUE(
        DatabaseMySql::rifiuto(conAccount("p")).startsWith("L'utente non può usare questo database MySQL."));
}

TEST_F(MySqlOpening, NoRightsOnATableIsSaid) {
    conto("p", "SELECT ON %1.Figli");
    const auto connessione = DatabaseMySql::apri(conAccount("p"));
    EXPECT_FALSE(connessione->eseguiNativo("SELECT * FROM Prova", nullptr));
    EXPECT_TRUE(connessione->errore().descrizione.startsWith("L'utente non ha i permessi necessari"));
}

TEST_F(MySqlOpening, NobodyThereIsSaid) {
    const QString stringa = PortaMuta().stringa();
    EXPECT_TRUE(DatabaseMySql::rifiuto(stringa).startsWith("Il server MySQL non risponde"));
}

TEST_F(MySqlOpening, ASilentServerIsGivenUp) {
    const PortaMuta porta;
    QElapsedTimer attesa;
    attesa.start();
    EXPECT_FALSE(DatabaseMySql::rifiuto(porta.stringa() + "Timeout=1").isEmpty());
    EXPECT_LT(attesa.elapsed(), 5000);
}

TEST_F(MySqlOpening, EncryptionThatTheServerDoesNotOfferIsSaid) {
    const QString detto = DatabaseMySql::rifiuto(database.stringa() + "SslMode=Required");
    EXPECT_TRUE(detto.startsWith("La connessione cifrata con il server MySQL non è riuscita."))
        << detto.toStdString();
}

TEST_F(MySqlOpening, ABadStringIsSaidBeforeAnythingIsTried) {
    EXPECT_EQ(DatabaseMySql::rifiuto("Server=x;Colore=rosso"),
              "La voce \"Colore\" della stringa di connessione non è conosciuta.");
}

TEST_F(MySqlOpening, ADatabaseThatIsNoArchiveIsRefused) {
    ErroreServer errore;
    EXPECT_FALSE(MySqlConnection::apri(database.stringa(), 5, errore));
    EXPECT_EQ(errore.descrizione, "Il database non è un archivio di Bottegon.");
}

TEST_F(MySqlOpening, AnArchiveOfThisProgramOpens) {
    for (const QString& sql : creaMarchio(schema::versione))
        database.altro.esegui(sql);
    ErroreServer errore;
    EXPECT_TRUE(MySqlConnection::apri(database.stringa(), 5, errore)) << errore.descrizione.toStdString();
}

TEST_F(MySqlOpening, ToolsReachAServerWithoutAnArchive) {
    ErroreServer errore;
    const auto connessione = apriServer(MySql, database.stringa("Database=manca;"), 5, errore);
    ASSERT_TRUE(connessione) << errore.descrizione.toStdString();
    EXPECT_FALSE(valore(*connessione, "SELECT DATABASE()").isValid());
}

// ---- Classes of failures, from the server itself

TEST_F(MySqlOpening, AReferenceToNothingIsAMatterOfIntegrity) {
    const auto connessione = database.apri();
    EXPECT_FALSE(connessione->eseguiNativo("INSERT INTO Figli (FK_PROVA) VALUES (77)", nullptr));
    EXPECT_EQ(connessione->errore().classe, ErroreServer::Classe::Integrita);
    EXPECT_EQ(connessione->errore().codice, 1452);
    EXPECT_TRUE(connessione->errore().descrizione.startsWith("Cannot add or update a child row"));
}

TEST_F(MySqlOpening, ARowThatOthersReferToIsAMatterOfIntegrity) {
    const auto connessione = database.apri();
    esegui(*connessione, "INSERT INTO Prova (RID) VALUES (1)");
    esegui(*connessione, "INSERT INTO Figli (FK_PROVA) VALUES (1)");
    EXPECT_FALSE(connessione->eseguiNativo("DELETE FROM Prova", nullptr));
    EXPECT_EQ(connessione->errore().codice, 1451);
    EXPECT_EQ(connessione->errore().classe, ErroreServer::Classe::Integrita);
}

TEST_F(MySqlOpening, ACodeThatIsThereAlreadyIsNot) {
    const auto connessione = database.apri();
    esegui(*connessione, "INSERT INTO Prova (CODICE) VALUES ('a')");
    EXPECT_FALSE(connessione->eseguiNativo("INSERT INTO Prova (CODICE) VALUES ('A ')", nullptr));
    EXPECT_EQ(connessione->errore().codice, 1062);
    EXPECT_EQ(connessione->errore().classe, ErroreServer::Classe::Altro);
}

TEST_F(MySqlOpening, AReadOnlySessionIsSaid) {
    const auto connessione = database.apri();
    esegui(*connessione, "SET SESSION TRANSACTION READ ONLY");
    EXPECT_FALSE(connessione->eseguiNativo("INSERT INTO Prova (N) VALUES (1)", nullptr));
    EXPECT_EQ(connessione->errore().classe, ErroreServer::Classe::SolaLettura);
}
