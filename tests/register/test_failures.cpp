#include "core/errors.h"
#include "data/gateway.h"
#include "doubles/operatore_scritto.h"
#include "register/link_bench.h"

// What the register refuses, and what the operator answers.
class Failures : public Collegato {
  protected:
    // The n-th frame from now on gets that answer, the others an ACK.
    void allaCornice(int n, const QByteArray& rispostaGuasta) {
        peer.risposta = [this, n, rispostaGuasta, viste = 0](const QByteArray&) mutable {
            return ++viste == n ? rispostaGuasta : QByteArray("\6");
        };
    }
    static QStringList corpi() { return {"RST49", "REPa28", "TOT196"}; }

    const QString scontrino = "REPa¥TOT1";
};

namespace {

const QByteArray nak("\x15");
const char* const testoNak =
    "Errore -1 - Errore di Acknowledge. Ricevuto NAK dall'interfaccia del Registratore di cassa";

}  // namespace

TEST_F(Failures, RefusedFrameIsAskedAboutWithWhatWaitsBehindIt) {
    connetti();
    allaCornice(2, nak);
    dialoghi.attendi(DialoghiRegCassa::Nessuna, [&] { EXPECT_EQ(link.stato(), StatoRegCassa::Fermo); });
    link.sendData(scontrino);
    ASSERT_TRUE(diventa([&] { return dialoghi.descrizioni.size() == 1; }));
    EXPECT_EQ(dialoghi.descrizioni, QStringList{testoNak});
    EXPECT_EQ(dialoghi.buffers, QStringList{"\2TOT196\3"});
}

TEST_F(Failures, RetrySendsTheFrameAgainAndGoesOn) {
    connetti();
    allaCornice(2, nak);
    dialoghi.attendi(DialoghiRegCassa::Riprova);
    link.sendData(scontrino);
    EXPECT_TRUE(diventa([&] { return finito(); }));
    EXPECT_EQ(peer.cornici(), (QStringList{"RST49", "REPa28", "REPa28", "TOT196"}));
}

TEST_F(Failures, CancelThrowsTheRestAway) {
    connetti();
    allaCornice(2, nak);
    dialoghi.attendi(DialoghiRegCassa::AnnullaTutto);
    link.sendData(scontrino);
    EXPECT_TRUE(diventa([&] { return finito() && dialoghi.descrizioni.size() == 1; }));
    lasciaArrivare();
    EXPECT_EQ(peer.cornici(), (QStringList{"RST49", "REPa28"}));
    EXPECT_TRUE(link.attiva());
}

TEST_F(Failures, AfterCancelTheNextReceiptGoesOut) {
    connetti();
    allaCornice(1, nak);
    dialoghi.attendi(DialoghiRegCassa::AnnullaTutto);
    link.sendData(scontrino);
    ASSERT_TRUE(diventa([&] { return dialoghi.descrizioni.size() == 1; }));
    peer.dimentica();
    link.sendData(scontrino);
    EXPECT_TRUE(diventa([&] { return finito() && peer.cornici().size() == 3; }));
    EXPECT_EQ(peer.cornici(), corpi());
}

TEST_F(Failures, SuspendThrowsAwayAndDropsWhatFollowsWithoutAWord) {
    connetti();
    allaCornice(2, nak);
    dialoghi.attendi(DialoghiRegCassa::Interrompi);
    link.sendData(scontrino);
    ASSERT_TRUE(diventa([&] { return link.stato() == StatoRegCassa::Sospeso; }));
    link.sendData(scontrino);
    lasciaArrivare();
    EXPECT_EQ(peer.cornici(), (QStringList{"RST49", "REPa28"}));
    EXPECT_EQ(dialoghi.descrizioni.size(), 1);
}

TEST_F(Failures, ClosedDialogueLeavesTheQueueToTheNextReceipt) {
    connetti();
    allaCornice(2, nak);
    dialoghi.attendi(DialoghiRegCassa::Nessuna);
    link.sendData(scontrino);
    ASSERT_TRUE(diventa([&] { return dialoghi.descrizioni.size() == 1; }));
    lasciaArrivare();
    EXPECT_EQ(link.Buffer(), "\2TOT196\3");
    link.sendData(scontrino);
    EXPECT_TRUE(diventa([&] { return finito(); }));
    EXPECT_EQ(peer.cornici(), (QStringList{"RST49", "REPa28", "TOT196"} + corpi()));
}

TEST_F(Failures, ErrorFrameShowsItsCodeAndText) {
    connetti();
    allaCornice(1, PeerDiProva::errore("05", "Carta finita"));
    dialoghi.attendi(DialoghiRegCassa::AnnullaTutto);
    link.sendData(scontrino);
    EXPECT_TRUE(diventa([&] { return dialoghi.descrizioni.size() == 1; }));
    EXPECT_EQ(dialoghi.descrizioni, QStringList{"Errore 5 - Carta finita"});
}

TEST_F(Failures, ErrorFrameIsInTheMonitorBeforeAndAfterTheDialogue) {
    connetti();
    const QByteArray errore = PeerDiProva::errore("05", "Carta");
    dialoghi.attendi(DialoghiRegCassa::Nessuna, [&] { EXPECT_EQ(righe().filter("REC:").size(), 1); });
    peer.manda(errore);
    EXPECT_TRUE(diventa([&] { return righe().filter("REC:").size() == 2; }));
}

TEST_F(Failures, ErrorFrameIsInTheMonitorOnceWhileItIsOff) {
    connetti();
    link.monitor.acceso(false);
    dialoghi.attendi(DialoghiRegCassa::Nessuna);
    peer.manda(PeerDiProva::errore("05", "Carta"));
    ASSERT_TRUE(diventa([&] { return dialoghi.descrizioni.size() == 1; }));
    lasciaArrivare();
    EXPECT_EQ(righe().filter("REC:").size(), 1);
}

TEST_F(Failures, NakIsInTheMonitorBeforeTheDialogue) {
    connetti();
    dialoghi.attendi(DialoghiRegCassa::Nessuna, [&] { EXPECT_EQ(righe().last(), "REC: <NAK>"); });
    peer.manda(nak);
    EXPECT_TRUE(diventa([&] { return dialoghi.descrizioni.size() == 1; }));
}

TEST_F(Failures, ErrorFrameThatIsTooShortIsReportedAndAsksNothing) {
    OperatoreScritto operatore;
    gErr.impostaOperatore(&operatore);
    operatore.attendiAvviso("frmRegCassa.analizeCMDLine");
    connetti();
    peer.manda("\2ERR05\3");
    EXPECT_TRUE(diventa([&] { return righe().contains("REC: <STX>ERR05<ETX>"); }));
    gErr.impostaOperatore(nullptr);
    EXPECT_EQ(dialoghi.descrizioni.size(), 0);
}

TEST_F(Failures, RetryAfterTheLastAckSendsAnEmptyText) {
    connetti();
    link.sendData(scontrino);
    ASSERT_TRUE(diventa([&] { return finito() && righe().last() == "SND: "; }));
    dialoghi.attendi(DialoghiRegCassa::Riprova);
    peer.manda(PeerDiProva::errore("09", "Coperchio"));
    EXPECT_TRUE(diventa([&] { return righe().filter("SND: ").size() == 5; }));
    EXPECT_EQ(peer.cornici(), corpi());
}

TEST_F(Failures, RetryWithNoFrameTakenOffSendsWhatTheQueueHolds) {
    link.sendData(scontrino);  // waits: nobody is connected
    connetti();
    dialoghi.attendi(DialoghiRegCassa::Riprova);
    peer.manda(PeerDiProva::errore("09", "Coperchio"));
    EXPECT_TRUE(diventa([&] { return dialoghi.esauriti() && finito(); }));
    EXPECT_EQ(peer.cornici(), corpi());
}

TEST_F(Failures, EveryScreenAsksInTurn) {
    QObject altroSchermo;
    QObject::connect(&link.eventi, &EventiRegCassa::evtError, &altroSchermo,
                     [this](int codice, const QString& d) { mFrmRegCassa_evtError(link, codice, d); });
    connetti();
    allaCornice(1, nak);
    dialoghi.attendi(DialoghiRegCassa::Riprova);
    dialoghi.attendi(DialoghiRegCassa::AnnullaTutto);
    link.sendData(scontrino);
    ASSERT_TRUE(diventa([&] { return dialoghi.descrizioni.size() == 2 && peer.cornici().size() == 2; }));
    EXPECT_TRUE(diventa([&] { return finito(); }));
    EXPECT_EQ(peer.cornici(), (QStringList{"RST49", "RST49"}));
}

TEST_F(Failures, FurtherErrorUnderTheDialogueOpensAnother) {
    connetti();
    dialoghi.attendi(DialoghiRegCassa::Nessuna, [&] {
        peer.manda(PeerDiProva::errore("02", "Secondo"));
        EXPECT_TRUE(diventa([&] { return dialoghi.descrizioni.size() == 2; }));
    });
    dialoghi.attendi(DialoghiRegCassa::Nessuna);
    peer.manda(PeerDiProva::errore("01", "Primo"));
    EXPECT_TRUE(diventa([&] { return dialoghi.descrizioni.size() == 2; }));
    EXPECT_EQ(dialoghi.descrizioni, (QStringList{"Errore 1 - Primo", "Errore 2 - Secondo"}));
}

TEST_F(Failures, StormOfRefusalsNestsNoDeeperThanFourDialogues) {
    int aperti = 0, massimo = 0, rifiuti = 12;
    dialoghi.altrimenti = [&] {
        massimo = std::max(massimo, ++aperti);
        if (--rifiuti > 0) peer.manda(nak);
        lasciaArrivare();
        --aperti;
        return DialoghiRegCassa::Nessuna;
    };
    connetti();
    peer.manda(nak);
    EXPECT_TRUE(diventa([&] { return rifiuti <= 0 && aperti == 0; }));
    lasciaArrivare(10);
    EXPECT_EQ(massimo, 4);
}

TEST(BufferWindow, DoesNotTellNakFromAck) {
    EXPECT_EQ(bufferLeggibile("\2TOT\3\x15\x06"), "<STX>TOT<ETX><ACK><ACK>");
}
