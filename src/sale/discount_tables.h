#pragma once

#include <array>
#include <optional>

#include <QString>

#include "core/currency.h"

// The three discount tables, each by category and range of quantity; both ends of a range are inside. Of
// overlapping ranges the first row that the server returns counts. `sorgente` names the caller in the report
// of a failure.

// Three percentages, each off what the one before it left.
using Sconti = std::array<float, 3>;

// A price less three discounts, in double precision from the first to the third.
double scontato(double prezzo, const Sconti& sconti);

// What a table answers: a failed statement is not the same as no range.
template <class Valore>
struct Risposta {
    bool riuscita = true;
    std::optional<Valore> valore = std::nullopt;
};

// Discounts of sale by category, band and brand (CatScVendita); without a row of the brand, or with a brand
// below 1, those that hold for every brand.
Risposta<Sconti> scontiDiVendita(int categoria, int marca, int fascia, float quantita,
                                 const QString& sorgente);
// Net price of a product by category and band (CatScProdVendita).
Risposta<Currency> prezzoNettoDiVendita(int categoria, int fascia, float quantita, int idProdotto,
                                        const QString& sorgente);
// Discounts of purchase by category, brand and supplier (CatScAcquisto), a supplier below 1 meaning any.
Risposta<Sconti> scontiDiAcquisto(int categoria, int marca, float quantita, int idFornitore,
                                  const QString& sorgente);
