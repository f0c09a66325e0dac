#include <gtest/gtest.h>

#include <QTextStream>

#include "archivio/archive_dump.h"
#include "archivio/copy_archive.h"
#include "archivio/create_archive.h"
#include "archivio/trial_archive.h"
#include "archivio/trial_sql_server.h"
#include "archivio/verify_archive.h"

// What the archive tool says to a SQL Server, and that the rows go there and back.

namespace {

class ToolOnSqlServer : public testing::Test {
  protected:
    template <class Lavoro>
    void riesce(Lavoro lavoro) {
        QString testo;
        QTextStream esito(&testo);
        EXPECT_TRUE(lavoro(esito)) << testo.toStdString();
    }

    const SqlServerDegliAttrezzi server;
    const ArchivioInCartella archivio{ArchivioInCartella::Contenuto::Poco};
};

TEST_F(ToolOnSqlServer, AnArchiveGoesThereAndComesBackTheSame) {
    ASSERT_EQ(archivio.esegui("INSERT INTO TipoDocumenti (RID, CODICE) VALUES (1, 'VB')"), SQLITE_OK);
    archivio.aggiungiDifficili();
    const QString ritorno = archivio.percorso("ritorno.db");
    riesce([&](QTextStream& e) { return copiaArchivio(archivio.percorso(), server.nome(), false, e); });
    riesce([&](QTextStream& e) { return copiaArchivio(server.nome(), ritorno, false, e); });
    EXPECT_EQ(tutteLeRighe(ritorno), tutteLeRighe(archivio.percorso()));
}

TEST_F(ToolOnSqlServer, AnEmptyArchiveIsMadeAndChecked) {
    riesce([&](QTextStream& e) { return creaArchivio(server.nome(), {}, e); });
    EXPECT_EQ(verificaArchivio(server.nome()).errori, QStringList());
}

TEST_F(ToolOnSqlServer, AnArchiveThatIsThereIsReplacedOnlyWhenToldSo) {
    riesce([&](QTextStream& e) { return creaArchivio(server.nome(), {}, e); });
    QString testo;
    QTextStream esito(&testo);
    EXPECT_FALSE(copiaArchivio(archivio.percorso(), server.nome(), false, esito));
    EXPECT_TRUE(testo.contains("--sovrascrivi")) << testo.toStdString();
    riesce([&](QTextStream& e) { return copiaArchivio(archivio.percorso(), server.nome(), true, e); });
}

}  // namespace
