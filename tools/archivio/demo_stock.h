#pragma once

#include <vector>

#include "archivio/demo_random.h"
#include "archivio/row_writer.h"

// Writes products together with their stock, so that GIACENZA is always the sum of the layers.
class Scorte {
  public:
    // Pieces bought at one cost, lying in one warehouse. The order is the age.
    struct Strato {
        int magazzino;
        int costo;  // cents
        int quantita;
    };

    explicit Scorte(Scrittore& scrittore) : mScrittore(scrittore) {}

    qint64 scrivi(Riga prodotto, const std::vector<Strato>& strati);
    int prodotti() const { return mProdotti; }

  private:
    Scrittore& mScrittore;
    int mProdotti = 0;
};

// One or two layers in the shop, often one in the store room. A product that is out of stock keeps a layer
// of 0, because its cost is known.
std::vector<Scorte::Strato> stratiACaso(Casuale& casuale, int costo);
