#pragma once

#include "core/currency.h"

class OperatorPort;

// A cost that is not known.
constexpr Currency costoIgnoto = Currency::daScalato(-10000);

// The average unit cost of a product in a warehouse over what was loaded there in the last
// gMesiPrezzoMedio months (DettagliMovimento under causals from a supplier or a warehouse), together with
// `quantita` at `prezzo` when both are above -1. Without loads: the last load's price, or `prezzo` when
// `rigaEsclusa`, a DettagliMovimento key, is not negative; failing that Prodotti.PrezzoAcquisto; costoIgnoto
// after a failure. Lets the screen paint for 15 ms, so that it stays alive in a long save.
Currency getPrezzoMedioProdotto(int idProdotto, int idMagazzino, float quantita, Currency prezzo,
                                int rigaEsclusa, OperatorPort& operatore);
