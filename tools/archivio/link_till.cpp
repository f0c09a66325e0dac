#include "archivio/link_till.h"

#include <QFileInfo>

#include "archivio/archive.h"
#include "core/run_time_error.h"
#include "data/client_settings.h"
#include "data/prepare_sql.h"
#include "data/settings_store.h"

namespace {

const char* const sezione = "Server";

const char* chiaveDi(int tipoServer) {
    switch (tipoServer) {
        case Access:
            return "Path";
        case MySql:
            return "MySql";
        default:
            return "SqlSrv";
    }
}

}  // namespace

bool collegaCassa(const QString& nome, QTextStream& esito) {
    try {
        NomeArchivio archivio = NomeArchivio::da(nome);
        apriPerGuardare(archivio);
        if (archivio.file()) archivio.connessione = QFileInfo(archivio.connessione).absoluteFilePath();
        impostazioni().scriviTutte(applicazioneComune,
                                   {{sezione, "DBType", QString::number(archivio.tipoServer)},
                                    {sezione, chiaveDi(archivio.tipoServer), archivio.connessione}});
        const QStringList avvisi = impostazioni().prendiAvvisi();
        if (!avvisi.isEmpty()) throw RunTimeError(RunTimeError::ErroreApplicazione, avvisi.join('\n'));
        esito << "La cassa di questo utente lavora ora su " << archivio.leggibile() << "\n";
        return true;
    } catch (const RunTimeError& errore) {
        esito << "ERRORE: cassa non collegata: " << errore.descrizione() << "\n";
        return false;
    }
}
