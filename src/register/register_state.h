#pragma once

#include <QString>

// What the link to the register is doing, as the counter shows it.
enum class StatoRegCassa {
    Scollegato,
    Pronto,
    AlLavoro,  // a frame waits for its answer
    Fermo,     // the register refused; nothing goes on by itself
    Sospeso,   // new receipts are dropped
};

QString descrizioneStato(StatoRegCassa stato);
// 0xRRGGBB: of the state, and of words painted on it.
unsigned coloreStato(StatoRegCassa stato);
unsigned inchiostroSuStato(StatoRegCassa stato);
