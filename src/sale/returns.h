#pragma once

struct Vendita;

// Returns: rows with a negative quantity. The tick is a mode of the row editor, not of the sale.

// 3 toggles the tick, any other value takes it as it is; the quantity in the editor follows its sign, and
// the row with it. A product that may only come back cannot be unticked, here or by a click.
void setReso(Vendita& v, int stato);
// The operator ticked or unticked.
void chkReso_Click(Vendita& v);
