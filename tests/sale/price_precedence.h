#pragma once

#include <optional>
#include <vector>

#include "exact_numbers.h"

// Which price and which discounts win: the rule written a second time, over plain values.

struct Percentuali {
    Decimale sconti[3] = {{0, 2}, {0, 2}, {0, 2}};
};

// A range of a discount table, both ends counted. Of net prices it holds one, else percentages.
struct Fascia {
    int da;
    int a;
    Percentuali percentuali;
    Decimale prezzo;
};
using Fasce = std::vector<Fascia>;

struct CasoDiPrezzo {
    // Customer
    int listino = 1;
    Decimale scontoCliente{0, 2};
    bool haFascia = false;
    // Product
    Decimale listini[4];
    std::optional<Decimale> personale;
    Decimale scontoProdotto{0, 2};
    bool haCategoria = false;
    bool prezziNetti = false;  // the category is the one of net prices
    Fasce diMarca;             // the ranges of its brand in that band and category; none without a brand
    Fasce generali;            // those of no brand
    Fasce nette;
    // Key 16
    Decimale immediato{0, 2};
};

// What the row editor holds as the rule goes on.
class PrezzoEffettivo {
  public:
    // One piece of the product is entered.
    explicit PrezzoEffettivo(const CasoDiPrezzo& caso);
    // The quantity becomes another one.
    void quantita(int pezzi);

    Decimale prezzo() const { return mPrezzo; }
    const Percentuali& percentuali() const { return mPercentuali; }

  private:
    void tabelle(int pezzi);
    void percentualiDiTabella(int pezzi);

    const CasoDiPrezzo& mCaso;
    Decimale mPrezzo;
    Percentuali mPercentuali;
    bool mFisso = false;
};

// The list price alone: the personal one, the customer's list, the first list. With `conSconto` the
// customer's discount comes off what is no personal price.
Decimale prezzoDiListino(const CasoDiPrezzo& caso, bool conSconto);
// The net unit price of one piece in the search list.
Decimale prezzoNettoInRicerca(const CasoDiPrezzo& caso);
