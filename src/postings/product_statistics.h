#pragma once

#include <QDate>

#include "core/currency.h"

// Writes Prodotti.DATAULTIMOSCARICO and PREZZOULTIMOSCARICO when the sale is later than the date that
// stands there; a product without a date keeps having none. False when a statement failed.
bool aggiornaStatisticaCarico(int idProdotto, Currency prezzo, QDate data);
