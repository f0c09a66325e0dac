#pragma once

#include <QStringList>

#include "data/server_driver.h"

// The mark of a database on a server that is a shop's archive: a table of its own with one row, the number
// of schema::versione (a file has SQLite's application_id and user_version for that). It is written when
// the archive is complete; until then it says `versioneIncompleta`, and no till works on it.

constexpr int versioneIncompleta = 0;

// In the words of both servers: makes the table with the row; changes the row.
QStringList creaMarchio(int versione);
QString cambiaMarchio(int versione);
QString leggiMarchio();

// Whether a till may work on the database of this connection; asks the server once. Otherwise `errore` says
// in plain words that it is no archive, an incomplete one, or one of another version.
bool verificaVersione(Connessione& connessione, ErroreServer& errore);

// While one lives, verificaVersione lets every database pass: what makes archives opens those that are not
// yet complete.
class AperturaSenzaVerifica {
  public:
    AperturaSenzaVerifica();
    ~AperturaSenzaVerifica();
    AperturaSenzaVerifica(const AperturaSenzaVerifica&) = delete;
    AperturaSenzaVerifica& operator=(const AperturaSenzaVerifica&) = delete;
};
