#pragma once

#include <optional>

#include <QChar>

#include "core/currency.h"
#include "kit/CTextBox.h"
#include "kit/campo.h"

// What the tender dialogue leaves behind.
struct EsitoIncasso {
    Currency totale;  // the amount due, maybe corrected
    QString resto;    // the change as it was shown; empty when none was asked for
};

// The change calculator: amount due, amount tendered, change.
class MonitorResto {
  public:
    explicit MonitorResto(Currency totale);

    ElencoCampi elenco;
    Campo txtTotale{elenco, "txtTotale"};
    Campo txtPagato{elenco, "txtPagato"};
    Campo lblResto{elenco, "lblResto"};
    CTextBox totale{txtTotale};
    CTextBox pagato{txtPagato};

    // A key in one of the two boxes: Enter ('\r') shows the change and stays in the amount tendered. Answers
    // the key as it goes on to the box.
    std::optional<QChar> tasto(CTextBox& casella, QChar tasto);
    // Green from 0 up, red below.
    void calcolaResto();
    // The end, however the dialogue is left. An emptied total is 0.
    EsitoIncasso esito();
};
