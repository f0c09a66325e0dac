#include "archivio/new_archive.h"

#include "archivio/archive.h"
#include "archivio/new_database.h"
#include "archivio/new_file.h"
#include "archivio/verify_checks.h"
#include "core/run_time_error.h"

namespace {

// More than a person reads at once.
constexpr qsizetype mostrati = 10;

}  // namespace

std::unique_ptr<NuovoArchivio> NuovoArchivio::inizia(const NomeArchivio& nome, bool sovrascrivi) {
    return nome.file() ? nuovoFile(nome.connessione, sovrascrivi) : nuovoDatabase(nome, sovrascrivi);
}

void NuovoArchivio::consegna() {
    scrittore().scarica();
    completa();
    const QStringList rotti = riferimentiRotti(archivio());
    if (!rotti.isEmpty()) {
        throw RunTimeError(
            RunTimeError::ErroreApplicazione,
            "ci sono riferimenti a record che non esistono:\n" + rotti.mid(0, mostrati).join('\n'));
    }
    mettiInForza();
}
