#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "core/core_doubles.h"
#include "core/errors.h"
#include "core/globals.h"
#include "data/gateway.h"
#include "data/prepare_sql.h"
#include "data/schema.h"
#include "data/sqlite_connection.h"

// An empty archive with the tables of a shop, with the one gateway on it and an operator who writes down what
// is shown.
class ArchivioDiProva {
  public:
    ArchivioDiProva() {
        ripristinaGlobali();
        ErroreServer errore;
        mConnessione = SqliteConnection::crea(mCartella.filePath("prova.mdb"), errore);
        sql("BEGIN");
        for (const QString& istruzione : schema::ddl(Access)) {
            sql(istruzione);
        }
        sql("COMMIT");
        gErr.imposta(mCartella.path(), &operatore);
        gAdo.TipoServer = Access;
        gAdo.impostaOperatore(&operatore);
        gAdo.impostaStringaConnessione([this] { return "Data Source=" + mCartella.filePath("prova.mdb"); });
    }
    ~ArchivioDiProva() {
        sondaIstruzioni() = {};
        // A failed statement leaves its entry on the stack.
        while (gAdo.getConnectionCount() > 0) {
            gAdo.disconnect();
        }
        gAdo.chiudiConnessioniCalde();
        gAdo.impostaOperatore(nullptr);
        gErr.imposta({}, nullptr);
        ripristinaGlobali();
    }
    ArchivioDiProva(const ArchivioDiProva&) = delete;
    ArchivioDiProva& operator=(const ArchivioDiProva&) = delete;

    // In SQLite's own words, beside the gateway.
    void sql(const QString& istruzione) {
        ASSERT_TRUE(mConnessione->eseguiNativo(istruzione, nullptr))
            << mConnessione->errore().descrizione.toStdString() << "\n"
            << istruzione.toStdString();
    }
    // From now on every query fails on the server.
    static void guastaServer() {
        sondaIstruzioni() = [](const QString& sql) -> std::optional<ErroreServer> {
            if (!sql.startsWith("SELECT ")) return std::nullopt;
            return ErroreServer{ErroreServer::Classe::Altro, 4711, "guasto di prova", "prova"};
        };
    }

    OperatoreRegistrato operatore;

  private:
    QTemporaryDir mCartella;
    std::unique_ptr<SqliteConnection> mConnessione;
};
