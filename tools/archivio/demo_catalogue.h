#pragma once

#include <vector>

// What the demo shop sells, as families of articles that differ by variant and size.

struct Categoria {
    const char* codice;
    const char* descrizione;
    const char* gruppo;
    const char* categoriaSconti;  // empty for none
};
const std::vector<Categoria>& categorie();

struct Famiglia {
    const char* categoria;
    const char* base;      // beginning of the description
    const char* varianti;  // parted by ";", may be one empty one
    const char* misure;    // parted by ";", from the smallest and cheapest
    const char* unita;
    int iva;        // percent
    int prezzoMin;  // cents at the counter, VAT included
    int prezzoMax;
    const char* marche;  // parted by ";"
    int grammi;
};
const std::vector<Famiglia>& catalogo();
