#include "bare_lookup.h"

#include <cstdio>
#include <cstdlib>
#include <mysql.h>
#include <sqlite3.h>

#include "data/connection_string.h"
#include "data/prepare_sql.h"
#include "data/sqlite_connection.h"

namespace {

[[noreturn]] void rinuncia(const char* motivo) {
    std::fprintf(stderr, "%s\n", motivo);
    std::exit(1);
}

class SqliteNudo final : public ClienteNudo {
  public:
    SqliteNudo(const QString& archivio, QByteArray query, Preparata preparata)
        : mQuery(std::move(query)), mPreparata(preparata) {
        ErroreServer errore;
        mConnessione = SqliteConnection::apri(archivio, errore);
        if (!mConnessione) rinuncia(qPrintable(errore.descrizione));
        if (mPreparata == Preparata::UnaVolta) prepara(mQuery + "?");
    }
    ~SqliteNudo() override { sqlite3_finalize(mIstruzione); }
    SqliteNudo(const SqliteNudo&) = delete;
    SqliteNudo& operator=(const SqliteNudo&) = delete;

    int cerca(int chiave) override {
        if (mPreparata == Preparata::UnaVolta) {
            sqlite3_bind_int(mIstruzione, 1, chiave);
        } else {
            prepara(mQuery + QByteArray::number(chiave));
        }
        int celle = 0;
        while (sqlite3_step(mIstruzione) == SQLITE_ROW) {
            for (int i = 0; i < sqlite3_column_count(mIstruzione); ++i, ++celle)
                sqlite3_column_text(mIstruzione, i);
        }
        sqlite3_reset(mIstruzione);
        return celle;
    }

  private:
    void prepara(const QByteArray& sql) {
        sqlite3_finalize(mIstruzione);
        if (sqlite3_prepare_v2(mConnessione->nativa(), sql.constData(), static_cast<int>(sql.size()),
                               &mIstruzione, nullptr) != SQLITE_OK)
            rinuncia(sqlite3_errmsg(mConnessione->nativa()));
    }

    std::unique_ptr<SqliteConnection> mConnessione;
    const QByteArray mQuery;
    const Preparata mPreparata;
    sqlite3_stmt* mIstruzione = nullptr;
};

class MySqlNudo final : public ClienteNudo {
  public:
    MySqlNudo(const QString& stringaConnessione, QByteArray query)
        : mServer(mysql_init(nullptr), &mysql_close), mQuery(std::move(query)) {
        QString motivo;
        const auto dati = leggiStringaConnessione(stringaConnessione, MySql, motivo);
        if (!dati) rinuncia(qPrintable(motivo));
        mysql_options(mServer.get(), MYSQL_SET_CHARSET_NAME, "utf8mb4");
        const QByteArray socket = dati->socket.toUtf8();
        if (mysql_real_connect(mServer.get(), dati->server.toUtf8(), dati->utente.toUtf8(),
                               dati->password.toUtf8(), dati->database.toUtf8(),
                               static_cast<unsigned>(dati->porta),
                               socket.isEmpty() ? nullptr : socket.constData(), 0) == nullptr)
            rinuncia(mysql_error(mServer.get()));
    }

    int cerca(int chiave) override {
        const QByteArray sql = mQuery + QByteArray::number(chiave);
        if (mysql_real_query(mServer.get(), sql.constData(), static_cast<unsigned long>(sql.size())) != 0)
            rinuncia(mysql_error(mServer.get()));
        MYSQL_RES* risultato = mysql_store_result(mServer.get());
        int celle = 0;
        while (mysql_fetch_row(risultato) != nullptr)
            celle += static_cast<int>(mysql_num_fields(risultato));
        mysql_free_result(risultato);
        return celle;
    }

  private:
    std::unique_ptr<MYSQL, void (*)(MYSQL*)> mServer;
    QByteArray mQuery;
};

}  // namespace

std::unique_ptr<ClienteNudo> nuovoClienteNudo(const QString& stringaConnessione, const QString& archivio,
                                              const QByteArray& query, Preparata preparata) {
    if (stringaConnessione.isEmpty()) return std::make_unique<SqliteNudo>(archivio, query, preparata);
    return std::make_unique<MySqlNudo>(stringaConnessione, query);
}
