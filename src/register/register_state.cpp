#include "register/register_state.h"

#include <array>

namespace {

struct Aspetto {
    const char* descrizione;
    unsigned colore;
    unsigned inchiostro;
};

constexpr unsigned bianco = 0xFFFFFF;
constexpr unsigned nero = 0x10202E;

// In the order of the states.
constexpr std::array<Aspetto, 5> aspetti{{
    {"scollegato", 0x7B1FA2, bianco},
    {"pronto", 0x13713A, bianco},
    {"stampa", 0x0B5CAD, bianco},
    {"FERMO", 0xB3261E, bianco},
    {"sospeso", 0xFFC857, nero},
}};

const Aspetto& aspetto(StatoRegCassa stato) {
    return aspetti[static_cast<size_t>(stato)];
}

}  // namespace

QString descrizioneStato(StatoRegCassa stato) {
    return aspetto(stato).descrizione;
}

unsigned coloreStato(StatoRegCassa stato) {
    return aspetto(stato).colore;
}

unsigned inchiostroSuStato(StatoRegCassa stato) {
    return aspetto(stato).inchiostro;
}
