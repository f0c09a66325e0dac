#include "archivio/verify_archive.h"

#include "archivio/archive.h"
#include "archivio/verify_checks.h"
#include "core/run_time_error.h"

namespace {

QStringList ordinate(QStringList trovate, const QString& etichetta) {
    trovate.sort();
    for (QString& riga : trovate)
        riga.prepend(etichetta);
    return trovate;
}

}  // namespace

QStringList danniFile(Archivio& archivio) {
    QStringList danni;
    Recordset controllo = archivio.leggi("PRAGMA integrity_check(20)");
    for (; !controllo.eof(); controllo.moveNext()) {
        const QString trovato = controllo.campo(0).toString();
        if (trovato != "ok") danni << "archivio danneggiato: " + trovato;
    }
    return danni;
}

QStringList EsitoVerifica::righe() const {
    QStringList tutte = ordinate(errori, "ERRORE: ") + ordinate(note, "NOTA: ");
    tutte << QString("Verifica: %1 errori, %2 note.").arg(errori.size()).arg(note.size());
    return tutte;
}

EsitoVerifica verificaArchivio(const QString& nome) {
    EsitoVerifica esito;
    try {
        const NomeArchivio archivioDetto = NomeArchivio::da(nome);
        const auto archivio = apriPerGuardare(archivioDetto);
        // A damaged file cannot be checked further; a server sees to that itself.
        if (archivioDetto.file()) esito.errori = danniFile(*archivio);
        if (!esito.errori.isEmpty()) return esito;
        for (auto* controllo :
             {verificaTotali, verificaNumeri, verificaGiacenze, verificaPrimaNota, verificaRiferimenti}) {
            controllo(*archivio, esito);
        }
    } catch (const RunTimeError& errore) {
        esito.errori << errore.descrizione();
    }
    return esito;
}
