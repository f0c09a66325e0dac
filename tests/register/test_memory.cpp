#include "register/link_bench.h"
#include "register/memory_growth.h"

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

    void inonda(const QByteArray& pezzo, int volte) {
        for (int i = 0; i < volte; ++i) {
            peer.manda(pezzo);
            lasciaArrivare(5);
        }
    }
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

TEST_F(Memory, FloodOfLongErrorsLeavesNothing) {
    link.monitor.acceso(false);
    const QByteArray errore = PeerDiProva::errore("05", QByteArray(100000, 'x'));
    for (int giro = 0; giro < 50 && link.monitor.byte() < MonitorRegCassa::limite * 9 / 10; ++giro) {
        inonda(errore, 10);
    }
    ASSERT_GE(link.monitor.byte(), MonitorRegCassa::limite * 9 / 10);
    EXPECT_LT(crescita([&] { inonda(errore, 20); }), 5 * megabyte);
}

TEST_F(Memory, ConnectionsThatComeAndGoLeaveNothing) {
    EXPECT_LT(crescita([&] {
                  for (int i = 0; i < 50; ++i) {
                      link.sendData("REPa¥TOT1");
                      peer.riaggancia();
                      ASSERT_TRUE(diventa([&] { return !link.statoConnessione(); }));
                      link.annullaOperazioni();
                      connetti();
                  }
                  peer.dimentica();
              }),
              megabyte);
}
