#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>

#include "kit/ui/campo_edit.h"
#include "kit/ui/touch_keys.h"

namespace {

class TouchKeys : public testing::Test {
  protected:
    QPushButton* tasto(QWidget* tasti, const QString& didascalia) const {
        for (auto* pulsante : tasti->findChildren<QPushButton*>()) {
            if (pulsante->text() == didascalia) return pulsante;
        }
        ADD_FAILURE() << qPrintable(didascalia);
        return nullptr;
    }
    void premi(QWidget* tasti, const QStringList& didascalie) const {
        for (const QString& didascalia : didascalie) {
            QTest::mouseClick(tasto(tasti, didascalia), Qt::LeftButton);
        }
    }

    QWidget finestra;
};

TEST_F(TouchKeys, TheKeypadFillsTheBoxWithTheFocusAndConfirms) {
    ElencoCampi elenco;
    Campo campo{elenco, "txtImporto"};
    CTextBox casella{campo};
    casella.txtType(CTextBox::Importo);
    CampoEdit edit(campo, &casella, "Importo", &finestra);
    int invii = 0;
    edit.filtroTasti([&](QChar c) {
        if (c == u'\r') ++invii;
        return casella.keyPress(c);
    });
    casella.gotFocus();
    QWidget* tasti = tastierino(&finestra);
    premi(tasti, {"1", "2", ",", "5", "9", "⌫", "0"});
    EXPECT_EQ(campo.testo(), "12,50");
    premi(tasti, {"INVIO"});
    EXPECT_EQ(invii, 1);
    premi(tasti, {"C"});
    EXPECT_EQ(campo.testo(), "");
}

TEST_F(TouchKeys, ThreeByThreeDigitsStandAsOnATelephoneTurnedOver) {
    QWidget* tasti = tastierino(&finestra);
    tasti->resize(tasti->sizeHint());
    finestra.show();
    EXPECT_LT(tasto(tasti, "7")->y(), tasto(tasti, "4")->y());
    EXPECT_LT(tasto(tasti, "4")->y(), tasto(tasti, "1")->y());
    EXPECT_LT(tasto(tasti, "1")->x(), tasto(tasti, "2")->x());
}

TEST_F(TouchKeys, NoKeyTakesTheFocusAndEachFitsAFinger) {
    for (QWidget* tasti : {tastierino(&finestra), tastieraLettere([](const QString&) {}, &finestra)}) {
        for (auto* pulsante : tasti->findChildren<QPushButton*>()) {
            EXPECT_EQ(pulsante->focusPolicy(), Qt::NoFocus);
            EXPECT_GE(pulsante->minimumHeight(), 44);
            EXPECT_GE(pulsante->minimumWidth(), 44);
            EXPECT_FALSE(pulsante->accessibleName().isEmpty());
        }
    }
}

TEST_F(TouchKeys, TheLettersAnswerTheirCharacters) {
    QString scritto;
    QWidget* tasti = tastieraLettere([&](const QString& t) { scritto += t; }, &finestra);
    premi(tasti, {"A", "0", "SPAZIO", "'", "%"});
    EXPECT_EQ(scritto, "A0 '%");
}

}  // namespace

TEST_F(TouchKeys, OnlyTheDeletingKeyRepeatsWhileItIsHeld) {
    QWidget* cifre = tastierino(&finestra);
    QWidget* lettere = tastieraLettere([](const QString&) {}, &finestra);
    EXPECT_TRUE(tasto(cifre, "⌫")->autoRepeat());
    EXPECT_FALSE(tasto(cifre, "C")->autoRepeat());
    EXPECT_FALSE(tasto(lettere, "D")->autoRepeat());
}
