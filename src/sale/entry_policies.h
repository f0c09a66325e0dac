#pragma once

class Recordset;
struct Vendita;

// What stands between a product that was looked for and its row: none or several found, a product that was
// replaced, an empty shelf. The records are those of sqlProdotto.

// Says so in the boxes for half a second, and empties the editor.
void mostraNonTrovato(Vendita& v);
// Several products fit: the operator takes one, which then is the current record. False when none was taken.
bool scegliTraTanti(Vendita& v, Recordset& righe);
// The product was replaced, and the operator wants the one that came for it (FK_SOSTITUITO).
bool vuoleSostituto(Vendita& v, const Recordset& p);
// The stock policy at entry. `reso`: the operator takes it as a return, the only way past an empty shelf.
bool ammessoDallaScorta(Vendita& v, const Recordset& p, bool& reso);
