#pragma once

struct Vendita;

// Writes the rows of the grid to DettagliMovimento, inside the transaction of a save, and sums the
// movement into lblTotConto. False when a statement failed.
bool saveDettagli(Vendita& v, int idMovimento, int extraProg);
