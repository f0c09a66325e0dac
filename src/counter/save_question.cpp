#include "counter/save_question.h"

#include "core/operator_port.h"
#include "counter/accounts.h"
#include "postings/save_sale.h"

bool chiediSalvataggio(Conto& conto) {
    Vendita& v = conto.vendita();
    if (!v.venditaModificata || !v.modificaConsentita) return false;
    const auto risposta =
        conto.operatore().domanda("Attenzione Salvare la vendita corrente?",
                                  OperatorPort::Pulsanti::SiNoAnnulla, OperatorPort::Icona::Esclamazione);
    if (risposta == OperatorPort::Risposta::Annulla) return true;
    if (risposta == OperatorPort::Risposta::No) return false;
    if (!salvaVendita(v, false, -1)) return true;
    v.lblUltimaVendita.testo(v.lblMainDisplay.testo());
    return false;
}
