#pragma once

struct Vendita;

// One discount over all rows of a sale: what is left of the total after tender, and the immediate discount.

// The percentage of a discount `aggiunta` on top of a discount `vecchio`.
float getNewScontoByOldAndAdd(float vecchio, float aggiunta);
// A further discount, a percentage, on every live row; 0 does nothing. The three discounts of a row are added
// up, not cascaded, and become one. The displays stay as they are.
void ricalcolaScontiAfterPag(Vendita& v, float sconto);
// The amount in lblMainDisplay was changed from outside: the difference to its tag, the amount before, goes
// over the rows as a discount. An amount before of 0: RunTimeError 6.
void ricalcolaDaTotale(Vendita& v);

// Command 16: the operator chooses an immediate discount (ScontiImmediati), which then is in force for this
// sale. To cancel clears the caption and keeps the discount.
void getScontoImmediato(Vendita& v);
// Every row, deleted ones too, takes the immediate discount in place of its own; save states stay.
void ricalcolaScontiGriglia(Vendita& v);
