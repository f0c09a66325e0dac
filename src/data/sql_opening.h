#pragma once

#include "data/archive_version.h"
#include "data/connection_string.h"
#include "data/sql_connection.h"

// Reads the connection string and opens a connection of class C; nothing on failure, with the error.
template <class C>
std::unique_ptr<C> apriConnessione(const QString& stringa, std::optional<DatiConnessione> dati,
                                   const QString& motivo, int secondi, ErroreServer& errore) {
    if (!dati) {
        errore = {ErroreServer::Classe::Altro, 0, motivo, C::origine};
        return nullptr;
    }
    if (dati->secondi > 0) secondi = dati->secondi;
    auto nuova = std::make_unique<C>(stringa, std::move(*dati), secondi);
    if (nuova->connetti()) return nuova;
    errore = nuova->errore();
    return nullptr;
}

// To the archive that the string names; it must be one that this program can use.
template <class C>
std::unique_ptr<C> apriArchivioSql(const QString& stringa, int secondi, ErroreServer& errore) {
    QString motivo;
    auto dati = leggiStringaConnessione(stringa, C::tipoServer, motivo);
    auto nuova = apriConnessione<C>(stringa, std::move(dati), motivo, secondi, errore);
    return nuova && verificaVersione(*nuova, errore) ? std::move(nuova) : nullptr;
}

// To the server alone; a database that the string names is not opened.
template <class C>
std::unique_ptr<C> apriSoloServer(const QString& stringa, int secondi, ErroreServer& errore) {
    QString motivo;
    auto dati = leggiStringaServer(stringa, C::tipoServer, motivo);
    if (dati) dati->database.clear();
    return apriConnessione<C>(stringa, std::move(dati), motivo, secondi, errore);
}
