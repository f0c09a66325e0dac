#pragma once

#include <vector>

#include <QString>

#include "core/currency.h"

class FlexVB;

// What one row adds to the displays; a deleted row and a kit's head add nothing.
struct SommaRiga {
    quint64 revisione = 0;  // of the row when it was worked out
    bool conta = false;
    Currency netto;   // without VAT, after the discounts
    Currency totale;  // the row's amount
    Currency lordo;   // list value with VAT, before any discount
    float quantita = 0;
};

// The sums of all rows. Every scan asks for them: those of a row are kept until it changes, so that a long
// sale is as fast as a short one.
class SommeRighe {
  public:
    // One for each row, from the first. A cell beyond the range of an amount: RunTimeError 6.
    const std::vector<SommaRiga>& di(const FlexVB& righe);

  private:
    std::vector<SommaRiga> mSomme;
    QString mDistintaBase;  // the prefix of kits that they were worked out with
};
