#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include "core/program_folder.h"

namespace {

class CartellaProgramma : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(mCartella.isValid());
        mPrima = qgetenv("XDG_DATA_HOME");
        qputenv("XDG_DATA_HOME", mCartella.filePath("dati").toUtf8());
    }
    void TearDown() override {
        impostaCartellaProgramma({});
        if (mPrima.isNull()) {
            qunsetenv("XDG_DATA_HOME");
        } else {
            qputenv("XDG_DATA_HOME", mPrima);
        }
    }
    QString datiBottegon() const { return mCartella.filePath("dati/Bottegon"); }

    int mArgc = 1;
    char mNome[10] = "test_core";
    char* mArgv[2] = {mNome, nullptr};
    QCoreApplication mApplicazione{mArgc, mArgv};
    QTemporaryDir mCartella;
    QByteArray mPrima;
};

}  // namespace

TEST_F(CartellaProgramma, IsTheOneThatHoldsTheExecutable) {
    EXPECT_EQ(cartellaProgramma(), QFileInfo("/proc/self/exe").canonicalPath());
}

TEST_F(CartellaProgramma, AFolderThatCanBeWrittenIsTaken) {
    EXPECT_EQ(scegliCartellaScrivibile(mCartella.path()), mCartella.path());
}

TEST_F(CartellaProgramma, TheProbeLeavesNothingBehind) {
    scegliCartellaScrivibile(mCartella.path());
    EXPECT_TRUE(
        QDir(mCartella.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).isEmpty());
}

TEST_F(CartellaProgramma, AFolderThatRefusesFilesIsReplacedByTheUsersData) {
    EXPECT_EQ(scegliCartellaScrivibile("/proc"), datiBottegon());
}

TEST_F(CartellaProgramma, AMissingFolderIsReplacedByTheUsersData) {
    EXPECT_EQ(scegliCartellaScrivibile(mCartella.filePath("manca")), datiBottegon());
}

TEST_F(CartellaProgramma, TheUsersDataFolderIsMadeWhenMissing) {
    scegliCartellaScrivibile("/proc");
    EXPECT_TRUE(QFileInfo(datiBottegon()).isDir());
}

TEST_F(CartellaProgramma, ASetFolderIsBothFolders) {
    impostaCartellaProgramma("/un/posto");
    EXPECT_EQ(cartellaProgramma(), "/un/posto");
    EXPECT_EQ(cartellaScrivibile(), "/un/posto");
}

TEST_F(CartellaProgramma, WithoutASetFolderTheOneToWriteInIsChosen) {
    EXPECT_EQ(cartellaScrivibile(), scegliCartellaScrivibile(cartellaProgramma()));
}

TEST_F(CartellaProgramma, AnUnknownFolderIsReplacedByTheUsersData) {
    EXPECT_EQ(scegliCartellaScrivibile({}), datiBottegon());
}
