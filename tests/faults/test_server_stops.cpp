#include <csignal>
#include <utility>

#include "faults/faulty_shop.h"

// The server goes, stops answering, or drops the till's connection.

namespace {

const char* const connessione = "cAdoSqlServer.Connect -> N/D";
const char* const scrittura = "cAdoSqlServer.executeSQL -> bBottegonClientVB.salvaVendita";

class ServerStops : public NegozioGuasto {
  protected:
    // Once, when the save comes to that statement.
    void alla(const QString& istruzione, std::function<void()> fatto) {
        sondaIstruzioni() = [istruzione, fatto = std::move(fatto),
                             prima = true](const QString& sql) mutable -> std::optional<ErroreServer> {
            if (std::exchange(prima, prima && !sql.startsWith(istruzione)) && !prima) fatto();
            return std::nullopt;
        };
    }
    // When the totals of the header are written.
    void aMeta(std::function<void()> fatto) { alla("UPDATE Movimenti", std::move(fatto)); }
    void uccidiCassa() {
        const Recordset connessioni =
            ClienteMariaDb().esegui("SELECT ID FROM information_schema.PROCESSLIST WHERE USER = 'cassa'");
        for (Recordset c = connessioni; !c.eof(); c.moveNext()) {
            ClienteMariaDb().esegui("KILL CONNECTION " + c.testo("ID"));
        }
    }
};

TEST_F(ServerStops, AServerThatIsOffIsSaidAndTheSaleStays) {
    server.ferma(SIGTERM);
    gAdo.chiudiConnessioniCalde();
    salvaInvano(connessione, "Il server MySQL non risponde");
    server.avvia();
    nienteEPoiSalvata();
}

TEST_F(ServerStops, ARestartBetweenTwoOperationsIsNotNoticed) {
    server.ferma(SIGTERM);
    server.avvia();
    nienteEPoiSalvata();
}

TEST_F(ServerStops, AShutdownInsideASaveFailsIt) {
    aMeta([this] { server.ferma(SIGTERM); });
    salvaInvano(scrittura, "La connessione con il server MySQL è caduta");
    server.avvia();
    nienteEPoiSalvata();
}

TEST_F(ServerStops, APowerCutInsideASaveLeavesNothingOfIt) {
    aMeta([this] { server.ferma(SIGKILL); });
    salvaInvano(scrittura, "La connessione con il server MySQL è caduta");
    server.avvia();
    nienteEPoiSalvata();
}

TEST_F(ServerStops, ARestartInsideASaveDoesNotSaveTheRestOfIt) {
    aMeta([this] {
        server.ferma(SIGKILL);
        server.avvia();
    });
    salvaInvano(scrittura, "La connessione con il server MySQL è caduta");
    nienteEPoiSalvata();
}

TEST_F(ServerStops, APowerCutBehindASaveKeepsIt) {
    salva();
    server.ferma(SIGKILL);
    server.avvia();
    venditaNeiLibri();
}

TEST_F(ServerStops, OneThatStopsAnsweringInsideASaveIsGivenUp) {
    aMeta([this] { server.sospendi(); });
    salvaInvano(scrittura, "La connessione con il server MySQL è caduta");
    server.riprendi();
    nienteEPoiSalvata();
}

TEST_F(ServerStops, AConnectionKilledBetweenTwoOperationsIsReplaced) {
    uccidiCassa();
    nienteEPoiSalvata();
}

TEST_F(ServerStops, AConnectionKilledInsideASaveFailsIt) {
    aMeta([this] { uccidiCassa(); });
    salvaInvano(scrittura, "La connessione con il server MySQL è caduta");
    nienteEPoiSalvata();
}

TEST_F(ServerStops, APowerCutBeforeASaveHasItsTurnLeavesNothing) {
    alla("START TRANSACTION", [this] { server.ferma(SIGKILL); });
    salvaInvano("cAdoSqlServer.beginTrasaction -> .saveRecordbBottegonClientVB",
                "La connessione con il server MySQL è caduta");
    server.avvia();
    nienteEPoiSalvata();
}

TEST_F(ServerStops, APowerCutRightAfterTheCommitBooksItOnce) {
    const RegistroAvvisi avvisi;
    alla("DO RELEASE_LOCK", [this] { server.ferma(SIGKILL); });
    salva();
    EXPECT_FALSE(vendita().venditaModificata);
    server.avvia();
    EXPECT_EQ(n->conta("Movimenti"), 1);
    EXPECT_EQ(n->conta("DettagliMovimento"), 2);
    EXPECT_EQ(n->verifica(), QStringList());
}

}  // namespace
