#pragma once

#include <QString>

struct Vendita;

// From a key or a code to a row of the grid.

// Loads a product by its key, or by code when that is not empty, and runs the whole entry. With `like` the
// code is looked for inside CODICE and EXTRACODICE; a barcode always counts whole. Answers the row.
// `presente`: the product had a row already. When nothing was entered, `riga` is 0 and `presente` false.
bool getProdotto(Vendita& v, int idProdotto, const QString& codice, int& riga, bool like, bool& presente);
