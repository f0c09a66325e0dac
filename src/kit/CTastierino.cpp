#include "kit/CTastierino.h"

#include <exception>

#include "core/numbers.h"
#include "kit/CTextBox.h"

namespace {

void togliUltimo(CTextBox& casella) {
    if (casella.textLen() == 0) return;
    casella.textContent(casella.textContent().chopped(1));
    casella.setLastPositionChar();
}

// False when the key is none of a keypad.
bool scrivi(CTextBox& casella, const QString& tasto) {
    const bool cifra = isNumeric(tasto);
    if (!cifra && tasto != "," && tasto != "C" && tasto != "D") return false;
    if (casella.isLocked()) return true;
    if (tasto == "C") {
        casella.clearText();
    } else if (tasto == "D") {
        togliUltimo(casella);
    } else {
        casella.addChar(tasto);
    }
    return true;
}

}  // namespace

void CTastierino::sendTasto(const QString& tasto) const {
    CTextBox* casella = mTextBoxCorrente;
    if (casella == nullptr) return;
    try {
        if (tasto == "I") {
            casella->setFocus();
            casella->inviaInvio();
            if (mInvio) mInvio();
        } else if (scrivi(*casella, tasto)) {
            casella->setFocus();
        }
    } catch (const std::exception&) {
        // A key that fails is as if it had not been pressed: the operator presses it again.
    }
}
