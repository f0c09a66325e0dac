#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "core/globals.h"
#include "counter_ui/window_shop.h"

namespace {

class OperatorDialogue : public WindowShop {
  protected:
    OperatorDialogue() {
        for (const char* valori : {"'1', 'Marta', '990001'", "'2', 'Giulio', '990002'"}) {
            negozio.sql(
                QString("INSERT INTO Venditori (CODICE, DESCRIZIONE, CODICEEXTRA) VALUES (%1)").arg(valori));
        }
        apriFinestra();
    }
    void apriDialogo() const { clic(vendita().cmdOperatore); }
    QString mostrato() const { return widget<QLabel>(vendita().lblVenditore).text(); }
    static QLineEdit& casella(QWidget& dialogo) { return *dialogo.findChild<QLineEdit*>("txtCodice"); }
};

TEST_F(OperatorDialogue, ACodeAndEnterChangeTheOperator) {
    conRiquadro([&](QWidget& dialogo) {
        EXPECT_EQ(dialogo.objectName(), "frmCodiceVenditore");
        EXPECT_EQ(dialogo.windowTitle(), "Inserire il Codice  Operatore");
        EXPECT_TRUE(casella(dialogo).hasFocus());
        digita("2");
        tasto(Qt::Key_Return);
    });
    apriDialogo();
    EXPECT_EQ(gDescVenditore, "Giulio");
    EXPECT_EQ(mostrato(), "Giulio");
}

TEST_F(OperatorDialogue, TheKeypadEntersACodeToo) {
    conRiquadro([&](QWidget& dialogo) {
        for (const char* tasto : {"9", "C", "3", "⌫", "1", "INVIO"}) {
            for (auto* pulsante : dialogo.findChildren<QPushButton*>()) {
                if (pulsante->text() == tasto && pulsante->objectName().startsWith("tasto_"))
                    QTest::mouseClick(pulsante, Qt::LeftButton);
            }
        }
    });
    apriDialogo();
    EXPECT_EQ(gDescVenditore, "Marta");
}

TEST_F(OperatorDialogue, TheCloseBoxDoesNotCloseIt) {
    bool aperto = false;
    conRiquadro([&](QWidget& dialogo) {
        dialogo.close();
        aperto = dialogo.isVisible();
        tasto(Qt::Key_Escape);
    });
    apriDialogo();
    EXPECT_TRUE(aperto);
    EXPECT_EQ(gIDVenditore, -1);
}

TEST_F(OperatorDialogue, AnEmptyConfirmationLeavesTheOperator) {
    conRiquadro([&](QWidget&) { tasto(Qt::Key_Return); });
    apriDialogo();
    EXPECT_EQ(gIDVenditore, -1);
}

TEST_F(OperatorDialogue, WhatWasTypedAndThenLeftChangesNothing) {
    conRiquadro([&](QWidget& dialogo) {
        digita("2");
        premi(dialogo, "cmdAnnulla");
    });
    apriDialogo();
    EXPECT_EQ(gIDVenditore, -1);
}

TEST_F(OperatorDialogue, AnUnknownCodeIsNamedAndTheNextOneTypedTakesItsPlace) {
    QString esito;
    conRiquadro([&](QWidget&) {
        conRiquadro([&](QWidget& altro) {
            esito = altro.findChild<QLabel*>("lblEsito")->text();
            digita("1");
            tasto(Qt::Key_Return);
        });
        digita("77");
        tasto(Qt::Key_Return);
    });
    apriDialogo();
    EXPECT_EQ(esito, "Nessun operatore ha il codice «77»");
    EXPECT_EQ(gDescVenditore, "Marta");
}

TEST_F(OperatorDialogue, WhenItClosesTheFieldGoesOnBeingTypedIn) {
    scansiona("$8009999999999");
    conRiquadro([&](QWidget&) { tasto(Qt::Key_Escape); });
    apriDialogo();
    finestra->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(finestra.get()));
    EXPECT_TRUE(haFuoco(vendita().txtQta));
}

TEST_F(OperatorDialogue, EveryTargetIsLargeEnoughForAFinger) {
    conRiquadro([&](QWidget& dialogo) {
        for (auto* pulsante : dialogo.findChildren<QPushButton*>()) {
            EXPECT_GE(pulsante->width(), 44) << qPrintable(pulsante->text());
            EXPECT_GE(pulsante->height(), 44) << qPrintable(pulsante->text());
        }
        tasto(Qt::Key_Escape);
    });
    apriDialogo();
}

// ---- Scans

TEST_F(OperatorDialogue, ABadgeAtTheSpeedOfAScannerLeavesNoKeyBehind) {
    scansiona("$V990002", 1);
    scansiona("$8009999999999", 1);
    EXPECT_EQ(gDescVenditore, "Giulio");
    EXPECT_EQ(codici(), QStringList{"CHIODO"});
    EXPECT_EQ(vendita().flxVB.cella(1, Colonna::Quantita), "1,00");
    EXPECT_EQ(mostrato(), "Giulio");
}

TEST_F(OperatorDialogue, ABadgeAnswersItWhileItIsOpen) {
    conRiquadro([&](QWidget&) {
        digita("5");
        scansiona("$V990002");
    });
    apriDialogo();
    EXPECT_EQ(gDescVenditore, "Giulio");
    EXPECT_EQ(codici(), QStringList{});
}

TEST_F(OperatorDialogue, AProductScannedWhileItIsOpenIsSoldAfterIt) {
    conRiquadro([&](QWidget& dialogo) {
        scansiona("$8009999999999");
        EXPECT_EQ(casella(dialogo).text(), "");
        EXPECT_TRUE(dialogo.isVisible());
        digita("1");
        tasto(Qt::Key_Return);
    });
    apriDialogo();
    aspettaCodici({"CHIODO"});
    EXPECT_EQ(vendita().flxVB.cella(1, Colonna::DescVenditore), "Marta");
}

TEST_F(OperatorDialogue, ABadgeScannedWhileAQuestionStandsIsTakenAfterIt) {
    conRiquadro([&](QWidget& riquadro) {
        scansiona("$V990001");
        premi(riquadro, "cmdNo");
    });
    scansiona("$8009999999999");
    tasto(Qt::Key_F9);
    EXPECT_TRUE(QTest::qWaitFor([] { return gDescVenditore == "Marta"; }));
    EXPECT_EQ(codici(), QStringList{"CHIODO"});
}

TEST_F(OperatorDialogue, TheMarkTypedByAHandOpensIt) {
    bool aperto = false;
    conRiquadro([&](QWidget& dialogo) {
        aperto = dialogo.objectName() == "frmCodiceVenditore";
        tasto(Qt::Key_Escape);
    });
    digita("$V");
    EXPECT_TRUE(QTest::qWaitFor([&] { return aperto; }));
}

}  // namespace
