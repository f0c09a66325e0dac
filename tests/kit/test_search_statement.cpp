#include "data/gateway.h"
#include "data/prepare_sql.h"
#include "kit/search_statement.h"

namespace {

const char pagamenti[] = "SELECT TOP 9 RID, CODICE, DESCRIZIONE FROM Pagamenti ";
const char prodotti[] =
    "SELECT TOP 8 P.RID, P.CODICE, P.DESCRIZIONE, DP.QUANTITA AS GIACENZA FROM Prodotti P WHERE "
    "P.DISABILITATO = 0";
const char conBlocchi[] =
    "SELECT TOP 9 M.RID, •A•(Format(M.PROGRESSIVO‡ \"00000\") & TD.CODICE)•/A••M•CONCAT(CAST(M.PROGRESSIVO ¿ "
    "CHAR)‡ "
    "TD.CODICE)•/M• AS Numero, A.DENOMINAZIONE AS CONTROPARTITA FROM Movimenti M";

class SearchStatement : public testing::Test {
  protected:
    SearchStatement() { gAdo.TipoServer = Access; }
    ~SearchStatement() override { gAdo.TipoServer = SqlServer; }
};

TEST_F(SearchStatement, AColumnIsThePieceOfTheSelectBeforeItsPlace) {
    EXPECT_EQ(getNomeCampo(pagamenti, 2), "CODICE");
}

TEST_F(SearchStatement, TheLastColumnEndsAtFrom) {
    EXPECT_EQ(getNomeCampo(pagamenti, 3), "DESCRIZIONE");
}

TEST_F(SearchStatement, AFieldKeepsItsTable) {
    EXPECT_EQ(getNomeCampo(prodotti, 3), "P.DESCRIZIONE");
}

TEST_F(SearchStatement, AnAliasIsCutOff) {
    EXPECT_EQ(getNomeCampo(prodotti, 4), "DP.QUANTITA");
}

TEST_F(SearchStatement, AColumnThatIsNotThereHasNoField) {
    EXPECT_EQ(getNomeCampo(pagamenti, 4), "");
    EXPECT_EQ(getNomeCampo(pagamenti, 0), "");
}

TEST_F(SearchStatement, AnExpressionIsThatOfTheServerWithItsCommas) {
    EXPECT_EQ(getNomeCampo(conBlocchi, 2), "(Format(M.PROGRESSIVO, \"00000\") & TD.CODICE)");
    gAdo.TipoServer = MySql;
    EXPECT_EQ(getNomeCampo(conBlocchi, 2), "CONCAT(CAST(M.PROGRESSIVO AS CHAR), TD.CODICE)");
}

TEST_F(SearchStatement, TheTypedTextStandsAtTheBeginningOfTheField) {
    EXPECT_EQ(conFiltro(pagamenti, "CODICE", "con", false),
              "SELECT TOP 9 RID, CODICE, DESCRIZIONE FROM Pagamenti  WHERE CODICE LIKE ¤con%¤");
}

TEST_F(SearchStatement, OrAnywhereInIt) {
    EXPECT_TRUE(conFiltro(pagamenti, "CODICE", "con", true).endsWith(" WHERE CODICE LIKE ¤%con%¤"));
}

TEST_F(SearchStatement, AnEmptyTextNarrowsNothing) {
    EXPECT_EQ(conFiltro(pagamenti, "CODICE", "", true), pagamenti);
}

TEST_F(SearchStatement, AConditionOfTheCallerIsKept) {
    EXPECT_TRUE(conFiltro(prodotti, "P.CODICE", "v", false)
                    .endsWith("WHERE P.DISABILITATO = 0 AND P.CODICE LIKE ¤v%¤"));
}

TEST_F(SearchStatement, AnApostropheStaysInsideTheText) {
    EXPECT_TRUE(gAdo.prepareSQL(conFiltro(pagamenti, "CODICE", "d'o", false)).endsWith("LIKE 'd''o%'"));
}

TEST_F(SearchStatement, ADelimiterInTheTextEndsNothing) {
    const QString sql = conFiltro(pagamenti, "CODICE", "a¤ OR 1=1 OR ¤", false);
    EXPECT_EQ(sql.count(u'¤'), 2);
}

struct VocePagina {
    const char* nome;
    int direzione;
    bool discendente;
    const char* coda;
};

class SearchPage : public testing::TestWithParam<VocePagina> {};

TEST_P(SearchPage, IsCutAndSortedByTheKey) {
    const QString sql =
        conPagina("SELECT TOP 9 RID FROM T", {"CHIAVE", GetParam().discendente, GetParam().direzione, "x"});
    EXPECT_EQ(sql, QString("SELECT TOP 9 RID FROM T") + GetParam().coda);
}

INSTANTIATE_TEST_SUITE_P(
    Directions, SearchPage,
    testing::Values(VocePagina{"first", -1, false, " ORDER BY CHIAVE  ASC"},
                    VocePagina{"firstDescending", -1, true, " ORDER BY CHIAVE  DESC"},
                    VocePagina{"before", 1, false, " WHERE  CHIAVE < ¤x¤  ORDER BY CHIAVE  DESC"},
                    VocePagina{"beforeDescending", 1, true, " WHERE  CHIAVE > ¤x¤  ORDER BY CHIAVE  ASC"},
                    VocePagina{"behind", 2, false, " WHERE  CHIAVE > ¤x¤  ORDER BY CHIAVE  ASC"},
                    VocePagina{"behindDescending", 2, true, " WHERE  CHIAVE < ¤x¤  ORDER BY CHIAVE  DESC"}),
    [](const auto& voce) { return voce.param.nome; });

TEST_F(SearchStatement, TheTextAndThePageAreBothAdded) {
    const QString sql = conPagina(conFiltro(pagamenti, "CODICE", "c", false), {"DESCRIZIONE", false, 2, "m"});
    EXPECT_TRUE(sql.endsWith(" WHERE CODICE LIKE ¤c%¤ AND  DESCRIZIONE > ¤m¤  ORDER BY DESCRIZIONE  ASC"))
        << sql.toStdString();
}

TEST_F(SearchStatement, OnMySqlTheLimitComesLast) {
    gAdo.TipoServer = MySql;
    EXPECT_EQ(gAdo.prepareSQL(conPagina(pagamenti, {"DESCRIZIONE", false, -1, {}})),
              "SELECT RID, CODICE, DESCRIZIONE FROM Pagamenti  ORDER BY DESCRIZIONE  ASC LIMIT 9");
}

}  // namespace
