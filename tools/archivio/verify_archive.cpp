#include "archivio/verify_archive.h"

#include "archivio/read_only_archive.h"
#include "archivio/statement.h"
#include "archivio/verify_checks.h"
#include "core/run_time_error.h"

namespace {

QStringList ordinate(QStringList trovate, const QString& etichetta) {
    trovate.sort();
    for (QString& riga : trovate)
        riga.prepend(etichetta);
    return trovate;
}

// Whether the pages, the indexes and the rows of the file are whole; a damaged one cannot be checked further.
bool fileIntegro(sqlite3* db, EsitoVerifica& esito) {
    Istruzione controllo(db, "PRAGMA integrity_check(20)");
    while (controllo.passo()) {
        if (controllo.testo(0) != "ok") esito.errori << "archivio danneggiato: " + controllo.testo(0);
    }
    return esito.errori.isEmpty();
}

}  // namespace

QStringList EsitoVerifica::righe() const {
    QStringList tutte = ordinate(errori, "ERRORE: ") + ordinate(note, "NOTA: ");
    tutte << QString("Verifica: %1 errori, %2 note.").arg(errori.size()).arg(note.size());
    return tutte;
}

EsitoVerifica verificaArchivio(const QString& percorso) {
    EsitoVerifica esito;
    try {
        const ArchivioLetto archivio(percorso);
        if (!fileIntegro(archivio.db(), esito)) return esito;
        for (auto* controllo :
             {verificaTotali, verificaNumeri, verificaGiacenze, verificaPrimaNota, verificaRiferimenti}) {
            controllo(archivio.db(), esito);
        }
    } catch (const RunTimeError& errore) {
        esito.errori << errore.descrizione();
    }
    return esito;
}
