#include "register/shop_with_register.h"

// Peers that break in every way: the sale is booked, the screen is alive, and the operator gets what the
// protocol gives him.
class FaultRuns : public NegozioConRegistratore {
  protected:
    FaultRuns() {
        link.monitor.acceso(true);
        dialoghi.altrimenti = [] { return DialoghiRegCassa::AnnullaTutto; };
        n.apriConto();
    }
    // One more sale; it is in the books at once, whatever the register does.
    void vende() {
        auto& c = static_cast<ContoDiProva&>(*gConti[0]);
        const int prima = n.conta("DettagliMovimento");
        vendi(c, "A");
        c.tasto(Qt::Key_F5);
        ASSERT_EQ(n.conta("DettagliMovimento"), prima + 1);
        ASSERT_FALSE(c.vendita().venditaModificata);
        c.tasto(Qt::Key_F2);
    }
    // The peer answers every frame with that, once; afterwards like a good one.
    void rispondeUnaVolta(const QByteArray& risposta) {
        peer.risposta = [this, risposta](const QByteArray&) {
            const QByteArray unica = risposta;
            peer.risposta = {};
            return unica;
        };
    }
};

TEST_F(FaultRuns, PeerDiesBeforeTheFirstFrame) {
    connetti();
    peer.chiudi();
    ASSERT_TRUE(diventa([&] { return !link.statoConnessione(); }));
    vende();
    EXPECT_EQ(senzaScontrino().size(), 1);
}

TEST_F(FaultRuns, PeerDiesBetweenTwoFrames) {
    connetti();
    peer.risposta = [this](const QByteArray&) {
        if (peer.cornici().size() == 2) peer.riaggancia();
        return QByteArray("\6");
    };
    vende();
    EXPECT_TRUE(diventa([&] { return !link.statoConnessione(); }));
    EXPECT_EQ(senzaScontrino().size(), 1);
    vende();
    EXPECT_EQ(senzaScontrino().size(), 2);
}

TEST_F(FaultRuns, ReceiptCutByALostLinkStaysListedWhenItsRestIsPrinted) {
    connetti();
    peer.risposta = [this](const QByteArray&) {
        if (peer.cornici().size() == 2) peer.riaggancia();
        return QByteArray("\6");
    };
    vende();
    ASSERT_TRUE(diventa([&] { return !link.statoConnessione(); }));
    peer.risposta = {};
    peer.dimentica();
    connetti();
    vende();
    ASSERT_TRUE(diventa([&] { return finito(); }));
    EXPECT_TRUE(scontrino().first().startsWith("TOT"));  // of the first sale, without its row
    ASSERT_EQ(senzaScontrino().size(), 1);
    EXPECT_TRUE(senzaScontrino().first().startsWith("N° 0001/0001"));
    EXPECT_TRUE(senzaScontrino().first().endsWith("collegamento caduto durante la stampa"));
}

TEST_F(FaultRuns, PeerDiesAfterTheLastFrame) {
    connetti();
    peer.risposta = [this](const QByteArray&) {
        if (peer.cornici().size() == 3) peer.riaggancia();
        return QByteArray("\6");
    };
    vende();
    ASSERT_TRUE(diventa([&] { return !link.statoConnessione(); }));
    ASSERT_EQ(senzaScontrino().size(), 1);
    EXPECT_TRUE(senzaScontrino().first().endsWith("collegamento caduto durante la stampa"));
}

TEST_F(FaultRuns, PeerThatIsSilentForEverHoldsNothingUp) {
    connetti();
    peer.risposta = [](const QByteArray&) { return QByteArray(); };
    for (int i = 0; i < 5; ++i) {
        vende();
    }
    EXPECT_EQ(link.stato(), StatoRegCassa::AlLavoro);
    EXPECT_EQ(senzaScontrino().size(), 5);
}

TEST_F(FaultRuns, ErrorFrameInSingleBytesAsksNobody) {
    connetti();
    rispondeUnaVolta({});
    vende();
    ASSERT_TRUE(diventa([&] { return peer.cornici().size() == 1; }));
    peer.mandaASpizzichi(PeerDiProva::errore("05", "Carta"));
    EXPECT_EQ(dialoghi.descrizioni, QStringList());
    EXPECT_EQ(link.stato(), StatoRegCassa::AlLavoro);
}

TEST_F(FaultRuns, JunkBeforeAnAnswerHidesIt) {
    connetti();
    rispondeUnaVolta("junk\6");
    vende();
    lasciaArrivare();
    EXPECT_EQ(peer.cornici().size(), 1);
    EXPECT_EQ(link.stato(), StatoRegCassa::AlLavoro);
}

TEST_F(FaultRuns, JunkBehindAnAnswerDoesNoHarm) {
    connetti();
    rispondeUnaVolta("\6junk\x15");
    vende();
    EXPECT_TRUE(diventa([&] { return finito(); }));
    EXPECT_EQ(peer.cornici().size(), 3);
}

TEST_F(FaultRuns, AnswerBeforeItsFrameIsAnEmptySend) {
    connetti();
    peer.manda("\6");
    ASSERT_TRUE(diventa([&] { return link.monitor.righe().back() == "SND: "; }));
    vende();
    EXPECT_TRUE(diventa([&] { return finito() && peer.cornici().size() == 3; }));
}

// Each answer is taken for that of the frame before: the refused total seems to come after the end.
TEST_F(FaultRuns, AnswerTooManyLeavesTheReceiptListedWhoseTotalWasRefused) {
    connetti();
    dialoghi.attendi(DialoghiRegCassa::Riprova);
    peer.risposta = [](const QByteArray&) { return QByteArray(); };
    vende();
    for (int cornici = 1; cornici <= 3; ++cornici) {
        ASSERT_TRUE(diventa([&] { return peer.cornici().size() == cornici; }));
        peer.manda("\6");  // the first one unasked, the others to the frame before
    }
    ASSERT_TRUE(diventa([&] { return finito(); }));
    EXPECT_EQ(senzaScontrino(), QStringList());
    peer.manda(PeerDiProva::errore("05", "Carta finita"));
    ASSERT_TRUE(diventa([&] { return dialoghi.esauriti(); }));
    ASSERT_EQ(senzaScontrino().size(), 1);
    EXPECT_TRUE(senzaScontrino().first().endsWith("le risposte non tornano: da controllare"));
}

TEST_F(FaultRuns, NakStormOnASingleConnectionIsAnsweredAndEnds) {
    connetti();
    peer.risposta = [](const QByteArray&) { return QByteArray(2000, '\x15'); };
    vende();
    ASSERT_TRUE(diventa([&] { return !dialoghi.descrizioni.isEmpty() && finito(); }));
    peer.risposta = {};
    peer.dimentica();
    vende();
    EXPECT_TRUE(diventa([&] { return finito() && peer.cornici().size() == 3; }));
}

TEST_F(FaultRuns, NakToEveryFrameAsksOnceForEachSale) {
    connetti();
    peer.risposta = [](const QByteArray&) { return QByteArray("\x15"); };
    for (int i = 1; i <= 10; ++i) {
        vende();
        ASSERT_TRUE(diventa([&] { return dialoghi.descrizioni.size() == i && finito(); }));
    }
    EXPECT_EQ(senzaScontrino().size(), 10);
}

TEST_F(FaultRuns, ErrorFrameOfAHundredKilobytesIsShownAsFarAsItCameInOnePiece) {
    connetti();
    peer.manda(PeerDiProva::errore("zz", QByteArray(100000, 'x')));
    ASSERT_TRUE(diventa([&] { return dialoghi.descrizioni.size() == 1; }));
    EXPECT_TRUE(dialoghi.descrizioni.first().startsWith("Errore 0 - xxx"));
    lasciaArrivare(10);
    vende();
    EXPECT_TRUE(diventa([&] { return finito(); }));
}

TEST_F(FaultRuns, TenMegabytesWithoutAnEndLeaveNothingBehind) {
    connetti();
    for (int i = 0; i < 10; ++i) {
        peer.manda(QByteArray(1 << 20, 'x'));
        lasciaArrivare(5);
    }
    EXPECT_LT(link.monitor.byte(), 1000);
    vende();
    EXPECT_TRUE(diventa([&] { return finito(); }));
}

TEST_F(FaultRuns, MonitorOfAFloodingPeerStaysWithinItsLimit) {
    connetti();
    for (int i = 0; i < 30; ++i) {
        peer.manda("\2X" + QByteArray(1 << 19, 'x'));
        lasciaArrivare(5);
        ASSERT_LE(link.monitor.byte(), MonitorRegCassa::limite);
    }
    EXPECT_GT(link.monitor.byte(), 1 << 20);
}

TEST_F(FaultRuns, AnotherProgramOnThePortDoesNotHoldUpTheTill) {
    connetti();
    peer.manda("SSH-2.0-prova\r\n");
    peer.risposta = [](const QByteArray&) { return QByteArray("Protocol mismatch.\r\n"); };
    vende();
    vende();
    lasciaArrivare();
    EXPECT_EQ(dialoghi.descrizioni, QStringList());
}

TEST_F(FaultRuns, PortWhereNobodyListensIsSilent) {
    peer.chiudi();
    link.connetti();
    vende();
    lasciaArrivare(10);
    EXPECT_FALSE(link.statoConnessione());
    EXPECT_EQ(link.monitor.testo(), "");
    EXPECT_EQ(dialoghi.descrizioni, QStringList());
}

TEST_F(FaultRuns, PeerThatComesBackIsConnectedByHand) {
    connetti();
    peer.chiudi();
    ASSERT_TRUE(diventa([&] { return !link.statoConnessione(); }));
    vende();
    ASSERT_TRUE(peer.apri());
    lasciaArrivare(10);
    EXPECT_FALSE(link.statoConnessione());
    connetti();
    vende();
    EXPECT_TRUE(diventa([&] { return finito() && peer.cornici().size() == 3; }));
}
