#include "counter/operator_code.h"

#include "core/globals.h"

namespace {

constexpr unsigned coloreTesto = 0xFFFFC0;
constexpr unsigned coloreFuoco = 0xC0FFC0;
constexpr unsigned testoEsito = 0xB3261E;

}  // namespace

CodiceVenditore::CodiceVenditore(const RichiestaVenditore& richiesta) {
    casella.txtBGColor(coloreTesto);
    casella.txtGotFocusColor(coloreFuoco);
    txtCodice.testo(richiesta.codice);
    lblEsito.colori(std::nullopt, testoEsito);
    if (richiesta.rifiutato)
        lblEsito.testo("Nessun operatore ha il codice \u00AB" + richiesta.codice + "\u00BB");
}

std::optional<QChar> CodiceVenditore::tasto(QChar tasto) {
    const bool invio = tasto == u'\r';
    // Enter confirms, and does not move on.
    casella.cancelTabStep(invio);
    const auto passa = casella.keyPress(tasto);
    if (invio && mConferma) mConferma();
    return passa;
}

bool CodiceVenditore::scansione(const QString& codice) {
    if (gVenditoreChar.isEmpty() || !codice.startsWith(gVenditoreChar[0])) return false;
    casella.setFocus();
    txtCodice.testo(codice.mid(1));
    casella.setLastPositionChar();
    if (!txtCodice.testo().isEmpty()) tasto(u'\r');
    return true;
}
