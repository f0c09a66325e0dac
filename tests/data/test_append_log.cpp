#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "data/append_log.h"
#include "doubles/disco_di_prova.h"

namespace {

class AppendLog : public testing::Test {
  protected:
    QByteArray contenuto() const {
        QFile file(percorso);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    void riscrivi(const QByteArray& dati) const {
        QFile file(percorso);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(dati);
    }
    QList<QByteArray> letti() const { return RegistroAppeso::leggi(percorso); }

    QTemporaryDir cartella;
    const QString percorso = cartella.path() + "/registro";
};

}  // namespace

TEST_F(AppendLog, ReadsBackWhatWasWritten) {
    RegistroAppeso registro(percorso);
    EXPECT_TRUE(registro.aggiungi("uno"));
    EXPECT_TRUE(registro.aggiungi("perché 漢"));
    EXPECT_EQ(letti(), QList<QByteArray>({"uno", "perché 漢"}));
}

TEST_F(AppendLog, NoFileHoldsNoRecords) {
    EXPECT_TRUE(letti().isEmpty());
    const RegistroAppeso registro(percorso);
    EXPECT_FALSE(QFile::exists(percorso));
}

TEST_F(AppendLog, TornEndIsLeftOutAtEveryLength) {
    {
        RegistroAppeso registro(percorso);
        registro.aggiungi("uno");
        registro.aggiungi("due");
    }
    const QByteArray intero = contenuto();
    const qsizetype primo = intero.indexOf('\n') + 1;
    for (qsizetype n = primo; n < intero.size(); ++n) {
        riscrivi(intero.left(n));
        EXPECT_EQ(letti(), QList<QByteArray>({"uno"})) << n;
    }
}

TEST_F(AppendLog, GarbledRecordEndsTheReading) {
    {
        RegistroAppeso registro(percorso);
        registro.aggiungi("uno");
        registro.aggiungi("due");
        registro.aggiungi("tre");
    }
    riscrivi(contenuto().replace("due", "dUe"));
    EXPECT_EQ(letti(), QList<QByteArray>({"uno"}));
}

TEST_F(AppendLog, RemovedFileBeginsAnew) {
    RegistroAppeso registro(percorso);
    registro.aggiungi("uno");
    registro.elimina();
    EXPECT_FALSE(QFile::exists(percorso));
    registro.aggiungi("due");
    EXPECT_EQ(letti(), QList<QByteArray>({"due"}));
}

TEST_F(AppendLog, FileOfTheLastRunIsOverwrittenByTheFirstRecord) {
    RegistroAppeso(percorso).aggiungi("vecchio");
    RegistroAppeso registro(percorso);
    EXPECT_EQ(letti(), QList<QByteArray>({"vecchio"}));
    registro.aggiungi("nuovo");
    EXPECT_EQ(letti(), QList<QByteArray>({"nuovo"}));
}

TEST_F(AppendLog, OnlyItsOwnerReadsIt) {
    RegistroAppeso registro(percorso);
    registro.aggiungi("uno");
    EXPECT_EQ(QFile::permissions(percorso) &
                  (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
              QFile::Permissions());
}

TEST_F(AppendLog, FolderThatIsNotThereIsAnswered) {
    RegistroAppeso registro(cartella.path() + "/manca/registro");
    EXPECT_FALSE(registro.aggiungi("uno"));
}

TEST_F(AppendLog, FullDiskLeavesTheRecordsBeforeWhole) {
    RegistroAppeso registro("/dev/full");
    EXPECT_FALSE(registro.aggiungi("uno"));
}

TEST_F(AppendLog, ManyRecordsAndSynchronisationsGoTogether) {
    RegistroAppeso registro(percorso);
    for (int i = 0; i < 2000; ++i) {
        ASSERT_TRUE(registro.aggiungi(QByteArray::number(i)));
        if (i % 500 == 0) registro.sincronizza();
    }
    EXPECT_EQ(letti().size(), 2000);
    EXPECT_EQ(letti().back(), "1999");
}

// ---- The name of the file, which a power cut can take as well

TEST_F(AppendLog, TheNameOfANewFileReachesTheDiskByItself) {
    DiscoDiProva disco;
    RegistroAppeso registro(percorso);
    registro.aggiungi("uno");
    EXPECT_TRUE(disco.aspettaCartelle(1));
}

TEST_F(AppendLog, TheNameReachesTheDiskOnceForEachFileAndNotForEachRecord) {
    DiscoDiProva disco;
    RegistroAppeso registro(percorso);
    for (int file = 1; file <= 3; ++file) {
        registro.aggiungi("uno");
        ASSERT_TRUE(disco.aspettaCartelle(2 * file - 1));
        for (int i = 0; i < 100; ++i)
            registro.aggiungi("due");
        EXPECT_EQ(registro.sincronizza(), EsitoScarico::Fatto);
        EXPECT_EQ(disco.cartelle(), 2 * file - 1);
        registro.elimina();
        ASSERT_TRUE(disco.aspettaCartelle(2 * file));
    }
}

TEST_F(AppendLog, SynchronisedTheNameIsOnTheDisk) {
    DiscoDiProva disco;
    RegistroAppeso registro(percorso);
    registro.aggiungi("uno");
    EXPECT_EQ(registro.sincronizza(), EsitoScarico::Fatto);
    EXPECT_GE(disco.cartelle(), 1);
}

TEST_F(AppendLog, TheRemovalReachesTheDiskByItself) {
    DiscoDiProva disco;
    RegistroAppeso registro(percorso);
    registro.aggiungi("uno");
    ASSERT_TRUE(disco.aspettaCartelle(1));
    registro.elimina();
    EXPECT_TRUE(disco.aspettaCartelle(2));
}

// Records that the disk refused once may be lost though it takes the next ones.
TEST_F(AppendLog, ADiskThatDoesNotTakeItIsAnsweredUntilTheFileBeginsAnew) {
    DiscoDiProva disco;
    disco.guastoDati = true;
    RegistroAppeso registro(percorso);
    registro.aggiungi("uno");
    EXPECT_EQ(registro.sincronizza(), EsitoScarico::DatiRifiutati);
    disco.guastoDati = false;
    EXPECT_EQ(registro.sincronizza(), EsitoScarico::DatiRifiutati);
    registro.elimina();
    registro.aggiungi("due");
    EXPECT_EQ(registro.sincronizza(), EsitoScarico::Fatto);
}

TEST_F(AppendLog, WhatTheThreadWasRefusedIsAnsweredAtTheNextSynchronisation) {
    DiscoDiProva disco;
    disco.guastoDati = true;
    RegistroAppeso registro(percorso);
    registro.aggiungi("uno");
    ASSERT_TRUE(disco.aspettaCartelle(1));
    disco.guastoDati = false;
    EXPECT_EQ(registro.sincronizza(), EsitoScarico::DatiRifiutati);
}

TEST_F(AppendLog, ANameThatTheDiskRefusesIsToldApartFromTheRecords) {
    DiscoDiProva disco;
    disco.guastoNomi = true;
    RegistroAppeso registro(percorso);
    registro.aggiungi("uno");
    EXPECT_EQ(registro.sincronizza(), EsitoScarico::NomeRifiutato);
    disco.guastoNomi = false;
    EXPECT_EQ(registro.sincronizza(), EsitoScarico::Fatto);
}

TEST_F(AppendLog, NothingWrittenIsSynchronisedAtOnce) {
    DiscoDiProva disco;
    RegistroAppeso registro(percorso);
    EXPECT_EQ(registro.sincronizza(), EsitoScarico::Fatto);
    EXPECT_EQ(disco.cartelle(), 0);
}

// Where the kernel's own files lie a folder has no such call.
TEST(Disk, AFolderThatKeepsItsNamesByItselfIsDone) {
    EXPECT_TRUE(Disco().scaricaCartellaDi("/proc/self/status"));
}

TEST(Disk, AFolderThatIsNotThereIsAnswered) {
    const QTemporaryDir cartella;
    EXPECT_TRUE(Disco().scaricaCartellaDi(cartella.path() + "/file"));
    EXPECT_FALSE(Disco().scaricaCartellaDi(cartella.path() + "/manca/file"));
}
