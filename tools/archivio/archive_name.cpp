#include "archivio/archive_name.h"

#include <algorithm>

#include <QStringList>

#include "archivio/ask_password.h"
#include "core/run_time_error.h"
#include "data/connection_pairs.h"
#include "data/connection_string.h"
#include "data/prepare_sql.h"

namespace {

struct Prefisso {
    const char* testo;
    int tipoServer;
};

const Prefisso prefissi[] = {{"mysql:", MySql}, {"sqlserver:", SqlServer}};

const Prefisso* prefissoDi(const QString& testo) {
    const auto* trovato = std::find_if(std::begin(prefissi), std::end(prefissi), [&](const Prefisso& p) {
        return testo.startsWith(p.testo, Qt::CaseInsensitive);
    });
    return trovato == std::end(prefissi) ? nullptr : trovato;
}

QString traVirgolette(const QString& valore) {
    return '"' + QString(valore).replace('"', "\"\"") + '"';
}

DatiConnessione dati(const QString& stringa, int tipoServer) {
    QString errore;
    const auto letti = leggiStringaConnessione(stringa, tipoServer, errore);
    if (!letti) throw RunTimeError(RunTimeError::ErroreApplicazione, errore);
    return *letti;
}

bool haVoce(const QString& stringa, coppie::Voce voce) {
    const auto tutte = coppie::leggi(stringa);
    return std::any_of(tutte.begin(), tutte.end(), [&](const auto& coppia) { return coppia.voce == voce; });
}

// Whoever names a user has a password, if only an empty one.
QString conPassword(const QString& stringa) {
    if (!haVoce(stringa, coppie::Voce::Utente) || haVoce(stringa, coppie::Voce::Password)) return stringa;
    const auto password = chiediPassword(mascheraPassword(stringa));
    return password ? stringa + ";Pwd=" + traVirgolette(*password) : stringa;
}

}  // namespace

NomeArchivio NomeArchivio::da(const QString& testo) {
    const Prefisso* prefisso = prefissoDi(testo);
    if (prefisso == nullptr) return {Access, testo};
    const QString stringa = testo.mid(static_cast<qsizetype>(qstrlen(prefisso->testo)));
    dati(stringa, prefisso->tipoServer);
    return {prefisso->tipoServer, conPassword(stringa)};
}

bool NomeArchivio::indicaFile(const QString& testo) {
    return prefissoDi(testo) == nullptr;
}

bool NomeArchivio::file() const {
    return tipoServer == Access;
}

QString NomeArchivio::leggibile() const {
    if (file()) return connessione;
    const DatiConnessione d = dati(connessione, tipoServer);
    return d.database + " su " + (d.server.isEmpty() ? d.socket : d.server) +
           (tipoServer == MySql ? " (MySQL)" : " (SQL Server)");
}

QString NomeArchivio::database() const {
    return dati(connessione, tipoServer).database;
}
