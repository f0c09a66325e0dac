#pragma once

#include <memory>

#include <QString>

#include "archivio/archive_name.h"
#include "data/recordset.h"

// An archive that is open, on any server. Statements are in the server's own words; whatever it refuses
// raises RunTimeError 9999 with its text.
class Archivio {
  public:
    virtual ~Archivio() = default;
    Archivio(const Archivio&) = delete;
    Archivio& operator=(const Archivio&) = delete;

    // As in prepare_sql.h.
    int tipoServer() const { return mTipoServer; }
    // The rows of a query. A file's dates are texts, see stored_date.h.
    virtual Recordset leggi(const QString& sql) = 0;
    virtual void esegui(const QString& sql) = 0;
    // What is read until the archive is closed is the state of this moment, whatever the tills write
    // meanwhile.
    virtual void fermaIlTempo() = 0;
    // Raises RunTimeError 9999 when the connection was replaced since it was opened.
    virtual void pretendiContinuita() {}

    // The first field of the first row as a number; 0 when there is none.
    qint64 numero(const QString& sql);

  protected:
    explicit Archivio(int tipoServer) : mTipoServer(tipoServer) {}

  private:
    int mTipoServer;
};

// Opens an archive to look at it: nothing of it changes, and no file appears beside it. What is no complete
// archive with all its tables raises RunTimeError 9999 with a text for the person at the keyboard.
std::unique_ptr<Archivio> apriPerGuardare(const NomeArchivio& nome);
// As apriPerGuardare, for a long look at an archive that tills go on writing to.
std::unique_ptr<Archivio> apriPerCopiare(const NomeArchivio& nome);

// The statement for the first rows of a query that begins with "SELECT ".
QString primeRighe(const QString& query, qint64 quante, int tipoServer);
