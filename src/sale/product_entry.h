#pragma once

#include <optional>

#include <QChar>
#include <QString>

struct Vendita;

// From a typed code or a scan to a row of the grid.

// Loads a product by its key, or by code when that is not empty, and runs the whole entry. With `like` the
// code is looked for inside CODICE and EXTRACODICE; a barcode always counts whole. Answers the row.
// `presente`: the product had a row already.
bool getProdotto(Vendita& v, int idProdotto, const QString& codice, int& riga, bool like, bool& presente);

// A key in the code box: '\r' enters the product. Answers the key as it goes on to the box.
std::optional<QChar> txtCodProdotto_KeyPress(Vendita& v, QChar tasto);

// The scanner's prefix: a code is coming in.
void iniziaScansione(Vendita& v);

// Leaving the quantity: its sign, the stock policy, the discounts of that quantity, the commit.
void txtQta_LostFocus(Vendita& v);

// A batch of keys, each ended by "|", from a search.
void setArticoloGrid(Vendita& v, const QString& elenco);

// The sale's date is today's, or the shop lets it differ.
bool controlloDataMovimento(Vendita& v);
