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
// 0xRRGGBB
unsigned coloreStato(StatoRegCassa stato);
