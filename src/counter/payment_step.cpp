#include "counter/payment_step.h"

#include <QScopedValueRollback>

#include "core/globals.h"
#include "core/operator_port.h"
#include "core/value_helpers.h"
#include "counter/accounts.h"
#include "sale/customer.h"
#include "sale/sale_discount.h"

namespace {

bool haRigheRegistrate(const FlexVB& g) {
    for (int r = 1; r <= g.ultima(); ++r) {
        if (g.viva(r) && g.chiave(r, Colonna::Rid) > 0) return true;
    }
    return false;
}

bool accettaNuovoTotale(Conto& conto) {
    if (!haRigheRegistrate(conto.vendita().flxVB)) return true;
    return conto.operatore().chiedeSi(
        "Questa vendita è già registrata: con il totale cambiato tutte le sue righe verrebbero registrate "
        "un'altra volta.\nUsare comunque il nuovo totale?",
        OperatorPort::Icona::Esclamazione);
}

// A changed total goes over the rows as a share of the one before, and 0,00 has no shares.
bool ripartibile(Conto& conto) {
    if (getValoreCurrency(conto.vendita().lblMainDisplay.tag()) != Currency()) return true;
    conto.operatore().messaggio(
        "Il totale di questa vendita è 0,00 e qui non si può cambiare.\n"
        "Per incassare un altro importo correggere le righe della vendita.",
        OperatorPort::Icona::Esclamazione);
    return false;
}

void ripartisci(Vendita& v, Currency totale) {
    const QString prima = v.lblMainDisplay.testo();
    v.lblMainDisplay.testo(formattaImporto(totale, 2));
    try {
        ricalcolaDaTotale(v);
    } catch (...) {
        v.lblMainDisplay.testo(prima);
        throw;
    }
    v.lblMainDisplay.testoETag(formattaImporto(Currency(), 2));
    mostraSaldo(v);
}

// False when the total cannot be changed: the sale is as it was, and the tender asks again.
bool evtTotaleVendita(Conto& conto, Currency totale) {
    Vendita& v = conto.vendita();
    if (totale == getValoreCurrency(v.lblMainDisplay.testo())) return true;
    if (!ripartibile(conto)) return false;
    if (accettaNuovoTotale(conto)) ripartisci(v, totale);
    return true;
}

EsitoIncasso incassa(Conto& conto) {
    const QScopedValueRollback aperta(gModaleAperta, true);
    return conto.incassa(getValoreCurrency(conto.vendita().lblMainDisplay.testo()));
}

}  // namespace

void apriMonitorResto(Conto& conto) {
    EsitoIncasso esito = incassa(conto);
    while (!evtTotaleVendita(conto, esito.totale)) {
        esito = incassa(conto);
    }
    conto.vendita().lblUltimoResto.tag(esito.resto);
}
