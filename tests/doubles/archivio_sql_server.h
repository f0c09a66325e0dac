#pragma once

#include "data/prepare_sql.h"
#include "data/sqlite_driver.h"
#include "doubles/archivio_sqlite.h"
#include "doubles/sql_server_finto.h"

// The shop's books behind the stand-in SQL Server.
class ArchivioSqlServer final : public ArchivioSqlite {
  public:
    using ArchivioSqlite::ArchivioSqlite;

    int tipoServer() const override { return SqlServer; }
    std::unique_ptr<ServerDriver> driver() const override {
        return std::make_unique<SqlServerFinto>(ArchivioSqlite::driver());
    }
};
