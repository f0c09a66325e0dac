#include "data/connection_string.h"
#include "data/prepare_sql.h"

namespace {

// What is said about a text that is of no use; empty when it is a good one.
QString rifiuto(const QString& stringa, int tipoServer = MySql) {
    QString errore;
    return leggiStringaConnessione(stringa, tipoServer, errore) ? QString() : errore;
}

DatiConnessione letta(const QString& stringa, int tipoServer = MySql) {
    QString errore;
    const auto dati = leggiStringaConnessione(stringa, tipoServer, errore);
    EXPECT_TRUE(dati) << errore.toStdString();
    return dati.value_or(DatiConnessione());
}

DatiConnessione con(const QString& voci, int tipoServer = MySql) {
    return letta("Server=s;Database=d;" + voci, tipoServer);
}

}  // namespace

// ---- Spellings

TEST(ConnectionString, PlainPairsAreRead) {
    const DatiConnessione d = letta("Server=cassa1;Port=3307;Database=negozio;Uid=anna;Pwd=segreta;");
    EXPECT_EQ(d.server, "cassa1");
    EXPECT_EQ(d.porta, 3307);
    EXPECT_EQ(d.database, "negozio");
    EXPECT_EQ(d.utente, "anna");
    EXPECT_EQ(d.password, "segreta");
}

TEST(ConnectionString, EverySpellingOfTheServer) {
    for (const char* chiave :
         {"Server", "HOST", "data source", "Addr", "Address", "Network Address", "HostName"})
        EXPECT_EQ(letta(QString(chiave) + "=x;Database=d").server, "x") << chiave;
}

TEST(ConnectionString, EverySpellingOfTheDatabase) {
    for (const char* chiave : {"Database", "Initial Catalog", "DB", "initial  catalog", "InitialCatalog"})
        EXPECT_EQ(letta(QString("Server=s;") + chiave + "=x").database, "x") << chiave;
}

TEST(ConnectionString, EverySpellingOfTheUser) {
    for (const char* chiave : {"Uid", "USER", "User Id", "UserID", "user_id", "Username", "User Name"})
        EXPECT_EQ(con(QString(chiave) + "=x").utente, "x") << chiave;
}

TEST(ConnectionString, EverySpellingOfThePassword) {
    for (const char* chiave : {"Pwd", "PASSWORD", "passwd", "Pass"})
        EXPECT_EQ(con(QString(chiave) + "=x").password, "x") << chiave;
}

TEST(ConnectionString, SocketTakesTheServersPlace) {
    EXPECT_EQ(letta("UnixSocket=/run/m.sock;Database=d").socket, "/run/m.sock");
    EXPECT_EQ(letta("Socket=/run/m.sock;Database=d").socket, "/run/m.sock");
}

TEST(ConnectionString, WhatOtherClientsNeedIsTolerated) {
    EXPECT_EQ(rifiuto("Provider=MSDASQL;Driver={MySQL ODBC 8.0 Unicode Driver};Option=3;Charset=utf8mb4;"
                      "Persist Security Info=False;Server=s;Database=d"),
              "");
}

TEST(ConnectionString, SqlServerWritesThePortBehindAComma) {
    const DatiConnessione d = letta("Data Source=tcp:srv.negozio.it,1444;Initial Catalog=d", SqlServer);
    EXPECT_EQ(d.server, "srv.negozio.it");
    EXPECT_EQ(d.porta, 1444);
}

TEST(ConnectionString, SqlServerOnThisMachine) {
    EXPECT_EQ(letta("Server=.;Database=d", SqlServer).server, "localhost");
    EXPECT_EQ(letta("Server=(local);Database=d", SqlServer).server, "localhost");
}

TEST(ConnectionString, InstanceOfSqlServerStays) {
    EXPECT_EQ(letta("Server=pc\\SQLEXPRESS;Database=d", SqlServer).server, "pc\\SQLEXPRESS");
}

TEST(ConnectionString, EncryptionInItsSpellings) {
    using enum DatiConnessione::Cifratura;
    EXPECT_EQ(con("").cifratura, SePossibile);
    EXPECT_EQ(con("SslMode=None").cifratura, Mai);
    EXPECT_EQ(con("Ssl Mode=REQUIRED").cifratura, Richiesta);
    EXPECT_EQ(con("SslMode=VERIFY_CA;SslCa=/ca.pem").cifratura, Verificata);
    EXPECT_EQ(con("Encrypt=true", SqlServer).cifratura, Richiesta);
}

TEST(ConnectionString, TimeOuts) {
    const DatiConnessione d = con("Connection Timeout=5;Default Command Timeout=90");
    EXPECT_EQ(d.secondi, 5);
    EXPECT_EQ(d.secondiIstruzione, 90);
}

// ---- Blanks, line breaks, quotes

TEST(ConnectionString, BlanksAndLineBreaksAnywhere) {
    const DatiConnessione d =
        letta("\r\n Server = cassa1 ;\r\n\tDatabase\n=\nnegozio\n;;  User Id = anna \n");
    EXPECT_EQ(d.server, "cassa1");
    EXPECT_EQ(d.database, "negozio");
    EXPECT_EQ(d.utente, "anna");
}

TEST(ConnectionString, ALineBreakBeforeAKeyEndsAValueToo) {
    const DatiConnessione d = letta("Server=s\nDatabase=d\r\nPwd=p\nUid=u");
    EXPECT_EQ(d.server, "s");
    EXPECT_EQ(d.database, "d");
    EXPECT_EQ(d.password, "p");
    EXPECT_EQ(d.utente, "u");
}

TEST(ConnectionString, QuotesHoldAnything) {
    EXPECT_EQ(con("Pwd=\"a;b=c\"").password, "a;b=c");
    EXPECT_EQ(con("Pwd='a;b\"c'").password, "a;b\"c");
    EXPECT_EQ(con("Pwd={a;b'c}").password, "a;b'c");
    EXPECT_EQ(con("Pwd=\" a \"").password, " a ");
}

TEST(ConnectionString, ADoubledClosingMarkIsOne) {
    EXPECT_EQ(con("Pwd=\"a\"\"b\";Uid=u").password, "a\"b");
    EXPECT_EQ(con("Pwd='a''b';Uid=u").password, "a'b");
    EXPECT_EQ(con("Pwd={a}}b};Uid=u").password, "a}b");
}

TEST(ConnectionString, QuotesInsideAValueAreItsOwn) {
    EXPECT_EQ(con("Pwd=a\"b'c{d").password, "a\"b'c{d");
}

TEST(ConnectionString, EqualSignInAValue) {
    EXPECT_EQ(con("Pwd=a=b==").password, "a=b==");
}

TEST(ConnectionString, EmptyPassword) {
    EXPECT_EQ(con("Pwd=;Uid=u").password, "");
    EXPECT_EQ(con("Uid=u;Pwd=").password, "");
}

// ---- What is of no use

TEST(BadConnectionString, UnknownKeyIsNamed) {
    EXPECT_EQ(rifiuto("Server=s;Database=d;Colore=rosso"),
              "La voce \"Colore\" della stringa di connessione non è conosciuta.");
}

TEST(BadConnectionString, KeyTwiceIsNamed) {
    EXPECT_EQ(rifiuto("Server=s;Database=d;Server=t"),
              "La voce \"Server\" della stringa di connessione c'è due volte.");
}

TEST(BadConnectionString, TwoSpellingsOfOneKeyAreNamed) {
    EXPECT_EQ(rifiuto("Server=s;Database=d;Host=t"),
              "La voce \"Host\" della stringa di connessione ripete \"Server\".");
}

TEST(BadConnectionString, MissingServerIsNamed) {
    EXPECT_EQ(rifiuto("Database=d;Uid=u"), "Nella stringa di connessione manca la voce \"Server\".");
}

TEST(BadConnectionString, MissingDatabaseIsNamed) {
    EXPECT_EQ(rifiuto("Server=s;Database=;Uid=u"),
              "Nella stringa di connessione manca la voce \"Database\".");
}

TEST(BadConnectionString, DatabaseMayBeMissingForTools) {
    QString errore;
    EXPECT_TRUE(leggiStringaServer("Server=s;Uid=u", MySql, errore));
}

TEST(BadConnectionString, BadPortIsNamed) {
    for (const char* porta : {"abc", "0", "-1", "65536", "", "33 06", "3306x", "1e3"}) {
        EXPECT_EQ(rifiuto(QString("Server=s;Database=d;Port=") + porta),
                  "La voce \"Port\" della stringa di connessione deve essere un numero da 1 a 65535.")
            << porta;
    }
}

TEST(BadConnectionString, BadPortBehindTheServerIsNamed) {
    EXPECT_TRUE(rifiuto("Server=s,abc;Database=d", SqlServer).contains("\"Server\""));
}

TEST(BadConnectionString, OpenQuoteIsNamed) {
    for (const char* valore : {"\"abc", "'abc", "{abc", "\"", "\"abc\"\""}) {
        EXPECT_EQ(rifiuto(QString("Server=s;Database=") + valore),
                  "La voce \"Database\" della stringa di connessione ha virgolette o parentesi che non si "
                  "chiudono.")
            << valore;
    }
}

TEST(BadConnectionString, TextBehindTheQuotesIsNamed) {
    EXPECT_TRUE(rifiuto("Server=s;Database=\"a\" b").contains("\"Database\""));
}

TEST(BadConnectionString, KeyWithoutAValueIsNamed) {
    EXPECT_EQ(rifiuto("Server;Database=d"),
              "La voce \"Server\" della stringa di connessione non ha \"=\" e valore.");
}

TEST(BadConnectionString, ValueBrokenOverTwoLinesIsNamed) {
    EXPECT_TRUE(rifiuto("Server=cas\nsa1;Database=d").contains("\"Server\""));
}

TEST(BadConnectionString, TheDefaultPromptIsNoConnectionString) {
    EXPECT_EQ(rifiuto("digitare una stringa di connessione MySQL (solo per esperti)"),
              "La stringa di connessione a MySQL non è stata scritta.");
    EXPECT_EQ(rifiuto("digitare una stringa di connessione Sql Server (solo per esperti)", SqlServer),
              "La stringa di connessione a SQL Server non è stata scritta.");
    EXPECT_EQ(rifiuto(" \n"), "La stringa di connessione a MySQL non è stata scritta.");
}

TEST(BadConnectionString, UnknownEncryptionIsNamed) {
    EXPECT_TRUE(rifiuto("Server=s;Database=d;SslMode=boh").contains("\"SslMode\""));
}

TEST(BadConnectionString, VerifyingWithoutAnAuthorityIsNamed) {
    EXPECT_TRUE(rifiuto("Server=s;Database=d;SslMode=VerifyCA").contains("\"SslCa\""));
}

TEST(BadConnectionString, FreeTdsCannotBeAskedToVerify) {
    EXPECT_TRUE(rifiuto("Server=s;Database=d;SslMode=VerifyCA", SqlServer).contains("\"SslMode\""));
    EXPECT_EQ(rifiuto("Driver=Altro;Server=s;Database=d;SslMode=VerifyCA", SqlServer), "");
}

// ---- The password stays hidden

// Texts with the password "segreta1" or "segreta1;segreta2" in a good or a bad place.
class PasswordInside : public testing::TestWithParam<const char*> {};

TEST_P(PasswordInside, IsNeverShown) {
    const QString mascherata = mascheraPassword(GetParam());
    EXPECT_FALSE(mascherata.contains("segreta")) << mascherata.toStdString();
    EXPECT_TRUE(mascherata.contains("***")) << mascherata.toStdString();
}

TEST_P(PasswordInside, IsInNoMessage) {
    EXPECT_FALSE(rifiuto(GetParam()).contains("segreta")) << rifiuto(GetParam()).toStdString();
    EXPECT_FALSE(rifiuto(GetParam(), SqlServer).contains("segreta"));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, PasswordInside,
    testing::Values("Server=s;Database=d;Pwd=segreta1;Uid=u", "PASSWORD = segreta1", "passwd=segreta1;",
                    "Pass=segreta1", "Pwd\n=\n  segreta1\n;Server=s", "Pass Word=segreta1",
                    "pass_word=segreta1", "Server=s;Pwd=segreta1;segreta2;Database=d",
                    "Server=s;Pwd=segreta1;segreta2=x;Database=d", "Pwd=\"segreta1;segreta2\";Server=s",
                    "Pwd='segreta1;segreta2'", "Pwd={segreta1;segreta2}",
                    "Pwd=\"segreta1\"\"segreta2\";Server=s", "Pwd=\"segreta1;Server=s", "Pwd={segreta1",
                    "Server=\"s;Pwd=segreta1;Database=d", "Server=s Pwd=segreta1;Database=d",
                    "Server=s\nfoo Pwd=segreta1", "Pwd segreta1;Server=s", "Server=s;Pwd segreta1=x",
                    "Server=\"s\" Password=segreta1", "Pwd=\"segreta1\"segreta2;Server=s",
                    "Server=s;Pwd=segreta1\nsegreta2;Database=d", "xPwd=segreta1;Server=s"));

TEST(MaskedPassword, NothingElseChanges) {
    EXPECT_EQ(mascheraPassword("Server=s;\r\nPwd=x;Uid=u;"), "Server=s;\r\nPwd=***;Uid=u;");
    EXPECT_EQ(mascheraPassword("Pwd = \"a;b\" ;Uid=u"), "Pwd = *** ;Uid=u");
    const QString senza = "Provider=X;Data Source=/a/Compassi/b.mdb;Persist Security Info=False";
    EXPECT_EQ(mascheraPassword(senza), senza);
}
