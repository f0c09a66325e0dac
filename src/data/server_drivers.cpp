#include "data/server_drivers.h"

#include "data/mysql_driver.h"
#include "data/prepare_sql.h"
#include "data/sql_opening.h"
#include "data/sqlite_driver.h"
#include "data/sqlserver_driver.h"

FabbricaDriver& fabbricaDriver() {
    static FabbricaDriver fabbrica;
    return fabbrica;
}

std::unique_ptr<ServerDriver> nuovoDriver(int tipoServer) {
    if (auto altro = fabbricaDriver() ? fabbricaDriver()(tipoServer) : nullptr) return altro;
    switch (tipoServer) {
        case SqlServer:
            return std::make_unique<SqlServerDriver>();
        case Access:
            return std::make_unique<SqliteDriver>();
        case MySql:
            return std::make_unique<MySqlDriver>();
        default:
            return nullptr;
    }
}

std::unique_ptr<Connessione> apriServer(int tipoServer, const QString& stringaConnessione, int secondi,
                                        ErroreServer& errore) {
    if (const auto altro = fabbricaDriver() ? fabbricaDriver()(tipoServer) : nullptr)
        return altro->apri(stringaConnessione, secondi, {}, errore);
    switch (tipoServer) {
        case SqlServer:
            return apriSoloServer<SqlServerConnection>(stringaConnessione, secondi, errore);
        case MySql:
            return apriSoloServer<MySqlConnection>(stringaConnessione, secondi, errore);
        default:
            errore = {ErroreServer::Classe::Altro, 0, "Un archivio in un file non ha un server.", {}};
            return nullptr;
    }
}
