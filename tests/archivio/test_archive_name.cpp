#include <gtest/gtest.h>

#include "archivio/archive_name.h"
#include "core/run_time_error.h"
#include "data/connection_string.h"
#include "data/prepare_sql.h"

namespace {

// Sets an environment variable for the length of a test.
class Ambiente {
  public:
    explicit Ambiente(const QByteArray& password) { qputenv("BOTTEGON_PASSWORD", password); }
    ~Ambiente() { qunsetenv("BOTTEGON_PASSWORD"); }
};

QString password(const NomeArchivio& nome) {
    QString errore;
    const auto dati = leggiStringaConnessione(nome.connessione, nome.tipoServer, errore);
    EXPECT_TRUE(dati) << errore.toStdString();
    return dati ? dati->password : QString();
}

}  // namespace

TEST(ArchiveName, PlainTextIsAFile) {
    EXPECT_TRUE(NomeArchivio::da("/tmp/a;b.db").file());
}

TEST(ArchiveName, PrefixTellsTheServer) {
    EXPECT_EQ(NomeArchivio::da("mysql:Server=s;Database=d").tipoServer, MySql);
    EXPECT_EQ(NomeArchivio::da("SqlServer:Server=s;Database=d").tipoServer, SqlServer);
}

TEST(ArchiveName, PasswordComesFromTheEnvironment) {
    const Ambiente ambiente("se;gre\"to'");
    EXPECT_EQ(password(NomeArchivio::da("mysql:Server=s;Database=d;Uid=u")), "se;gre\"to'");
}

TEST(ArchiveName, PasswordInTheStringComesFirst) {
    const Ambiente ambiente("altra");
    EXPECT_EQ(password(NomeArchivio::da("mysql:Server=s;Database=d;Uid=u;Pwd=questa")), "questa");
}

TEST(ArchiveName, ShownNameHasNoPassword) {
    EXPECT_EQ(NomeArchivio::da("mysql:Server=s;Database=d;Uid=u;Pwd=segreto").leggibile(), "d su s (MySQL)");
}

TEST(ArchiveName, BadStringIsRefusedWithoutItsPassword) {
    try {
        NomeArchivio::da("mysql:Server=s;Uid=u;Pwd=segreto");
        FAIL() << "no database, and taken";
    } catch (const RunTimeError& errore) {
        EXPECT_TRUE(errore.descrizione().contains("Database"));
        EXPECT_FALSE(errore.descrizione().contains("segreto"));
    }
}
