#pragma once

#include <QString>

// What came back from the interface program. One notification is one message, told by its first character:
// what stands behind it in the same chunk is not looked at.
enum class GenereRisposta {
    Accettata,  // ACK
    Rifiutata,  // NAK
    Comando,    // a frame
    Ignota,
};
GenereRisposta genereRisposta(const QString& pezzo);
// Whether answers stand in what is not looked at.
bool contieneRisposte(QStringView seguito);

struct ErroreRegCassa {
    int codice = 0;
    QString testo;
};

// Whether a chunk that begins with STX carries the command "ERR".
bool comandoErrore(const QString& pezzo);
// What such a chunk says: two digits of code (not digits: 0), one character skipped, the text, and at the end
// checksum and ETX, which are not verified. Too short for that: RunTimeError 5.
ErroreRegCassa leggiErrore(const QString& pezzo);
