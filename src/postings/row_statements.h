#pragma once

#include "core/currency.h"
#include "sale/flxvb.h"
#include "sale/uncertain_save.h"

// One row of the grid as a row of DettagliMovimento.
struct RigaDaScrivere {
    const FlexVB& griglia;
    int riga;
    int idMovimento;
    int extraProg;
    int pos;
    Currency taglio;  // cost layer moved; a negative one is stored as 0
    bool trasferimento;
};

// The columns that are written with their values, in the order of the table. The seller is that of a `nuova`
// row's making; its time is the server's, and not among them.
RigaScritta colonneRiga(const RigaDaScrivere& r, bool nuova);

// The new row's key; below 1 on failure.
int inserisciRiga(const RigaScritta& colonne);
// The seller and the time keep their first value. False when another desk has deleted the row meanwhile.
bool modificaRiga(int rid, const RigaScritta& colonne);
// False as above.
bool cancellaRiga(int rid);
// Ties a component of a kit to its head.
bool collegaComponente(int idRiga, int idTesta);
