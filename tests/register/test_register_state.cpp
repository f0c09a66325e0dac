#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>

#include "register/register_state.h"

// The colours of the states, as eyes tell them apart.

namespace {

constexpr StatoRegCassa stati[] = {StatoRegCassa::Scollegato, StatoRegCassa::Pronto, StatoRegCassa::AlLavoro,
                                   StatoRegCassa::Fermo, StatoRegCassa::Sospeso};

std::array<double, 3> componenti(unsigned colore) {
    return {((colore >> 16) & 0xFF) / 255.0, ((colore >> 8) & 0xFF) / 255.0, (colore & 0xFF) / 255.0};
}

// Degrees of the colour wheel.
double tonalita(unsigned colore) {
    const auto [r, g, b] = componenti(colore);
    const double gradi = std::atan2(std::sqrt(3.0) * (g - b), 2 * r - g - b) * 180.0 / 3.14159265358979;
    return gradi < 0 ? gradi + 360.0 : gradi;
}

double luminanza(unsigned colore) {
    auto c = componenti(colore);
    std::transform(c.begin(), c.end(), c.begin(),
                   [](double x) { return x <= 0.03928 ? x / 12.92 : std::pow((x + 0.055) / 1.055, 2.4); });
    return 0.2126 * c[0] + 0.7152 * c[1] + 0.0722 * c[2];
}

double contrasto(unsigned a, unsigned b) {
    const auto [scuro, chiaro] = std::minmax({luminanza(a), luminanza(b)});
    return (chiaro + 0.05) / (scuro + 0.05);
}

}  // namespace

TEST(RegisterState, EveryStateHasAColourFarFromTheOthers) {
    for (const StatoRegCassa a : stati) {
        for (const StatoRegCassa b : stati) {
            if (a == b) continue;
            const double distanza = std::abs(tonalita(coloreStato(a)) - tonalita(coloreStato(b)));
            EXPECT_GE(std::min(distanza, 360.0 - distanza), 30.0)
                << qPrintable(descrizioneStato(a) + " / " + descrizioneStato(b));
        }
    }
}

TEST(RegisterState, WordsAreReadableOnEveryColour) {
    for (const StatoRegCassa stato : stati) {
        EXPECT_GE(contrasto(coloreStato(stato), inchiostroSuStato(stato)), 4.5)
            << qPrintable(descrizioneStato(stato));
    }
}
