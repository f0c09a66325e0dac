#pragma once

#include <memory>

#include <QString>

#include "data/recordset.h"

struct st_mysql;

// Another client of a MariaDB server, through its own C interface and nothing of ours: what the tests look
// at the books with, and do to a server what others do.
class ClienteMariaDb {
  public:
    // The server of the test run: BOTTEGON_PROVA_MYSQL_SOCKET.
    explicit ClienteMariaDb(const QString& bancaDati = {});
    ClienteMariaDb(const QString& socket, const QString& utente, const QString& password,
                   const QString& bancaDati = {});
    ~ClienteMariaDb();
    ClienteMariaDb(const ClienteMariaDb&) = delete;
    ClienteMariaDb& operator=(const ClienteMariaDb&) = delete;

    // The server still answers here.
    bool viva() const;
    // One statement; one that fails fails the test. "||" joins texts, a backslash is one.
    Recordset esegui(const QString& sql);
    // The first column of the first row as text.
    QString valore(const QString& sql);
    // The server's number of the error of the statement; 0 when it went well.
    int prova(const QString& sql);

  private:
    Recordset leggi();

    std::unique_ptr<st_mysql, void (*)(st_mysql*)> mServer;
};
