#include "counter/register_indicator.h"

#include "core/globals.h"
#include "register/failure.h"
#include "sale/vendita.h"

void mostraStatoRegCassa(Vendita& v, StatoRegCassa stato) {
    const bool presente = !gRegCassa.isEmpty();
    v.shRegCassa.visibile(presente);
    v.lblRegCassa.visibile(presente);
    v.shRegCassa.colori(coloreStato(stato), std::nullopt);
    v.lblRegCassa.testo("REG. CASSA (" + descrizioneStato(stato) + ")");
}

void lblRegCassa_Click() {
    if (!gRegCassa.isEmpty()) dialoghiRegCassa().mostraMonitor();
}
