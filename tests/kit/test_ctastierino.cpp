#include <gtest/gtest.h>

#include "kit/CTastierino.h"
#include "kit/CTextBox.h"

namespace {

class CasellaConFuoco final : public CTextBox::Casella {
  public:
    explicit CasellaConFuoco(CTextBox& casella) : mCasella(casella) { casella.casella(this); }
    ~CasellaConFuoco() override { mCasella.casella(nullptr); }
    void selezionaTutto() override {}
    void cursoreAllaFine() override { ++cursori; }
    void inserisci(const QString& testo) override { mCasella.textContent(mCasella.textContent() + testo); }
    void prendiFuoco() override { ++fuochi; }
    void tab() override {}
    void invio() override {
        ++invii;
        if (guasta) throw std::runtime_error("guasto");
    }
    int fuochi = 0, invii = 0, cursori = 0;
    bool guasta = false;

  private:
    CTextBox& mCasella;
};

class Keypad : public testing::Test {
  protected:
    Keypad() { casella.gotFocus(); }
    void premi(const char* tasti) {
        for (const QChar tasto : QString(tasti)) {
            tastierino.sendTasto(tasto);
        }
    }
    ElencoCampi elenco;
    Campo campo{elenco, "txtProva"};
    CTextBox casella{campo};
    CasellaConFuoco finta{casella};
    CTastierino tastierino;
};

TEST_F(Keypad, TheBoxThatLastHadTheFocusTakesTheKeys) {
    casella.lostFocus();
    premi("12C7");
    EXPECT_EQ(campo.testo(), "7");
    EXPECT_EQ(finta.fuochi, 4);
}

TEST_F(Keypad, DigitsGoToTheBoxWithTheFocus) {
    premi("120");
    EXPECT_EQ(campo.testo(), "120");
    EXPECT_EQ(finta.fuochi, 3);
}

TEST_F(Keypad, DoesNothingWithoutABox) {
    mTextBoxCorrente = nullptr;
    premi("1CDI,");
    EXPECT_EQ(campo.testo(), "");
    EXPECT_EQ(finta.fuochi, 0);
}

TEST_F(Keypad, AnAmountTakesOneComma) {
    casella.txtType(CTextBox::Importo);
    premi("1,5,0");
    EXPECT_EQ(campo.testo(), "1,50");
}

TEST_F(Keypad, AWholeNumberTakesNoComma) {
    casella.txtType(CTextBox::Intero);
    premi("1,5");
    EXPECT_EQ(campo.testo(), "15");
}

TEST_F(Keypad, ClearEmptiesTheBox) {
    premi("12C");
    EXPECT_EQ(campo.testo(), "");
    EXPECT_EQ(finta.fuochi, 3);
}

TEST_F(Keypad, DeleteTakesTheLastCharacterAndPutsTheCaretBehind) {
    campo.testo("123");
    premi("D");
    EXPECT_EQ(campo.testo(), "12");
    EXPECT_EQ(finta.cursori, 1);
}

TEST_F(Keypad, DeleteOnAnEmptyBoxGivesBackTheFocus) {
    premi("D");
    EXPECT_EQ(campo.testo(), "");
    EXPECT_EQ(finta.fuochi, 1);
}

TEST_F(Keypad, ALockedBoxRefusesEverythingButInvio) {
    campo.testo("7");
    campo.bloccato(true);
    premi("1,DC");
    EXPECT_EQ(campo.testo(), "7");
    EXPECT_EQ(finta.fuochi, 4);
    premi("I");
    EXPECT_EQ(finta.invii, 1);
}

TEST_F(Keypad, TheFormReactsAfterInvio) {
    int invii = -1;
    tastierino.evtInvio([&] { invii = finta.invii; });
    premi("I");
    EXPECT_EQ(invii, 1);
}

TEST_F(Keypad, AnyOtherKeyDoesNothing) {
    premi("X.-");
    tastierino.sendTasto({});
    EXPECT_EQ(campo.testo(), "");
    EXPECT_EQ(finta.fuochi, 0);
}

TEST_F(Keypad, AnErrorEndsTheKeySilently) {
    finta.guasta = true;
    EXPECT_NO_THROW(premi("I"));
}

}  // namespace
