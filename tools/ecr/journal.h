#pragma once

#include <QString>

#include "ecr/receipt.h"

// The receipts as text files of a folder, one each: "AAAA-MM-GG_NNNN.txt".
class Giornale {
  public:
    explicit Giornale(QString cartella) : mCartella(std::move(cartella)) {}

    // The number after the highest one in the folder.
    int prossimoNumero() const;
    // False when the file cannot be written.
    bool scrivi(const Scontrino& scontrino) const;
    QString percorso(const Scontrino& scontrino) const;

  private:
    QString mCartella;
};
