#include <functional>
#include <gtest/gtest.h>

#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>
#include <QTimer>

#include "ecr/conformance.h"
#include "ecr/simulator.h"

namespace {

// The check waits for its answers: the program that it checks has a thread of its own.
class FiloDelProgramma {
  public:
    ~FiloDelProgramma() {
        QMetaObject::invokeMethod(
            mProgramma, [this] { delete mProgramma; }, Qt::BlockingQueuedConnection);
        mFilo.quit();
        mFilo.wait();
    }
    // `avvia` runs in that thread and answers the port.
    FiloDelProgramma(QObject* programma, const std::function<int()>& avvia) : mProgramma(programma) {
        mFilo.start();
        programma->moveToThread(&mFilo);
        QMetaObject::invokeMethod(
            programma, [&] { mPorta = avvia(); }, Qt::BlockingQueuedConnection);
    }
    FiloDelProgramma(const FiloDelProgramma&) = delete;
    FiloDelProgramma& operator=(const FiloDelProgramma&) = delete;

    QStringList difetti() const {
        QStringList tutti;
        for (const auto& esito : Conformita(mPorta, 500).esegui()) {
            if (!esito.difetto.isEmpty()) tutti << esito.difetto;
        }
        return tutti;
    }

  private:
    QThread mFilo;
    QObject* mProgramma;
    int mPorta = 0;
};

QStringList difettiDelSimulatore(Guasto guasto) {
    auto* simulatore = new Simulatore;
    return FiloDelProgramma(simulatore,
                            [=] {
                                simulatore->ascolta(0);
                                simulatore->guasto(guasto, false);
                                return simulatore->porta();
                            })
        .difetti();
}

// An interface program that does everything right but one thing: how it refuses a frame with a wrong
// checksum.
class ProgrammaSbagliato : public QObject {
  public:
    // The refusal goes out in these pieces, one after the other; what is asked together is answered together
    // when `unite`.
    explicit ProgrammaSbagliato(QList<QByteArray> rifiuto, bool unite = false)
        : mRifiuto(std::move(rifiuto)), mUnite(unite) {}

    int ascolta() {
        connect(&mServer, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* presa = mServer.nextPendingConnection();
            presa->setSocketOption(QAbstractSocket::LowDelayOption, 1);
            connect(presa, &QTcpSocket::readyRead, this, [this, presa] { leggi(presa); });
        });
        mServer.listen(QHostAddress::LocalHost);
        return mServer.serverPort();
    }

  private:
    void leggi(QTcpSocket* presa) {
        QByteArray& resto = mResti[presa];
        resto += presa->readAll();
        QList<QByteArray> risposte;
        for (qsizetype fine = resto.indexOf('\3'); fine >= 0; fine = resto.indexOf('\3')) {
            const bool sbagliata = resto.left(fine + 1) == "\2RST48\3";
            resto.remove(0, fine + 1);
            risposte += sbagliata ? mRifiuto : QList<QByteArray>{"\6"};
        }
        rispondi(presa, mUnite ? QList<QByteArray>{risposte.join()} : risposte);
    }
    static void rispondi(QTcpSocket* presa, const QList<QByteArray>& pezzi) {
        int pausa = 0;  // milliseconds
        for (const QByteArray& pezzo : pezzi) {
            QTimer::singleShot(std::exchange(pausa, pausa + 20), presa, [presa, pezzo] {
                presa->write(pezzo);
                presa->flush();
            });
        }
    }

    QTcpServer mServer{this};
    QList<QByteArray> mRifiuto;
    bool mUnite;
    std::map<QTcpSocket*, QByteArray> mResti;
};

QStringList difettiDelRifiuto(const QList<QByteArray>& pezzi, bool unite = false) {
    auto* programma = new ProgrammaSbagliato(pezzi, unite);
    return FiloDelProgramma(programma, [=] { return programma->ascolta(); }).difetti();
}

}  // namespace

TEST(Conformance, TheSimulatorConforms) {
    EXPECT_EQ(difettiDelSimulatore(Guasto::Nessuno), QStringList());
}

TEST(Conformance, SilenceIsSaid) {
    const QStringList detti = difettiDelSimulatore(Guasto::Muto);
    EXPECT_TRUE(detti.contains("nessuna risposta a RST")) << detti.join("\n").toStdString();
}

TEST(Conformance, ErrorGluedToAnAckIsSaid) {
    EXPECT_FALSE(difettiDelSimulatore(Guasto::Unisci).isEmpty());
}

TEST(Conformance, TwoAnswersInOneAreSaid) {
    EXPECT_EQ(
        difettiDelRifiuto({"\x15"}, true),
        QStringList{"risponde a due cornici in un colpo solo: la cassa vede soltanto la prima risposta"});
}

TEST(Conformance, NobodyThereIsSaidOnce) {
    QTcpServer occupata;
    occupata.listen(QHostAddress::LocalHost);
    const int porta = occupata.serverPort();
    occupata.close();
    const auto esiti = Conformita(porta, 500).esegui();
    ASSERT_EQ(esiti.size(), 1u);
    EXPECT_EQ(esiti[0].difetto, "nessuno ascolta su 127.0.0.1:" + QString::number(porta));
}

// ---- How a frame is refused

TEST(Conformance, RefusalByNakOrByAWholeErrorFrameConforms) {
    EXPECT_EQ(difettiDelRifiuto({"\x15"}), QStringList());
    EXPECT_EQ(difettiDelRifiuto({"\2ERR01 Checksum81\3"}), QStringList());  // sum 1181
    EXPECT_EQ(difettiDelRifiuto({"\2ERR01 62\3"}), QStringList());          // no text: sum 362
}

TEST(Conformance, ErrorFrameInPiecesIsSaid) {
    EXPECT_EQ(
        difettiDelRifiuto({"\2", "ERR01 62\3"}),
        QStringList{"la cornice d'errore <STX>ERR01 62<ETX> arriva in più pezzi: la cassa non la vede"});
}

TEST(Conformance, ErrorFrameThatIsTooShortIsSaid) {
    EXPECT_EQ(difettiDelRifiuto({"\2ERR0138\3"}),
              QStringList{"la cornice d'errore <STX>ERR0138<ETX> è troppo corta: ha meno di 10 byte"});
}

TEST(Conformance, ErrorFrameThatNeverEndsIsSilence) {
    EXPECT_TRUE(difettiDelRifiuto({"\2ERR01 62"}).join("\n").contains("RST48"));
}

TEST(Conformance, ErrorCodeOfOneDigitIsSaid) {
    EXPECT_EQ(difettiDelRifiuto({"\2ERR5 Carta33\3"}),
              QStringList{"la cornice d'errore <STX>ERR5 Carta33<ETX> non ha un codice di due cifre"});
}

TEST(Conformance, ErrorChecksumOfOneDigitIsSaid) {
    EXPECT_EQ(difettiDelRifiuto({"\2ERR05 Carta5\3"}),
              QStringList{"la cornice d'errore <STX>ERR05 Carta5<ETX> non ha un checksum di due cifre"});
}

TEST(Conformance, WrongErrorChecksumIsSaid) {
    EXPECT_EQ(difettiDelRifiuto({"\2ERR01 63\3"}), QStringList{"la cornice d'errore <STX>ERR01 63<ETX> ha il "
                                                               "checksum sbagliato: doveva essere 62"});
}
