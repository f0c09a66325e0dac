#pragma once

class Recordset;
struct Vendita;

// A product that was found, as sqlProdotto reads it, into the emptied row editor: itself, its VAT, cost, list
// price, discounts and the prices that follow. `idRichiesto`: the key that it was asked for by, -1 when it
// came by a code; only an entry by key knows its cost at once.
void riempiEditor(Vendita& v, const Recordset& p, int idRichiesto);
