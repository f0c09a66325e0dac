#include <gtest/gtest.h>

#include "ecr/arguments.h"

namespace {

QString erroreDi(const QStringList& parole) {
    QString errore;
    EXPECT_FALSE(leggiArgomenti(parole, errore).has_value());
    return errore;
}

}  // namespace

TEST(SimulatorArguments, NothingMeansThePortOfTheSettingsAndAWindow) {
    QString errore;
    const auto a = leggiArgomenti({}, errore);
    ASSERT_TRUE(a);
    EXPECT_FALSE(a->porta);
    EXPECT_TRUE(a->finestra);
    EXPECT_EQ(a->guasto, Guasto::Nessuno);
}

TEST(SimulatorArguments, EveryWordIsTaken) {
    QString errore;
    const auto a = leggiArgomenti(
        {"--porta", "4311", "--guasto", "carta", "--una-volta", "--giornale", "/x", "--senza-finestra"},
        errore);
    ASSERT_TRUE(a) << errore.toStdString();
    EXPECT_EQ(a->porta, 4311);
    EXPECT_EQ(a->guasto, Guasto::Carta);
    EXPECT_TRUE(a->unaVolta);
    EXPECT_EQ(a->giornale, "/x");
    EXPECT_FALSE(a->finestra);
}

TEST(SimulatorArguments, MistakesAreNamed) {
    EXPECT_EQ(erroreDi({"--porta", "abc"}), "--porta vuole il numero di una porta");
    EXPECT_EQ(erroreDi({"--porta", "70000"}), "--porta vuole il numero di una porta");
    EXPECT_EQ(erroreDi({"--guasto", "carte"}), "Guasto sconosciuto: carte");
    EXPECT_EQ(erroreDi({"--verifica"}), "--verifica vuole un valore");
    EXPECT_EQ(erroreDi({"--boh"}), "Parola sconosciuta: --boh");
}
