#pragma once

#include <memory>

#include <QString>
#include <QStringList>

#include "data/server_driver.h"

// The books of a test shop, as new for each test, on the server that BOTTEGON_PROVA_SERVER names: "sqlite",
// also when it is not set, "mysql", or "sqlserver" (doubles/sql_server_finto.h).
class ArchivioDiProva {
  public:
    virtual ~ArchivioDiProva() = default;

    virtual int tipoServer() const = 0;  // as in prepare_sql.h
    virtual QString stringaConnessione() const = 0;
    // What the gateway reaches it through.
    virtual std::unique_ptr<ServerDriver> driver() const = 0;
    // Runs a statement beside the gateway, as another client does, in words that every server knows; "||"
    // joins texts. One that fails fails the test.
    virtual Recordset esegui(const QString& sql) = 0;
    // What the archive tool finds wrong.
    virtual QStringList verifica() = 0;
};

// `cartella` is for the files of the test.
std::unique_ptr<ArchivioDiProva> nuovoArchivioDiProva(const QString& cartella);

// The embedded archive is in force, not a server. What only a file can suffer is tested in suites whose name
// ends in OnFile, which the runs on a server leave out.
bool archivioSuFile();
