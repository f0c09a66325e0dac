#include "register/fake_socket.h"
#include "register/link_bench.h"

// The wire byte by byte, against a peer on a real socket.
class Link : public Collegato {};

namespace {

const char* const scontrino = "REPABC1¤PENNA BLU¤2¤1.5¤1¤22¤¥TOT3¤";
const QByteArray fine("\3");
const QByteArray reset("\2RST49\3");
const QByteArray rigaPenna(
    "\2REPABC1\xA4PENNA BLU\xA4"
    "2\xA4"
    "1.5\xA4"
    "1\xA4"
    "22\xA4"
    "38\3");
const QByteArray totale(
    "\2TOT3\xA4"
    "62\3");

}  // namespace

TEST_F(Link, ReceiptGoesOutOneFrameForEachAck) {
    connetti();
    peer.risposta = [](const QByteArray&) { return QByteArray(); };
    link.sendData(scontrino);
    ASSERT_TRUE(diventa([&] { return peer.ricevuti() == reset; }));
    lasciaArrivare();
    EXPECT_EQ(peer.ricevuti(), reset);
    peer.manda("\6");
    ASSERT_TRUE(diventa([&] { return peer.ricevuti() == reset + rigaPenna; }));
    lasciaArrivare();
    EXPECT_EQ(peer.ricevuti(), reset + rigaPenna);
    peer.manda("\6");
    ASSERT_TRUE(diventa([&] { return peer.ricevuti() == reset + rigaPenna + totale; }));
    EXPECT_EQ(link.Buffer(), "");
    EXPECT_EQ(link.stato(), StatoRegCassa::AlLavoro);
    peer.manda("\6");
    EXPECT_TRUE(diventa([&] { return finito(); }));
}

TEST_F(Link, SingleCommandSendsNothing) {
    connetti();
    link.sendData("TOT0¤");
    lasciaArrivare();
    EXPECT_EQ(peer.ricevuti(), QByteArray());
    EXPECT_EQ(link.Buffer(), "");
}

TEST_F(Link, EmptyTextSendsALoneReset) {
    connetti();
    link.sendData("");
    EXPECT_TRUE(diventa([&] { return finito(); }));
    EXPECT_EQ(peer.ricevuti(), reset);
}

TEST_F(Link, UnconnectedLinkQueuesAndSendsNothing) {
    link.sendData(scontrino);
    EXPECT_TRUE(link.Buffer().startsWith("\2RST49\3"));
    connetti();
    lasciaArrivare();
    EXPECT_EQ(peer.ricevuti(), QByteArray());
    EXPECT_EQ(link.stato(), StatoRegCassa::Fermo);
    link.retry();
    EXPECT_TRUE(diventa([&] { return finito(); }));
    EXPECT_EQ(peer.ricevuti(), reset + rigaPenna + totale);
}

TEST_F(Link, EverySendIsInTheMonitorTheEmptyOneToo) {
    connetti();
    link.sendData("REPa¥TOT1");
    ASSERT_TRUE(diventa([&] { return righe().size() == 8; })) << righe().join("\n").toStdString();
    EXPECT_EQ(righe(), (QStringList{"INF: Connessione Aperta", "SND: <STX>RST49<ETX>", "REC: <ACK>",
                                    "SND: <STX>REPa28<ETX>", "REC: <ACK>", "SND: <STX>TOT196<ETX>",
                                    "REC: <ACK>", "SND: "}));
}

TEST_F(Link, TwoAcksInOneChunkPumpOnce) {
    connetti();
    peer.risposta = [](const QByteArray&) { return QByteArray(); };
    link.sendData(scontrino);
    ASSERT_TRUE(diventa([&] { return peer.ricevuti() == reset; }));
    peer.manda("\6\6");
    ASSERT_TRUE(diventa([&] { return peer.ricevuti() == reset + rigaPenna; }));
    lasciaArrivare();
    EXPECT_EQ(peer.ricevuti(), reset + rigaPenna);
}

TEST_F(Link, ErrorFrameBehindAnAckIsNotSeen) {
    connetti();
    peer.risposta = [this](const QByteArray&) {
        return peer.cornici().size() == 1 ? "\6" + PeerDiProva::errore("05", "Carta") : QByteArray("\6");
    };
    link.sendData(scontrino);
    EXPECT_TRUE(diventa([&] { return finito(); }));
    EXPECT_EQ(peer.ricevuti(), reset + rigaPenna + totale);
}

TEST_F(Link, SecondReceiptPushesOneMoreFrameAtOnce) {
    connetti();
    peer.risposta = [](const QByteArray&) { return QByteArray(); };
    link.sendData(scontrino);
    link.sendData(scontrino);
    ASSERT_TRUE(diventa([&] { return peer.ricevuti() == reset + rigaPenna; }));
    lasciaArrivare();
    EXPECT_EQ(peer.cornici().size(), 2);
}

TEST_F(Link, ForeignAnswerIsNotEvenLogged) {
    connetti();
    peer.manda("ciao\6");
    lasciaArrivare();
    EXPECT_EQ(righe(), QStringList{"INF: Connessione Aperta"});
}

TEST_F(Link, UnknownCommandIsLoggedAndDropped) {
    connetti();
    peer.manda("\2INF01 ok33\3");
    EXPECT_TRUE(diventa([&] { return righe().contains("REC: <STX>INF01 ok33<ETX>"); }));
    EXPECT_EQ(link.stato(), StatoRegCassa::Pronto);
}

TEST_F(Link, BodyWithAMarkBreaksItsFrame) {
    connetti();
    link.sendData(
        "REPa\3"
        "b¥TOT1");
    EXPECT_TRUE(diventa([&] { return finito(); }));
    EXPECT_EQ(peer.cornici().size(), 4);
    EXPECT_EQ(peer.guaste().size(), 2);
}

// The other side waits for ETX: it sees one frame, and the pump has made two of it.
TEST_F(Link, BodyWithAnAnswersByteIsCutThere) {
    peer.risposta = [](const QByteArray&) { return QByteArray(); };
    for (const char* segno : {"\x06", "\x15"}) {
        connetti();
        peer.dimentica();
        link.sendData("REPa" + QString(segno) + "b¥TOT1");
        ASSERT_TRUE(diventa([&] { return peer.ricevuti() == reset; }));
        peer.manda("\6");
        const QByteArray mezza = QByteArray("\2REPa") + segno;
        ASSERT_TRUE(diventa([&] { return peer.ricevuti() == reset + mezza; }));
        EXPECT_EQ(peer.cornici().size(), 1);
        peer.manda("\6");
        ASSERT_TRUE(diventa([&] { return peer.cornici().size() == 2; }));
        EXPECT_TRUE(peer.cornici().last().startsWith("REPa" + QString(segno) + "b"));
        link.annullaOperazioni();
        peer.riaggancia();
        ASSERT_TRUE(diventa([&] { return !link.statoConnessione(); }));
    }
}

TEST_F(Link, FrameOfTenThousandCharactersStopsThePump) {
    connetti();
    link.sendData("REP" + QString(10000, u'x') + "¥TOT1");
    ASSERT_TRUE(diventa([&] { return righe().filter("SND").size() == 2; }));
    lasciaArrivare();
    EXPECT_EQ(peer.ricevuti(), reset);
    EXPECT_TRUE(link.Buffer().startsWith("\2REPxx"));
    EXPECT_EQ(link.stato(), StatoRegCassa::Fermo);
}

TEST_F(Link, DisconnectSaysOffAheadOfTheQueue) {
    connetti();
    peer.risposta = [](const QByteArray&) { return QByteArray(); };
    link.sendData(scontrino);
    ASSERT_TRUE(diventa([&] { return peer.ricevuti() == reset; }));
    link.disconnect();
    EXPECT_TRUE(diventa([&] { return peer.ricevuti() == reset + "\2OFF19\3" && !link.statoConnessione(); }));
    EXPECT_TRUE(link.Buffer().startsWith("\2REPABC1"));
    EXPECT_EQ(righe().last(), "SND: <STX>RST49<ETX>");
}

TEST_F(Link, DisconnectThatFindsNobodyEndsWithTheConnection) {
    auto* presa = new PresaFinta;
    InterfacciaRegCassa altro{std::unique_ptr<PresaRegCassa>(presa)};
    int scaricato = 0;
    QObject::connect(&altro.eventi, &EventiRegCassa::scaricato, &schermo, [&] { ++scaricato; });
    presa->apri();
    altro.disconnect();
    EXPECT_EQ(presa->inviati, "\2OFF19\3");
    EXPECT_EQ(scaricato, 0);
    presa->cade();
    EXPECT_EQ(scaricato, 1);
    EXPECT_FALSE(altro.statoConnessione());
}

TEST_F(Link, DisconnectWithoutAConnectionEndsAtOnce) {
    int scaricato = 0;
    QObject::connect(&link.eventi, &EventiRegCassa::scaricato, &schermo, [&] { ++scaricato; });
    link.disconnect();
    EXPECT_EQ(scaricato, 1);
}

TEST_F(Link, LinkThatHasEndedCanBeOpenedAnew) {
    connetti();
    link.disconnect();
    ASSERT_TRUE(diventa([&] { return !link.statoConnessione() && !peer.collegato(); }));
    connetti();
    link.sendData(scontrino);
    EXPECT_TRUE(diventa([&] { return finito(); }));
    EXPECT_TRUE(link.statoConnessione());
}

TEST_F(Link, ReceiptThatTheEndOfTheLinkCutsIsListed) {
    connetti();
    peer.risposta = [](const QByteArray&) { return QByteArray(); };
    link.scontrini.inizia("A");
    link.sendData(scontrino);
    link.scontrini.salvataggioConcluso(true);
    link.disconnect();
    ASSERT_TRUE(diventa([&] { return !link.statoConnessione(); }));
    ASSERT_EQ(link.scontrini.voci().size(), 1u);
    EXPECT_EQ(link.scontrini.voci().front().esito, RegistroScontrini::Esito::Interrotto);
}

// With too many dialogues up the answer to the last frame waits in the socket.
TEST_F(Link, AnswerThatWaitsWhenTheConnectionBreaksIsRead) {
    auto* presa = new PresaFinta;
    InterfacciaRegCassa altro{std::unique_ptr<PresaRegCassa>(presa)};
    int aperti = 0;
    QObject::connect(&altro.eventi, &EventiRegCassa::evtError, &schermo, [&] {
        if (++aperti < 4) return presa->arriva("\x15");
        presa->arriva("\6");
    });
    presa->apri();
    presa->arriva("\x15");
    altro.scontrini.inizia("A");
    altro.sendData("");
    altro.scontrini.salvataggioConcluso(true);
    EXPECT_EQ(altro.scontrini.voci().size(), 1u);
    presa->cade();
    EXPECT_EQ(altro.scontrini.voci().size(), 0u);
}

TEST_F(Link, PortsBelowOneAreNeverConnectedTo) {
    for (const int porta : {0, -1}) {
        gTCPPort = porta;
        link.connetti();
        lasciaArrivare(10);
        EXPECT_FALSE(link.statoConnessione()) << porta;
        EXPECT_EQ(righe(), QStringList()) << porta;
    }
}

TEST_F(Link, ConnectionAndItsEndAreTold) {
    int aperte = 0, chiuse = 0;
    QObject::connect(&link.eventi, &EventiRegCassa::evtStart, &schermo, [&] { ++aperte; });
    QObject::connect(&link.eventi, &EventiRegCassa::evtStop, &schermo, [&] { ++chiuse; });
    connetti();
    peer.riaggancia();
    EXPECT_TRUE(diventa([&] { return !link.statoConnessione(); }));
    EXPECT_EQ(aperte, 1);
    EXPECT_EQ(chiuse, 1);
    EXPECT_EQ(righe(), (QStringList{"INF: Connessione Aperta", "INF: Connessione Chiusa"}));
}

TEST_F(Link, ReconnectionDoesNotRestartThePump) {
    connetti();
    peer.risposta = [](const QByteArray&) { return QByteArray(); };
    link.sendData(scontrino);
    ASSERT_TRUE(diventa([&] { return peer.ricevuti() == reset; }));
    peer.riaggancia();
    ASSERT_TRUE(diventa([&] { return !link.statoConnessione(); }));
    connetti();
    lasciaArrivare();
    EXPECT_EQ(peer.ricevuti(), reset);
}

TEST_F(Link, SuspendedLinkDropsWhatItIsGiven) {
    connetti();
    link.interrompi();
    link.sendData(scontrino);
    lasciaArrivare();
    EXPECT_EQ(link.Buffer(), "");
    EXPECT_EQ(peer.ricevuti(), QByteArray());
    EXPECT_EQ(link.stato(), StatoRegCassa::Sospeso);
}

TEST_F(Link, LateAckStillPumpsWhileSuspended) {
    connetti();
    peer.risposta = [](const QByteArray&) { return QByteArray(); };
    link.sendData(scontrino);
    ASSERT_TRUE(diventa([&] { return peer.ricevuti() == reset; }));
    link.interrompi();
    peer.manda("\6");
    EXPECT_TRUE(diventa([&] { return peer.ricevuti() == reset + rigaPenna; }));
}

TEST_F(Link, ConnectingAgainTakesTheSuspensionBack) {
    connetti();
    link.interrompi();
    peer.riaggancia();
    ASSERT_TRUE(diventa([&] { return !link.statoConnessione(); }));
    connetti();
    EXPECT_TRUE(link.attiva());
}

TEST_F(Link, OneAttemptWaitsForAProgramThatIsStillStarting) {
    peer.chiudi();
    link.connetti();
    lasciaArrivare();
    EXPECT_FALSE(link.statoConnessione());
    ASSERT_TRUE(peer.apri());
    EXPECT_TRUE(diventa([&] { return link.statoConnessione(); }));
}

TEST_F(Link, AnswerSentJustBeforeTheConnectionBreaksIsStillRead) {
    connetti();
    dialoghi.attendi(DialoghiRegCassa::Nessuna);
    peer.manda("\x15");
    peer.riaggancia();
    EXPECT_TRUE(diventa([&] { return !link.statoConnessione() && dialoghi.descrizioni.size() == 1; }));
}
