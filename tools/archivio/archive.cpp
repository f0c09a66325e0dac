#include "archivio/archive.h"

#include "archivio/catalogue.h"
#include "archivio/file_archive.h"
#include "archivio/server_archive.h"
#include "data/prepare_sql.h"

namespace {

std::unique_ptr<Archivio> apri(const NomeArchivio& nome, ArchivioFile::Sguardo sguardo) {
    std::unique_ptr<Archivio> archivio;
    if (nome.file()) {
        archivio = std::make_unique<ArchivioFile>(nome.connessione, sguardo);
    } else {
        archivio = std::make_unique<ArchivioServer>(nome, ArchivioServer::Stato::Completo);
    }
    pretendiTabelle(*archivio);
    return archivio;
}

}  // namespace

qint64 Archivio::numero(const QString& sql) {
    const Recordset righe = leggi(sql);
    return righe.eof() ? 0 : righe.campo(0).toLongLong();
}

std::unique_ptr<Archivio> apriPerGuardare(const NomeArchivio& nome) {
    return apri(nome, ArchivioFile::Sguardo::Breve);
}

std::unique_ptr<Archivio> apriPerCopiare(const NomeArchivio& nome) {
    return apri(nome, ArchivioFile::Sguardo::Lungo);
}

QString primeRighe(const QString& query, qint64 quante, int tipoServer) {
    const QString numero = QString::number(quante);
    if (tipoServer != SqlServer) return query + " LIMIT " + numero;
    return "SELECT TOP " + numero + query.mid(QString("SELECT").size());
}
