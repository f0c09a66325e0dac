#pragma once

#include <memory>

#include <QString>

#include "archivio/server_archive.h"

// A database name of its own on the private server of the test run; what stands there goes with it.
class DatabaseDiProva {
  public:
    DatabaseDiProva();
    ~DatabaseDiProva();
    DatabaseDiProva(const DatabaseDiProva&) = delete;
    DatabaseDiProva& operator=(const DatabaseDiProva&) = delete;

    // As the archive tool takes it.
    QString nome() const;
    const QString& database() const { return mDatabase; }
    // The connection string of a till.
    QString stringa() const;

    // The database, complete or not.
    std::unique_ptr<ArchivioServer> apri() const;
    void esegui(const QString& sql) const;
    // The first column of the first row.
    QString valore(const QString& sql) const;

  private:
    QString mDatabase;
};
