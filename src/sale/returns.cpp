#include "sale/returns.h"

#include "core/globals.h"
#include "core/operator_port.h"
#include "core/value_helpers.h"
#include "sale/product_info.h"
#include "sale/quantity.h"
#include "sale/row_editor.h"
#include "sale/vendita.h"

namespace {

bool soloReso(Vendita& v) {
    if (gSottoScorta != 1 || !gBloccaSottoScorta || v.txtCodProdotto.chiave() <= 0) return false;
    leggiGiacenza(v);
    return getValoreSingle(getValoreNumerico(v.lblGiacenza.testo())) <= 0;
}

// A product that may only come back stays a return.
bool rifiutaVendita(Vendita& v) {
    if (!soloReso(v)) return false;
    v.schermo.operatore().messaggio(
        "Impossibile modificare l'operazione! Per il prodotto selezionato Il Reso è l'unica operazione "
        "consentita.",
        OperatorPort::Icona::Critica);
    return true;
}

}  // namespace

void setReso(Vendita& v, int stato) {
    const int tick = v.chkReso.valore();
    if (stato == 3 && tick == 1 && rifiutaVendita(v)) return;
    setResoStatus(v, stato == 3 ? 1 - tick : tick);
    if (v.txtQta.testo().isEmpty()) return;
    // A row shows its pieces without their sign: against those, one that turns would not have changed.
    const int riga = rigaInEditor(v);
    if (riga > 0) v.txtQta.tag(v.flxVB.cella(riga, Colonna::Quantita));
    imponiSegno(v);
    txtQta_LostFocus(v);
}

void chkReso_Click(Vendita& v) {
    if (v.chkReso.valore() == 0 && rifiutaVendita(v)) {
        setResoStatus(v, 1);
        return;
    }
    setReso(v, v.chkReso.valore());
}
