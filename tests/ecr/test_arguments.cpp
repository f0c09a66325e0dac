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
    EXPECT_EQ(erroreDi({"--porta", "abc"}), "--porta vuole il numero di una porta, da 1 a 32767");
    EXPECT_EQ(erroreDi({"--porta", "70000"}), "--porta vuole il numero di una porta, da 1 a 32767");
    EXPECT_EQ(erroreDi({"--verifica", "0"}), "--verifica vuole il numero di una porta, da 1 a 32767");
    EXPECT_EQ(erroreDi({"--guasto", "carte"}), "Guasto sconosciuto: carte");
    EXPECT_EQ(erroreDi({"--verifica"}), "--verifica vuole un valore");
    EXPECT_EQ(erroreDi({"--boh"}), "Parola sconosciuta: --boh");
}

TEST(SimulatorArguments, PortsAreThoseThatATillCanHave) {
    QString errore;
    EXPECT_EQ(leggiArgomenti({"--porta", "32767"}, errore)->porta, 32767);
    EXPECT_EQ(erroreDi({"--porta", "32768"}), "--porta vuole il numero di una porta, da 1 a 32767");
    EXPECT_EQ(erroreDi({"--porta", "40000"}), "--porta vuole il numero di una porta, da 1 a 32767");
}

// The till connects to neither; the simulator listens somewhere all the same.
TEST(SimulatorArguments, PortOfTheSettingsThatNoProgramCanListenOnIsTheUsualOne) {
    EXPECT_EQ(portaDelleImpostazioni("0"), 4310);
    EXPECT_EQ(portaDelleImpostazioni("-1"), 4310);
}

TEST(SimulatorArguments, PortOfTheSettingsIsReadAsTheTillReadsIt) {
    EXPECT_EQ(portaDelleImpostazioni("4311"), 4311);
    EXPECT_EQ(portaDelleImpostazioni(" 4311 cassa"), 4311);
    EXPECT_EQ(portaDelleImpostazioni("40000"), 4310);
    EXPECT_EQ(portaDelleImpostazioni(""), 4310);
}
