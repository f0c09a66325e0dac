#include <gtest/gtest.h>

#include "core/expect_error.h"
#include "core/globals.h"
#include "core/program_folder.h"
#include "data/client_settings.h"
#include "data/gateway.h"
#include "doubles/settings_in_memory.h"

namespace {

class ClientSettingsTest : public ::testing::Test {
  protected:
    ClientSettingsTest() {
        ripristinaGlobali();
        impostaCartellaProgramma("/shop/bin");
    }
    ~ClientSettingsTest() override {
        ripristinaGlobali();
        impostaCartellaProgramma({});
        gAdo.TipoServer = 0;
    }

    void server(const QString& chiave, const QString& valore) {
        store.scrivi("prgBottegon", "Server", chiave, valore);
    }
    void client(const QString& chiave, const QString& valore) {
        store.scrivi("prgBottegonClientVB", "Client", chiave, valore);
    }
    QString scritto(const QString& chiave, const QString& sezione = "Client") {
        return store.leggi("prgBottegonClientVB", sezione, chiave, "<manca>");
    }

    SettingsInMemory store;
};

const char* const inviteMySql = "digitare una stringa di connessione MySQL (solo per esperti)";
const char* const inviteSqlSrv = "digitare una stringa di connessione Sql Server (solo per esperti)";
const char* const inviteReport = "digitare una stringa di connessione per Crystal Report (solo per esperti)";

struct NumeroAtteso {
    const char* chiave;
    int* variabile;
    int predefinito;
    bool riscritto = true;
};

const NumeroAtteso numeri[] = {
    {"ID", &gIDCassa, 255},
    {"MultiSel", &gMultiSel, 0},
    {"NuovaRiga", &gNuovaRiga, 0},
    {"RicercaProdAdv", &gRicercaProdAdv, 0},
    {"RitardoGriglia", &gRitardoGriglia, 500},
    {"SottoCosto", &gSottoCosto, 0},
    {"DisabilitaInvio", &gDisabilitaInvio, 0, false},
    {"NoBarcode", &gNoBarcode, 0, false},
    {"Monitor", &gMonitor, 0},
    {"Stampa", &gStampa, 0},
    {"SimulaStampa", &gSimulaStampa, 0},
    {"PrdEsistente", &gPrdEsistente, 0},
    {"DecimaliDopo", &gDecimaliDopo, 2},
    {"TCPPort", &gTCPPort, 4310},
    {"PrezzoType", &gPrezzoType, 0},
    {"PCType", &gPCType, 0},
    {"PrezzoListinoLordo", &gPrezzoListinoLordo, 0},
    {"ContoCassa", &gContoCassa, -1},
    {"TipoDocOverride", &gTipoDocOverride, -1},
    {"CausalePagOverride", &gCausalePagOverride, -1},
    {"GiacenzaMagazzino", &gGiacenzaMagazzino, 0},
    {"IDMagazzino", &gIDMagazzino, -1},
    {"StampaCopie", &gStampaCopie, 1},
};

}  // namespace

TEST_F(ClientSettingsTest, ANewWorkstationUsesTheArchiveOneFolderAboveTheProgram) {
    leggiImpostazioniServer();
    EXPECT_EQ(gTipoDB, 1);
    EXPECT_EQ(gPathDB, "/shop/bin/../Bottegon.mdb");
}

TEST_F(ClientSettingsTest, ANewWorkstationHasTheDefaultServerSettings) {
    leggiImpostazioniServer();
    EXPECT_EQ(gConnMySql, inviteMySql);
    EXPECT_EQ(gConnSqlSrv, inviteSqlSrv);
    EXPECT_EQ(gReportPathAccess, "/shop/bin/../AccessReports/");
    EXPECT_EQ(gReportPathMySql, "/shop/bin/../ODBCReports/");
    EXPECT_EQ(gReportPathSqlSrv, "/shop/bin/../ODBCReports/");
    EXPECT_EQ(
        gRptConnectionAccess,
        "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=/shop/bin/bottegon.mdb;Persist Security Info=False");
    EXPECT_EQ(gRptConnectionMySql, inviteReport);
    EXPECT_EQ(gRptConnectionSqlSrv, inviteReport);
    EXPECT_EQ(gLaserChar, "$");
    EXPECT_EQ(gClienteChar, "A");
}

TEST_F(ClientSettingsTest, EveryNumberHasItsDefault) {
    for (const NumeroAtteso& numero : numeri) {
        *numero.variabile = 77;
    }
    leggiImpostazioniClient();
    for (const NumeroAtteso& numero : numeri) {
        EXPECT_EQ(*numero.variabile, numero.predefinito) << numero.chiave;
    }
}

TEST_F(ClientSettingsTest, ANewWorkstationLeavesTheGlobalsAtTheirStartingValues) {
    leggiImpostazioniClient();
    for (const NumeroAtteso& numero : numeri) {
        const int letto = *numero.variabile;
        ripristinaGlobali();
        EXPECT_EQ(letto, *numero.variabile) << numero.chiave;
        leggiImpostazioniClient();
    }
}

TEST_F(ClientSettingsTest, EveryNumberIsReadFromItsKey) {
    for (const NumeroAtteso& numero : numeri) {
        client(numero.chiave, "2");
    }
    leggiImpostazioniClient();
    for (const NumeroAtteso& numero : numeri) {
        EXPECT_EQ(*numero.variabile, 2) << numero.chiave;
    }
}

TEST_F(ClientSettingsTest, AFirstStartLeavesTheDefaultsInTheStore) {
    leggiImpostazioniClient();
    for (const NumeroAtteso& numero : numeri) {
        EXPECT_EQ(scritto(numero.chiave), numero.riscritto ? QString::number(numero.predefinito) : "<manca>")
            << numero.chiave;
    }
    EXPECT_EQ(scritto("RegCassa"), "");
    EXPECT_EQ(scritto("AltriDocConversione"), "<manca>");
}

TEST_F(ClientSettingsTest, VersionAndProgramFolderAreWrittenAtTheTopLevel) {
    leggiImpostazioniClient();
    EXPECT_EQ(scritto("ver", ""), "1.0.0");
    EXPECT_EQ(scritto("path", ""), "/shop/bin");
}

TEST_F(ClientSettingsTest, NothingElseIsWritten) {
    leggiImpostazioniClient();
    // 22 numbers and texts of the section, version and folder; nothing of the shared application.
    EXPECT_EQ(store.valori.size(), 24u);
    for (const auto& [dove, valore] : store.valori) {
        EXPECT_EQ(std::get<0>(dove), "prgBottegonClientVB");
    }
}

TEST_F(ClientSettingsTest, ABlankScannerCharacterBecomesTheDollar) {
    for (const char* vuoto : {"", "  "}) {
        store.scrivi("prgBottegon", "Opzioni", "LaserChar", vuoto);
        leggiImpostazioniServer();
        EXPECT_EQ(gLaserChar, "$");
    }
}

TEST_F(ClientSettingsTest, ScannerAndCustomerCharactersAreThoseOfAllPrograms) {
    store.scrivi("prgBottegon", "Opzioni", "LaserChar", "#");
    store.scrivi("prgBottegon", "Opzioni", "ClienteChar", "C");
    leggiImpostazioniServer();
    EXPECT_EQ(gLaserChar, "#");
    EXPECT_EQ(gClienteChar, "C");
}

TEST_F(ClientSettingsTest, AGarbledNumberReadsAsItsLeadingDigitsOrZero) {
    client("TCPPort", "43xx");
    client("DecimaliDopo", "due");
    client("RitardoGriglia", " 300 ms");
    leggiImpostazioniClient();
    EXPECT_EQ(gTCPPort, 43);
    EXPECT_EQ(gDecimaliDopo, 0);
    EXPECT_EQ(gRitardoGriglia, 300);
}

TEST_F(ClientSettingsTest, AnIdentifierBelowOneReadsAsUnset) {
    for (const char* chiave : {"ContoCassa", "TipoDocOverride", "CausalePagOverride", "IDMagazzino"}) {
        for (const char* valore : {"0", "-7", "abc"}) {
            client(chiave, valore);
            leggiImpostazioniClient();
            EXPECT_EQ(scritto(chiave), "-1") << chiave << ' ' << valore;
        }
    }
    EXPECT_EQ(gIDMagazzino, -1);
}

TEST_F(ClientSettingsTest, FewerThanOneCopyIsOneCopy) {
    client("StampaCopie", "0");
    leggiImpostazioniClient();
    EXPECT_EQ(gStampaCopie, 1);
}

TEST_F(ClientSettingsTest, ATrailingCommaOfTheDocumentListIsCut) {
    client("AltriDocConversione", "FT,DDT,");
    leggiImpostazioniClient();
    EXPECT_EQ(gAltriDocConversione, "FT,DDT");
    EXPECT_EQ(scritto("AltriDocConversione"), "FT,DDT,");
}

TEST_F(ClientSettingsTest, AGarbledPriceOrCostSelectorIsATypeError) {
    for (const char* chiave : {"PrezzoType", "PCType"}) {
        for (const char* valore : {"", "netto", "1x", "nan"}) {
            client(chiave, valore);
            EXPECT_EQ(numeroErrore([] { leggiImpostazioniClient(); }), 13) << chiave << ' ' << valore;
        }
        client(chiave, "0");
    }
}

TEST_F(ClientSettingsTest, ANumberTooLargeIsSkippedAndTold) {
    client("ID", "99999");
    client("GiacenzaMagazzino", "256");
    client("IDMagazzino", "3000000000");
    server("DBType", QString(400, '9'));
    leggiImpostazioniClient();
    EXPECT_EQ(gIDCassa, 255);
    EXPECT_EQ(gGiacenzaMagazzino, 0);
    EXPECT_EQ(gIDMagazzino, -1);
    EXPECT_EQ(gTipoDB, 1);
    EXPECT_EQ(store.prendiAvvisi().size(), 4);
}

TEST_F(ClientSettingsTest, ASkippedNumberKeepsItsTextInTheStore) {
    client("ID", "99999");
    client("Stampa", "1");
    leggiImpostazioniClient();
    EXPECT_EQ(scritto("ID"), "99999");
    EXPECT_EQ(scritto("Stampa"), "1");
}

TEST_F(ClientSettingsTest, AGarbledSelectorKeepsItsTextInTheStore) {
    client("PrezzoType", "netto");
    EXPECT_EQ(numeroErrore([] { leggiImpostazioniClient(); }), 13);
    EXPECT_EQ(scritto("PrezzoType"), "netto");
}

TEST_F(ClientSettingsTest, TheArchiveIsReachedThroughItsPath) {
    server("Path", "/dati/negozio;1.mdb");
    leggiImpostazioniServer();
    EXPECT_EQ(gAdo.TipoServer, 1);
    EXPECT_EQ(gStrConnessione,
              "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=/dati/negozio;1.mdb;Persist Security Info=False");
    EXPECT_EQ(gDescrizioneConnessione, "/dati/negozio;1.mdb: MS Access");
    EXPECT_EQ(gReportPath, gReportPathAccess);
    EXPECT_EQ(gRptConnection, gRptConnectionAccess);
}

TEST_F(ClientSettingsTest, LineBreaksOfAConnectionStringGoOnlyFromItsDescription) {
    server("DBType", "2");
    server("MySql", "Server=a;\r\nUid=b");
    leggiImpostazioniServer();
    EXPECT_EQ(gAdo.TipoServer, 2);
    EXPECT_EQ(gStrConnessione, "Server=a;\r\nUid=b");
    EXPECT_EQ(gDescrizioneConnessione, "Server=a;Uid=b: MySql");
    EXPECT_EQ(gReportPath, gReportPathMySql);
}

TEST_F(ClientSettingsTest, SqlServerHasItsOwnStrings) {
    server("DBType", "0");
    server("SqlSrv", "Server=s");
    server("RptConnectionSqlSrv", "r");
    server("ReportPathSqlSrv", "/r/");
    leggiImpostazioniServer();
    EXPECT_EQ(gAdo.TipoServer, 0);
    EXPECT_EQ(gStrConnessione, "Server=s");
    EXPECT_EQ(gRptConnection, "r");
    EXPECT_EQ(gReportPath, "/r/");
    EXPECT_EQ(gDescrizioneConnessione, "Server=s: SQL Server");
}

TEST_F(ClientSettingsTest, AServerTypeThatDoesNotExistLeavesNoConnection) {
    server("DBType", "7");
    leggiImpostazioniServer();
    EXPECT_EQ(gAdo.TipoServer, 7);
    EXPECT_EQ(gStrConnessione, "");
}
