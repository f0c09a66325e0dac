#include <gtest/gtest.h>

#include "core/errors.h"
#include "register/ansi_text.h"
#include "register/frames.h"

namespace {

// Reports go to this list instead of a dialogue.
class Frames : public testing::Test {
  protected:
    Frames() {
        gErr.impostaSegnalazioneEsterna(
            [this](const cError::Errore& e) { errori << e.modulo + ": " + QString::number(e.numero); });
    }
    ~Frames() override { gErr.impostaSegnalazioneEsterna({}); }
    QStringList errori;
};

QString controllo(const QString& testo) {
    return getCKS(testo);
}

}  // namespace

TEST_F(Frames, ChecksumIsTheLastTwoDigitsOfTheSum) {
    EXPECT_EQ(controllo("RST"), "49");
    EXPECT_EQ(controllo("OFF"), "19");
}

TEST_F(Frames, ChecksumOfASmallSumHasOneDigit) {
    EXPECT_EQ(controllo(""), "0");
    EXPECT_EQ(controllo("\x07"), "7");
    EXPECT_EQ(controllo("!"), "33");
}

TEST_F(Frames, ChecksumKeepsTheLeadingZeroOfALargerSum) {
    EXPECT_EQ(controllo(QString(7, u'\x64') + QString(3, u'\x65') + u'\x02'), "05");  // 700 + 303 + 2
}

TEST_F(Frames, ChecksumCountsBytesOfTheWiresCodePage) {
    EXPECT_EQ(controllo("¤"), "64");       // 0xA4
    EXPECT_EQ(controllo("€"), "28");       // 0x80
    EXPECT_EQ(controllo("\u4E2D"), "63");  // "?"
}

TEST_F(Frames, ChecksumBeyond32BitsIsReported) {
    EXPECT_EQ(getCKS(QString(8421505, QChar(0xFF))), "");
    EXPECT_EQ(errori, QStringList{"frmRegCassa.getCKS: 6"});
}

TEST_F(Frames, ReceiptOfTheExampleGoesOutInThreeFrames) {
    EXPECT_EQ(corniciDi("REPABC1¤PENNA BLU¤2¤1.5¤1¤22¤¥TOT3¤"),
              "\x02RST49\x03\x02REPABC1¤PENNA BLU¤2¤1.5¤1¤22¤38\x03\x02TOT3¤62\x03");
}

TEST_F(Frames, SingleCommandIsNoReceipt) {
    EXPECT_EQ(corniciDi("TOT0¤"), "");
}

TEST_F(Frames, EmptyTextIsALoneReset) {
    EXPECT_EQ(corniciDi(""), "\x02RST49\x03");
}

TEST_F(Frames, EmptyCommandBecomesAnEmptyFrame) {
    EXPECT_EQ(corniciDi("¥"),
              "\x02RST49\x03\x02"
              "0\x03\x02"
              "0\x03");
}

TEST_F(Frames, FirstFrameEndsAtItsMark) {
    EXPECT_EQ(getPosEOB(""), 0);
    EXPECT_EQ(getPosEOB("\x02RST49\x03\x02TOT\x03"), 7);
    EXPECT_EQ(getPosEOB("a\x06"
                        "b\x15\x03"),
              2);
    EXPECT_EQ(getPosEOB("a\x15"
                        "b\x06\x03"),
              2);
    EXPECT_EQ(getPosEOB("no end"), 0);
}

TEST_F(Frames, EndBeyondPosition9998IsNotSeen) {
    EXPECT_EQ(getPosEOB(QString(9997, u'x') + mETX), 9998);
    EXPECT_EQ(getPosEOB(QString(9998, u'x') + mETX), 0);
    EXPECT_EQ(getPosEOB(QString(12000, u'x') + mETX), 0);
}

TEST_F(Frames, AcknowledgeBeyond9999IsTakenAsItStands) {
    EXPECT_EQ(getPosEOB(QString(12000, u'x') + mACK), 12001);
}

TEST_F(Frames, PositionBeyond16BitsIsReported) {
    EXPECT_EQ(getPosEOB(QString(32766, u'x') + mETX), 0);
    EXPECT_TRUE(errori.isEmpty());
    EXPECT_EQ(getPosEOB(QString(32767, u'x') + mETX), 0);
    EXPECT_EQ(errori, QStringList{"frmRegCassa.getPosEOB: 6"});
}

TEST_F(Frames, MarksHaveNames) {
    EXPECT_EQ(conNomi("\x02RST49\x03\x06\x15"), "<STX>RST49<ETX><ACK><NAK>");
}

TEST(AnsiText, EveryByteComesBackAsItself) {
    QByteArray tutti;
    for (int b = 0; b < 256; ++b) {
        tutti += static_cast<char>(b);
    }
    EXPECT_EQ(inAnsi(daAnsi(tutti)), tutti);
}

TEST(AnsiText, ItalianTextIsWindows1252) {
    EXPECT_EQ(inAnsi(u"¤ città € – “x”"), "\xA4 citt\xE0 \x80 \x96 \x93x\x94");
}

TEST(AnsiText, CharacterOutsideThePageIsAQuestionMark) {
    EXPECT_EQ(inAnsi(u"a\u0416\U0001F600z"), "a???z");
}
