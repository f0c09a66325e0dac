#include <gtest/gtest.h>

#include <QTest>

#include "backoffice/ui/frmOpzioni.h"
#include "core/globals.h"
#include "doubles/settings_in_memory.h"
#include "kit_ui/modal.h"

namespace {

class FrmOpzioniTest : public ::testing::Test {
  protected:
    FrmOpzioniTest() {
        ripristinaGlobali();
        gPathDB = "/dati/negozio.mdb";
        gConnMySql = "Server=a;\nUid=b";
    }
    ~FrmOpzioniTest() override { ripristinaGlobali(); }

    bool apri(std::function<void(QWidget*)> azione) {
        frmOpzioni finestra;
        quandoModale(std::move(azione));
        return finestra.startMe();
    }
    static void premi(QWidget* finestra, const char* nome) {
        QTest::mouseClick(trova<QPushButton>(finestra, nome), Qt::LeftButton);
    }
    QString scritto(const QString& chiave) { return store.leggi("prgBottegon", "Server", chiave, "<manca>"); }

    SettingsInMemory store;
};

}  // namespace

TEST_F(FrmOpzioniTest, ShowsTheServerInForce) {
    apri([](QWidget* finestra) {
        EXPECT_EQ(trova<QComboBox>(finestra, "cmbTipoServer")->currentText(), "MS Access");
        EXPECT_EQ(trova<QPlainTextEdit>(finestra, "txtConnStr")->toPlainText(), "/dati/negozio.mdb");
        EXPECT_TRUE(trova<QPushButton>(finestra, "cmdSfoglia")->isVisible());
        premi(finestra, "cmdCancel");
    });
}

TEST_F(FrmOpzioniTest, OkWithoutAChangeWritesNothing) {
    EXPECT_TRUE(apri([](QWidget* finestra) { premi(finestra, "cmdOk"); }));
    EXPECT_TRUE(store.valori.empty());
}

TEST_F(FrmOpzioniTest, AnotherArchiveIsWritten) {
    apri([](QWidget* finestra) {
        trova<QPlainTextEdit>(finestra, "txtConnStr")->setPlainText(" /dati/altro.mdb\n");
        premi(finestra, "cmdOk");
    });
    EXPECT_EQ(scritto("Path"), "/dati/altro.mdb");
    EXPECT_EQ(store.valori.size(), 1u);
}

TEST_F(FrmOpzioniTest, AnotherServerIsWrittenWithItsConnectionString) {
    apri([](QWidget* finestra) {
        trova<QComboBox>(finestra, "cmbTipoServer")->setCurrentIndex(2);
        auto* stringa = trova<QPlainTextEdit>(finestra, "txtConnStr");
        EXPECT_EQ(stringa->toPlainText(), "Server=a;\nUid=b");
        EXPECT_FALSE(trova<QPushButton>(finestra, "cmdSfoglia")->isVisible());
        stringa->setPlainText("Server=c;\nUid=d");
        premi(finestra, "cmdOk");
    });
    EXPECT_EQ(scritto("DBType"), "2");
    EXPECT_EQ(scritto("MySql"), "Server=c;\nUid=d");
    EXPECT_EQ(scritto("Path"), "<manca>");
}

TEST_F(FrmOpzioniTest, WhatWasTypedForOneServerSurvivesALookAtAnother) {
    apri([](QWidget* finestra) {
        auto* tipo = trova<QComboBox>(finestra, "cmbTipoServer");
        trova<QPlainTextEdit>(finestra, "txtConnStr")->setPlainText("/dati/altro.mdb");
        tipo->setCurrentIndex(0);
        tipo->setCurrentIndex(1);
        EXPECT_EQ(trova<QPlainTextEdit>(finestra, "txtConnStr")->toPlainText(), "/dati/altro.mdb");
        premi(finestra, "cmdCancel");
    });
}

TEST_F(FrmOpzioniTest, CancelAndEscapeWriteNothing) {
    const auto cambia = [](QWidget* finestra) {
        trova<QPlainTextEdit>(finestra, "txtConnStr")->setPlainText("/dati/altro.mdb");
    };
    EXPECT_FALSE(apri([&](QWidget* finestra) {
        cambia(finestra);
        premi(finestra, "cmdCancel");
    }));
    EXPECT_FALSE(apri([&](QWidget* finestra) {
        cambia(finestra);
        QTest::keyClick(finestra, Qt::Key_Escape);
    }));
    EXPECT_TRUE(store.valori.empty());
}

TEST_F(FrmOpzioniTest, AServerTypeThatDoesNotExistMustBeChosenAnew) {
    gTipoDB = 7;
    apri([](QWidget* finestra) {
        auto* tipo = trova<QComboBox>(finestra, "cmbTipoServer");
        EXPECT_EQ(tipo->currentIndex(), -1);
        tipo->setCurrentIndex(1);
        premi(finestra, "cmdOk");
    });
    EXPECT_EQ(scritto("DBType"), "1");
}
