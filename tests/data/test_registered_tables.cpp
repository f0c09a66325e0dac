#include "data/schema_archive.h"
#include "doubles/celle.h"

// Tables that a screen registers, so that rights can be given on them.

namespace {

class RegisteredTables : public testing::Test {
  protected:
    RegisteredTables() { archivio.sql("INSERT INTO GRUPPOUTENTI (RID, AMMINISTRATORE) VALUES (3, 1)"); }

    QString riga(const QString& query) { return testoRiga(archivio.sql(query)); }
    LibriDiProva archivio;
};

TEST_F(RegisteredTables, ANewOneGetsTheAdministratorsRights) {
    gAdo.setNewTable("frmProva", "Prova");
    EXPECT_EQ(riga("SELECT COUNT(*), MAX(RIFFORM), MAX(NOME) FROM ElencoTabelle"), "1|frmProva|Prova");
    EXPECT_EQ(riga("SELECT COUNT(*), MAX(FK_GRUPPOUTENTI) FROM GRUPPOPERMESSI"), "1|3");
    EXPECT_EQ(riga("SELECT VISUALIZZA, SCRIVI, ELIMINA, STAMPA FROM GRUPPOPERMESSI"), "1|1|1|1");
    EXPECT_EQ(riga("SELECT COUNT(*) FROM GRUPPOPERMESSI P INNER JOIN ElencoTabelle E ON P.FK_TABELLE = E.ID"),
              "1");
}

TEST_F(RegisteredTables, OneThatIsThereIsLeftAsItIs) {
    gAdo.setNewTable("frmProva", "Prova");
    gAdo.setNewTable("frmProva", "Altro nome");
    EXPECT_EQ(riga("SELECT COUNT(*), MAX(NOME) FROM ElencoTabelle"), "1|Prova");
    EXPECT_EQ(riga("SELECT COUNT(*) FROM GRUPPOPERMESSI"), "1");
}

TEST_F(RegisteredTables, AnApostropheStaysInTheName) {
    gAdo.setNewTable("frmD'Oggi", "L'elenco");
    EXPECT_EQ(riga("SELECT RIFFORM, NOME FROM ElencoTabelle"), "frmD'Oggi|L'elenco");
}

TEST_F(RegisteredTables, WithoutAdministratorsTheReportNamesTheTable) {
    archivio.sql("DELETE FROM GRUPPOUTENTI");
    gAdo.setNewTable("frmProva", "Prova");
    ASSERT_EQ(archivio.operatore.avvisi.size(), 1u);
    EXPECT_EQ(archivio.operatore.avvisi.front().modulo, "cAdoSqlServer.setNewTable");
    EXPECT_EQ(archivio.operatore.avvisi.front().avanzate, "Table=frmProva\nDesc=Prova");
    EXPECT_EQ(riga("SELECT COUNT(*) FROM GRUPPOPERMESSI"), "0");
}

TEST_F(RegisteredTables, AStatementThatFailsIsReportedOnceUnderTheProceduresName) {
    LibriDiProva::guastaServer();
    gAdo.setNewTable("frmProva", "Prova");
    sondaIstruzioni() = {};
    ASSERT_EQ(archivio.operatore.avvisi.size(), 1u);
    EXPECT_EQ(archivio.operatore.avvisi.front().modulo,
              "cAdoSqlServer.getNewRecordset -> cAdoSqlServer.getValueBySQL -> cAdoSqlServer.setNewTable");
}

}  // namespace
