#include <gtest/gtest.h>
#include <thread>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "core/core_doubles.h"
#include "core/errors.h"

namespace {

class Errori : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(mCartella.isValid());
        mErrori.imposta(mCartella.path(), &mOperatore);
        mErrori.impostaFineProcesso([this] { ++mFini; });
    }

    void segnala(const QString& descrizione, const QString& avanzate = {}) {
        mErrori.notifyError(RunTimeError(6, descrizione, "prgBottegon"), "frmMain", "getPosEOB", avanzate);
    }
    QString percorsoLog() const { return mCartella.filePath("Err.log"); }
    QByteArray log() const {
        QFile file(percorsoLog());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QList<QByteArray> righe() const { return log().split('\n'); }

    QTemporaryDir mCartella;
    OperatoreRegistrato mOperatore;
    OrologioFermo mOrologio{QDateTime(QDate(2013, 12, 31), QTime(9, 5, 7))};
    cError mErrori;
    int mFini = 0;
};

int numeroDi(const std::function<void()>& lancia) {
    try {
        lancia();
    } catch (...) {
        return erroreInCorso().numero();
    }
    return 0;
}

}  // namespace

TEST_F(Errori, TheFirstErrorCreatesTheLogWithSevenLines) {
    segnala("Overflow", "SELECT 1");
    EXPECT_EQ(log(), QByteArray(80, '*') +
                         "\n"
                         "Data   31/12/2013 09:05:07\n"
                         "Err.N. 6\n"
                         "Descr. Overflow\n"
                         "Source prgBottegon\n"
                         "Modulo frmMain.getPosEOB\n"
                         "Avanz. SELECT 1\n");
}

TEST_F(Errori, AnEmptyAdvancedTextLeavesTheTagWithItsBlank) {
    segnala("Overflow");
    EXPECT_EQ(righe().at(6), "Avanz. ");
}

TEST_F(Errori, BlocksFollowEachOther) {
    segnala("primo");
    segnala("secondo");
    ASSERT_EQ(righe().size(), 15);
    EXPECT_EQ(righe().at(10), "Descr. secondo");
}

TEST_F(Errori, LineBreaksInAValueDoNotBreakTheBlock) {
    segnala("una\r\ndue\rtre\nquattro", "a\nb");
    ASSERT_EQ(righe().size(), 8);
    EXPECT_EQ(righe().at(3), "Descr. una due tre quattro");
}

TEST_F(Errori, TheLogIsUtf8) {
    segnala("perché €");
    EXPECT_EQ(righe().at(3), QByteArray("Descr. perché €"));
}

TEST_F(Errori, TheLogIsReadableByItsOwnerAlone) {
    segnala("Overflow");
    const QFile::Permissions altri =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_EQ(QFileInfo(percorsoLog()).permissions() & altri, QFile::Permissions());
}

TEST_F(Errori, BlocksOfSeveralWritersStayWhole) {
    const auto scrive = [this](const QString& nome) {
        cError errori;
        errori.imposta(mCartella.path(), nullptr);
        for (int i = 0; i < 200; ++i) {
            errori.notifyError(RunTimeError(6, nome), nome, nome, QString(3000, u'x'));
        }
    };
    std::thread altro(scrive, "altro");
    scrive("questo");
    altro.join();

    const QList<QByteArray> tutte = righe();
    ASSERT_EQ(tutte.size(), 400 * 7 + 1);
    for (int blocco = 0; blocco < 400; ++blocco) {
        const QByteArray nome = tutte.at(7 * blocco + 3).mid(7);
        ASSERT_EQ(tutte.at(7 * blocco), QByteArray(80, '*'));
        ASSERT_EQ(tutte.at(7 * blocco + 5), "Modulo " + nome + "." + nome);
    }
}

TEST_F(Errori, TheDialogueShowsTheError) {
    segnala("riga\nseconda", "dettaglio");
    ASSERT_EQ(mOperatore.avvisi.size(), 1U);
    const OperatorPort::Errore& mostrato = mOperatore.avvisi.front();
    EXPECT_EQ(mostrato.numero, 6);
    EXPECT_EQ(mostrato.descrizione, "riga\nseconda");
    EXPECT_EQ(mostrato.modulo, "frmMain.getPosEOB");
    EXPECT_EQ(mostrato.avanzate, "dettaglio");
    EXPECT_EQ(mostrato.origine, "prgBottegon");
}

TEST_F(Errori, TheLogIsWrittenBeforeTheDialogueComes) {
    QByteArray duranteIlDialogo;
    mOperatore.duranteAvviso = [&] { duranteIlDialogo = log(); };
    segnala("Overflow");
    EXPECT_TRUE(duranteIlDialogo.contains("Descr. Overflow"));
}

TEST_F(Errori, AnUnwritableLogIsToldInTheDialogue) {
    mErrori.imposta(mCartella.filePath("manca"), &mOperatore);
    segnala("Overflow", "dettaglio");
    ASSERT_EQ(mOperatore.avvisi.size(), 1U);
    EXPECT_EQ(mOperatore.avvisi.front().avanzate, "dettaglio\nIl file Err.log non può essere scritto.");
}

TEST_F(Errori, AFullDiskIsToldInTheDialogue) {
    ASSERT_TRUE(QFile::link("/dev/full", percorsoLog()));
    segnala("Overflow");
    ASSERT_EQ(mOperatore.avvisi.size(), 1U);
    EXPECT_EQ(mOperatore.avvisi.front().avanzate, "Il file Err.log non può essere scritto.");
}

TEST_F(Errori, GoingOnDoesNotEndTheProgram) {
    segnala("Overflow");
    EXPECT_EQ(mFini, 0);
}

TEST_F(Errori, LeavingEndsTheProgram) {
    mOperatore.prosegue = false;
    segnala("Overflow");
    EXPECT_EQ(mFini, 1);
}

TEST_F(Errori, WithoutAnOperatorOnlyTheLogIsWritten) {
    mErrori.impostaOperatore(nullptr);
    segnala("Overflow");
    EXPECT_EQ(righe().size(), 8);
}

TEST_F(Errori, AnExternalReporterTakesOverAltogether) {
    QString ricevuto;
    mErrori.impostaSegnalazioneEsterna([&](const cError::Errore& errore) { ricevuto = errore.modulo; });
    segnala("Overflow");
    EXPECT_EQ(ricevuto, "frmMain.getPosEOB");
    EXPECT_TRUE(mOperatore.avvisi.empty());
    EXPECT_FALSE(QFile::exists(percorsoLog()));
}

TEST_F(Errori, AHeldErrorIsLoggedAtOnceAndNotShown) {
    mErrori.trattieniDialoghi();
    segnala("Overflow");
    EXPECT_EQ(righe().size(), 8);
    EXPECT_TRUE(mOperatore.avvisi.empty());
}

TEST_F(Errori, WhatWasHeldIsShownInOrderAtTheRelease) {
    mErrori.trattieniDialoghi();
    segnala("primo");
    mErrori.mostraMessaggio("secondo", OperatorPort::Icona::Critica);
    segnala("terzo");
    mErrori.rilasciaDialoghi();
    EXPECT_EQ(mOperatore.mostrati, QStringList({"primo", "Bottegon|secondo", "terzo"}));
}

TEST_F(Errori, ASecondReleaseShowsNothingAgain) {
    mErrori.trattieniDialoghi();
    segnala("primo");
    mErrori.rilasciaDialoghi();
    mErrori.rilasciaDialoghi();
    EXPECT_EQ(mOperatore.avvisi.size(), 1U);
}

TEST_F(Errori, AfterTheReleaseErrorsAreShownAtOnce) {
    mErrori.trattieniDialoghi();
    mErrori.rilasciaDialoghi();
    segnala("Overflow");
    EXPECT_FALSE(mErrori.dialoghiTrattenuti());
    EXPECT_EQ(mOperatore.avvisi.size(), 1U);
}

TEST_F(Errori, ATurnHeldUnderADialogueKeepsEveryDialogueOnce) {
    mErrori.trattieniDialoghi();
    segnala("primo");
    segnala("secondo");
    mOperatore.duranteAvviso = [this] {
        mOperatore.duranteAvviso = nullptr;
        mErrori.trattieniDialoghi();
        segnala("annidato");
        mErrori.rilasciaDialoghi();
    };
    mErrori.rilasciaDialoghi();
    EXPECT_EQ(mOperatore.mostrati, QStringList({"primo", "annidato", "secondo"}));
}

TEST_F(Errori, AnUrgentErrorIsShownEvenWhileDialoguesAreHeld) {
    mErrori.trattieniDialoghi();
    mErrori.notificaSubito(RunTimeError(6, "urgente"), "frmMain", "salvaVendita", {});
    EXPECT_EQ(mOperatore.mostrati, QStringList("urgente"));
    EXPECT_EQ(righe().size(), 8);
}

TEST_F(Errori, AMessageIsShownAtOnceAndNotLogged) {
    mErrori.mostraMessaggio("testo", OperatorPort::Icona::Informazione);
    EXPECT_EQ(mOperatore.mostrati, QStringList("Bottegon|testo"));
    EXPECT_EQ(mOperatore.icone, std::vector{OperatorPort::Icona::Informazione});
    EXPECT_FALSE(QFile::exists(percorsoLog()));
}

TEST(FineProcesso, WithoutAHookTheProcessEndsWithAFailure) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(cError().fineProcesso(), testing::ExitedWithCode(1), "");
}

TEST(ErroreInCorso, ARunTimeErrorStaysItself) {
    EXPECT_EQ(numeroDi([] { throw RunTimeError(RunTimeError::DivisionePerZero); }), 11);
}

TEST(ErroreInCorso, ExhaustedMemoryHasItsNumber) {
    EXPECT_EQ(numeroDi([] { throw std::bad_alloc(); }), RunTimeError::MemoriaEsaurita);
}

TEST(ErroreInCorso, AnotherExceptionKeepsItsText) {
    try {
        throw std::runtime_error("altro");
    } catch (...) {
        const RunTimeError errore = erroreInCorso();
        EXPECT_EQ(errore.numero(), RunTimeError::ErroreApplicazione);
        EXPECT_EQ(errore.descrizione(), "altro");
    }
}

namespace {

class Protetto : public testing::Test {
  protected:
    void SetUp() override { gErr.imposta({}, &mOperatore); }
    void TearDown() override { gErr.imposta({}, nullptr); }

    OperatoreRegistrato mOperatore;
};

}  // namespace

TEST_F(Protetto, AGuardedProcedureAnswersItsResult) {
    EXPECT_EQ(protetto(
                  "frmMain", "conta", [] { return 3; }, -1),
              3);
    EXPECT_TRUE(mOperatore.avvisi.empty());
}

TEST_F(Protetto, AFailedProcedureAnswersItsFailure) {
    EXPECT_EQ(protetto(
                  "frmMain", "conta", []() -> int { throw RunTimeError(6); }, -1),
              -1);
}

TEST_F(Protetto, AFailedProcedureIsReportedWithItsName) {
    protetto("frmMain", "disegna", [] { throw RunTimeError(6); });
    ASSERT_EQ(mOperatore.avvisi.size(), 1U);
    EXPECT_EQ(mOperatore.avvisi.front().modulo, "frmMain.disegna");
}
