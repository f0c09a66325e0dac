#include "sale/product_fields.h"

#include "core/format.h"
#include "core/globals.h"
#include "core/value_helpers.h"
#include "data/recordset.h"
#include "sale/kits.h"
#include "sale/line_pricing.h"
#include "sale/price_tables.h"
#include "sale/product_info.h"
#include "sale/totals.h"
#include "sale/vendita.h"

namespace {

void riempiIva(Vendita& v, const Recordset& p) {
    v.txtIVA.testo(p.testo("CODIVA"));
    v.txtIVA.tag(p.testo("FK_IVA"));
    v.lblIVA.testo(p.testo("DESCIVA"));
    v.lblIDIva.testo(p.testo("FK_IVA"));
    v.lblCodIva.testo(p.testo("CODIVA"));
    v.lblDescIva.testo(p.testo("DESCIVA"));
    v.lblValoraIva.testo(formattaImporto(p.campo("VALOREIVA"), 2));
}

void riempiProdotto(Vendita& v, const Recordset& p) {
    v.txtCodProdotto.testo(p.testo("CODICE"));
    v.txtCodProdotto.tag(p.testo("RID"));
    v.lblCodProdotto.testo(p.testo("CODICE"));
    v.txtDescProdotto.testo(p.testo("PRODOTTO"));
    v.lblMarca.testo(p.testo("CODMARCA"));
    v.lblMarca.tag(QString::number(getChekByBool(p.campo("ELENCOSPECIALE"))));
    riempiIva(v, p);
    v.lblUM.testo(p.testo("CODUM"));
    v.lblUM.tag(p.testo("FK_UNITAMISURA"));
    v.lblPrezzoListinoPanel.testo(formattaImporto(p.importo("PLISTINO"), gDecimaliDopo));
    v.lblDataListinoPanel.testo(Format(p.campo("DATALISTINO").toDate(), u"DD/MM/YYYY"));
    v.lblUbicazione.testo(p.testo("UBICAZIONE"));
    v.lblGiacenza.testo(formattaImporto(getValoreSingle(p.campo("GIACENZA")), 2));
    v.lblGiacenza.tag(p.vero("SETGIACENZA") ? "1" : "0");
}

void riempiCosto(Vendita& v, int idRichiesto) {
    // Only an entry by key knows its cost at once; a code finds it with the margin.
    if (idRichiesto < 1) return;
    const Currency taglio = getTaglioProdotto(idRichiesto, v.magazzinoOrigine);
    if (taglio >= Currency()) v.lblPrezzoAcquisto.testo(formattaImporto(taglio, gDecimaliDopo));
}

void riempiPrezzo(Vendita& v, const Recordset& p) {
    bool daListino = false;
    const Currency prezzo = getPrezzoVendita(v.cliente(), p.intero("RID"), daListino, false);
    const double iva = static_cast<double>(getValoreSingle(v.lblValoraIva.testo()));
    v.txtPrezzoListino.testo(formattaImporto(prezzo, gDecimaliDopo));
    v.txtPrezzoListinoLordo.testo(
        formattaImporto(getValoreCurrency(v.txtPrezzoListino.testo()).toDouble() * (1 + iva / 100), 2));
    v.lblPrezzoListino.tag(QString::number(getChekByBool(p.campo("BLOCCAPREZZO"))));
    v.lblPrezzoListino.testo(v.txtPrezzoListino.testo());
    v.lblPrezzoListinoLordo.testo(v.txtPrezzoListinoLordo.testo());
}

void riempiSconti(Vendita& v, const Recordset& p) {
    float sconto = getValoreSingle(p.campo("SCONTO"));
    if (sconto == 0.0F) sconto = static_cast<float>(v.mScontoCliente);
    if (sconto > 0) {
        v.txtSconto1.testoETag(formattaImporto(sconto, 2));
        v.txtSconto2.testoETag(formattaImporto(0.0, 2));
        v.txtSconto3.testoETag(formattaImporto(0.0, 2));
        v.mScontoFisso = true;
    } else if (getValoreSingle(v.txtQta.testo()) != 0.0F && setSconti(v, p.intero("RID"))) {
        applicaScontiRiga(v);
    }
    v.lblSconto1.testo(v.txtSconto1.testo());
    v.lblSconto2.testo(v.txtSconto2.testo());
    v.lblSconto3.testo(v.txtSconto3.testo());
}

void calcolaRiga(Vendita& v, const Recordset& p) {
    if (v.mGestioneTaglio) v.lblTaglio.testo(v.txtPrezzoListino.testo());
    const QString codice = p.testo("CODICE");
    if (testaDistinta(codice)) getPrezzoTotaleDistinta(v, codice);
    if (!testaDistinta(codice) && !rigaLibera(codice)) {
        const Currency netto = calcolaPrezzoNetto(v, getValoreCurrency(v.txtPrezzoListino.testo()),
                                                  getValoreSingle(v.lblValoraIva.testo()));
        v.txtPrezzoNetto.tag(netto.testo());
        v.txtPrezzoNetto.testo(formattaImporto(netto, gDecimaliDopo));
        v.lblPrezzoNetto.testo(v.txtPrezzoNetto.testo());
    }
    ricalcolaPrezzi(v, false, false);
    v.lblCatSconto.testo(p.testo("DescCatSconto"));
}

}  // namespace

void riempiEditor(Vendita& v, const Recordset& p, int idRichiesto) {
    riempiProdotto(v, p);
    riempiCosto(v, idRichiesto);
    riempiPrezzo(v, p);
    riempiSconti(v, p);
    calcolaRiga(v, p);
}
