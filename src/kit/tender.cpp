#include "kit/tender.h"

#include "core/value_helpers.h"

namespace {

constexpr unsigned verde = 0x00C000;
constexpr unsigned rosso = 0xFF0000;

}  // namespace

MonitorResto::MonitorResto(Currency importo) {
    for (CTextBox* casella : {&totale, &pagato}) {
        casella->txtType(CTextBox::Importo);
        casella->usaTastierino(true);
    }
    txtTotale.testo(formattaImporto(importo, 2));
}

std::optional<QChar> MonitorResto::tasto(CTextBox& casella, QChar tasto) {
    if (tasto != u'\r') return casella.keyPress(tasto);
    // An amount that is missing is not one of 0,00 that was typed.
    if (!casella.campo().testo().isEmpty()) {
        casella.cancelTabStep(true);
        casella.keyPress(tasto);
    }
    calcolaResto();
    return std::nullopt;
}

void MonitorResto::calcolaResto() {
    if (txtPagato.testo().isEmpty()) txtPagato.testo("0");
    const Currency resto = getValoreCurrency(txtPagato.testo()) - getValoreCurrency(txtTotale.testo());
    lblResto.testo(formattaImporto(resto, 2));
    lblResto.colori(std::nullopt, getValoreCurrency(lblResto.testo()) < Currency() ? rosso : verde);
    pagato.setFocus();
    pagato.setLastPositionChar();
}

EsitoIncasso MonitorResto::esito() {
    if (txtTotale.testo().isEmpty()) txtTotale.testo("0,00");
    return {getValoreCurrency(txtTotale.testo()), lblResto.testo()};
}
