#include <gtest/gtest.h>

#include "kit/CTextBox.h"

namespace {

// A box that notes what was asked of it and edits the field's text as one does.
class CasellaFinta final : public CTextBox::Casella {
  public:
    explicit CasellaFinta(Campo& campo) : mCampo(campo) {}
    void selezionaTutto() override {
        ++selezioni;
        mTutto = true;
    }
    void cursoreAllaFine() override {
        ++cursori;
        mTutto = false;
    }
    void inserisci(const QString& testo) override {
        mCampo.testo(mTutto ? testo : mCampo.testo() + testo);
        mTutto = false;
    }
    void prendiFuoco() override { ++fuochi; }
    void tab() override { ++tabulazioni; }
    void invio() override { ++invii; }

    int selezioni = 0, cursori = 0, fuochi = 0, tabulazioni = 0, invii = 0;

  private:
    Campo& mCampo;
    bool mTutto = false;
};

struct TypedBox : testing::Test {
    ElencoCampi elenco;
    Campo campo{elenco, "txtProva"};
    CTextBox casella{campo};
    CasellaFinta finta{campo};

    TypedBox() { casella.casella(&finta); }
    ~TypedBox() override { casella.casella(nullptr); }

    // The text as it stands after the field was left.
    QString lasciato(CTextBox::Tipo tipo, const QString& testo) {
        casella.txtType(tipo);
        campo.testo(testo);
        casella.validate();
        return campo.testo();
    }
    // Which of the characters go on to the box, as they arrive there.
    QString passati(CTextBox::Tipo tipo, const QString& tasti) {
        casella.txtType(tipo);
        QString passati;
        for (const QChar tasto : tasti) {
            if (const auto passa = casella.keyPress(tasto)) passati += *passa;
        }
        return passati;
    }
};

// ---- Keys

TEST_F(TypedBox, WholeNumberTakesDigitsAndTheDot) {
    EXPECT_EQ(passati(CTextBox::Intero, "0123456789.,-+/aé "), "0123456789.");
}

TEST_F(TypedBox, AmountTurnsTheDotIntoAComma) {
    EXPECT_EQ(passati(CTextBox::Importo, "1.x-5"), "1,5");
}

TEST_F(TypedBox, AmountTakesOneCommaOnly) {
    campo.testo("1,2");
    EXPECT_EQ(passati(CTextBox::Importo, ",."), "");
    campo.testo("12");
    EXPECT_EQ(passati(CTextBox::Importo, ","), ",");
}

TEST_F(TypedBox, DateTakesDigitsSlashAndDot) {
    EXPECT_EQ(passati(CTextBox::Data, "0123456789/.-,a"), "0123456789/.");
}

TEST_F(TypedBox, PlainBoxTakesEverything) {
    EXPECT_EQ(passati(CTextBox::Nessuno, "aà1.,'\"¤"), "aà1.,'\"¤");
}

TEST_F(TypedBox, DigitsOfOtherScriptsAreSwallowed) {
    const QString altre = QString::fromUtf8("\u0661\uFF11\u00B2");
    for (const auto tipo : {CTextBox::Intero, CTextBox::Importo, CTextBox::Data}) {
        EXPECT_EQ(passati(tipo, altre), "") << tipo;
    }
}

TEST_F(TypedBox, BackspaceAlwaysPasses) {
    for (const auto tipo : {CTextBox::Nessuno, CTextBox::Intero, CTextBox::Importo, CTextBox::Data}) {
        EXPECT_EQ(passati(tipo, "\b"), "\b") << tipo;
    }
}

TEST_F(TypedBox, EnterIsSwallowedAndMovesOn) {
    EXPECT_EQ(casella.keyPress(u'\r'), std::nullopt);
    EXPECT_EQ(finta.tabulazioni, 1);
}

TEST_F(TypedBox, CancelledStepHoldsForOneEnter) {
    casella.cancelTabStep(true);
    EXPECT_EQ(casella.keyPress(u'\r'), std::nullopt);
    EXPECT_EQ(finta.tabulazioni, 0);
    casella.keyPress(u'\r');
    EXPECT_EQ(finta.tabulazioni, 1);
}

// ---- Leaving the box

TEST_F(TypedBox, AmountIsShownWithThousandsAndDecimals) {
    EXPECT_EQ(lasciato(CTextBox::Importo, "1234,5"), "1.234,50");
    EXPECT_EQ(lasciato(CTextBox::Importo, "1.234,5"), "1.234,50");
    EXPECT_EQ(lasciato(CTextBox::Importo, "7"), "7,00");
}

TEST_F(TypedBox, AmountWithoutThousands) {
    casella.sepMigliaia(false);
    EXPECT_FALSE(casella.sepMigliaia());
    EXPECT_EQ(lasciato(CTextBox::Importo, "1234,5"), "1234,50");
}

TEST_F(TypedBox, AmountRoundsHalfAwayFromZero) {
    EXPECT_EQ(lasciato(CTextBox::Importo, "2,345"), "2,35");
    EXPECT_EQ(lasciato(CTextBox::Importo, "-2,345"), "-2,35");
}

TEST_F(TypedBox, AmountWithOtherDecimals) {
    casella.decimali(3);
    EXPECT_EQ(lasciato(CTextBox::Importo, "1,5"), "1,500");
}

TEST_F(TypedBox, TextThatIsNoAmountIsZeroWithTwoDecimals) {
    casella.decimali(4);
    for (const char* testo : {"abc", "", "1,2,3", "nan", "inf", "12x"}) {
        EXPECT_EQ(lasciato(CTextBox::Importo, testo), "0,00") << testo;
    }
}

TEST_F(TypedBox, WholeNumberIsShownWithThousands) {
    EXPECT_EQ(lasciato(CTextBox::Intero, "1234567"), "1.234.567");
    EXPECT_EQ(lasciato(CTextBox::Intero, "7"), "7");
    EXPECT_EQ(lasciato(CTextBox::Intero, "0"), "0");
}

TEST_F(TypedBox, WholeNumberWithoutThousands) {
    casella.sepMigliaia(false);
    EXPECT_EQ(lasciato(CTextBox::Intero, "1234567"), "1234567");
}

TEST_F(TypedBox, TextThatIsNoWholeNumberIsZero) {
    EXPECT_EQ(lasciato(CTextBox::Intero, "abc"), "0");
    EXPECT_EQ(lasciato(CTextBox::Intero, ""), "0");
}

TEST_F(TypedBox, AutomaticNumberStaysOnlyInLowerCase) {
    EXPECT_EQ(lasciato(CTextBox::Intero, "(auto)"), "(auto)");
    EXPECT_EQ(lasciato(CTextBox::Intero, "(Auto)"), "0");
}

TEST_F(TypedBox, DateOfDigitsOnly) {
    EXPECT_EQ(lasciato(CTextBox::Data, "31122013"), "31/12/2013");
    EXPECT_EQ(lasciato(CTextBox::Data, "311213"), "31/12/2013");
}

TEST_F(TypedBox, DateWithSlashes) {
    EXPECT_EQ(lasciato(CTextBox::Data, "1/2/2013"), "01/02/2013");
    EXPECT_EQ(lasciato(CTextBox::Data, "31/12/2013"), "31/12/2013");
}

TEST_F(TypedBox, LeapDay) {
    EXPECT_EQ(lasciato(CTextBox::Data, "29022024"), "29/02/2024");
    EXPECT_EQ(lasciato(CTextBox::Data, "29022023"), "");
}

TEST_F(TypedBox, TextThatIsNoDateIsEmptied) {
    for (const char* testo :
         {"31", "32/13/2013", "00/00/0000", "31022013", "1234567", "ab/cd/efgh", "abcdef", "/"}) {
        EXPECT_EQ(lasciato(CTextBox::Data, testo), "") << testo;
    }
}

TEST_F(TypedBox, PlainBoxKeepsItsText) {
    EXPECT_EQ(lasciato(CTextBox::Nessuno, " 1234,5 x"), " 1234,5 x");
}

TEST_F(TypedBox, FormattedTextStaysTheSame) {
    EXPECT_EQ(lasciato(CTextBox::Importo, "1.234,50"), "1.234,50");
    EXPECT_EQ(lasciato(CTextBox::Intero, "1.234"), "1.234");
}

// ---- With the on-screen keypad

TEST_F(TypedBox, KeypadBoxIsFormattedAtEnterNotAtATab) {
    casella.usaTastierino(true);
    EXPECT_EQ(lasciato(CTextBox::Importo, "1234,5"), "1234,5");
    casella.keyPress(u'\r');
    EXPECT_EQ(campo.testo(), "1.234,50");
}

TEST_F(TypedBox, KeyboardBoxIsNotFormattedAtEnterItself) {
    casella.txtType(CTextBox::Importo);
    campo.testo("1234,5");
    casella.keyPress(u'\r');
    EXPECT_EQ(campo.testo(), "1234,5");
}

TEST_F(TypedBox, KeypadCharacterIsAppendedAndTheCaretGoesToTheEnd) {
    casella.txtType(CTextBox::Intero);
    campo.testo("12");
    casella.addChar("3");
    EXPECT_EQ(campo.testo(), "123");
    EXPECT_EQ(finta.cursori, 1);
}

TEST_F(TypedBox, KeypadDotIsACommaInAnAmount) {
    casella.txtType(CTextBox::Importo);
    campo.testo("12");
    casella.addChar(".");
    casella.addChar(".");
    casella.addChar(",");
    EXPECT_EQ(campo.testo(), "12,");
}

TEST_F(TypedBox, KeypadCharacterThatIsNotAllowedChangesNothing) {
    casella.txtType(CTextBox::Importo);
    campo.testo("12");
    casella.addChar("x");
    EXPECT_EQ(campo.testo(), "12");
}

// ---- Focus and colours

TEST_F(TypedBox, FocusPaintsTheBoxAndSelectsItsText) {
    casella.txtBGColor(0xFFFFC0);
    casella.txtGotFocusColor(0xC0FFC0);
    casella.gotFocus();
    EXPECT_EQ(campo.coloreFondo(), 0xC0FFC0U);
    EXPECT_EQ(finta.selezioni, 1);
    EXPECT_EQ(mTextBoxCorrente, &casella);
    casella.lostFocus();
    EXPECT_EQ(campo.coloreFondo(), 0xFFFFC0U);
}

TEST_F(TypedBox, SecondFocusOnTheSameBoxKeepsTheCaret) {
    casella.gotFocus();
    casella.lostFocus();
    casella.gotFocus();
    EXPECT_EQ(finta.selezioni, 1);
}

TEST_F(TypedBox, FocusElsewhereSelectsAgain) {
    Campo altro(elenco, "txtAltro");
    CTextBox seconda(altro);
    casella.gotFocus();
    seconda.gotFocus();
    EXPECT_EQ(mTextBoxCorrente, &seconda);
    casella.gotFocus();
    EXPECT_EQ(finta.selezioni, 2);
}

TEST_F(TypedBox, KeypadForgetsABoxThatIsGone) {
    {
        Campo altro(elenco, "txtAltro");
        CTextBox seconda(altro);
        seconda.gotFocus();
    }
    EXPECT_EQ(mTextBoxCorrente, nullptr);
}

TEST_F(TypedBox, BackColourIsAppliedAtOnce) {
    casella.txtBGColor(0x123456);
    EXPECT_EQ(campo.coloreFondo(), 0x123456U);
    casella.txtForeColor(0x654321);
    EXPECT_EQ(campo.coloreTesto(), 0x654321U);
}

TEST_F(TypedBox, FocusIsTakenOnlyByAVisibleEnabledBox) {
    casella.setFocus();
    campo.abilitato(false);
    casella.setFocus();
    campo.abilitato(true);
    campo.visibile(false);
    casella.setFocus();
    EXPECT_EQ(finta.fuochi, 1);
}

TEST_F(TypedBox, EndingTheInputMovesOn) {
    casella.setLostFocus();
    EXPECT_EQ(finta.tabulazioni, 1);
}

TEST_F(TypedBox, TextIsReadAndWrittenThroughTheBox) {
    casella.textContent("abc");
    EXPECT_EQ(casella.textContent(), "abc");
    EXPECT_EQ(casella.textLen(), 3);
    casella.clearText();
    EXPECT_EQ(casella.textLen(), 0);
    campo.bloccato(true);
    EXPECT_TRUE(casella.isLocked());
}

TEST_F(TypedBox, NumbersStandRightAndDatesAreShort) {
    casella.txtType(CTextBox::Importo);
    EXPECT_TRUE(casella.allineatoADestra());
    EXPECT_EQ(casella.lunghezzaMassima(), 0);
    casella.txtType(CTextBox::Data);
    EXPECT_FALSE(casella.allineatoADestra());
    EXPECT_EQ(casella.lunghezzaMassima(), 10);
}

}  // namespace
