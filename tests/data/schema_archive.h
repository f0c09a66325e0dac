#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "core/core_doubles.h"
#include "core/errors.h"
#include "core/globals.h"
#include "data/gateway.h"
#include "doubles/archivio_di_prova.h"

// The books of a test shop on the server in force (doubles/archivio_di_prova.h), with the one gateway on them
// and an operator who writes down what is shown.
class LibriDiProva {
  public:
    LibriDiProva() : mArchivio(nuovoArchivioDiProva(mCartella.path())) {
        ripristinaGlobali();
        gErr.imposta(mCartella.path(), &operatore);
        gAdo.TipoServer = mArchivio->tipoServer();
        gAdo.impostaDriver(gAdo.TipoServer, mArchivio->driver());
        gAdo.impostaOperatore(&operatore);
        gAdo.impostaStringaConnessione([this] { return mArchivio->stringaConnessione(); });
    }
    ~LibriDiProva() {
        sondaIstruzioni() = {};
        // A failed statement leaves its entry on the stack.
        while (gAdo.getConnectionCount() > 0) {
            gAdo.disconnect();
        }
        gAdo.chiudiConnessioniCalde();
        gAdo.impostaOperatore(nullptr);
        gAdo.impostaStringaConnessione({});
        gErr.imposta({}, nullptr);
        ripristinaGlobali();
    }
    LibriDiProva(const LibriDiProva&) = delete;
    LibriDiProva& operator=(const LibriDiProva&) = delete;

    // In words that every server knows, beside the gateway.
    Recordset sql(const QString& istruzione) { return mArchivio->esegui(istruzione); }
    // From now on every query fails on the server, but the connection to it stands.
    static void guastaServer() {
        if (gAdo.Connect("prova", 5, 0, true)) gAdo.disconnect();
        sondaIstruzioni() = [](const QString& sql) -> std::optional<ErroreServer> {
            if (!sql.startsWith("SELECT ")) return std::nullopt;
            return ErroreServer{ErroreServer::Classe::Altro, 4711, "guasto di prova", "prova"};
        };
    }

    OperatoreRegistrato operatore;

  private:
    QTemporaryDir mCartella;
    std::unique_ptr<ArchivioDiProva> mArchivio;
};
