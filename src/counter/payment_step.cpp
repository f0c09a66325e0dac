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

void evtTotaleVendita(Conto& conto, Currency totale) {
    Vendita& v = conto.vendita();
    if (totale == getValoreCurrency(v.lblMainDisplay.testo()) || !accettaNuovoTotale(conto)) return;
    v.lblMainDisplay.testo(formattaImporto(totale, 2));
    ricalcolaDaTotale(v);
    v.lblMainDisplay.testoETag(formattaImporto(Currency(), 2));
    mostraSaldo(v);
}

}  // namespace

void apriMonitorResto(Conto& conto) {
    Vendita& v = conto.vendita();
    EsitoIncasso esito;
    {
        const QScopedValueRollback aperta(gModaleAperta, true);
        esito = conto.incassa(getValoreCurrency(v.lblMainDisplay.testo()));
    }
    v.lblUltimoResto.tag(esito.resto);
    evtTotaleVendita(conto, esito.totale);
}
