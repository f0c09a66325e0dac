#include "register/register_state.h"

#include <array>

namespace {

struct Aspetto {
    const char* descrizione;
    unsigned colore;
};

// In the order of the states.
constexpr std::array<Aspetto, 5> aspetti{{
    {"scollegato", 0xB3261E},
    {"pronto", 0x13713A},
    {"stampa", 0x0B5CAD},
    {"FERMO", 0xB3261E},
    {"sospeso", 0x8A4B00},
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
