#pragma once

#include <functional>
#include <optional>

#include "counter/operator_entry.h"
#include "kit/CTextBox.h"
#include "kit/campo.h"

// The rules of the dialogue that asks for the operator's code. The window over it is frmCodiceVenditore.
class CodiceVenditore {
  public:
    explicit CodiceVenditore(const RichiestaVenditore& richiesta);
    CodiceVenditore(const CodiceVenditore&) = delete;
    CodiceVenditore& operator=(const CodiceVenditore&) = delete;

    ElencoCampi elenco;
    Campo txtCodice{elenco, "txtCodice"};
    Campo lblEsito{elenco, "lblEsito"};  // why the dialogue asks again
    CTextBox casella{txtCodice};

    void osservaConferma(std::function<void()> conferma) { mConferma = std::move(conferma); }
    // A key in txtCodice as it goes on to the box; Enter confirms.
    std::optional<QChar> tasto(QChar tasto);
    // A scan that came meanwhile, without its prefix. A badge takes the place of what was typed and is
    // confirmed; false when the scan is none.
    bool scansione(const QString& codice);

  private:
    std::function<void()> mConferma;
};
