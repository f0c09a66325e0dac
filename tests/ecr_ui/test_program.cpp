#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QRandomGenerator>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>

namespace {

// The program itself, with settings of its own.
class Program : public testing::Test {
  protected:
    ~Program() override {
        mSimulatore.kill();
        mSimulatore.waitForFinished();
    }

    struct Esito {
        int codice;
        QString uscita;
        QString errori;
    };
    Esito esegui(const QStringList& parole) const {
        QProcess programma;
        prepara(programma);
        programma.start(percorso, parole);
        EXPECT_TRUE(programma.waitForFinished());
        EXPECT_EQ(programma.exitStatus(), QProcess::NormalExit);
        return {programma.exitCode(), QString::fromUtf8(programma.readAllStandardOutput()),
                QString::fromUtf8(programma.readAllStandardError())};
    }
    // One that goes on running, and listens.
    void avvia(const QStringList& parole) {
        prepara(mSimulatore);
        mSimulatore.start(percorso, parole + QStringList{"--porta", porta, "--giornale", scontrini});
        EXPECT_TRUE(QTest::qWaitFor([this] {
            QTcpSocket cassa;
            cassa.connectToHost("127.0.0.1", porta.toUShort());
            return cassa.waitForConnected(1000);
        }));
    }
    // The code with which it has ended.
    int fine() { return mSimulatore.waitForFinished() ? mSimulatore.exitCode() : -1; }

    void scriviImpostazioni(const QByteArray& testo) const {
        EXPECT_TRUE(QDir(cartella.path()).mkpath("Orbelune"));
        QFile file(impostazioni);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(testo);
    }
    QStringList leggiImpostazioni() const {
        QFile file(impostazioni);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    }

    const QTemporaryDir cartella;
    const QString percorso = QCoreApplication::applicationDirPath() + "/prgECRSimulatore";
    const QString impostazioni = cartella.path() + "/Orbelune/prgBottegonClientVB.ini";
    const QString scontrini = cartella.path() + "/Scontrini";
    const QString porta = portaLibera();

  private:
    void prepara(QProcess& programma) const {
        QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
        ambiente.insert("XDG_CONFIG_HOME", cartella.path());
        ambiente.insert("QT_QPA_PLATFORM", "offscreen");
        programma.setProcessEnvironment(ambiente);
    }
    // One that a till can have; those that the system gives out are higher.
    static QString portaLibera() {
        for (;;) {
            const auto porta = static_cast<quint16>(QRandomGenerator::global()->bounded(20000, 32767));
            if (QTcpServer().listen(QHostAddress::LocalHost, porta)) return QString::number(porta);
        }
    }

    QProcess mSimulatore;
};

}  // namespace

TEST_F(Program, BecomesTheRegisterOfATillThatHasNone) {
    scriviImpostazioni("[Client]\nTCPPort=4711\n");
    EXPECT_EQ(esegui({"--collega"}).codice, 0);
    EXPECT_TRUE(leggiImpostazioni().contains("RegCassa=Simulatore"));
    EXPECT_TRUE(leggiImpostazioni().contains("TCPPort=4711"));
}

TEST_F(Program, BecomesTheRegisterOfAUserWithoutSettings) {
    EXPECT_EQ(esegui({"--collega"}).codice, 0);
    EXPECT_TRUE(leggiImpostazioni().contains("RegCassa=Simulatore"));
}

TEST_F(Program, TillThatHasARegisterKeepsIt) {
    scriviImpostazioni("[Client]\nRegCassa=Vero\n");
    EXPECT_EQ(esegui({"--collega"}).codice, 0);
    EXPECT_EQ(leggiImpostazioni(), (QStringList{"[Client]", "RegCassa=Vero"}));
}

TEST_F(Program, WordThatItDoesNotKnowIsTwo) {
    const Esito esito = esegui({"--boh"});
    EXPECT_EQ(esito.codice, 2);
    EXPECT_TRUE(esito.errori.contains("Parola sconosciuta: --boh\n"));
}

TEST_F(Program, HelpIsPrinted) {
    const Esito esito = esegui({"--aiuto"});
    EXPECT_EQ(esito.codice, 0);
    EXPECT_TRUE(esito.uscita.contains("--verifica N"));
}

TEST_F(Program, PortThatIsTakenIsOne) {
    QTcpServer altro;
    ASSERT_TRUE(altro.listen(QHostAddress::LocalHost, porta.toUShort()));
    const Esito esito = esegui({"--senza-finestra", "--porta", porta});
    EXPECT_EQ(esito.codice, 1);
    EXPECT_EQ(esito.errori, "La porta " + porta + " è occupata.\n");
}

TEST_F(Program, CheckOfAGoodProgramPrintsItsReceiptsAndEndsIt) {
    avvia({});
    const Esito esito = esegui({"--verifica", porta});
    EXPECT_EQ(esito.codice, 0) << esito.uscita.toStdString();
    EXPECT_TRUE(esito.uscita.endsWith("Il programma di interfaccia è conforme.\n"));
    EXPECT_EQ(fine(), 0);
    const QStringList file = QDir(scontrini).entryList({"*_*.txt"}, QDir::Files);
    ASSERT_EQ(file.size(), 4);
    QFile primo(scontrini + "/" + file.first());
    ASSERT_TRUE(primo.open(QIODevice::ReadOnly));
    EXPECT_TRUE(primo.readAll().contains("RIGA DI PROVA"));
}

TEST_F(Program, CheckOfABadProgramIsOneAndCountsItsDefects) {
    avvia({"--senza-finestra", "--guasto", "rifiuta"});
    const Esito esito = esegui({"--verifica", porta});
    EXPECT_EQ(esito.codice, 1);
    EXPECT_TRUE(
        esito.uscita.contains("NO    Accetta uno scontrino, un ACK per cornice: a RST risponde <NAK>"));
    EXPECT_TRUE(esito.uscita.contains("\nDifetti: "));
}

TEST_F(Program, CheckOfNobodyIsOne) {
    EXPECT_EQ(esegui({"--verifica", porta}).codice, 1);
}
