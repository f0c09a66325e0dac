#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QTemporaryDir>

#include "data/settings_store.h"

namespace {

// While it lives no file grows beyond that many bytes, as on a disk that is full.
class FileLimitati {
  public:
    explicit FileLimitati(rlim_t byte) {
        getrlimit(RLIMIT_FSIZE, &mPrima);
        mSegnale = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limite{byte, mPrima.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limite);
    }
    ~FileLimitati() {
        setrlimit(RLIMIT_FSIZE, &mPrima);
        std::signal(SIGXFSZ, mSegnale);
    }
    FileLimitati(const FileLimitati&) = delete;
    FileLimitati& operator=(const FileLimitati&) = delete;

  private:
    rlimit mPrima{};
    void (*mSegnale)(int) = nullptr;
};

class SettingsStoreTest : public ::testing::Test {
  protected:
    SettingsStoreTest() { QDir().mkpath(cartella()); }

    QString cartella() const { return mCartella.path() + "/Orbelune"; }
    QString percorso(const QString& nome = "prova.ini") const { return cartella() + '/' + nome; }

    void scriviFile(const QByteArray& contenuto) {
        QFile file(percorso());
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(contenuto);
    }
    QByteArray leggiFile(const QString& nome = "prova.ini") const {
        QFile file(percorso(nome));
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray("<manca>");
    }
    static QString leggi(SettingsStore& impostazioni, const QString& chiave = "ID") {
        return impostazioni.leggi("prova", "Client", chiave, "255");
    }

  private:
    QTemporaryDir mCartella;
};

}  // namespace

TEST_F(SettingsStoreTest, WhatIsMissingReadsAsItsDefault) {
    SettingsOnDisk impostazioni(cartella());
    EXPECT_EQ(leggi(impostazioni), "255");
    EXPECT_TRUE(impostazioni.prendiAvvisi().isEmpty());
}

TEST_F(SettingsStoreTest, ReadingMakesNoFile) {
    SettingsOnDisk impostazioni(cartella());
    leggi(impostazioni);
    EXPECT_FALSE(QFile::exists(percorso()));
}

TEST_F(SettingsStoreTest, AnotherStartFindsWhatWasWritten) {
    const QString stringa = "Server=a;Pwd=\"b,c\\\"\nUid=d";
    SettingsOnDisk(cartella()).scrivi("prova", "Server", "MySql", stringa);
    SettingsOnDisk altra(cartella());
    EXPECT_EQ(altra.leggi("prova", "Server", "MySql", {}), stringa);
}

TEST_F(SettingsStoreTest, ANewFileIsReadableByItsOwnerAlone) {
    SettingsOnDisk(cartella()).scrivi("prova", "Client", "ID", "3");
    const auto altrui = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_FALSE(QFile::permissions(percorso()) & altrui);
    EXPECT_TRUE(QFile::permissions(percorso()) & QFile::ReadOwner);
}

TEST_F(SettingsStoreTest, AFileThatOthersCouldReadIsClosedToThem) {
    scriviFile("[Client]\nID=3\n");
    QFile::setPermissions(percorso(),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    SettingsOnDisk impostazioni(cartella());
    EXPECT_EQ(leggi(impostazioni), "3");
    EXPECT_FALSE(QFile::permissions(percorso()) & (QFile::ReadGroup | QFile::ReadOther));
}

TEST_F(SettingsStoreTest, AValueThatDidNotChangeLeavesTheFileAlone) {
    const QByteArray contenuto = "; scritto a mano\n[Client]\nID = 3\n";
    scriviFile(contenuto);
    SettingsOnDisk(cartella()).scrivi("prova", "Client", "ID", "3");
    EXPECT_EQ(leggiFile(), contenuto);
}

TEST_F(SettingsStoreTest, OneChangedKeyLeavesTheOthersAsTheyWere) {
    scriviFile("[Server]\nMySql=Server=a;Pwd=b\\c, d\n[Client]\nID=3\n");
    SettingsOnDisk(cartella()).scrivi("prova", "Client", "ID", "4");
    EXPECT_EQ(leggiFile(), "[Client]\nID=4\n\n[Server]\nMySql=Server=a;Pwd=b\\c, d\n");
}

TEST_F(SettingsStoreTest, ABinaryFileGivesDefaultsAWarningAndACopy) {
    const QByteArray contenuto("\0\1\2[Client]\nID=3\n", 17);
    scriviFile(contenuto);
    SettingsOnDisk impostazioni(cartella());
    EXPECT_EQ(leggi(impostazioni), "255");
    EXPECT_EQ(leggiFile("prova.ini.guasto"), contenuto);
    const QStringList avvisi = impostazioni.prendiAvvisi();
    ASSERT_EQ(avvisi.size(), 1);
    EXPECT_TRUE(avvisi[0].contains(percorso("prova.ini.guasto")));
    EXPECT_TRUE(impostazioni.prendiAvvisi().isEmpty());
}

TEST_F(SettingsStoreTest, AfterABadFileTheSettingsCanBeSavedAgain) {
    scriviFile(QByteArray("\0\0\0", 3));
    SettingsOnDisk(cartella()).scrivi("prova", "Client", "ID", "4");
    SettingsOnDisk altra(cartella());
    EXPECT_EQ(leggi(altra), "4");
    EXPECT_TRUE(altra.prendiAvvisi().isEmpty());
}

TEST_F(SettingsStoreTest, ASecondBadFileDoesNotReplaceTheFirstCopy) {
    scriviFile(QByteArray("\0uno", 4));
    SettingsOnDisk prima(cartella());
    leggi(prima);
    scriviFile(QByteArray("\0due", 4));
    SettingsOnDisk seconda(cartella());
    leggi(seconda);
    EXPECT_EQ(leggiFile("prova.ini.guasto"), QByteArray("\0uno", 4));
    EXPECT_EQ(leggiFile("prova.ini.guasto.2"), QByteArray("\0due", 4));
}

TEST_F(SettingsStoreTest, AFileOfTenMegabytesGivesDefaultsAndACopy) {
    scriviFile(QByteArray("[Client]\nID=3\n").repeated(750'000));
    SettingsOnDisk impostazioni(cartella());
    EXPECT_EQ(leggi(impostazioni), "255");
    EXPECT_EQ(QFileInfo(percorso("prova.ini.guasto")).size(), 10'500'000);
}

TEST_F(SettingsStoreTest, ATruncatedFileKeepsItsWholeLinesAndACopy) {
    const QByteArray contenuto = "[Client]\nID=3\nMulti";
    scriviFile(contenuto);
    SettingsOnDisk impostazioni(cartella());
    EXPECT_EQ(leggi(impostazioni), "3");
    EXPECT_EQ(leggiFile("prova.ini.guasto"), contenuto);
    EXPECT_EQ(impostazioni.prendiAvvisi().size(), 1);
}

TEST_F(SettingsStoreTest, ATruncatedFileIsToldOnce) {
    scriviFile("[Client]\nID=3\nMulti");
    SettingsOnDisk prima(cartella());
    leggi(prima);
    SettingsOnDisk seconda(cartella());
    EXPECT_EQ(leggi(seconda), "3");
    EXPECT_TRUE(seconda.prendiAvvisi().isEmpty());
    EXPECT_FALSE(QFile::exists(percorso("prova.ini.guasto.2")));
}

TEST_F(SettingsStoreTest, AnEmptyFileIsTold) {
    scriviFile("");
    SettingsOnDisk impostazioni(cartella());
    EXPECT_EQ(leggi(impostazioni), "255");
    EXPECT_EQ(impostazioni.prendiAvvisi().size(), 1);
}

TEST_F(SettingsStoreTest, AFolderInPlaceOfTheFileIsNoStop) {
    QDir().mkpath(percorso());
    SettingsOnDisk impostazioni(cartella());
    EXPECT_EQ(leggi(impostazioni), "255");
    impostazioni.scrivi("prova", "Client", "ID", "4");
    EXPECT_TRUE(QFileInfo(percorso()).isDir());
    EXPECT_FALSE(impostazioni.prendiAvvisi().isEmpty());
}

TEST_F(SettingsStoreTest, SettingsThatCannotBeSavedAreToldOnceAndStopNothing) {
    scriviFile("");
    // A file where the folder should be: not even the superuser can write below it.
    SettingsOnDisk impostazioni(percorso());
    impostazioni.scrivi("altra", "Client", "ID", "4");
    impostazioni.scrivi("altra", "Client", "ID", "5");
    const QStringList avvisi = impostazioni.prendiAvvisi();
    ASSERT_EQ(avvisi.size(), 1);
    EXPECT_TRUE(avvisi[0].contains("non si possono salvare"));
}

TEST_F(SettingsStoreTest, AFullDiskLeavesTheOldFileAndAWarning) {
    scriviFile("[Client]\nID=3\n");
    SettingsOnDisk impostazioni(cartella());
    {
        const FileLimitati limite(2000);
        impostazioni.scrivi("prova", "Client", "RegCassa", QString(4000, 'x'));
    }
    EXPECT_EQ(leggiFile(), "[Client]\nID=3\n");
    EXPECT_EQ(impostazioni.prendiAvvisi().size(), 1);
}

TEST_F(SettingsStoreTest, AFullDiskAtTheFirstStartLeavesNoEmptyFile) {
    SettingsOnDisk impostazioni(cartella());
    {
        const FileLimitati limite(2000);
        impostazioni.scrivi("prova", "Client", "RegCassa", QString(4000, 'x'));
    }
    EXPECT_FALSE(QFile::exists(percorso()));
}

TEST_F(SettingsStoreTest, AFileThatAnotherProgramHoldsIsToldAndNotWaitedForForever) {
    scriviFile("[Client]\nID=3\n");
    QLockFile altro(percorso("prova.ini.lock"));
    ASSERT_TRUE(altro.lock());
    SettingsOnDisk impostazioni(cartella());
    impostazioni.scrivi("prova", "Client", "ID", "4");
    EXPECT_EQ(leggiFile(), "[Client]\nID=3\n");
    EXPECT_EQ(impostazioni.prendiAvvisi().size(), 1);
}

TEST(SettingsStore, OtherSettingsCanTakeTheirPlace) {
    SettingsOnDisk altre("/dev/null");
    impostaImpostazioni(&altre);
    EXPECT_EQ(&impostazioni(), &altre);
    impostaImpostazioni(nullptr);
    EXPECT_NE(&impostazioni(), &altre);
}
