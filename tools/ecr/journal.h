#pragma once

#include <QString>

#include "ecr/receipt.h"

// The receipts as text files of a folder, one each: "AAAA-MM-GG_NNNN.txt".
class Giornale {
  public:
    explicit Giornale(QString cartella) : mCartella(std::move(cartella)) {}

    // The number after the highest one in the folder.
    int prossimoNumero() const;
    // Never over a file that is there: another simulator's receipt of that number keeps its name, and this
    // one gets "-2" behind its own. False when the file cannot be written.
    bool scrivi(const Scontrino& scontrino) const;
    QString percorso(const Scontrino& scontrino, const QString& copia = {}) const;

  private:
    QString mCartella;
};
