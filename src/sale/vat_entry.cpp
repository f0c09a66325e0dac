#include "sale/vat_entry.h"

#include "core/value_helpers.h"
#include "data/gateway.h"
#include "data/prepare_sql.h"
#include "sale/line_pricing.h"
#include "sale/row_editor.h"
#include "sale/vendita.h"

void getIVA(Vendita& v) {
    QString condizione;
    if (!v.txtIVA.testo().isEmpty()) {
        condizione = "CODICE = " + testoSQL(v.txtIVA.testo());
    } else if (v.txtIVA.chiave() > 0) {
        condizione = "RID = " + QString::number(v.txtIVA.chiave());
    } else {
        return;
    }
    const Lettura lettura("SELECT RID, CODICE, DESCRIZIONE, VALORE FROM Iva WHERE " + condizione,
                          moduloFrmMain + QString(".getIVA"));
    if (!lettura.trovata()) return;
    v.txtIVA.testo(lettura->testo("CODICE"));
    v.txtIVA.tag(lettura->testo("RID"));
    v.lblIVA.testo(lettura->testo("DESCRIZIONE"));
    v.lblIDIva.testo(lettura->testo("RID"));
    v.lblCodIva.testo(lettura->testo("CODICE"));
    v.lblDescIva.testo(lettura->testo("DESCRIZIONE"));
    v.lblValoraIva.testo(formattaImporto(lettura->campo("VALORE"), 2));
}

void txtIVA_LostFocus(Vendita& v) {
    if (v.txtIVA.testo() == v.lblCodIva.testo()) return;
    getIVA(v);
    ricalcolaPrezzi(v, v.chkPrezziIva.valore() == 1, true);
}
