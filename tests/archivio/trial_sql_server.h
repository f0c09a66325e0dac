#pragma once

#include <QTemporaryDir>

// While it lives, archives on a SQL Server are reached at a stand-in: it takes what the archive tool says to
// the server (doubles/sql_server_finto.h collects it), and keeps the rows in an SQLite file.
class SqlServerDegliAttrezzi {
  public:
    SqlServerDegliAttrezzi();
    ~SqlServerDegliAttrezzi();
    SqlServerDegliAttrezzi(const SqlServerDegliAttrezzi&) = delete;
    SqlServerDegliAttrezzi& operator=(const SqlServerDegliAttrezzi&) = delete;

    // As the archive tool takes it.
    static QString nome() { return "sqlserver:Server=prova;Database=negozio;Uid=cassa;Pwd=x"; }

  private:
    QTemporaryDir mCartella;
};
