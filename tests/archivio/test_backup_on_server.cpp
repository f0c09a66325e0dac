#include <gtest/gtest.h>

#include <QTextStream>

#include "archivio/archive_dump.h"
#include "archivio/backup_archive.h"
#include "archivio/copy_archive.h"
#include "archivio/import_access.h"
#include "archivio/trial_archive.h"
#include "archivio/trial_mdb.h"
#include "archivio/trial_server.h"

TEST(BackupOnServer, SavedDatabaseComesBackFromItsFile) {
    const ArchivioInCartella archivio(ArchivioInCartella::Contenuto::Poco);
    const DatabaseDiProva database;
    QString testo;
    QTextStream esito(&testo);
    const QString copia = archivio.percorso("copia.db");
    ASSERT_TRUE(copiaArchivio(archivio.percorso(), database.nome(), false, esito)) << testo.toStdString();
    ASSERT_TRUE(salvaArchivio(database.nome(), copia, false, esito)) << testo.toStdString();
    database.esegui("DELETE FROM Gruppi");
    EXPECT_FALSE(ripristinaArchivio(copia, database.nome(), false, esito));
    EXPECT_EQ(database.valore("SELECT COUNT(*) FROM Gruppi"), "0");
    ASSERT_TRUE(ripristinaArchivio(copia, database.nome(), true, esito)) << testo.toStdString();
    EXPECT_EQ(tutteLeRighe(database.nome()), tutteLeRighe(archivio.percorso()));
}

TEST(ImportOnServer, GoodRowsAreThereAndTheOthersAreTold) {
    const DatabaseDiProva database;
    FileMdbFinto file;
    file.tabella("Gruppi", {"RID", "CODICE"}, {{"7", "\"A\""}, {"8", ""}});
    QString testo;
    QTextStream esito(&testo);
    EXPECT_FALSE(importaAccess(file.percorso(), database.nome(), false, esito));
    EXPECT_TRUE(testo.contains("rifiutata la riga 8: CODICE: manca")) << testo.toStdString();
    EXPECT_EQ(database.valore("SELECT CODICE FROM Gruppi WHERE RID = 7"), "A");
    EXPECT_EQ(database.valore("SELECT COUNT(*) FROM Gruppi"), "1");
}
