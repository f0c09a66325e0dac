#pragma once

struct Vendita;

// From the sale on the screen to its neighbours in the books: those of the screen's document type, of the
// year of its date and of this desk, by number and sub-number.

enum class Direzione { Avanti = 0, Indietro = 1 };

// Shows the neighbour. Past the last sale stands a new one; before the first there is nothing, and the screen
// stays. Unsaved changes are the caller's to ask about.
void validaFrecce(Vendita& v, Direzione direzione);
