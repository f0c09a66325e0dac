#include "counter/register_indicator.h"

#include "core/globals.h"
#include "register/failure.h"
#include "register/interface_link.h"
#include "sale/vendita.h"

void mostraStatoRegCassa(Vendita& v, const InterfacciaRegCassa& collegamento) {
    const StatoRegCassa stato = collegamento.stato();
    const qsizetype accodati = stato == StatoRegCassa::AlLavoro ? collegamento.scontrini.accodati() : 0;
    const bool presente = !gRegCassa.isEmpty();
    v.shRegCassa.visibile(presente);
    v.lblRegCassa.visibile(presente);
    v.shRegCassa.colori(coloreStato(stato), std::nullopt);
    // Whoever rings up must see from afar that no receipt will come, as from a register that has fallen
    // silent before the receipts behind; while all is well the words keep quiet.
    const bool aPosto = stato == StatoRegCassa::Pronto || (stato == StatoRegCassa::AlLavoro && accodati == 0);
    if (aPosto) {
        v.lblRegCassa.colori(std::nullopt, std::nullopt);
    } else {
        v.lblRegCassa.colori(coloreStato(stato), inchiostroSuStato(stato));
    }
    const QString attesa = accodati == 0 ? QString() : QString(", %1 in attesa").arg(accodati);
    v.lblRegCassa.testo("REG. CASSA (" + descrizioneStato(stato) + attesa + ")");
}

void lblRegCassa_Click() {
    if (!gRegCassa.isEmpty()) dialoghiRegCassa().mostraMonitor();
}
