#include "counter/save_question.h"

#include "core/globals.h"
#include "core/operator_port.h"
#include "counter/accounts.h"
#include "counter/payment_step.h"
#include "postings/save_sale.h"
#include "sale/totals.h"

bool chiediSalvataggio(Conto& conto) {
    Vendita& v = conto.vendita();
    if (!v.venditaModificata || !v.modificaConsentita) return false;
    const auto risposta =
        conto.operatore().domanda("Attenzione Salvare la vendita corrente?",
                                  OperatorPort::Pulsanti::SiNoAnnulla, OperatorPort::Icona::Esclamazione);
    if (risposta == OperatorPort::Risposta::Annulla) return true;
    if (risposta == OperatorPort::Risposta::No) return false;
    if (gMonitor != 0) apriMonitorResto(conto);
    if (v.inChiusura) return true;
    if (!salvaEMostraUltima(conto)) return true;
    conto.venditaSalvata();
    return false;
}

bool salvaEMostraUltima(Conto& conto) {
    Vendita& v = conto.vendita();
    if (!salvaVendita(v, false, -1)) {
        calcolaTotali(v, false);  // the tender may have left 0,00 on the display
        return false;
    }
    v.lblUltimaVendita.testo(v.lblMainDisplay.testo());
    v.lblUltimoResto.testo(v.lblUltimoResto.tag());
    v.lblUltimoResto.tag({});
    return true;
}
