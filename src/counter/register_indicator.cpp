#include "counter/register_indicator.h"

#include "core/globals.h"
#include "register/failure.h"
#include "sale/vendita.h"

namespace {

constexpr unsigned testoSuStato = 0xFFFFFF;

}  // namespace

void mostraStatoRegCassa(Vendita& v, StatoRegCassa stato) {
    const bool presente = !gRegCassa.isEmpty();
    v.shRegCassa.visibile(presente);
    v.lblRegCassa.visibile(presente);
    v.shRegCassa.colori(coloreStato(stato), std::nullopt);
    // Whoever rings up must see from afar that no receipt will come; while all is well the words keep quiet.
    const bool aPosto = stato == StatoRegCassa::Pronto || stato == StatoRegCassa::AlLavoro;
    if (aPosto) {
        v.lblRegCassa.colori(std::nullopt, std::nullopt);
    } else {
        v.lblRegCassa.colori(coloreStato(stato), testoSuStato);
    }
    v.lblRegCassa.testo("REG. CASSA (" + descrizioneStato(stato) + ")");
}

void lblRegCassa_Click() {
    if (!gRegCassa.isEmpty()) dialoghiRegCassa().mostraMonitor();
}
