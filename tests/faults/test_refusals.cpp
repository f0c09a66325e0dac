#include <thread>

#include "faults/faulty_shop.h"

// The server is there and says no.

namespace {

const char* const connessione = "cAdoSqlServer.Connect -> N/D";
const char* const contatore = "cAdoSqlServer.executeSQL -> bBottegonClientVB.getNewNumeratoreAnnuale";

class Refusals : public NegozioGuasto {
  protected:
    QString banca() { return altro.valore("SELECT DATABASE()"); }
    ClienteMariaDb altro{n->valore("SELECT DATABASE()")};
};

TEST_F(Refusals, AWrongPasswordIsSaidAndNotShown) {
    altro.esegui("SET PASSWORD FOR 'cassa'@'%' = PASSWORD('un''altra')");
    gAdo.chiudiConnessioniCalde();
    salvaInvano(connessione, "ha rifiutato il nome dell'utente o la password");
    EXPECT_FALSE(n->registroErrori().contains("Pwd=cassa"));
    altro.esegui("SET PASSWORD FOR 'cassa'@'%' = PASSWORD('cassa')");
    nienteEPoiSalvata();
}

struct BancaNegata {
    const char* nome;
    const char* banca;
    const char* detto;
};

class DatabaseRefused : public Refusals, public testing::WithParamInterface<BancaNegata> {};

TEST_P(DatabaseRefused, IsSaid) {
    const QString giusta = gStrConnessione;
    gStrConnessione = server.stringaCassa(GetParam().banca, server.porta());
    salvaInvano(connessione, GetParam().detto);
    gStrConnessione = giusta;
    nienteEPoiSalvata();
}

INSTANTIATE_TEST_SUITE_P(Connection, DatabaseRefused,
                         testing::Values(BancaNegata{"NotThere", "prova_che_non_esiste",
                                                     "Il database indicato non esiste sul server MySQL"},
                                         BancaNegata{"WithoutRights", "mysql",
                                                     "L'utente non può usare questo database MySQL"}),
                         [](const auto& info) { return std::string(info.param.nome); });

TEST_F(Refusals, ATableWithoutRightsIsSaid) {
    altro.esegui("CREATE USER IF NOT EXISTS 'limitata'@'%' IDENTIFIED BY 'cassa'");
    altro.esegui("GRANT SELECT ON " + banca() + ".* TO 'limitata'@'%'");
    gStrConnessione.replace("Uid=cassa", "Uid=limitata");
    salvaInvano(contatore, "L'utente non ha i permessi necessari");
    gStrConnessione.replace("Uid=limitata", "Uid=cassa");
    nienteEPoiSalvata();
}

TEST_F(Refusals, AReadOnlyServerIsSaid) {
    altro.esegui("SET GLOBAL read_only = 1");
    salvaInvano(contatore, "L'archivio MySQL è in sola lettura");
    altro.esegui("SET GLOBAL read_only = 0");
    nienteEPoiSalvata();
}

// ---- Other clients

TEST_F(Refusals, ATurnThatAnotherHoldsForTooLongIsSaid) {
    altro.esegui("DO GET_LOCK('bottegon:" + banca() + "', 1)");
    salvaInvano("cAdoSqlServer.beginTrasaction -> .saveRecordbBottegonClientVB",
                "Un'altra cassa sta salvando");
    altro.esegui("DO RELEASE_LOCK('bottegon:" + banca() + "')");
    nienteEPoiSalvata();
}

TEST_F(Refusals, ARowThatAnotherHoldsForTooLongIsSaid) {
    altro.esegui("INSERT INTO Contatori (FK_NUMERATORE, ANNO, NUMERO) VALUES (1, '2026', 0)");
    altro.esegui("START TRANSACTION");
    altro.esegui("UPDATE Contatori SET NUMERO = NUMERO");
    salvaInvano("cAdoSqlServer.getNewRecordset -> bBottegonClientVB.getNewNumeratoreAnnuale",
                "sta usando gli stessi dati");
    altro.esegui("ROLLBACK");
    EXPECT_EQ(n->conta("Movimenti"), 0);
    salva();
    venditaNeiLibri();
}

// The other program has more to lose: the server gives the till's transaction up.
TEST_F(Refusals, ADeadlockIsSaid) {
    altro.esegui("INSERT INTO Contatori (FK_NUMERATORE, ANNO, NUMERO) VALUES (1, '2026', 0)");
    altro.esegui("START TRANSACTION");
    altro.esegui("INSERT INTO Gruppi (CODICE) VALUES ('1'),('2'),('3'),('4'),('5'),('6'),('7'),('8'),('9')");
    altro.esegui("UPDATE Anagrafiche SET SCONTO = 1");
    std::thread incrocio;
    sondaIstruzioni() = [&](const QString& sql) -> std::optional<ErroreServer> {
        if (sql.startsWith("INSERT INTO Movimenti") && !incrocio.joinable())
            incrocio = std::thread([this] { altro.prova("UPDATE Contatori SET NUMERO = NUMERO"); });
        return std::nullopt;
    };
    salvaInvano("cAdoSqlServer.getIDByInsert -> bBottegonClientVB.salvaVendita",
                "sta usando gli stessi dati");
    sondaIstruzioni() = {};
    incrocio.join();
    altro.esegui("ROLLBACK");
    EXPECT_EQ(n->conta("Movimenti"), 0);
    salva();
    venditaNeiLibri();
}

TEST_F(Refusals, ACommitThatTheServerRefusesIsAFailedSave) {
    altro.esegui("SET GLOBAL lock_wait_timeout = 1");
    gAdo.chiudiConnessioniCalde();
    ClienteMariaDb fermo;
    sondaIstruzioni() = [&](const QString& sql) -> std::optional<ErroreServer> {
        if (sql == "COMMIT") fermo.esegui("FLUSH TABLES WITH READ LOCK");
        return std::nullopt;
    };
    salvaInvano("cAdoSqlServer.commitTrasaction -> .salvaVenditabBottegonClientVB", "");
    sondaIstruzioni() = {};
    fermo.esegui("UNLOCK TABLES");
    nienteEPoiSalvata();
}

// ---- Room

TEST_F(Refusals, AFullDiskIsSaidAndNothingOfTheSaleStays) {
    altro.esegui("SET GLOBAL innodb_file_per_table = 0");
    altro.esegui("TRUNCATE TABLE DettagliMovimento");
    altro.esegui("CREATE TABLE Zavorra (DATI LONGBLOB)");
    altro.esegui("CREATE TABLE Piuma (N INT)");
    server.limitaSpazio(40);
    ClienteMariaDb riempie(n->valore("SELECT DATABASE()"));
    for (int byte = 4 << 20; byte > 32 << 10; byte /= 2) {
        while (riempie.prova(QString("INSERT INTO Zavorra VALUES (REPEAT('x', %1))").arg(byte)) == 0) {
        }
    }
    // The server keeps a little room for transactions to come: each of these takes some of it.
    std::vector<std::unique_ptr<ClienteMariaDb>> aperte;
    do {
        aperte.push_back(std::make_unique<ClienteMariaDb>(n->valore("SELECT DATABASE()")));
        aperte.back()->esegui("BEGIN");
    } while (aperte.back()->prova("INSERT INTO Piuma VALUES (1)") == 0);
    salvaInvano(contatore, "Il disco del server MySQL è pieno");
    nienteNeiLibri();
    server.limitaSpazio(0);
    aperte.clear();
    nienteEPoiSalvata();
}

}  // namespace
