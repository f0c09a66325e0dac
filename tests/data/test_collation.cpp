#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

#include <QRandomGenerator>
#include <QString>

#include "data/access_collation.h"

namespace {

int confronta(const char* a, const char* b) {
    return dialetto::confronta(a, b);
}
bool uguali(const char* a, const char* b) {
    return confronta(a, b) == 0;
}

std::string testoACaso(QRandomGenerator& caso) {
    static const std::vector<std::string> pezzi = {
        "a",        "A",          "b",          "z",    " ",    "  ",
        "\n",       "\t",         "0",          "é",    "È",    "e",
        "e\u0301",  "\u0301",     "ß",          "İ",    "ı",    "ſ",
        "s",        "Ω",          "ς",          "σ",    "한",   "が",
        "か",       "\U0001F6D2", "\U0010FFFF", "\xC3", "\xFF", "\xED\xA0\x80",
        "\xC0\x80", "~",
    };
    std::string testo;
    const int quanti = static_cast<int>(caso.bounded(5));
    for (int i = 0; i < quanti; ++i)
        testo += pezzi[caso.bounded(static_cast<quint32>(pezzi.size()))];
    if (caso.bounded(20) == 0) testo += '\0';
    return testo;
}

}  // namespace

TEST(Collazione, CaseDoesNotCount) {
    EXPECT_TRUE(uguali("Rossi", "ROSSI"));
    EXPECT_TRUE(uguali("è", "È"));
    EXPECT_TRUE(uguali("σοφία", "ΣΟΦΊΑ"));
}

TEST(Collazione, AccentsDoNotCount) {
    EXPECT_TRUE(uguali("caffe", "Caffè"));
    EXPECT_TRUE(uguali("perché", "perchè"));
    EXPECT_TRUE(uguali("Ấ", "a"));
}

TEST(Collazione, ComposedAndDecomposedAreTheSame) {
    EXPECT_TRUE(uguali("e\u0301", "é"));
}

TEST(Collazione, TrailingBlanksDoNotCount) {
    EXPECT_TRUE(uguali("A", "A  "));
    EXPECT_TRUE(uguali("", "   "));
}

TEST(Collazione, BlanksBeforeAndBetweenCount) {
    EXPECT_LT(confronta(" A", "A"), 0);
    EXPECT_LT(confronta("A B", "AB"), 0);
}

TEST(Collazione, ApostropheIsNoAccent) {
    EXPECT_FALSE(uguali("caffe'", "caffè"));
}

TEST(Collazione, BeginningStandsBeforeTheLongerText) {
    EXPECT_LT(confronta("Ab", "aba"), 0);
    EXPECT_LT(confronta("A", "A\n"), 0);
    EXPECT_LT(confronta("A   ", "A\n"), 0);
}

TEST(Collazione, LettersWithAccentsSortWithTheirLetter) {
    std::vector<std::string> nomi = {"Zeta", "Àncora", "Elite", "Baco", "ancora più", "Éclair"};
    std::sort(nomi.begin(), nomi.end(),
              [](const auto& a, const auto& b) { return dialetto::confronta(a, b) < 0; });
    EXPECT_EQ(nomi, (std::vector<std::string>{"Àncora", "ancora più", "Baco", "Éclair", "Elite", "Zeta"}));
}

TEST(Collazione, SyllablesMadeOfLettersStayApart) {
    EXPECT_FALSE(uguali("한", "하"));
}

TEST(Collazione, BytesThatAreNoTextOrderBehindEveryCharacter) {
    EXPECT_GT(confronta("\xFF", "\U0010FFFF"), 0);
}

TEST(Collazione, OrderOfAnyTwoTextsIsTheSameFromBothSides) {
    QRandomGenerator caso(1);
    for (int giro = 0; giro < 100000; ++giro) {
        const std::string a = testoACaso(caso), b = testoACaso(caso);
        ASSERT_EQ(dialetto::confronta(a, b), -dialetto::confronta(b, a)) << a << "|" << b;
    }
}

TEST(Collazione, OrderOfAnyThreeTextsHasNoCircle) {
    QRandomGenerator caso(2);
    for (int giro = 0; giro < 200000; ++giro) {
        std::string a = testoACaso(caso), b = testoACaso(caso), c = testoACaso(caso);
        if (dialetto::confronta(a, b) > 0) std::swap(a, b);
        if (dialetto::confronta(b, c) > 0) std::swap(b, c);
        if (dialetto::confronta(a, b) > 0) std::swap(a, b);
        ASSERT_LE(dialetto::confronta(a, c), 0) << a << "|" << b << "|" << c;
        const bool tuttiUguali = dialetto::confronta(a, b) == 0 && dialetto::confronta(b, c) == 0;
        ASSERT_EQ(dialetto::confronta(a, c) == 0, tuttiUguali) << a << "|" << b << "|" << c;
    }
}

TEST(Collazione, EveryMatchOfABeginningLiesInItsRange) {
    QRandomGenerator caso(3);
    int trovati = 0;
    for (int giro = 0; giro < 200000; ++giro) {
        const std::string inizio = testoACaso(caso), testo = testoACaso(caso);
        if (testo.find("\U0010FFFF") != std::string::npos || testo.find('\xFF') != std::string::npos)
            continue;
        if (testo.find('\xC3') != std::string::npos || testo.find('\xC0') != std::string::npos) continue;
        if (testo.find('\xED') != std::string::npos || !dialetto::somiglia(inizio + "%", testo)) continue;
        ++trovati;
        ASSERT_GE(dialetto::confronta(testo, inizio), 0) << inizio << "|" << testo;
        ASSERT_LE(dialetto::confronta(testo, inizio + "\U0010FFFF"), 0) << inizio << "|" << testo;
    }
    EXPECT_GT(trovati, 1000);
}

TEST(Somiglia, WildcardsStandForAnyTextAndOneCharacter) {
    EXPECT_TRUE(dialetto::somiglia("a%", "A"));
    EXPECT_TRUE(dialetto::somiglia("%b%d", "abcbcd"));
    EXPECT_TRUE(dialetto::somiglia("c_ffè", "CAFFE"));
    EXPECT_TRUE(dialetto::somiglia("%", ""));
    EXPECT_TRUE(dialetto::somiglia("", ""));
    EXPECT_FALSE(dialetto::somiglia("_", ""));
    EXPECT_FALSE(dialetto::somiglia("a", "ab"));
    EXPECT_FALSE(dialetto::somiglia("a%c", "ab"));
    EXPECT_FALSE(dialetto::somiglia("", "a"));
}

TEST(Somiglia, OneCharacterMayHaveItsAccentApart) {
    EXPECT_TRUE(dialetto::somiglia("caff_", "caffe\u0301"));
}

TEST(Somiglia, OneCharacterMayTakeSeveralBytes) {
    EXPECT_TRUE(dialetto::somiglia("_x", "\U0001F6D2x"));
}

TEST(Somiglia, WildcardsBehindTheEscapeAreThemselves) {
    EXPECT_TRUE(dialetto::somiglia("50!%", "50%", U'!'));
    EXPECT_FALSE(dialetto::somiglia("50!%", "505", U'!'));
    EXPECT_TRUE(dialetto::somiglia("a!_%", "a_b", U'!'));
    EXPECT_FALSE(dialetto::somiglia("a!_", "ab", U'!'));
    EXPECT_TRUE(dialetto::somiglia("a!!", "a!", U'!'));
}
