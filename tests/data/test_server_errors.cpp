#include "data/mysql_errors.h"
#include "data/sqlserver_errors.h"

using Classe = ErroreServer::Classe;

namespace {

const QString testo = "Text of the server";

void pretendiClasse(std::initializer_list<int> codici, Classe classe) {
    for (const int codice : codici) {
        EXPECT_EQ(erroreMySql(codice, testo).classe, classe) << codice;
        EXPECT_EQ(erroreMySql(codice, testo).codice, codice);
    }
}

void pretendiClasseSqlServer(std::initializer_list<int> codici, Classe classe) {
    for (const int codice : codici) {
        EXPECT_EQ(erroreSqlServer({codice}, testo).classe, classe) << codice;
        EXPECT_EQ(erroreSqlServer({codice}, testo).codice, codice);
    }
}

}  // namespace

TEST(MySqlErrors, Integrity) {
    pretendiClasse({1451, 1452, 1217, 1216}, Classe::Integrita);
}

TEST(MySqlErrors, IntegrityKeepsTheServersText) {
    EXPECT_EQ(erroreMySql(1451, testo).descrizione, testo);
}

TEST(MySqlErrors, ConnectionLost) {
    pretendiClasse({2002, 2003, 2006, 2013, 1053, 1927}, Classe::ConnessionePersa);
}

TEST(MySqlErrors, OtherDesks) {
    pretendiClasse({1205, 1213, 1020}, Classe::Conflitto);
}

TEST(MySqlErrors, ReadOnly) {
    pretendiClasse({1290, 1792, 1836}, Classe::SolaLettura);
}

TEST(MySqlErrors, FullDisk) {
    pretendiClasse({1021, 1114, 3, 28}, Classe::DiscoPieno);
}

TEST(MySqlErrors, AFileThatCannotBeWrittenTellsWhetherTheDiskIsFull) {
    const struct {
        int codice;
        const char* testo;
        Classe classe;
    } casi[] = {
        {1030, "Got error 28 \"No space left on device\" from storage engine InnoDB", Classe::DiscoPieno},
        {1026, "Error writing file './x' (errno: 28 \"No space left on device\")", Classe::DiscoPieno},
        {1030, "Got error 128 \"Unknown error\" from storage engine InnoDB", Classe::Altro},
        {1026, "Error writing file './x' (errno: 5 \"Input/output error\")", Classe::Altro},
        {1064, "near 'Got error 28'", Classe::Altro},
    };
    for (const auto& caso : casi) {
        EXPECT_EQ(erroreMySql(caso.codice, caso.testo).classe, caso.classe) << caso.testo;
        EXPECT_EQ(erroreMySql(caso.codice, caso.testo).codice, caso.codice);
    }
}

TEST(MySqlErrors, AKeyThatIsThereAlreadyIsNoMatterOfIntegrity) {
    pretendiClasse({1062, 1064, 1048, 4711}, Classe::Altro);
}

TEST(MySqlErrors, RefusedConnectionIsSaidPlainly) {
    EXPECT_EQ(erroreMySql(1045, testo).descrizione,
              "Il server MySQL ha rifiutato il nome dell'utente o la password. [Text of the server]");
    EXPECT_TRUE(erroreMySql(1049, testo).descrizione.startsWith("Il database indicato non esiste"));
    EXPECT_TRUE(erroreMySql(1044, testo).descrizione.startsWith("L'utente non può usare questo database"));
    EXPECT_TRUE(erroreMySql(2003, testo).descrizione.startsWith("Il server MySQL non risponde"));
    EXPECT_TRUE(erroreMySql(1142, testo).descrizione.startsWith("L'utente non ha i permessi"));
}

TEST(MySqlErrors, UnknownOneKeepsItsText) {
    EXPECT_EQ(erroreMySql(4711, testo).descrizione, testo);
}

TEST(SqlServerErrors, Integrity) {
    pretendiClasseSqlServer({547, -534971980}, Classe::Integrita);
}

TEST(SqlServerErrors, TheTellingRecordMayStandBehindOthers) {
    EXPECT_EQ(erroreSqlServer({3621, 547}, testo).classe, Classe::Integrita);
    EXPECT_EQ(erroreSqlServer({547, 3621}, testo).codice, 547);
    EXPECT_EQ(erroreSqlServer({0, 20017, 20002}, testo).classe, Classe::ConnessionePersa);
}

TEST(SqlServerErrors, IntegrityKeepsTheServersText) {
    EXPECT_EQ(erroreSqlServer({547, 3621}, testo).descrizione, testo);
}

TEST(SqlServerErrors, ARefusedLoginIsMoreThanAFailedConnection) {
    EXPECT_EQ(erroreSqlServer({20002, 18456}, testo).descrizione,
              "Il server SQL Server ha rifiutato il nome dell'utente o la password. [Text of the server]");
}

TEST(SqlServerErrors, OtherDesks) {
    pretendiClasseSqlServer({1205, 1222}, Classe::Conflitto);
}

TEST(SqlServerErrors, ReadOnly) {
    pretendiClasseSqlServer({3906}, Classe::SolaLettura);
}

TEST(SqlServerErrors, FullDisk) {
    pretendiClasseSqlServer({1105, 9002}, Classe::DiscoPieno);
}

TEST(SqlServerErrors, ConnectionLost) {
    pretendiClasseSqlServer({20003, 20004, 20006, 20009, 20017, 20047, 10054}, Classe::ConnessionePersa);
}

TEST(SqlServerErrors, LostConnectionWithoutACode) {
    EXPECT_EQ(erroreSqlServer({0}, "[FreeTDS][SQL Server]Communication link failure").classe,
              Classe::ConnessionePersa);
    EXPECT_EQ(erroreSqlServer({}, "Invalid cursor state").classe, Classe::Altro);
}

TEST(SqlServerErrors, AKeyThatIsThereAlreadyIsNoMatterOfIntegrity) {
    pretendiClasseSqlServer({2601, 2627, 102, 207}, Classe::Altro);
}

TEST(SqlServerErrors, ARefusedLoginBehindTheCodeOfTheOpening) {
    EXPECT_EQ(
        erroreSqlServer({20002}, "Login failed for user 'anna'. Adaptive Server connection failed").codice,
        18456);
}

TEST(SqlServerErrors, UnknownOneTellsItsFirstCode) {
    EXPECT_EQ(erroreSqlServer({0, 4711, 4712}, testo).codice, 4711);
    EXPECT_EQ(erroreSqlServer({}, testo).codice, 0);
}
