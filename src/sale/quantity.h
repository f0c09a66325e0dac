#pragma once

struct Vendita;

// The quantity of the row editor: its sign, what the stock allows, and how it grows.

// The quantity takes the sign of the return mode, with 2 decimals.
void imponiSegno(Vendita& v);
// Leaving the quantity: its sign, the stock policy, the discounts of that quantity, the commit. A quantity
// that the stock refuses goes back to the last one, and the return mode to that of its row.
void txtQta_LostFocus(Vendita& v);

// A product that has its row already, now in the editor: a scan counts it once more, a typed code only
// recalls the row.
void ripetiProdotto(Vendita& v, int riga);
// The row of a product in the place of another's keeps that one's quantity, as far as the stock goes.
void controllaQuantitaRipresa(Vendita& v);
