#pragma once

struct Documento;
struct Vendita;

// Writes the rows of the grid to DettagliMovimento, inside the transaction of a save: stock, row, product
// statistics, one after the other. Then sums the movement into lblTotConto, hands the receipt of the new rows
// to the register and writes the transport weight. A transfer's rows are valued at cost, on the screen too.
// What was written stands in `d.righe`. False when anything failed.
bool saveDettagli(Vendita& v, Documento& d);
