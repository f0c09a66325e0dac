#pragma once

#include <optional>

#include <QChar>
#include <QDate>

#include "kit/CTextBox.h"
#include "kit/campo.h"

class Conto;

// What the go-to dialogue asks: a number with or without sub-number, or a day.
class VaiVendita {
  public:
    VaiVendita();

    ElencoCampi elenco;
    Campo txtData{elenco, "txtData"};
    Campo txtProg{elenco, "txtProg"};
    Campo txtSottoProg{elenco, "txtSottoProg"};
    Campo txtAnno{elenco, "txtAnno"};
    CTextBox data{txtData};
    CTextBox prog{txtProg};
    CTextBox sottoProg{txtSottoProg};
    CTextBox anno{txtAnno};

    // Empties the boxes; the year is this one's.
    void cmdCE();
    // Confirmed: a day typed as digits becomes one.
    void cmdInvio();
    // Left without an answer: all boxes empty.
    void cmdEsci();
    bool confermata() const { return mConfermata; }

    // A number beyond all sales stands for the last one that could be.
    int progressivo() const;
    int sottoProgressivo() const;
    // This year's when the box holds none.
    int annoScelto() const;
    // Invalid when the box holds none.
    QDate giorno() const;

  private:
    bool mConfermata = false;
};

// The command: asks before an unsaved sale is left, then for the sale to go to, and shows it. One that is not
// there is told.
void vaiAVendita(Conto& conto);
