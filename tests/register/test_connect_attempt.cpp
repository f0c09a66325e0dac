#include <QDeadlineTimer>

#include "register/link_bench.h"
#include "register/tcp_socket.h"

// The end of the one attempt to connect, seen on a short one.
class ConnectAttempt : public Collegato {
  protected:
    static constexpr int durata = 200;  // milliseconds

    // Events run for so long.
    static void passano(int millisecondi) {
        const QDeadlineTimer fine(millisecondi);
        ASSERT_TRUE(diventa([&] { return fine.hasExpired(); }));
    }

    InterfacciaRegCassa breve{std::make_unique<PresaTcp>(durata)};
};

TEST_F(ConnectAttempt, ProgramThatListensBeforeItsEndIsConnectedTo) {
    peer.chiudi();
    breve.connetti();
    passano(durata / 4);
    ASSERT_TRUE(peer.apri());
    EXPECT_TRUE(diventa([&] { return breve.statoConnessione(); }));
    passano(durata);
    EXPECT_TRUE(breve.statoConnessione());
}

TEST_F(ConnectAttempt, ProgramThatListensBehindItsEndIsNotConnectedToByItself) {
    peer.chiudi();
    breve.connetti();
    passano(durata * 2);
    ASSERT_TRUE(peer.apri());
    passano(durata * 2);
    EXPECT_FALSE(breve.statoConnessione());
    EXPECT_FALSE(peer.collegato());
    breve.connetti();
    EXPECT_TRUE(diventa([&] { return breve.statoConnessione(); }));
}

// The program listens, but takes nobody in: the network repeats the call after a second.
TEST_F(ConnectAttempt, ConnectionThatHangsDoesNotComeUpBehindItsEnd) {
    QTcpServer pieno;
    pieno.setListenBacklogSize(1);
    ASSERT_TRUE(pieno.listen(QHostAddress::LocalHost));
    pieno.pauseAccepting();
    std::deque<QTcpSocket> coda(4);
    for (QTcpSocket& presa : coda) {
        presa.connectToHost(QHostAddress::LocalHost, pieno.serverPort());
    }
    lasciaArrivare();
    ASSERT_EQ(coda.back().state(), QAbstractSocket::ConnectingState);
    gTCPPort = pieno.serverPort();
    breve.connetti();
    passano(durata * 2);
    coda.clear();
    pieno.resumeAccepting();
    passano(1500);
    EXPECT_FALSE(breve.statoConnessione());
}
