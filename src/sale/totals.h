#pragma once

#include "core/currency.h"

struct Vendita;

// The displays of the sale from its rows. Deleted rows and kit heads do not count; no rows at all leave
// the displays as they are. With `ultimoSalvato` the amount counts as part of the customer's balance.
void calcolaTotali(Vendita& v, bool ultimoSalvato);

// Sums over a movement's saved rows, from DettagliMovimento; Null reads as 0. The VAT, or nothing on failure.
bool getTotIva(int idMovimento, Currency& totale);
// Writes lblTotConto, 2 decimals.
bool getTotaleConto(Vendita& v, int idMovimento);

// Row by row, whether a code is a kit's head or a row of free text, by its first character.
bool iniziaCon(const QString& codice, const QString& prefisso);
bool testaDistinta(const QString& codice);
bool rigaLibera(const QString& codice);
