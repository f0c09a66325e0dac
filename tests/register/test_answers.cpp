#include <gtest/gtest.h>

#include "core/run_time_error.h"
#include "register/answers.h"

TEST(Answers, FirstCharacterAloneTellsTheKind) {
    EXPECT_EQ(genereRisposta("\x06\x02"
                             "ERR05 x12\x03"),
              GenereRisposta::Accettata);
    EXPECT_EQ(genereRisposta("\x15\x06"), GenereRisposta::Rifiutata);
    EXPECT_EQ(genereRisposta("\x02"), GenereRisposta::Comando);
    EXPECT_EQ(genereRisposta("x\x06"), GenereRisposta::Ignota);
    EXPECT_EQ(genereRisposta(""), GenereRisposta::Ignota);
}

TEST(Answers, AnswersBehindAnAnswerAreToldFromJunk) {
    EXPECT_TRUE(contieneRisposte(u"\x06"));
    EXPECT_TRUE(contieneRisposte(u"zz\x15"));
    EXPECT_TRUE(
        contieneRisposte(u"\x02"
                         "ERR05 x12\x03"));
    EXPECT_FALSE(contieneRisposte(u"\r\n"));
    EXPECT_FALSE(contieneRisposte(u""));
}

TEST(Answers, OnlyErrIsAnErrorCommand) {
    EXPECT_TRUE(
        comandoErrore("\x02"
                      "ERR"));
    EXPECT_FALSE(
        comandoErrore("\x02"
                      "ERX05 x12\x03"));
    EXPECT_FALSE(
        comandoErrore("\x02"
                      "err05 x12\x03"));
    EXPECT_FALSE(
        comandoErrore("\x02"
                      "ER"));
}

TEST(Answers, ErrorFrameGivesCodeAndText) {
    const ErroreRegCassa e = leggiErrore(
        "\x02"
        "ERR05¤Carta finita47\x03");
    EXPECT_EQ(e.codice, 5);
    EXPECT_EQ(e.testo, "Carta finita");
}

TEST(Answers, CharacterBehindTheCodeIsSkippedWhateverItIs) {
    EXPECT_EQ(leggiErrore("\x02"
                          "ERR057Carta47\x03")
                  .testo,
              "Carta");
}

TEST(Answers, ChecksumAndEndAreNotVerified) {
    EXPECT_EQ(leggiErrore("\x02"
                          "ERR12 Cartaxyz")
                  .testo,
              "Carta");
}

TEST(Answers, CodeThatIsNoNumberIsZero) {
    EXPECT_EQ(leggiErrore("\x02"
                          "ERRxx testo00\x03")
                  .codice,
              0);
    EXPECT_EQ(leggiErrore("\x02"
                          "ERR1x testo00\x03")
                  .codice,
              1);
}

TEST(Answers, ErrorWithoutTextIsEmpty) {
    EXPECT_EQ(leggiErrore("\x02"
                          "ERR05 47\x03")
                  .testo,
              "");
}

TEST(Answers, ErrorFrameThatIsTooShortIsAnInvalidCall) {
    try {
        leggiErrore(
            "\x02"
            "ERR05\x03");
        FAIL();
    } catch (const RunTimeError& errore) {
        EXPECT_EQ(errore.numero(), 5);
    }
}
