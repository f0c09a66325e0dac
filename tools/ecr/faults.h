#pragma once

#include <optional>
#include <vector>

#include <QByteArray>
#include <QString>

// What the simulator can be told to do wrong.
enum class Guasto {
    Nessuno,
    Lento,     // answers after a second
    Muto,      // never answers
    Carta,     // out of paper: an error frame
    Rifiuta,   // NAK
    Confondi,  // bytes that mean nothing
    Spezza,    // an error frame, each byte on its own
    Unisci,    // ACK and error frame in one piece
    Chiudi,    // hangs up
    Muori,     // the program ends
};

struct VoceGuasto {
    Guasto guasto;
    QString nome;         // on the command line
    QString descrizione;  // in the window
};
const std::vector<VoceGuasto>& guasti();
std::optional<Guasto> guastoDiNome(const QString& nome);

// STX "ERR", two digits of code, a blank, the text, checksum, ETX.
QByteArray corniceErrore(int codice, const QString& testo);

// What goes back for one frame: pieces to be sent one by one, each after a pause.
struct RispostaEcr {
    std::vector<QByteArray> pezzi;
    int pausa = 0;  // milliseconds before each piece
    bool chiudi = false;
    bool muori = false;
    bool eseguita = true;  // the command takes effect
};
RispostaEcr rispostaConGuasto(Guasto guasto);
