#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

#include "app/single_instance.h"

namespace {

const auto nessuno = [] {};

// Another process that is the first instance; it hears nothing, and lives until it is killed.
class AltroProcesso {
  public:
    explicit AltroProcesso(const QString& cartella) {
        int canale[2];
        if (pipe(canale) != 0) return;
        mPid = fork();
        if (mPid == 0) {
            SingleInstance guardia(cartella);
            const char esito = guardia.prima(nessuno) ? 's' : 'n';
            [[maybe_unused]] const auto scritti = write(canale[1], &esito, 1);
            for (;;) {
                pause();
            }
        }
        char esito = 0;
        mPrimo = read(canale[0], &esito, 1) == 1 && esito == 's';
        close(canale[0]);
        close(canale[1]);
    }
    ~AltroProcesso() { uccidi(); }
    AltroProcesso(const AltroProcesso&) = delete;
    AltroProcesso& operator=(const AltroProcesso&) = delete;

    bool primo() const { return mPrimo; }
    void uccidi() {
        if (mPid <= 0) return;
        kill(mPid, SIGKILL);
        waitpid(mPid, nullptr, 0);
        mPid = -1;
    }

  private:
    pid_t mPid = -1;
    bool mPrimo = false;
};

class SingleInstanceTest : public ::testing::Test {
  protected:
    QTemporaryDir cartella;
};

}  // namespace

TEST_F(SingleInstanceTest, TheFirstStartGoesOn) {
    SingleInstance guardia(cartella.path());
    EXPECT_TRUE(guardia.prima(nessuno));
}

TEST_F(SingleInstanceTest, ASecondStartCallsTheFirstAndEnds) {
    int richiami = 0;
    SingleInstance prima(cartella.path());
    ASSERT_TRUE(prima.prima([&] { ++richiami; }));
    SingleInstance seconda(cartella.path());
    // Both run on this thread: the call is heard when the first one's event loop turns.
    EXPECT_FALSE(seconda.prima(nessuno));
    EXPECT_TRUE(QTest::qWaitFor([&] { return richiami == 1; }, 2000));
}

TEST_F(SingleInstanceTest, EveryLaterStartCallsAgain) {
    int richiami = 0;
    SingleInstance prima(cartella.path());
    ASSERT_TRUE(prima.prima([&] { ++richiami; }));
    for (int i = 0; i < 2; ++i) {
        SingleInstance altra(cartella.path());
        EXPECT_FALSE(altra.prima(nessuno));
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return richiami == 2; }, 2000));
}

TEST_F(SingleInstanceTest, AFirstOneThatIsBusyIsNotWaitedFor) {
    const AltroProcesso primo(cartella.path());
    ASSERT_TRUE(primo.primo());
    SingleInstance seconda(cartella.path());
    EXPECT_FALSE(seconda.prima(nessuno));
}

TEST_F(SingleInstanceTest, AFirstOneThatDoesNotListenIsNotWaitedForForever) {
    { SingleInstance(cartella.path()).prima(nessuno); }
    const QStringList blocchi = QDir(cartella.path()).entryList({"*.lock"}, QDir::Files | QDir::Hidden);
    ASSERT_EQ(blocchi.size(), 1);
    const int blocco = open(qPrintable(cartella.filePath(blocchi[0])), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(flock(blocco, LOCK_EX | LOCK_NB), 0);
    QElapsedTimer tempo;
    tempo.start();
    SingleInstance seconda(cartella.path());
    EXPECT_FALSE(seconda.prima(nessuno));
    EXPECT_LT(tempo.elapsed(), 3000);
    close(blocco);
}

TEST_F(SingleInstanceTest, AKilledFirstOneIsTakenOver) {
    AltroProcesso primo(cartella.path());
    ASSERT_TRUE(primo.primo());
    primo.uccidi();
    int richiami = 0;
    SingleInstance seconda(cartella.path());
    ASSERT_TRUE(seconda.prima([&] { ++richiami; }));
    SingleInstance terza(cartella.path());
    EXPECT_FALSE(terza.prima(nessuno));
    EXPECT_TRUE(QTest::qWaitFor([&] { return richiami == 1; }, 2000));
}

TEST_F(SingleInstanceTest, AfterTheFirstEndedTheNextIsFirst) {
    { EXPECT_TRUE(SingleInstance(cartella.path()).prima(nessuno)); }
    EXPECT_TRUE(SingleInstance(cartella.path()).prima(nessuno));
}

TEST_F(SingleInstanceTest, OtherSettingsAreAnotherClient) {
    QTemporaryDir altra;
    SingleInstance prima(cartella.path());
    SingleInstance seconda(altra.path());
    EXPECT_TRUE(prima.prima(nessuno));
    EXPECT_TRUE(seconda.prima(nessuno));
}

TEST_F(SingleInstanceTest, AFolderWhereNoLockCanBeMadeStopsNothing) {
    EXPECT_TRUE(SingleInstance("/dev/null/x").prima(nessuno));
}
