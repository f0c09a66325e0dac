#pragma once

#include <sys/types.h>

#include "doubles/archivio_di_prova.h"

class ClienteMariaDb;

// The shop's books on the private MariaDB, in a database of this process that is made once; each test finds
// it as new, the keys that are given next included. Times of the server are those of orologio().
class ArchivioMySql final : public ArchivioDiProva {
  public:
    ArchivioMySql();
    ~ArchivioMySql() override;

    int tipoServer() const override;
    QString stringaConnessione() const override;
    std::unique_ptr<ServerDriver> driver() const override;
    Recordset esegui(const QString& sql) override;
    QStringList verifica() override;

  private:
    ClienteMariaDb& cliente();

    std::unique_ptr<ClienteMariaDb> mCliente;
    pid_t mProcesso = -1;  // whose connection it is
};
