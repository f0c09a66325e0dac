#pragma once

#include "core/currency.h"

struct Vendita;

// What the counter shows about a product besides its row.

// Stock, list price panel and shelf place, from Prodotti or the chosen warehouse's DettagliProdotto.
void showInfrmazioniStatic(Vendita& v, int idProdotto);
// The stock of the product in the editor where it was not read yet: a row that was just selected asks for it
// only after a moment.
void leggiGiacenza(Vendita& v);
// Cost and margin of a net price; the margin is on cost. "N/D" when no cost above 0 is known.
void showMargineProdotto(Vendita& v, int idProdotto, Currency prezzoNetto);

// The cost layer to take a product from in a warehouse: the oldest with stock, else the oldest; -1 when
// there is none. From DettagliProdotto.
Currency getTaglioProdotto(int idProdotto, int idMagazzino);

// True when the stock shown is that of one warehouse, gIDMagazzino.
bool giacenzaDiMagazzino();
