#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "app/start_up.h"
#include "core/core_doubles.h"
#include "core/errors.h"
#include "core/globals.h"
#include "core/program_folder.h"
#include "data/gateway.h"
#include "data/sqlite_connection.h"
#include "doubles/child_process.h"
#include "doubles/settings_in_memory.h"

namespace {

// A shop whose archive holds the table Opzioni, and windows that only write down what is asked of them.
class StartUpTest : public ::testing::Test {
  protected:
    StartUpTest() {
        ripristinaGlobali();
        impostaCartellaProgramma(cartella.path());
        ErroreServer errore;
        const auto archivio = SqliteConnection::crea(percorso, errore);
        archivio->eseguiNativo("CREATE TABLE Opzioni (NOME TEXT, VALORE TEXT)");
        archivio->eseguiNativo("INSERT INTO Opzioni VALUES ('TipoDocVb', '5')");
    }
    ~StartUpTest() override {
        gAdo.chiudiConnessioniCalde();
        gAdo.impostaStringaConnessione({});
        gAdo.impostaOperatore(nullptr);
        gErr = cError();
        impostaCartellaProgramma({});
        ripristinaGlobali();
    }

    void usaArchivio(const QString& archivio) { store.scrivi("prgBottegon", "Server", "Path", archivio); }

    bool avvia() {
        return Main({
            .operatore = operatore,
            .primaIstanza = [this] { return prima; },
            .mostraInfo = [this](const QString& testo) { eventi << "info " + testo; },
            .nascondiInfo = [this] { eventi << "info via"; },
            .apriOpzioni =
                [this] {
                    eventi << "opzioni";
                    if (ripara) ripara();
                },
            .apriPrimoConto = [this] { eventi << "conto " + QString::number(gTipoDocVb); },
            .setRegCassa = [this] { eventi << "registratore"; },
        });
    }

    QTemporaryDir cartella;
    const QString percorso = cartella.path() + "/prova.mdb";
    SettingsInMemory store;
    OperatoreRegistrato operatore;
    QStringList eventi;
    bool prima = true;
    std::function<void()> ripara;
};

const char* const connessione = "info Connessione al Server in corso...";

}  // namespace

TEST_F(StartUpTest, TheFirstScreenComesUpAfterTheOptionsTableWasRead) {
    usaArchivio(percorso);
    EXPECT_TRUE(avvia());
    EXPECT_EQ(eventi, (QStringList{connessione, "conto 5", "registratore", "info via"}));
}

TEST_F(StartUpTest, TheTestConnectionIsClosedAgain) {
    usaArchivio(percorso);
    avvia();
    EXPECT_EQ(gAdo.getConnectionCount(), 0);
}

TEST_F(StartUpTest, AWrongPathBringsTheOptionsWithoutAMessage) {
    usaArchivio(cartella.path() + "/manca.mdb");
    ripara = [this] {
        EXPECT_TRUE(operatore.avvisi.empty());
        EXPECT_TRUE(operatore.mostrati.isEmpty());
        usaArchivio(percorso);
    };
    EXPECT_TRUE(avvia());
    EXPECT_EQ(eventi, (QStringList{connessione, "info via", "opzioni", connessione, "conto 5", "registratore",
                                   "info via"}));
}

TEST_F(StartUpTest, LeavingTheOptionsUnchangedGivesOneReportAndTheEnd) {
    usaArchivio(cartella.path() + "/manca.mdb");
    EXPECT_FALSE(avvia());
    ASSERT_EQ(operatore.avvisi.size(), 1u);
    EXPECT_EQ(operatore.avvisi[0].modulo, "cAdoSqlServer.Connect -> N/D");
    EXPECT_TRUE(operatore.avvisi[0].avanzate.startsWith("sStrConnection=Provider="));
    EXPECT_EQ(eventi.last(), "info via");
    EXPECT_FALSE(eventi.contains("registratore"));
}

TEST_F(StartUpTest, ASecondStartDoesNothingButEnd) {
    prima = false;
    EXPECT_FALSE(avvia());
    EXPECT_TRUE(store.valori.empty());
    EXPECT_FALSE(eventi.contains(connessione));
}

TEST_F(StartUpTest, AnErrorIsReportedAsMainAndEndsTheStart) {
    usaArchivio(percorso);
    store.scrivi("prgBottegonClientVB", "Client", "PrezzoType", "netto");
    EXPECT_FALSE(avvia());
    ASSERT_EQ(operatore.avvisi.size(), 1u);
    EXPECT_EQ(operatore.avvisi[0].numero, 13);
    EXPECT_EQ(operatore.avvisi[0].modulo, "bBottegonClientVB.Main");
}

TEST_F(StartUpTest, WarningsAboutTheSettingsAreShownOnce) {
    usaArchivio(percorso);
    store.avverti("Il file è danneggiato.");
    EXPECT_TRUE(avvia());
    EXPECT_EQ(operatore.mostrati, QStringList{"Bottegon|Il file è danneggiato."});
}

TEST_F(StartUpTest, ErrorsOfTheRunningProgramGoToTheLogBesideIt) {
    usaArchivio(percorso);
    avvia();
    segnalaErrore(RunTimeError(11), "prova", "passo");
    EXPECT_TRUE(QFile::exists(cartella.path() + "/Err.log"));
}

TEST_F(StartUpTest, LeavingAtAWarningInMidTransactionLeavesNothingOfItInTheArchive) {
    usaArchivio(percorso);
    operatore.prosegue = false;
    EXPECT_EQ(inUnFiglio([this] {
                  if (!avvia() || !gAdo.beginTrasaction("prova")) return 1;
                  if (!gAdo.executeSQL(QString("INSERT INTO Opzioni VALUES ('Altra', '1')"), "prova"))
                      return 2;
                  if (gAdo.getValueBySQL("SELECT COUNT(*) FROM Opzioni", "prova") != 2) return 3;
                  gErr.notificaSubito(RunTimeError(11), "prova", "passo", {});
                  return 4;
              }),
              EXIT_SUCCESS);
    ErroreServer errore;
    const auto archivio = SqliteConnection::apri(percorso, errore);
    ASSERT_TRUE(archivio) << errore.descrizione.toStdString();
    Recordset righe;
    ASSERT_TRUE(archivio->eseguiNativo("SELECT group_concat(NOME) FROM Opzioni", &righe));
    EXPECT_EQ(righe.campo(0).toString(), "TipoDocVb");
}

TEST(WindowTitle, HoldsTheYearAndFourBlanksAtItsEnd) {
    const OrologioFermo orologio(QDateTime(QDate(2013, 1, 1), QTime(0, 0)));
    EXPECT_EQ(titoloFinestra(), "Orbelune®2013 Bottegon - Client di vendita al banco    ");
}

TEST(ChiudiApplicazione, EndsTheProcessAtOnce) {
    EXPECT_EXIT(chiudiApplicazione(), ::testing::ExitedWithCode(0), "");
}
