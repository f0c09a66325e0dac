#include "data/server_drivers.h"

#include "data/mysql_driver.h"
#include "data/prepare_sql.h"
#include "data/sql_opening.h"
#include "data/sqlite_driver.h"
#include "data/sqlserver_driver.h"

std::unique_ptr<ServerDriver> nuovoDriver(int tipoServer) {
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
