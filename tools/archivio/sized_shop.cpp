#include "archivio/sized_shop.h"

#include "archivio/demo_context.h"
#include "archivio/demo_shop.h"
#include "archivio/sized_sales.h"
#include "core/clock.h"
#include "core/run_time_error.h"

void riempiNegozio(Scrittore& scrittore, const MisureNegozio& misure, quint64 seme) {
    if (misure.prodotti < prodottiMinimi || misure.clienti < clientiMinimi || misure.righe < 0) {
        throw RunTimeError(
            RunTimeError::ErroreApplicazione,
            QString("un negozio ha almeno %1 prodotti e %2 clienti").arg(prodottiMinimi).arg(clientiMinimi));
    }
    ContestoDemo c(scrittore, seme);
    c.totaleProdotti = misure.prodotti;
    c.totaleClienti = misure.clienti;
    scriviNegozio(c);
    scriviVendite(c, misure.righe, orologio().oggi());
}
