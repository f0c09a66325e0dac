#pragma once

#include "core/currency.h"

struct Vendita;

// Moves the stock of one row of the grid as its save state says. `taglio` is the cost layer that was moved,
// -1 when none is known. False: the operator has been or will be told, and the save rolls back.
bool scaricaRiga(Vendita& v, int riga, bool trasferimento, Currency& taglio);

// A row that changes warehouse shows and books its cost instead of its price.
void valutaAlCosto(Vendita& v, int riga, Currency taglio);
