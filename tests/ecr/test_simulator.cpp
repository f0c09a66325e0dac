#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>

#include "ecr/journal.h"
#include "ecr/simulator.h"

namespace {

const QByteArray ack("\x06");

// A simulator and one raw socket that speaks to it.
class SimulatorTest : public testing::Test {
  protected:
    SimulatorTest() {
        EXPECT_TRUE(simulatore.ascolta(0));
        cassa.connectToHost("127.0.0.1", static_cast<quint16>(simulatore.porta()));
        EXPECT_TRUE(QTest::qWaitFor([&] { return cassa.state() == QAbstractSocket::ConnectedState; }));
    }
    // What comes back once so many bytes are there.
    QByteArray manda(const QByteArray& byte, int attesi = 1) {
        cassa.write(byte);
        EXPECT_TRUE(QTest::qWaitFor([&] { return cassa.bytesAvailable() >= attesi; }));
        return cassa.readAll();
    }

    Simulatore simulatore;
    QTcpSocket cassa;
};

const QByteArray reset("\x02RST49\x03");
const QByteArray erroreCarta = corniceErrore(5, "Carta finita");

}  // namespace

TEST_F(SimulatorTest, EachFrameGetsOneAck) {
    EXPECT_EQ(manda(reset), ack);
    EXPECT_EQ(manda(reset + reset, 2), ack + ack);
}

TEST_F(SimulatorTest, WrongChecksumIsRefused) {
    EXPECT_TRUE(manda("\x02RST48\x03", 5)
                    .startsWith("\x02"
                                "ERR01"));
}

TEST_F(SimulatorTest, FrameMayComeInPieces) {
    cassa.write("\x02RS");
    cassa.flush();
    EXPECT_EQ(manda("T49\x03"), ack);
}

TEST_F(SimulatorTest, ReceiptIsToldOnce) {
    int stampati = 0;
    QObject::connect(&simulatore, &Simulatore::stampato, [&](const Scontrino& s) {
        ++stampati;
        EXPECT_EQ(s.righe.size(), 1u);
    });
    manda(reset);
    manda(
        "\x02REPABC1\xA4PENNA BLU\xA4"
        "2\xA4"
        "1.5\xA4"
        "1\xA4"
        "22\xA4"
        "38\x03");
    EXPECT_EQ(stampati, 0);
    EXPECT_EQ(manda("\x02TOT3\xA4"
                    "62\x03"),
              ack);
    EXPECT_EQ(stampati, 1);
}

TEST_F(SimulatorTest, TextIsReadInTheWiresCodePage) {
    QString visto;
    QObject::connect(&simulatore, &Simulatore::comando, [&](const QString& testo) { visto = testo; });
    manda(cornice("REPx\xA4\x80 5 \x96 citt\xE0"));
    EXPECT_EQ(visto, "REPx¤€ 5 – città");
}

TEST_F(SimulatorTest, OffEndsIt) {
    bool spento = false;
    QObject::connect(&simulatore, &Simulatore::spento, [&] { spento = true; });
    EXPECT_EQ(manda("\x02OFF19\x03"), ack);
    EXPECT_TRUE(QTest::qWaitFor([&] { return spento; }));
}

TEST_F(SimulatorTest, FaultsAnswerAsTheirNamesSay) {
    simulatore.guasto(Guasto::Carta, false);
    EXPECT_EQ(manda(reset, static_cast<int>(erroreCarta.size())), erroreCarta);
    simulatore.guasto(Guasto::Rifiuta, false);
    EXPECT_EQ(manda(reset), "\x15");
    simulatore.guasto(Guasto::Unisci, false);
    EXPECT_EQ(manda(reset, static_cast<int>(erroreCarta.size()) + 1), ack + erroreCarta);
    simulatore.guasto(Guasto::Spezza, false);
    EXPECT_EQ(manda(reset, static_cast<int>(erroreCarta.size())), erroreCarta);
    simulatore.guasto(Guasto::Confondi, false);
    EXPECT_EQ(manda(reset, 4), "?#!\x06");
}

TEST_F(SimulatorTest, FaultForOnceEndsWithTheNextCommand) {
    simulatore.guasto(Guasto::Rifiuta, true);
    EXPECT_EQ(manda(reset), "\x15");
    EXPECT_EQ(manda(reset), ack);
}

TEST_F(SimulatorTest, SilentRegisterAnswersNothing) {
    simulatore.guasto(Guasto::Muto, true);
    EXPECT_EQ(manda(reset + reset), ack);
    // A second answer would be behind the one to a third frame.
    EXPECT_EQ(manda(reset), ack);
    EXPECT_EQ(cassa.bytesAvailable(), 0);
}

TEST_F(SimulatorTest, HangingUpIsNoAnswer) {
    simulatore.guasto(Guasto::Chiudi, false);
    cassa.write(reset);
    EXPECT_TRUE(QTest::qWaitFor([&] { return cassa.state() == QAbstractSocket::UnconnectedState; }));
}

TEST_F(SimulatorTest, SlowRegisterAnswersEachFrameAfterASecond) {
    simulatore.guasto(Guasto::Lento, false);
    QElapsedTimer orologio;
    orologio.start();
    EXPECT_EQ(manda(reset), ack);
    EXPECT_GE(orologio.elapsed(), 950);  // timers may fire a twentieth early
}

TEST_F(SimulatorTest, TwoAnswersComeApart) {
    QElapsedTimer orologio;
    orologio.start();
    EXPECT_EQ(manda(reset + reset), ack);
    EXPECT_TRUE(QTest::qWaitFor([&] { return cassa.bytesAvailable() == 1; }));
    EXPECT_GE(orologio.elapsed(), 28);
}

TEST_F(SimulatorTest, SlowAnswersKeepTheirOrder) {
    simulatore.guasto(Guasto::Lento, true);
    EXPECT_EQ(manda(reset + "\x02RST48\x03", 2).front(), '\x06');
}

TEST_F(SimulatorTest, DyingRegisterAnswersNothingAndEndsTheProgram) {
    bool morto = false;
    QObject::connect(&simulatore, &Simulatore::morto, [&] { morto = true; });
    simulatore.guasto(Guasto::Muori, false);
    cassa.write(reset);
    EXPECT_TRUE(QTest::qWaitFor([&] { return cassa.state() == QAbstractSocket::UnconnectedState; }));
    EXPECT_TRUE(morto);
    EXPECT_EQ(cassa.bytesAvailable(), 0);
}

TEST_F(SimulatorTest, EveryFaultHasANameOfItsOwn) {
    for (const VoceGuasto& voce : guasti()) {
        EXPECT_EQ(guastoDiNome(voce.nome), voce.guasto);
    }
    EXPECT_EQ(guastoDiNome("carte"), std::nullopt);
}

TEST_F(SimulatorTest, PortThatIsTakenIsSaid) {
    Simulatore altro;
    EXPECT_FALSE(altro.ascolta(simulatore.porta()));
}

namespace {

class Journal : public testing::Test {
  protected:
    Journal() {
        s.numero = 41;
        s.ora = QDateTime(QDate(2026, 3, 16), QTime(10, 30));
    }
    QString contenuto(const QString& nome) const {
        QFile file(cartella.path() + "/Scontrini/" + nome);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    const QTemporaryDir cartella;
    const Giornale giornale{cartella.path() + "/Scontrini"};
    Scontrino s;
};

}  // namespace

TEST_F(Journal, EachReceiptIsAFileAndNumbersGoOn) {
    EXPECT_EQ(giornale.prossimoNumero(), 1);
    ASSERT_TRUE(giornale.scrivi(s));
    EXPECT_TRUE(QFile::exists(cartella.path() + "/Scontrini/2026-03-16_0041.txt"));
    EXPECT_EQ(giornale.prossimoNumero(), 42);
}

// Two that begin together count alike.
TEST_F(Journal, ReceiptOfAnotherSimulatorWithTheSameNumberIsKept) {
    for (const char* descrizione : {"Vite", "Colla", "Filo"}) {
        s.righe = {{"A", descrizione, 1, Currency::daIntero(1), "22"}};
        ASSERT_TRUE(giornale.scrivi(s));
    }
    EXPECT_TRUE(contenuto("2026-03-16_0041.txt").contains("Vite"));
    EXPECT_TRUE(contenuto("2026-03-16_0041-2.txt").contains("Colla"));
    EXPECT_TRUE(contenuto("2026-03-16_0041-3.txt").contains("Filo"));
    EXPECT_EQ(giornale.prossimoNumero(), 42);
}

TEST_F(Journal, FolderThatCannotBeMadeIsSaid) {
    EXPECT_FALSE(Giornale("/dev/null/Scontrini").scrivi(s));
}
