#include <atomic>
#include <condition_variable>
#include <gtest/gtest.h>
#include <mutex>

#include <QFile>
#include <QTemporaryDir>

#include "data/append_log.h"
#include "data/disk.h"

namespace {

// Counts what reaches the disk, and says when. It fails on demand.
class DiscoDiProva final : public Disco {
  public:
    DiscoDiProva() { impostaDisco(this); }
    ~DiscoDiProva() override { impostaDisco(nullptr); }
    DiscoDiProva(const DiscoDiProva&) = delete;
    DiscoDiProva& operator=(const DiscoDiProva&) = delete;

    bool scarica(int file) override { return conta(mFile, Disco::scarica(file) && !guasto); }
    bool scaricaCartellaDi(const QString& file) override {
        return conta(mCartelle, Disco::scaricaCartellaDi(file) && !guasto);
    }
    int cartelle() {
        const std::lock_guard serratura(mSerratura);
        return mCartelle;
    }
    // Waits for the thread that brings records to the disk.
    bool aspettaCartelle(int quante) {
        std::unique_lock serratura(mSerratura);
        return mCambiato.wait_for(serratura, std::chrono::seconds(10), [&] { return mCartelle >= quante; });
    }

    std::atomic<bool> guasto = false;

  private:
    bool conta(int& contatore, bool esito) {
        const std::lock_guard serratura(mSerratura);
        ++contatore;
        mCambiato.notify_all();
        return esito;
    }

    std::mutex mSerratura;
    std::condition_variable mCambiato;
    int mFile = 0;
    int mCartelle = 0;
};

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
        EXPECT_TRUE(registro.sincronizza());
        EXPECT_EQ(disco.cartelle(), 2 * file - 1);
        registro.elimina();
        ASSERT_TRUE(disco.aspettaCartelle(2 * file));
    }
}

TEST_F(AppendLog, SynchronisedTheNameIsOnTheDisk) {
    DiscoDiProva disco;
    RegistroAppeso registro(percorso);
    registro.aggiungi("uno");
    EXPECT_TRUE(registro.sincronizza());
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
    disco.guasto = true;
    RegistroAppeso registro(percorso);
    registro.aggiungi("uno");
    EXPECT_FALSE(registro.sincronizza());
    disco.guasto = false;
    EXPECT_FALSE(registro.sincronizza());
    registro.elimina();
    registro.aggiungi("due");
    EXPECT_TRUE(registro.sincronizza());
}

TEST_F(AppendLog, WhatTheThreadWasRefusedIsAnsweredAtTheNextSynchronisation) {
    DiscoDiProva disco;
    disco.guasto = true;
    RegistroAppeso registro(percorso);
    registro.aggiungi("uno");
    ASSERT_TRUE(disco.aspettaCartelle(1));
    disco.guasto = false;
    EXPECT_FALSE(registro.sincronizza());
}

TEST_F(AppendLog, NothingWrittenIsSynchronisedAtOnce) {
    DiscoDiProva disco;
    RegistroAppeso registro(percorso);
    EXPECT_TRUE(registro.sincronizza());
    EXPECT_EQ(disco.cartelle(), 0);
}

TEST(Disk, AFolderThatIsNotThereIsAnswered) {
    const QTemporaryDir cartella;
    EXPECT_TRUE(Disco().scaricaCartellaDi(cartella.path() + "/file"));
    EXPECT_FALSE(Disco().scaricaCartellaDi(cartella.path() + "/manca/file"));
}
