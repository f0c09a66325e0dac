#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QTest>

#include "kit/ui/campo_edit.h"

namespace {

class CampoEditTest : public testing::Test {
  protected:
    void incolla(const QString& testo) {
        QGuiApplication::clipboard()->setText(testo);
        QTest::keyClick(&casella, Qt::Key_V, Qt::ControlModifier);
    }

    ElencoCampi elenco;
    Campo campo{elenco, "txtProva"};
    CTextBox tipo{campo};
    CampoEdit casella{campo, &tipo, "Prova", nullptr};
};

TEST_F(CampoEditTest, WhatIsTypedGoesIntoTheField) {
    QTest::keyClicks(&casella, "abc");
    EXPECT_EQ(campo.testo(), "abc");
}

TEST_F(CampoEditTest, WhatARuleWritesIsShown) {
    campo.testo("12,50");
    EXPECT_EQ(casella.text(), "12,50");
}

TEST_F(CampoEditTest, ATextThatTheBoxCannotShowWholeStaysInTheField) {
    campo.testo("uno\ndue");
    EXPECT_EQ(campo.testo(), "uno\ndue");
}

TEST_F(CampoEditTest, ATextTooLongForTheBoxIsWholeInSmallerLetters) {
    const QFont intero = casella.font();
    const QSize misura = casella.sizeHint();
    casella.resize(QFontMetrics(intero).horizontalAdvance("VITI TRUCIOLARI 4X40"), 44);
    campo.testo("VITI TRUCIOLARI 4X40 CF");
    EXPECT_LE(QFontMetrics(casella.font()).horizontalAdvance(casella.text()), casella.width());
    EXPECT_EQ(casella.sizeHint(), misura);
    campo.testo("VITI");
    EXPECT_EQ(casella.font(), intero);
}

TEST_F(CampoEditTest, LettersNeverGetTooSmallToBeRead) {
    casella.resize(100, 44);
    const qreal intero = casella.font().pointSizeF();
    QTest::keyClicks(&casella, QString("parola ").repeated(20));
    EXPECT_GE(casella.font().pointSizeF(), intero * 0.7);
}

TEST_F(CampoEditTest, AWiderBoxShowsItsLettersWholeAgain) {
    const QFont intero = casella.font();
    casella.show();
    casella.resize(100, 44);
    campo.testo("VITI TRUCIOLARI 4X40");
    EXPECT_LT(casella.font().pointSizeF(), intero.pointSizeF());
    casella.resize(900, 44);
    EXPECT_EQ(casella.font(), intero);
}

TEST_F(CampoEditTest, EachCharacterPassesTheScreensRules) {
    QString visti;
    casella.filtroTasti([&](QChar c) -> std::optional<QChar> {
        visti += c;
        return c == 'x' ? std::nullopt : std::optional(c.toUpper());
    });
    QTest::keyClicks(&casella, "axb");
    EXPECT_EQ(visti, "axb");
    EXPECT_EQ(campo.testo(), "AB");
}

TEST_F(CampoEditTest, EnterAndBackspaceAreCharactersToo) {
    QString visti;
    casella.filtroTasti([&](QChar c) -> std::optional<QChar> {
        visti += c;
        return c;
    });
    QTest::keyClick(&casella, Qt::Key_Enter);
    QTest::keyClick(&casella, Qt::Key_Return);
    QTest::keyClick(&casella, Qt::Key_Backspace);
    EXPECT_EQ(visti, "\r\r\b");
}

TEST_F(CampoEditTest, ABackspaceThatIsSwallowedDeletesNothing) {
    campo.testo("ab");
    casella.filtroTasti([](QChar) { return std::nullopt; });
    QTest::keyClick(&casella, Qt::Key_Backspace);
    EXPECT_EQ(campo.testo(), "ab");
}

TEST_F(CampoEditTest, ATypedCharacterTakesTheSelectionsPlace) {
    campo.testo("vecchio");
    casella.selectAll();
    QTest::keyClicks(&casella, "n");
    EXPECT_EQ(campo.testo(), "n");
}

TEST_F(CampoEditTest, ALockedFieldShowsItsRulesTheKeyAndWritesNothing) {
    QString visti;
    casella.filtroTasti([&](QChar c) -> std::optional<QChar> {
        visti += c;
        return c;
    });
    campo.bloccato(true);
    QTest::keyClicks(&casella, "a");
    EXPECT_EQ(visti, "a");
    EXPECT_EQ(campo.testo(), "");
}

TEST_F(CampoEditTest, PastedTextLosesLineBreaksAndControlCharacters) {
    const QString brutto = QString("uno\r\ndue\ttre") + QChar(0) + QChar(0x2028) + QChar(0x1B) + "fine";
    incolla(brutto);
    EXPECT_EQ(campo.testo(), "unoduetrefine");
    EXPECT_EQ(casella.text(), "unoduetrefine");
}

TEST_F(CampoEditTest, TenThousandPastedCharactersArrive) {
    incolla(QString("0123456789").repeated(1000));
    EXPECT_EQ(campo.testo().size(), 10000);
}

TEST_F(CampoEditTest, ADateTakesTenCharactersAtMost) {
    CTextBox data(campo);
    data.txtType(CTextBox::Data);
    CampoEdit casellaData(campo, &data, "Data", nullptr);
    QTest::keyClicks(&casellaData, "31/12/20261");
    EXPECT_EQ(campo.testo(), "31/12/2026");
}

TEST_F(CampoEditTest, CutAndUndoWorkAsEverywhere) {
    QTest::keyClicks(&casella, "abc");
    casella.selectAll();
    QTest::keyClick(&casella, Qt::Key_X, Qt::ControlModifier);
    ASSERT_EQ(campo.testo(), "");
    QTest::keyClick(&casella, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(campo.testo(), "abc");
}

TEST_F(CampoEditTest, AltAndALetterWriteNothing) {
    QTest::keyClick(&casella, Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(campo.testo(), "");
}

TEST_F(CampoEditTest, NumbersStandAtTheRight) {
    CTextBox importo(campo);
    importo.txtType(CTextBox::Importo);
    const CampoEdit casellaImporto(campo, &importo, "Importo", nullptr);
    EXPECT_TRUE(casellaImporto.alignment() & Qt::AlignRight);
}

TEST_F(CampoEditTest, AComposedLetterPassesTheRulesToo) {
    QInputMethodEvent composta;
    composta.setCommitString(QString(u'è'));
    QApplication::sendEvent(&casella, &composta);
    EXPECT_EQ(campo.testo(), QString(u'è'));
}

TEST_F(CampoEditTest, AHiddenFieldHidesItsBox) {
    campo.visibile(false);
    EXPECT_TRUE(casella.isHidden());
}

}  // namespace
