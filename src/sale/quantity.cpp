#include "sale/quantity.h"

#include <cmath>

#include "core/globals.h"
#include "core/operator_port.h"
#include "core/value_helpers.h"
#include "sale/line_pricing.h"
#include "sale/price_tables.h"
#include "sale/product_info.h"
#include "sale/row_editor.h"
#include "sale/vendita.h"

namespace {

bool oltreLaGiacenza(Vendita& v) {
    const float quantita = quantitaEditor(v);
    if (gSottoScorta != 1 || quantita <= 0) return false;
    leggiGiacenza(v);
    return v.lblGiacenza.tag() == "1" && getValoreSingle(v.lblGiacenza.testo()) - quantita < 0;
}

// The stock policy says no, or the operator does.
bool rifiutataDallaScorta(Vendita& v) {
    if (!oltreLaGiacenza(v)) return false;
    OperatorPort& operatore = v.schermo.operatore();
    const QString descrizione = v.txtDescProdotto.testo();
    if (gBloccaSottoScorta) {
        operatore.messaggio("Impossibile scaricare la quantità desiderata per il prodotto [" + descrizione +
                                "].\nLa scorta di [" + v.lblGiacenza.testo() +
                                "] è inferiore alla quantità [" + v.txtQta.testo() + "] scelta!",
                            OperatorPort::Icona::Critica);
        return true;
    }
    return gAvvisaSottoScorta &&
           !operatore.chiedeSi("Attenzione! La giacenza del prodotto [" + descrizione + "] è inferiore a [" +
                               v.txtQta.testo() +
                               "].\nScegliere [Sì] per continuare oppure [No] per annullare l'operazione");
}

void riprendiQuantita(Vendita& v) {
    v.txtQta.testo(v.txtQta.tag());
    const int riga = rigaInEditor(v);
    if (riga > 0) setResoStatus(v, v.flxVB.single(riga, Colonna::Quantita) < 0 ? 1 : 0);
}

// Commits the quantity. Its tag has it before: a box in between moves the focus, which leaves the field
// again.
void confermaQuantita(Vendita& v) {
    const QString prima = v.txtQta.tag();
    v.txtQta.tag(v.txtQta.testo());
    try {
        ricalcolaPrezzi(v, false, true);
    } catch (...) {
        v.txtQta.tag(prima);
        throw;
    }
}

}  // namespace

void imponiSegno(Vendita& v) {
    const float assoluta = std::fabs(getValoreSingle(v.txtQta.testo()));
    v.txtQta.testo(formattaImporto(v.chkReso.valore() == 1 ? -assoluta : assoluta, 2));
}

void txtQta_LostFocus(Vendita& v) {
    if (!valoreCambiato(v.txtQta)) return;
    const bool caricato = v.txtCodProdotto.chiave() > 0;
    if (caricato && getValoreSingle(v.txtQta.testo()) != 0.0F) imponiSegno(v);
    if (rifiutataDallaScorta(v)) {
        riprendiQuantita(v);
        return;
    }
    if (!v.mScontoFisso && caricato && setSconti(v, v.txtCodProdotto.chiave()))
        txtSconto_LostFocus(v, v.txtSconto1);
    confermaQuantita(v);
}

void ripetiProdotto(Vendita& v, int riga) {
    if ((gNoBarcode != 0 || !v.mDaLaser) && gNuovaRiga != 1) return;
    showInfrmazioniStatic(v, v.txtCodProdotto.chiave());
    const float quantita = v.flxVB.single(riga, Colonna::Quantita);
    const float nuova = quantita <= 0 ? quantita - 1 : quantita + 1;
    setResoStatus(v, nuova < 0 ? 1 : 0);
    v.txtQta.testo(formattaImporto(nuova, 2));
    txtQta_LostFocus(v);
}

void controllaQuantitaRipresa(Vendita& v) {
    if (getValoreSingle(v.txtQta.testo()) == 1.0F || !rifiutataDallaScorta(v)) return;
    v.txtQta.testo(formattaImporto(1.0, 2));
    confermaQuantita(v);
}
