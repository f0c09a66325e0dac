#include "sale/returns.h"

#include <cmath>

#include "core/globals.h"
#include "core/operator_port.h"
#include "core/value_helpers.h"
#include "sale/product_entry.h"
#include "sale/row_editor.h"
#include "sale/vendita.h"

namespace {

bool soloReso(const Vendita& v) {
    return gSottoScorta == 1 && gBloccaSottoScorta && v.txtCodProdotto.chiave() > 0 &&
           getValoreSingle(getValoreNumerico(v.lblGiacenza.testo())) <= 0;
}

}  // namespace

void setReso(Vendita& v, int stato) {
    const int tick = v.chkReso.valore();
    setResoStatus(v, stato == 3 ? 1 - tick : tick);
    if (v.txtQta.testo().isEmpty()) return;
    const float assoluta = std::fabs(getValoreSingle(v.txtQta.testo()));
    v.txtQta.testo(formattaImporto(v.chkReso.valore() == 1 ? -assoluta : assoluta, 2));
    txtQta_LostFocus(v);
}

void chkReso_Click(Vendita& v) {
    if (v.chkReso.valore() == 0 && soloReso(v)) {
        v.schermo.operatore().messaggio(
            "Impossibile modificare l'operazione! Per il prodotto selezionato Il Reso è l'unica operazione "
            "consentita.",
            OperatorPort::Icona::Critica);
        setResoStatus(v, 1);
        return;
    }
    setReso(v, v.chkReso.valore());
}
