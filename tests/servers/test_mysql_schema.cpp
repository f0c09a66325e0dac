#include <gtest/gtest.h>

#include "core/globals.h"
#include "data/prepare_sql.h"
#include "data/schema.h"
#include "doubles/cliente_mariadb.h"
#include "doubles/negozio.h"

// The tables as the server itself tells them, against what the schema says.

namespace {

class MySqlSchema : public testing::Test {
  protected:
    MySqlSchema() { EXPECT_EQ(gTipoDB, MySql) << "run with BOTTEGON_PROVA_SERVER=mysql"; }

    // The rows of a table of information_schema about the shop's database.
    QStringList catalogo(const QString& colonne, const QString& tabella, const QString& ordine,
                         const QString& condizione = "1=1", const QString& banca = "TABLE_SCHEMA") {
        return n.righe("SELECT " + colonne + " FROM information_schema." + tabella + " WHERE " + banca +
                       " = DATABASE() AND TABLE_NAME <> 'BottegonArchivio' AND " + condizione + " ORDER BY " +
                       ordine);
    }
    Negozio n;
};

QString tipoAtteso(const schema::Colonna& c) {
    switch (c.tipo) {
        case schema::Tipo::Chiave:
        case schema::Tipo::Intero:
            return "int(11)";
        case schema::Tipo::Flag:
            return "smallint(6)";
        case schema::Tipo::Importo:
            return "decimal(19,4)";
        case schema::Tipo::Reale:
            return "double";
        case schema::Tipo::Testo:
            return QString("varchar(%1)").arg(c.lunghezza);
        case schema::Tipo::Note:
            return "longtext";
        case schema::Tipo::DataOra:
            return "datetime";
        case schema::Tipo::Ora:
            return "time";
    }
    return {};
}

QStringList ordinate(QStringList righe) {
    righe.sort(Qt::CaseInsensitive);
    return righe;
}

TEST_F(MySqlSchema, ColumnsAreThoseOfTheSchema) {
    QStringList attese;
    for (const schema::Tabella& t : schema::tabelle()) {
        for (const schema::Colonna& c : t.colonne) {
            const bool chiave = c.tipo == schema::Tipo::Chiave;
            attese << QStringList{t.nome, c.nome, tipoAtteso(c), chiave || c.obbligatoria ? "NO" : "YES",
                                  chiave ? "auto_increment" : ""}
                          .join('|');
        }
    }
    EXPECT_EQ(ordinate(catalogo("TABLE_NAME, COLUMN_NAME, COLUMN_TYPE, IS_NULLABLE, EXTRA", "COLUMNS",
                                "TABLE_NAME, ORDINAL_POSITION")),
              ordinate(attese));
}

TEST_F(MySqlSchema, NumbersStartFromTheirDefault) {
    QStringList attesi;
    for (const schema::Tabella& t : schema::tabelle()) {
        for (const schema::Colonna& c : t.colonne) {
            if (!c.predefinito.isEmpty()) attesi << t.nome + "|" + c.nome + "|0";
        }
    }
    EXPECT_EQ(ordinate(catalogo("TABLE_NAME, COLUMN_NAME, COLUMN_DEFAULT + 0", "COLUMNS",
                                "TABLE_NAME, ORDINAL_POSITION",
                                "COLUMN_DEFAULT IS NOT NULL AND COLUMN_DEFAULT <> 'NULL'")),
              ordinate(attesi));
}

TEST_F(MySqlSchema, TablesAreTransactionalAndHoldEveryCharacter) {
    EXPECT_EQ(n.righe("SELECT DISTINCT ENGINE, LEFT(TABLE_COLLATION, 8) FROM information_schema.TABLES WHERE "
                      "TABLE_SCHEMA = DATABASE()"),
              QStringList{"InnoDB|utf8mb4_"});
}

TEST_F(MySqlSchema, TextsHaveOneCollationBlindToCase) {
    const QStringList collazioni = n.righe(
        "SELECT DISTINCT COLLATION_NAME FROM information_schema.COLUMNS WHERE TABLE_SCHEMA = DATABASE() AND "
        "COLLATION_NAME IS NOT NULL");
    ASSERT_EQ(collazioni.size(), 1);
    EXPECT_TRUE(collazioni.first().contains("_ci")) << collazioni.first().toStdString();
}

TEST_F(MySqlSchema, KeysPointWhereTheSchemaSays) {
    QStringList attese;
    for (const schema::Tabella& t : schema::tabelle()) {
        for (const schema::Colonna& c : t.colonne) {
            if (!c.riferimento.isEmpty()) attese << t.nome + "|" + c.nome + "|" + c.riferimento;
        }
    }
    EXPECT_EQ(ordinate(catalogo("TABLE_NAME, COLUMN_NAME, REFERENCED_TABLE_NAME", "KEY_COLUMN_USAGE",
                                "TABLE_NAME, COLUMN_NAME", "REFERENCED_TABLE_NAME IS NOT NULL")),
              ordinate(attese));
}

// An index over an expression stands on the column itself.
TEST_F(MySqlSchema, IndexesAreThoseOfTheSchema) {
    QStringList attesi;
    for (const schema::Tabella& t : schema::tabelle()) {
        for (const schema::Indice& i : t.indici) {
            attesi << QStringList{t.nome, i.nome, i.unico ? "0" : "1",
                                  i.colonne.join(',').replace("YEAR(DATA)", "DATA")}
                          .join('|');
        }
    }
    EXPECT_EQ(ordinate(n.righe("SELECT TABLE_NAME, INDEX_NAME, NON_UNIQUE, GROUP_CONCAT(COLUMN_NAME ORDER BY "
                               "SEQ_IN_INDEX) FROM information_schema.STATISTICS WHERE TABLE_SCHEMA = "
                               "DATABASE() AND INDEX_NAME <> 'PRIMARY' GROUP BY TABLE_NAME, INDEX_NAME, "
                               "NON_UNIQUE")),
              ordinate(attesi));
}

TEST_F(MySqlSchema, CodesAreFoundInAnyCase) {
    n.prodotto({.codice = "Vite", .listino1 = 1});
    EXPECT_EQ(n.conta("Prodotti", "CODICE = 'VITE'"), 1);
    EXPECT_EQ(n.conta("Prodotti", "CODICE LIKE 'vi%'"), 1);
}

TEST_F(MySqlSchema, AmountsKeepFourDecimalsExactly) {
    n.sql("INSERT INTO Prodotti (CODICE, LISTINO1) VALUES ('A', 123456789012345.6789)");
    EXPECT_EQ(n.valore("SELECT LISTINO1 || '' FROM Prodotti"), "123456789012345.6789");
}

TEST_F(MySqlSchema, RowThatOthersReferToCannotGo) {
    EXPECT_EQ(ClienteMariaDb(n.valore("SELECT DATABASE()")).prova("DELETE FROM Causali WHERE RID = 1"), 1451);
    EXPECT_EQ(n.conta("Causali"), 2);
}

}  // namespace
