#pragma once

#include <vector>

#include <QString>

#include "exact_numbers.h"

// One row of a sale computed a second time, apart from the program, from what stands in the editor.

struct RigaEditor {
    int decimaliDopo = 2;
    Decimale listino;     // txtPrezzoListino
    Decimale iva;         // lblValoraIva
    Decimale qta;         // txtQta
    Decimale sconti[3];   // txtSconto1 to 3
    Decimale prezzoRiga;  // TxtPrezzoRiga, where a backward computation starts
};

// What a field must hold afterwards.
struct Atteso {
    const char* campo;
    bool tag;
    QString valore;
};

struct Calcolo {
    std::vector<Atteso> attesi;  // in the order of writing; on an overflow, those written before it
    bool trabocca = false;
};

// From the list price, and from the row total back to it.
Calcolo calcoloInAvanti(const RigaEditor& riga);
Calcolo calcoloAllIndietro(const RigaEditor& riga);
