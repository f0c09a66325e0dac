#pragma once

#include <functional>
#include <memory>

#include "data/server_driver.h"

// Makes the drivers in the place of the program's own, where it is set and answers one.
using FabbricaDriver = std::function<std::unique_ptr<ServerDriver>(int tipoServer)>;
FabbricaDriver& fabbricaDriver();

// The driver of a server type as in prepare_sql.h; nothing for any other.
std::unique_ptr<ServerDriver> nuovoDriver(int tipoServer);

// For tools: a connection to the server itself, where there is no archive yet. The connection string may
// lack a database, and one that it names is not opened.
std::unique_ptr<Connessione> apriServer(int tipoServer, const QString& stringaConnessione, int secondi,
                                        ErroreServer& errore);
