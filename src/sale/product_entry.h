#pragma once

#include <optional>

#include <QChar>
#include <QString>

struct Vendita;

// The code box: what is typed, scanned or picked becomes rows.

// A key in the code box: '\r' enters the product. Answers the key as it goes on to the box.
std::optional<QChar> txtCodProdotto_KeyPress(Vendita& v, QChar tasto);

// The scanner's prefix: a code is coming in.
void iniziaScansione(Vendita& v);

// A batch of keys, each ended by "|", from a search.
void setArticoloGrid(Vendita& v, const QString& elenco);
