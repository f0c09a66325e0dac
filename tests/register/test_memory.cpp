#include <malloc.h>
#include <unistd.h>

#include <QFile>

#include "register/link_bench.h"

#ifdef __SANITIZE_ADDRESS__
// Of the sanitizer's run time; the compiler comes without the header that declares it.
extern "C" size_t __sanitizer_get_current_allocated_bytes();
#endif

// The till's memory does not grow, whatever a register's interface program sends for however long.
class Memory : public Collegato {
  protected:
    Memory() {
        dialoghi.altrimenti = [this] {
            dialoghi.descrizioni.clear();
            dialoghi.buffers.clear();
            return DialoghiRegCassa::AnnullaTutto;
        };
    }
    void SetUp() override { connetti(); }

    // Bytes in use. The sanitizer keeps what was freed for a while, but counts what was not.
    static qint64 inUso() {
#ifdef __SANITIZE_ADDRESS__
        return static_cast<qint64>(__sanitizer_get_current_allocated_bytes());
#else
        malloc_trim(0);
        QFile stato("/proc/self/statm");
        EXPECT_TRUE(stato.open(QIODevice::ReadOnly));
        return stato.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
#endif
    }
    // What ten further runs add to a first one that has filled what has a limit.
    static qint64 crescita(const std::function<void()>& prova) {
        prova();
        const qint64 prima = inUso();
        for (int i = 0; i < 10; ++i) {
            prova();
        }
        const qint64 aggiunta = inUso() - prima;
        testing::Test::RecordProperty("bytes", std::to_string(aggiunta));
        return aggiunta;
    }
    void inonda(const QByteArray& pezzo, int volte) {
        for (int i = 0; i < volte; ++i) {
            peer.manda(pezzo);
            lasciaArrivare(5);
        }
    }

    static constexpr qint64 megabyte = 1 << 20;
};

TEST_F(Memory, FloodOfForeignBytesLeavesNothing) {
    EXPECT_LT(crescita([&] { inonda(QByteArray(1 << 20, 'x'), 10); }), megabyte);
}

TEST_F(Memory, FloodOfFramesStaysWithinTheMonitorsLimit) {
    const QByteArray inizio("\2X" + QByteArray(1 << 19, 'x'));
    for (int giro = 0; giro < 50 && link.monitor.byte() < MonitorRegCassa::limite * 9 / 10; ++giro) {
        inonda(inizio, 10);
    }
    ASSERT_GE(link.monitor.byte(), MonitorRegCassa::limite * 9 / 10);
    EXPECT_LT(crescita([&] { inonda(inizio, 30); }), 2 * megabyte);
}

TEST_F(Memory, NakStormLeavesNothing) {
    link.monitor.acceso(false);
    peer.risposta = [](const QByteArray&) { return QByteArray(2000, '\x15'); };
    EXPECT_LT(crescita([&] {
                  peer.dimentica();
                  for (int i = 0; i < 200; ++i) {
                      link.sendData("REPa¥TOT1");
                      ASSERT_TRUE(diventa([&] { return finito(); }));
                  }
              }),
              megabyte);
}
