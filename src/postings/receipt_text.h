#pragma once

#include <QString>

#include "core/currency.h"
#include "sale/flxvb.h"

// The commands of one receipt, as the fiscal register's interface takes them: a "REP" for each row sold by
// this save and a "TOT" of those rows alone.
class TestoScontrino {
  public:
    void aggiungiRiga(const FlexVB& griglia, int riga);
    // No row was sold: there is no receipt.
    bool vuoto() const { return mTesto.isEmpty(); }
    Currency totale() const { return mTotale; }
    // The whole text, with the "TOT" at its end.
    QString chiudi() const;

  private:
    QString mTesto;
    Currency mTotale;
};
