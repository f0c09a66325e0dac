#include <gtest/gtest.h>

#include <QFileInfo>
#include <QTemporaryDir>
#include <QTextStream>

#include "archivio/link_till.h"
#include "archivio/trial_archive.h"
#include "data/client_settings.h"
#include "data/settings_store.h"

namespace {

// The user's settings in a folder of the test.
class ImpostazioniDiProva {
  public:
    ImpostazioniDiProva() : mDisco(mCartella.filePath("Orbelune")) { impostaImpostazioni(&mDisco); }
    ~ImpostazioniDiProva() { impostaImpostazioni(nullptr); }

    QString leggi(const char* chiave) {
        return SettingsOnDisk(mCartella.filePath("Orbelune"))
            .leggi(applicazioneComune, "Server", chiave, "?");
    }
    QString file() const { return mCartella.filePath("Orbelune/prgBottegon.ini"); }

  private:
    QTemporaryDir mCartella;
    SettingsOnDisk mDisco;
};

bool collega(const QString& nome, QString* testo = nullptr) {
    QString scritto;
    QTextStream esito(&scritto);
    const bool riuscito = collegaCassa(nome, esito);
    if (testo != nullptr) *testo = scritto;
    return riuscito;
}

}  // namespace

TEST(LinkTill, FileIsWrittenWithItsWholePath) {
    ImpostazioniDiProva impostazioni;
    const ArchivioInCartella archivio;
    ASSERT_TRUE(collega(archivio.percorso("./prova.db")));
    EXPECT_EQ(impostazioni.leggi("DBType"), "1");
    EXPECT_EQ(impostazioni.leggi("Path"), QFileInfo(archivio.percorso("./prova.db")).absoluteFilePath());
}

TEST(LinkTill, SettingsAreReadableByTheirOwnerAlone) {
    ImpostazioniDiProva impostazioni;
    const ArchivioInCartella archivio;
    ASSERT_TRUE(collega(archivio.percorso()));
    EXPECT_EQ(QFile::permissions(impostazioni.file()) & 0x0FFF,
              (QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser) & 0x0FFF);
}

TEST(LinkTill, ArchiveThatDoesNotOpenChangesNothing) {
    ImpostazioniDiProva impostazioni;
    const ArchivioInCartella archivio;
    EXPECT_FALSE(collega(archivio.percorso("manca.db")));
    EXPECT_EQ(impostazioni.leggi("DBType"), "?");
}

TEST(LinkTill, ServerThatDoesNotAnswerChangesNothing) {
    ImpostazioniDiProva impostazioni;
    QString testo;
    EXPECT_FALSE(collega("mysql:Server=127.0.0.1;Port=1;Database=d;Uid=u;Pwd=segreto", &testo));
    EXPECT_FALSE(testo.contains("segreto")) << testo.toStdString();
    EXPECT_EQ(impostazioni.leggi("DBType"), "?");
}
