#pragma once

struct Vendita;

// A saved sale on the screen again.

// Loads by key when `idMovimento` is at least 1, otherwise by number and year within the screen's document
// type (a negative year is this year's); with both below 1 nothing happens. `extraProg` says which of the
// sales that share the header.
void showVendita(Vendita& v, int idMovimento, int progressivo, int extraProg, int anno);
// The rows of the header and sub-progressive on the screen, unchanged since their save; false when they could
// not be read.
bool showDettagli(Vendita& v);
