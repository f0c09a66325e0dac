#pragma once

class Conto;

// The end of an account. With the last one the program ends, and what is still to be printed is lost.

enum class Chiusura {
    Chiesta,       // by whoever stands at the till
    FineSessione,  // by the system, which does not wait: nothing is asked about the register
};

// Offers to save the sale, and closes; false when the account stays open.
bool chiudiConto(Conto& conto, Chiusura chiusura);

// Whether this account may close: asks when it is the last one and the register has not printed everything.
bool fineConfermata(Conto& conto);

// The program ends: the sales without a good receipt go to the error log, one entry each.
void annotaSenzaScontrino();
