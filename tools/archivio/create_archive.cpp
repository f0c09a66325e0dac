#include "archivio/create_archive.h"

#include "archivio/default_options.h"
#include "archivio/demo_shop.h"
#include "archivio/new_archive.h"
#include "archivio/sized_shop.h"
#include "core/run_time_error.h"

namespace {

void riempi(NuovoArchivio& nuovo, const OpzioniCreazione& opzioni) {
    if (opzioni.misure) {
        riempiNegozio(nuovo.scrittore(), *opzioni.misure, opzioni.seme);
    } else if (opzioni.demo) {
        riempiDemo(nuovo.scrittore(), opzioni.seme);
    } else {
        scriviOpzioni(nuovo.scrittore(), {});
    }
}

QString genere(const OpzioniCreazione& opzioni) {
    if (opzioni.misure) {
        return QString(" (%1 prodotti, %2 clienti, %3 righe di vendita)")
            .arg(opzioni.misure->prodotti)
            .arg(opzioni.misure->clienti)
            .arg(opzioni.misure->righe);
    }
    return opzioni.demo ? " (negozio dimostrativo)" : " (vuoto)";
}

}  // namespace

bool creaArchivio(const QString& nome, const OpzioniCreazione& opzioni, QTextStream& esito) {
    try {
        const NomeArchivio archivio = NomeArchivio::da(nome);
        const auto nuovo = NuovoArchivio::inizia(archivio, opzioni.sovrascrivi);
        riempi(*nuovo, opzioni);
        nuovo->consegna();
        esito << "Archivio creato: " << archivio.leggibile() << genere(opzioni) << "\n";
        return true;
    } catch (const RunTimeError& errore) {
        esito << "ERRORE: archivio non creato: " << errore.descrizione() << "\n";
        return false;
    }
}
