#include <gtest/gtest.h>

#include "core/globals.h"

TEST(Globals, ADeskThatNeverSavedItsSettingsIsNumber255) {
    ripristinaGlobali();
    EXPECT_EQ(gIDCassa, 255);
}

TEST(Globals, AccessIsTheServerUntilSomethingElseIsChosen) {
    ripristinaGlobali();
    EXPECT_EQ(gTipoDB, 1);
}

TEST(Globals, TextDelimiterAndModuleNameAreThoseOfTheSystem) {
    ripristinaGlobali();
    EXPECT_EQ(gSQLSep, QString(QChar(0xA4)));
    EXPECT_EQ(gNomeModulo, "bBottegonClientVB");
}

TEST(Globals, EveryIdentifierOfARowIsUnset) {
    ripristinaGlobali();
    for (const int identificativo :
         {gIDVenditore, gContoCassa, gTipoDocOverride, gCausalePagOverride, gIDMagazzino, gClientePredefinito,
          gCatPrezziNetti, gTipoDocVb, gCausalePagVb, gPagamentoVB, gContoClienti, gContoFornitori,
          gNumeratoreElencoSpeciale}) {
        EXPECT_EQ(identificativo, -1);
    }
}

TEST(Globals, WhatAnEarlierTestChangedIsUndone) {
    gIDCassa = 7;
    gVenditaSalvata = true;
    gRegCassa = "Prova";
    gStrConnessione = "x";
    gVenditoriObbligatori = 1;
    gBloccaSottoScorta = true;
    ripristinaGlobali();
    EXPECT_EQ(gIDCassa, 255);
    EXPECT_FALSE(gVenditaSalvata);
    EXPECT_TRUE(gRegCassa.isEmpty());
    EXPECT_TRUE(gStrConnessione.isEmpty());
    EXPECT_EQ(gVenditoriObbligatori, 0);
    EXPECT_FALSE(gBloccaSottoScorta);
}
