#include <functional>
#include <gtest/gtest.h>

#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>
#include <QTimer>

#include "ecr/conformance.h"
#include "ecr/frame_reader.h"
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

// Each frame's answer, in pieces that go out one after the other.
using Risponde = std::function<QList<QByteArray>(const QByteArray& cornice)>;

bool sana(const QByteArray& intera) {
    return intera == "\0020\3" || intera == cornice(intera.mid(1).chopped(3));
}

// An interface program that does everything right but one thing.
class ProgrammaSbagliato : public QObject {
  public:
    // What is asked together is answered together when `unite`.
    explicit ProgrammaSbagliato(Risponde risponde, bool unite = false)
        : mRisponde(std::move(risponde)), mUnite(unite) {}

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
            risposte += mRisponde(resto.left(fine + 1));
            resto.remove(0, fine + 1);
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
    Risponde mRisponde;
    bool mUnite;
    std::map<QTcpSocket*, QByteArray> mResti;
};

QStringList difettiDi(Risponde risponde, bool unite = false) {
    auto* programma = new ProgrammaSbagliato(std::move(risponde), unite);
    return FiloDelProgramma(programma, [=] { return programma->ascolta(); }).difetti();
}

// Of a program that refuses frames with a wrong checksum in this way.
QStringList difettiDelRifiuto(const QList<QByteArray>& pezzi, bool unite = false) {
    return difettiDi([=](const QByteArray& intera) { return sana(intera) ? QList<QByteArray>{"\6"} : pezzi; },
                     unite);
}

// Of a program that refuses these frames too.
QStringList difettiDiChiRifiuta(const std::function<bool(const QByteArray& cornice)>& rifiuta) {
    return difettiDi([=](const QByteArray& intera) {
        return QList<QByteArray>{sana(intera) && !rifiuta(intera) ? "\6" : "\x15"};
    });
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

// ---- What a receipt may hold

TEST(Conformance, RefusalOfAReturnIsSaid) {
    EXPECT_EQ(difettiDiChiRifiuta([](const QByteArray& c) { return c.contains("\xA4-"); }),
              QStringList{"a REPPROVA¤RESO DI PROVA¤-1¤1¤1¤22¤ risponde <NAK>"});
}

TEST(Conformance, RefusalOfAnAccentIsSaid) {
    const QStringList detti = difettiDiChiRifiuta([](const QByteArray& c) { return c.contains('\xE0'); });
    ASSERT_EQ(detti.size(), 1);
    EXPECT_TRUE(detti[0].startsWith("a REPPROVA¤città"));
}

TEST(Conformance, TotalThatIsHeldAgainstRoundedRowsIsSaid) {
    EXPECT_EQ(difettiDiChiRifiuta([](const QByteArray& c) { return c.startsWith("\2TOT1.99"); }),
              QStringList{"a TOT1.99¤ risponde <NAK>"});
}

TEST(Conformance, RowThatStaysThoughItWasRefusedIsSaid) {
    int righe = 0;
    const auto risponde = [&](const QByteArray& intera) {
        if (intera.startsWith("\2RST")) righe = 0;
        if (intera.startsWith("\2REP")) ++righe;
        const bool sbagliato = intera.startsWith("\2TOT3") && righe != 1;
        return QList<QByteArray>{sana(intera) && !sbagliato ? "\6" : "\x15"};
    };
    EXPECT_EQ(difettiDi(risponde), QStringList{"a TOT3¤ risponde <NAK> (dopo una riga rifiutata)"});
}

TEST(Conformance, SilenceAfterANullIsSaid) {
    const auto risponde = [](const QByteArray& intera) {
        if (intera.contains("Null")) return QList<QByteArray>();
        return QList<QByteArray>{sana(intera) ? "\6" : "\x15"};
    };
    EXPECT_EQ(difettiDi(risponde), QStringList{"nessuna risposta a una riga con un campo Null"});
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
