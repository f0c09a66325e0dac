#include <gtest/gtest.h>

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include "kit/ui/frmWarning.h"
#include "kit_ui/modal.h"

namespace {

const OperatorPort::Errore esempio = {6, "Overflow <b>", "bBottegonCommon.salvaVendita", "", "ORBLN"};

// What the dialogue answers when `azione` is done to it.
int risultatoDopo(const OperatorPort::Errore& errore, std::function<void(QWidget*)> azione) {
    frmWarning finestra;
    quandoModale(std::move(azione));
    finestra.startMe(errore);
    return finestra.risultato();
}

void premi(QWidget* finestra, const char* nome) {
    QTest::mouseClick(trova<QPushButton>(finestra, nome), Qt::LeftButton);
}

}  // namespace

TEST(FrmWarning, ShowsTheErrorAsPlainText) {
    risultatoDopo(esempio, [](QWidget* finestra) {
        EXPECT_EQ(finestra->windowTitle(), "Bottegon");
        EXPECT_EQ(trova<QLabel>(finestra, "lblNumero")->text(), "6");
        EXPECT_EQ(trova<QPlainTextEdit>(finestra, "txtDescrizione")->toPlainText(), "Overflow <b>");
        EXPECT_EQ(trova<QPlainTextEdit>(finestra, "txtModulo")->toPlainText(),
                  "bBottegonCommon.salvaVendita");
        EXPECT_EQ(trova<QLabel>(finestra, "lblOrigine")->text(), "ORBLN");
        EXPECT_EQ(trova<QLabel>(finestra, "lblOrigine")->textFormat(), Qt::PlainText);
        premi(finestra, "cmdOk");
    });
}

TEST(FrmWarning, EmptyDetailsSayThatThereAreNone) {
    OperatorPort::Errore errore = esempio;
    errore.avanzate = " \n ";
    risultatoDopo(errore, [](QWidget* finestra) {
        EXPECT_EQ(trova<QPlainTextEdit>(finestra, "txtAvanzate")->toPlainText(), "Nessuna Informazione.");
        premi(finestra, "cmdOk");
    });
}

TEST(FrmWarning, OkGoesOn) {
    EXPECT_EQ(risultatoDopo(esempio, [](QWidget* finestra) { premi(finestra, "cmdOk"); }), 1);
}

TEST(FrmWarning, EnterGoesOn) {
    EXPECT_EQ(risultatoDopo(esempio, [](QWidget* finestra) { QTest::keyClick(finestra, Qt::Key_Return); }),
              1);
}

TEST(FrmWarning, EscapeGoesOn) {
    EXPECT_EQ(risultatoDopo(esempio, [](QWidget* finestra) { QTest::keyClick(finestra, Qt::Key_Escape); }),
              1);
}

TEST(FrmWarning, LeavingIsItsOwnButton) {
    EXPECT_EQ(risultatoDopo(esempio,
                            [](QWidget* finestra) {
                                EXPECT_EQ(trova<QPushButton>(finestra, "cmdAnnulla")->text(),
                                          "Esci da Bottegon");
                                premi(finestra, "cmdAnnulla");
                            }),
              0);
}

TEST(FrmWarning, TheDetailsOpenAndClose) {
    risultatoDopo(esempio, [](QWidget* finestra) {
        auto* comando = trova<QPushButton>(finestra, "cmdAvanzate");
        auto* dettagli = trova<QPlainTextEdit>(finestra, "txtAvanzate");
        EXPECT_EQ(comando->text(), "Avanzate >>");
        EXPECT_FALSE(dettagli->isVisible());
        premi(finestra, "cmdAvanzate");
        EXPECT_EQ(comando->text(), "<< Ripristina");
        EXPECT_TRUE(dettagli->isVisible());
        premi(finestra, "cmdAvanzate");
        EXPECT_EQ(comando->text(), "Avanzate >>");
        EXPECT_FALSE(dettagli->isVisible());
        premi(finestra, "cmdOk");
    });
}

TEST(FrmWarning, TheHourglassIsGoneAndTheWindowOnTop) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    risultatoDopo(esempio, [](QWidget* finestra) {
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        EXPECT_TRUE(finestra->windowFlags() & Qt::WindowStaysOnTopHint);
        premi(finestra, "cmdOk");
    });
}

TEST(FrmWarning, ButtonsAreLargeEnoughForAFinger) {
    risultatoDopo(esempio, [](QWidget* finestra) {
        for (const char* nome : {"cmdOk", "cmdAnnulla", "cmdAvanzate"}) {
            EXPECT_GE(trova<QPushButton>(finestra, nome)->height(), 44) << nome;
        }
        premi(finestra, "cmdOk");
    });
}
