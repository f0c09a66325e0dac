#include "doubles/archivio_di_prova.h"

#include <stdexcept>

#include "doubles/archivio_mysql.h"
#include "doubles/archivio_sql_server.h"
#include "doubles/archivio_sqlite.h"

namespace {

QString serverDiProva() {
    return qEnvironmentVariable("BOTTEGON_PROVA_SERVER", "sqlite");
}

}  // namespace

bool archivioSuFile() {
    return serverDiProva() == "sqlite";
}

std::unique_ptr<ArchivioDiProva> nuovoArchivioDiProva(const QString& cartella) {
    const QString server = serverDiProva();
    if (server == "sqlite") return std::make_unique<ArchivioSqlite>(cartella);
    if (server == "mysql") return std::make_unique<ArchivioMySql>();
    if (server == "sqlserver") return std::make_unique<ArchivioSqlServer>(cartella);
    throw std::invalid_argument("BOTTEGON_PROVA_SERVER: " + server.toStdString());
}
