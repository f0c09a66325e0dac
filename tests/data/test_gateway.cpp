#include "data/gateway_archive.h"

namespace {

const char* const selezionaProva = "SELECT CODICE FROM Prova ORDER BY RID";

// The one report that was shown, and that stands in the log.
OperatorPort::Errore unicaSegnalazione(const GatewayDiProva& g) {
    EXPECT_EQ(g.operatore.avvisi.size(), 1u);
    EXPECT_EQ(g.registro().size(), 7);
    return g.operatore.avvisi.empty() ? OperatorPort::Errore{} : g.operatore.avvisi.front();
}

}  // namespace

// ---- The stack of connections

TEST(Gateway, HoldsNoConnectionBetweenOperations) {
    GatewayDiProva g;
    EXPECT_TRUE(g.inserisci("A"));
    EXPECT_EQ(g.ado.executeSQLWithRA(QString("UPDATE Prova SET CODICE = ¤B¤"), "prova"), 1);
    EXPECT_EQ(g.ado.getValueBySQL("SELECT CODICE FROM Prova", "prova"), "B");
    g.ado.getDataOraServer("prova");
    g.ado.getStoredResult("SELECT 1", "prova");
    EXPECT_EQ(
        g.ado.getIDByInsert(QString("INSERT INTO Prova (CODICE) VALUES (¤C¤)"), "prova", "RID", "Prova"), 2);
    EXPECT_EQ(g.ado.getConnectionCount(), 0);
}

TEST(Gateway, RecordsetHoldsOneConnectionUntilDisconnect) {
    GatewayDiProva g;
    QString sql = selezionaProva;
    const auto righe = g.ado.getNewRecordset(sql, "prova");
    ASSERT_TRUE(righe);
    EXPECT_EQ(g.ado.getConnectionCount(), 1);
    g.ado.disconnect();
    EXPECT_EQ(g.ado.getConnectionCount(), 0);
}

TEST(Gateway, NestedRecordsetsKeepTheirRows) {
    GatewayDiProva g;
    g.inserisci("A");
    g.inserisci("B");
    QString sql = selezionaProva;
    const auto fuori = g.ado.getNewRecordset(sql, "prova");
    QStringList visti;
    for (; !fuori->eof(); fuori->moveNext()) {
        QString dentro =
            "SELECT COUNT(*) AS QUANTI FROM Prova WHERE CODICE <= " + testoSQL(fuori->testo("CODICE"));
        const auto righe = g.ado.getNewRecordset(dentro, "prova");
        EXPECT_EQ(g.ado.getConnectionCount(), 2);
        visti << fuori->testo("CODICE") + righe->testo("QUANTI");
        g.ado.disconnect();
    }
    g.ado.disconnect();
    EXPECT_EQ(visti, QStringList({"A1", "B2"}));
    EXPECT_EQ(g.ado.getConnectionCount(), 0);
}

TEST(Gateway, DisconnectOfAnEmptyStackDoesNothing) {
    GatewayDiProva g;
    g.ado.disconnect();
    EXPECT_EQ(g.ado.getConnectionCount(), 0);
    EXPECT_TRUE(g.inserisci("A"));
}

TEST(Gateway, ConnectionStateTellsNoneAndOpen) {
    GatewayDiProva g;
    EXPECT_EQ(g.ado.ConnectionState(), -1);
    ASSERT_TRUE(g.ado.Connect("prova", 60, 0, false));
    EXPECT_EQ(g.ado.ConnectionState(), 1);
    g.ado.disconnect();
}

TEST(Gateway, FailedStatementLeavesItsEntryOnTheStack) {
    GatewayDiProva g;
    EXPECT_FALSE(g.ado.executeSQL(QString("DELETE FROM NonEsiste"), "prova"));
    EXPECT_EQ(g.ado.getConnectionCount(), 1);
    QString sql = "SELECT * FROM NonEsiste";
    EXPECT_FALSE(g.ado.getNewRecordset(sql, "prova"));
    EXPECT_EQ(g.ado.getConnectionCount(), 2);
    EXPECT_EQ(g.ado.executeSQLWithRA(QString("DELETE FROM NonEsiste"), "prova"), -1);
    EXPECT_EQ(g.ado.getConnectionCount(), 3);
}

TEST(Gateway, FailedInsertTakesItsEntryAway) {
    GatewayDiProva g;
    EXPECT_EQ(
        g.ado.getIDByInsert(QString("INSERT INTO NonEsiste (A) VALUES (1)"), "prova", "RID", "NonEsiste"),
        -1);
    EXPECT_EQ(g.ado.getConnectionCount(), 0);
}

TEST(Gateway, FailedStatementsHoldNoFiles) {
    GatewayDiProva g;
    g.ado.executeSQL(QString("DELETE FROM NonEsiste"), "prova");
    const int aperti = fileAperti();
    for (int i = 0; i < 50; ++i) {
        g.ado.executeSQL(QString("DELETE FROM NonEsiste"), "prova");
    }
    EXPECT_LE(fileAperti(), aperti);
}

// The inner failure leaves an entry above the outer one, which the outer disconnect takes away first.
TEST(Gateway, FailureInsideAnOpenRecordsetHoldsNoFiles) {
    GatewayDiProva g;
    const auto leggiConGuasto = [&] {
        QString sql = selezionaProva;
        const auto righe = g.ado.getNewRecordset(sql, "prova");
        EXPECT_TRUE(righe);
        EXPECT_FALSE(g.ado.executeSQL(QString("DELETE FROM NonEsiste"), "prova"));
        g.ado.disconnect();
    };
    leggiConGuasto();
    const int aperti = fileAperti();
    for (int i = 0; i < 50; ++i) {
        leggiConGuasto();
    }
    EXPECT_LE(fileAperti(), aperti);
    EXPECT_EQ(g.ado.getConnectionCount(), 51);
}

// ---- Results

TEST(Gateway, StatementComesBackAdapted) {
    GatewayDiProva g;
    QString sql = "INSERT INTO Prova (CODICE) VALUES (¤O'Brien¤)";
    ASSERT_TRUE(g.ado.executeSQL(sql, "prova"));
    EXPECT_EQ(sql, "INSERT INTO Prova (CODICE) VALUES ('O''Brien')");
    EXPECT_EQ(g.ado.getLastSQLCommand(), sql);
}

TEST(Gateway, AnyValueReachesTheArchiveAsItself) {
    const QStringList valori{"O'Brien", "¤",      "‡",      "¿",  "•A•x•/A•", "\\",
                             "\"",      "`",      "a;b--c", "/*", "%_[#?:a",  "'); DROP TABLE Prova --",
                             "¥|+@@",   "\t\r\n", "ß€😀"};
    for (const QString& valore : valori) {
        GatewayDiProva g;
        EXPECT_TRUE(g.inserisci(valore)) << valore.toStdString();
        EXPECT_EQ(g.valore(selezionaProva), valore) << valore.toStdString();
        EXPECT_EQ(
            g.ado.getValueBySQL("SELECT COUNT(*) FROM Prova WHERE CODICE = " + testoSQL(valore), "prova")
                .toInt(),
            1)
            << valore.toStdString();
    }
}

TEST(Gateway, TextThatAServerWouldCutIsRefusedWithAReason) {
    for (const QString& testo : {QString("a") + QChar(u'\0') + "b", QString("a") + QChar(0xD83D) + "b"}) {
        GatewayDiProva g;
        EXPECT_FALSE(g.ado.executeSQL("INSERT INTO Prova (CODICE) VALUES ('" + testo + "')", "prova"));
        ASSERT_EQ(g.operatore.avvisi.size(), 1u);
        EXPECT_TRUE(g.operatore.avvisi.front().descrizione.contains("carattere"))
            << g.operatore.avvisi.front().descrizione.toStdString();
        EXPECT_EQ(g.valore("SELECT COUNT(*) FROM Prova"), "0");
    }
}

TEST(Gateway, RowsAffectedAreThoseOfTheStatement) {
    GatewayDiProva g;
    g.inserisci("A");
    g.inserisci("B");
    EXPECT_EQ(g.ado.executeSQLWithRA(QString("UPDATE Prova SET DATI = ¤x¤"), "prova"), 2);
    EXPECT_EQ(g.ado.executeSQLWithRA(QString("DELETE FROM Prova WHERE CODICE = ¤Z¤"), "prova"), 0);
}

TEST(Gateway, ValueOfNoRowIsNull) {
    GatewayDiProva g;
    EXPECT_TRUE(g.ado.getValueBySQL(selezionaProva, "prova").isNull());
    EXPECT_TRUE(g.operatore.avvisi.empty());
}

TEST(Gateway, ServerTimeIsTheClocks) {
    GatewayDiProva g;
    EXPECT_EQ(g.ado.getDataOraServer("prova"), QDateTime(QDate(2026, 3, 16), QTime(10, 30), Qt::UTC));
}

TEST(Gateway, CommandTextLosesItsExec) {
    GatewayDiProva g;
    const auto righe = g.ado.getNewRecordsetByCmd(Comando{"exec SELECT 7 AS SETTE"}, "prova");
    ASSERT_TRUE(righe);
    EXPECT_EQ(righe->intero("SETTE"), 7);
    g.ado.disconnect();
}

TEST(Gateway, StoredResultIsTheFirstColumnOfTheFirstRow) {
    GatewayDiProva g;
    EXPECT_EQ(g.ado.getStoredResult("SELECT 5, 6", "prova").toInt(), 5);
}

// ---- Reports

TEST(GatewayReports, FailedExecuteSQL) {
    GatewayDiProva g;
    EXPECT_FALSE(g.ado.executeSQL(QString("DELETE FROM NonEsiste WHERE A = ¤x¤"), "modulo.procedura"));
    const auto errore = unicaSegnalazione(g);
    EXPECT_EQ(errore.modulo, "cAdoSqlServer.executeSQL -> modulo.procedura");
    EXPECT_EQ(errore.avanzate, "SQL=DELETE FROM NonEsiste WHERE A = 'x'");
    EXPECT_TRUE(errore.descrizione.contains("NonEsiste")) << errore.descrizione.toStdString();
}

TEST(GatewayReports, FailedExecuteSQLInTheLog) {
    GatewayDiProva g;
    g.ado.executeSQL(QString("DELETE FROM NonEsiste"), "modulo.procedura");
    const auto errore = unicaSegnalazione(g);
    EXPECT_NE(errore.numero, 0);
    EXPECT_EQ(g.registro(),
              QStringList({QString(80, '*'), "Data   16/03/2026 10:30:00",
                           "Err.N. " + QString::number(errore.numero), "Descr. " + errore.descrizione,
                           "Source " + errore.origine, "Modulo cAdoSqlServer.executeSQL -> modulo.procedura",
                           "Avanz. SQL=DELETE FROM NonEsiste"}));
}

TEST(GatewayReports, ReportShowsAValueAsItWasTyped) {
    GatewayDiProva g;
    g.ado.executeSQL("DELETE FROM NonEsiste WHERE A = " + testoSQL("50¤•"), "modulo.procedura");
    EXPECT_EQ(unicaSegnalazione(g).avanzate, "SQL=DELETE FROM NonEsiste WHERE A = '50¤•'");
}

TEST(GatewayReports, FailedExecuteSQLWithRA) {
    GatewayDiProva g;
    EXPECT_EQ(g.ado.executeSQLWithRA(QString("DELETE FROM NonEsiste"), "modulo.procedura"), -1);
    const auto errore = unicaSegnalazione(g);
    EXPECT_EQ(errore.modulo, "cAdoSqlServer.executeSQLWithRA -> modulo.procedura");
    EXPECT_EQ(errore.avanzate, "SQL=DELETE FROM NonEsiste");
}

TEST(GatewayReports, FailedRecordset) {
    GatewayDiProva g;
    QString sql = "SELECT A FROM NonEsiste";
    EXPECT_FALSE(g.ado.getNewRecordset(sql, "modulo.procedura"));
    const auto errore = unicaSegnalazione(g);
    EXPECT_EQ(errore.modulo, "cAdoSqlServer.getNewRecordset -> modulo.procedura");
    EXPECT_EQ(errore.avanzate, "SQL=SELECT A FROM NonEsiste");
}

TEST(GatewayReports, FailedRecordsetByCommand) {
    GatewayDiProva g;
    EXPECT_FALSE(g.ado.getNewRecordsetByCmd(QString("SELECT A FROM NonEsiste"), "modulo.procedura"));
    const auto errore = unicaSegnalazione(g);
    EXPECT_EQ(errore.modulo, "cAdoSqlServer.getNewRecordsetByCmd -> modulo.procedura");
    EXPECT_EQ(errore.avanzate, "CmdText=SELECT A FROM NonEsiste");
}

TEST(GatewayReports, FailedCommand) {
    GatewayDiProva g;
    EXPECT_FALSE(g.ado.executeCmd(Comando{"aggiornaTutto"}, "modulo.procedura"));
    const auto errore = unicaSegnalazione(g);
    EXPECT_EQ(errore.modulo, "cAdoSqlServer.executeCmd -> modulo.procedura");
    EXPECT_EQ(errore.avanzate, "Cmd=exec aggiornaTutto");
    EXPECT_EQ(g.ado.getLastSQLCommand(), "exec aggiornaTutto");
}

TEST(GatewayReports, FailedInsert) {
    GatewayDiProva g;
    g.ado.getIDByInsert(QString("INSERT INTO NonEsiste (A) VALUES (1)"), "modulo.procedura", "RID",
                        "NonEsiste");
    const auto errore = unicaSegnalazione(g);
    EXPECT_EQ(errore.modulo, "cAdoSqlServer.getIDByInsert -> modulo.procedura");
    EXPECT_EQ(errore.avanzate, "SQL1=INSERT INTO NonEsiste (A) VALUES (1)\n" + g.serverEChiave("NonEsiste"));
}

TEST(GatewayReports, PercentSignsOfAFailedInsertStayAsTheyAre) {
    GatewayDiProva g;
    g.ado.getIDByInsert(QString("INSERT INTO NonEsiste (A) VALUES ('%2 e %3')"), "modulo.procedura", "RID",
                        "NonEsiste");
    EXPECT_EQ(unicaSegnalazione(g).avanzate,
              "SQL1=INSERT INTO NonEsiste (A) VALUES ('%2 e %3')\n" + g.serverEChiave("NonEsiste"));
}

TEST(GatewayReports, EmptyInsertStatement) {
    GatewayDiProva g;
    EXPECT_EQ(g.ado.getIDByInsert(QString(), "modulo.procedura", "RID", "Prova"), -1);
    const auto errore = unicaSegnalazione(g);
    EXPECT_EQ(errore.numero, 9999);
    EXPECT_EQ(errore.descrizione, "Testo del Comando SQL non impostato in getIDByInsert");
    EXPECT_EQ(errore.origine, "ORBLN::cAdoSqlServer");
    EXPECT_EQ(errore.modulo, "cAdoSqlServer.getIDByInsert -> modulo.procedura");
}

TEST(GatewayReports, FailedValueNamesBothProcedures) {
    GatewayDiProva g;
    EXPECT_TRUE(g.ado.getValueBySQL("SELECT A FROM NonEsiste", "modulo.procedura").isNull());
    EXPECT_EQ(unicaSegnalazione(g).modulo,
              "cAdoSqlServer.getNewRecordset -> cAdoSqlServer.getValueBySQL -> modulo.procedura");
}

TEST(GatewayReports, FailedServerTimeNamesBothProcedures) {
    GatewayDiProva g;
    sondaIstruzioni() = [](const QString& sql) {
        const bool ora = sql.compare("SELECT Now()", Qt::CaseInsensitive) == 0 || sql == "SELECT GETDATE()";
        return ora ? std::optional(erroreFinto()) : std::nullopt;
    };
    EXPECT_FALSE(g.ado.getDataOraServer("modulo.procedura").isValid());
    EXPECT_EQ(unicaSegnalazione(g).modulo,
              "cAdoSqlServer.getNewRecordset -> cAdoSqlServer.getDataOraServer -> modulo.procedura");
}

TEST(GatewayReports, FailedConnectionHidesThePassword) {
    GatewayDiProva g;
    g.stringa = "Data Source=/non/esiste.mdb;Persist Security Info=False;PWD=segreta";
    EXPECT_FALSE(g.inserisci("A"));
    const auto errore = unicaSegnalazione(g);
    EXPECT_EQ(errore.modulo, "cAdoSqlServer.Connect -> N/D");
    EXPECT_EQ(errore.avanzate,
              "sStrConnection=Data Source=/non/esiste.mdb;Persist Security Info=False;PWD=***");
    EXPECT_FALSE(g.registro().join('\n').contains("segreta"));
}

TEST(GatewayReports, SilentConnectionFailureSaysNothing) {
    GatewayDiProva g;
    g.stringa = "Data Source=/non/esiste.mdb";
    EXPECT_FALSE(g.ado.Connect("N/D", 60, 0, true));
    EXPECT_TRUE(g.operatore.avvisi.empty());
    EXPECT_TRUE(g.registro().isEmpty());
    EXPECT_EQ(g.ado.getConnectionCount(), 0);
}

TEST(GatewayReports, ErrorsOfTheConnectionAreReportedOnce) {
    GatewayDiProva g;
    EXPECT_FALSE(g.ado.checkForErrors("modulo.procedura"));
    g.ado.executeSQL(QString("DELETE FROM NonEsiste"), "modulo.procedura");
    EXPECT_TRUE(g.ado.checkForErrors("modulo.procedura"));
    EXPECT_EQ(g.operatore.avvisi.back().modulo, "cAdoSqlServer.checkForErrors -> modulo.procedura");
    EXPECT_FALSE(g.ado.checkForErrors("modulo.procedura"));
}

TEST(GatewayReports, StatementThatCannotBeAdaptedIsReportedAndEmpty) {
    GatewayDiProva g;
    g.ado.TipoServer = MySql;
    EXPECT_EQ(g.ado.prepareSQL("SELECT FORMAT(A) FROM T"), QString());
    EXPECT_EQ(unicaSegnalazione(g).modulo, "cAdoSqlServer.prepareSQL");
    EXPECT_EQ(unicaSegnalazione(g).avanzate, QString());
}

// ---- Integrity

class GatewayIntegrity : public testing::Test {
  protected:
    GatewayIntegrity() {
        g.inserisci("A");
        EXPECT_TRUE(g.ado.executeSQL(QString("INSERT INTO Figli (FK_PROVA) VALUES (1)"), "prova"));
    }
    // One box: these words, and behind them the server's own.
    void expectRiquadro(const QString& inizio) const {
        ASSERT_EQ(g.operatore.mostrati.size(), 1);
        const QString& mostrato = g.operatore.mostrati.front();
        EXPECT_TRUE(mostrato.startsWith(inizio)) << mostrato.toStdString();
        EXPECT_TRUE(mostrato.mid(inizio.size()).contains("foreign key constraint", Qt::CaseInsensitive));
        EXPECT_FALSE(mostrato.mid(inizio.size()).contains('\n'));
    }

    GatewayDiProva g;
    const QString cancella = "DELETE FROM Prova WHERE RID = 1";
};

TEST_F(GatewayIntegrity, ExecuteSQLShowsTheBox) {
    EXPECT_FALSE(g.ado.executeSQL(cancella, "prova"));
    expectRiquadro(
        "Bottegon|L'operazione non può essere completata nel rispetto dell'integrità dei dati.\n"
        "E' probabile che si sta tentando di eliminare un record che risulta vincolato ai dati di "
        "una o più tabelle.\n\n[Messaggio Originale]:\n");
    EXPECT_EQ(g.operatore.icone.front(), OperatorPort::Icona::Informazione);
}

TEST_F(GatewayIntegrity, ExecuteSQLWithRAShowsTheShorterBox) {
    EXPECT_EQ(g.ado.executeSQLWithRA(cancella, "prova"), -1);
    expectRiquadro(
        "Bottegon|L'operazione non può essere completata nel rispetto dell'integrità dei dati.\n\n"
        "[Messaggio Originale]:\n");
}

TEST_F(GatewayIntegrity, BoxIsNoErrorReport) {
    g.ado.executeSQL(cancella, "prova");
    EXPECT_TRUE(g.operatore.avvisi.empty());
    EXPECT_TRUE(g.registro().isEmpty());
}

TEST_F(GatewayIntegrity, BoxLeavesTheEntryOnTheStack) {
    g.ado.executeSQL(cancella, "prova");
    EXPECT_EQ(g.ado.getConnectionCount(), 1);
}

TEST_F(GatewayIntegrity, ReferenceToNothingShowsTheBoxToo) {
    EXPECT_FALSE(g.ado.executeSQL(QString("INSERT INTO Figli (FK_PROVA) VALUES (77)"), "prova"));
    ASSERT_EQ(g.operatore.mostrati.size(), 1);
    EXPECT_TRUE(g.operatore.mostrati.front().contains("integrità dei dati"));
}

TEST_F(GatewayIntegrity, DuplicateCodeIsAReportAndNoBox) {
    EXPECT_FALSE(g.inserisci("A"));
    ASSERT_EQ(g.operatore.avvisi.size(), 1u);
    EXPECT_TRUE(g.operatore.avvisi.front().descrizione.contains("CODICE"))
        << g.operatore.avvisi.front().descrizione.toStdString();
}
