#pragma once

#include <QString>

// How a button of the counter looks and whether its command is there; its caption is its field's.
struct VoceComando {
    QString nomeAccessibile;
    QString suggerimento;
    bool presto = false;          // still to come
    const char* ruolo = nullptr;  // a look of its own
    QString segnaposto = {};      // painted where there is no caption
    QString tasto = {};           // its key, painted below a caption that names none
};

// By index 0 to 19, and 0 to 13.
const VoceComando& voceComando(int indice);
const VoceComando& voceConto(int indice);
