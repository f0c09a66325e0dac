#pragma once

#include <QString>

class Recordset;

// The statement that finds products that are not disabled, by key, or by code when that is not empty.
QString sqlProdotto(int idProdotto, const QString& codice, bool like);

// A product whose stock lies in several cost layers of the warehouse is found once for each: they become one
// row with the stock of all. `chiave`: the field of the product's key; the stock is GIACENZA. The first row
// is the current one.
void unaRigaAProdotto(Recordset& righe, const QString& chiave);
