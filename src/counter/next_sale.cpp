#include "counter/next_sale.h"

#include "core/clock.h"
#include "core/format.h"
#include "core/numbers.h"
#include "core/operator_port.h"
#include "counter/accounts.h"
#include "counter/save_question.h"
#include "data/client_settings.h"
#include "data/settings_store.h"
#include "sale/recall.h"
#include "sale/sale_document.h"

namespace {

bool nuovaDopoSalva() {
    return Val(impostazioni().leggi(applicazioneClient, "Client", "NuovaVenditaDopoSalva", "0")) != 0.0;
}

// Once for each day that begins while the sale is on the screen.
void offriNuovoGiorno(Conto& conto) {
    Vendita& v = conto.vendita();
    const QDate oggi = orologio().oggi();
    if (v.giornoDocumento == oggi) return;
    v.giornoDocumento = oggi;
    const QString domanda = "È cominciato un nuovo giorno (" + Format(oggi, u"DD/MM/YYYY") +
                            ").\nIniziare una nuova vendita con la data di oggi?";
    if (conto.operatore().chiedeSi(domanda) && !chiediSalvataggio(conto)) nuovoDocumento(v);
}

}  // namespace

void mostraVenditaSalvata(Conto& conto) {
    Vendita& v = conto.vendita();
    // Numbers start again every year: a sale saved after midnight is looked up in its own.
    showVendita(v, 0, v.progressivo(), v.extraProg(), v.giorno().year());
    v.pctSalvata.testo("VENDITA SALVATA, F2 nuova vendita");
    v.pctSalvata.visibile(true);
}

void primaDelProdotto(Conto& conto, bool digitato) {
    Vendita& v = conto.vendita();
    const bool rigaNuova = !digitato || valIntero(v.lblPos.testo()) < 1;
    if (v.pctSalvata.visibile() && rigaNuova && nuovaDopoSalva()) return nuovoDocumento(v);
    offriNuovoGiorno(conto);
}
