#pragma once

#include <memory>

#include "archivio/archive.h"

class Connessione;
class ServerDriver;

// An archive on a server, over one connection.
class ArchivioServer final : public Archivio {
  public:
    enum class Stato {
        Completo,  // what a till would not work on is refused
        Qualsiasi,
        SenzaDatabase,  // the server itself
    };

    ArchivioServer(const NomeArchivio& nome, Stato stato);
    ~ArchivioServer() override;

    Recordset leggi(const QString& sql) override;
    void esegui(const QString& sql) override;
    // SQL Server has no such state unless its administrator allows it: there the tills must rest meanwhile.
    void fermaIlTempo() override;
    void pretendiContinuita() override;

    // A transaction that holds the tills' turn to write.
    void inizia();
    void conferma();

  private:
    qint64 sessione();

    std::unique_ptr<ServerDriver> mDriver;
    std::unique_ptr<Connessione> mConnessione;
    qint64 mSessione = 0;
};
