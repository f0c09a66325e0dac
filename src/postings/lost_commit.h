#pragma once

#include <functional>
#include <optional>

#include "core/operator_port.h"

// After a commit whose answer was lost (cAdoSqlServer::commitDiEsitoIgnoto).
enum class EsitoCommit {
    Registrato,     // it is in the books
    NonRegistrato,  // nothing of it is
    Ignoto,         // the server could not be asked
};

// How long a server is waited for that does not answer, in milliseconds.
int& attesaVerificaCommit();

// Looks on a new connection, in a turn of its own, at whether the transaction is in the books: by then the
// lost connection has ended, and nothing of it is still under way. `registrato` asks the books; nothing
// when they do not answer. `sorgente` is for error reports.
EsitoCommit cercaDopoCommitPerso(OperatorPort& operatore, const QString& sorgente,
                                 const std::function<std::optional<bool>()>& registrato);
