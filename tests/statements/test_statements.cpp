#include <gtest/gtest.h>

#include <QFile>

#include "core/globals.h"
#include "data/gateway.h"
#include "data/prepare_sql.h"
#include "data/schema.h"
#include "doubles/negozio.h"

// What the program says to its server, on the server in force.
namespace {

QStringList istruzioni() {
    QFile file(BOTTEGON_SOURCE_DIR "/tests/statements/statements.txt");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QStringList lette;
    for (const QString& riga : QString::fromUtf8(file.readAll()).split('\n')) {
        if (!riga.isEmpty() && !riga.startsWith('#')) lette << riga;
    }
    return lette;
}

// The statement that begins so, of those that hold `pezzo`.
QString istruzione(const QString& inizio, const QString& pezzo = {}) {
    for (const QString& sql : istruzioni()) {
        if (sql.startsWith(inizio) && sql.contains(pezzo)) return sql;
    }
    ADD_FAILURE() << "no statement begins with " << inizio.toStdString();
    return {};
}

QString conLetterali(QString sql) {
    return sql.replace("$DATA$", gAdo.getSQLDate(QDate(2026, 3, 16)))
        .replace("$ORA$", gAdo.getSQLTime(QTime(10, 30)));
}

bool haChiave(const QString& tabella) {
    for (const schema::Tabella& t : schema::tabelle()) {
        if (t.nome.compare(tabella, Qt::CaseInsensitive) == 0) return t.colonne.front().nome == "RID";
    }
    return false;
}

bool esegui(const QString& sql) {
    if (sql.startsWith("SELECT", Qt::CaseInsensitive)) {
        return static_cast<bool>(Lettura(sql, "prova"));
    }
    const QString tabella = sql.section(' ', 2, 2);
    if (!sql.startsWith("INSERT") || !haChiave(tabella)) return gAdo.executeSQL(sql, "prova");
    return gAdo.getIDByInsert(sql, "prova", "RID", tabella) > 0;
}

// Two loads of product 1 into warehouse 1: 10 at 4 two months ago, 10 at 8 four months ago.
void caricaDueVolte(Negozio& negozio) {
    negozio.prodotto({"A1", 10});
    negozio.sql("INSERT INTO Causali (RID, CODICE, ORIGINE, DESTINAZIONE) VALUES (9,'CAR',2,3)");
    negozio.sql("INSERT INTO TipoDocumenti (RID, CODICE, FK_CAUSALE) VALUES (9,'CAR',9)");
    negozio.orologio.istante = QDateTime::currentDateTime();  // the server's day is the real one
    const QDate oggi = QDate::currentDate();
    for (const auto& [chiave, mesi, prezzo] : {std::tuple{1, 2, 4}, {2, 4, 8}}) {
        negozio.sql(QString("INSERT INTO Movimenti (RID, PROGRESSIVO, ANNO, DATA, FK_TIPODOCUMENTO, "
                            "FK_DESTINAZIONE) VALUES (%1,%1,2026,'%2 00:00:00',9,1)")
                        .arg(chiave)
                        .arg(oggi.addMonths(-mesi).toString(Qt::ISODate)));
        negozio.sql(QString("INSERT INTO DettagliMovimento (RID, FK_MOVIMENTO, FK_PRODOTTO, QUANTITA, "
                            "PREZZONETTO) VALUES (%1,%1,1,10,%2)")
                        .arg(chiave)
                        .arg(prezzo));
    }
}

QVariant quantitaDellaMedia(const QString& pezzo) {
    gMesiPrezzoMedio = 3;
    return gAdo.getValueBySQL(istruzione("SELECT Sum(Abs(dm.Quantita))", pezzo), "prova");
}

// A sale of customer 2, number 12, not printed yet.
void sospendi(Negozio& negozio) {
    negozio.cliente(2, "ROSSI");
    negozio.sql(
        "INSERT INTO Movimenti (RID, PROGRESSIVO, ANNO, DATA, FK_TIPODOCUMENTO, FK_CONTROPARTITA, ID_CASSA) "
        "VALUES (1,12,2026,'2026-03-16 00:00:00',1,2,1)");
}

}  // namespace

TEST(Statements, EveryOneIsRun) {
    Negozio negozio;
    negozio.prodotto({"A1", 10});
    gMesiPrezzoMedio = 3;
    int quante = 0;
    for (const QString& sql : istruzioni()) {
        EXPECT_TRUE(esegui(conLetterali(sql))) << sql.toStdString();
        ++quante;
    }
    EXPECT_GT(quante, 100);
}

TEST(Statements, TheAveragePriceLooksAtTheLastMonthsOnly) {
    Negozio negozio;
    caricaDueVolte(negozio);
    EXPECT_EQ(quantitaDellaMedia("•/M•c.Destinazione").toDouble(), 10);
}

TEST(Statements, TheAveragePriceCanLeaveOneRowOut) {
    Negozio negozio;
    caricaDueVolte(negozio);
    negozio.sql("UPDATE DettagliMovimento SET RID = 7 WHERE RID = 1");
    EXPECT_TRUE(quantitaDellaMedia("dm.RID <> 7").isNull());
}

TEST(Statements, SuspendedSalesShowTheirNumber) {
    Negozio negozio;
    sospendi(negozio);
    const Lettura lettura(istruzione("SELECT TOP 9 M.RID"), "prova");
    ASSERT_TRUE(lettura.trovata());
    EXPECT_TRUE(lettura->testo("Numero").endsWith("12/VB")) << lettura->testo("Numero").toStdString();
}

TEST(Statements, SuspendedSalesAreFoundByTheirNumber) {
    Negozio negozio;
    sospendi(negozio);
    const Lettura lettura(istruzione("SELECT TOP 9 M.RID", "LIKE").replace("%0001%", "%12/V%"), "prova");
    EXPECT_TRUE(lettura.trovata());
}

TEST(Statements, ABracketInASearchStandsForItself) {
    Negozio negozio;
    negozio.prodotto({"A1", 10, {}, "VITE [a-z] M6"});
    negozio.prodotto({"A2", 10, {}, "VITE M8"});
    const QString sql = "SELECT CODICE FROM Prodotti WHERE DESCRIZIONE LIKE " + testoSQL("%[a-z]%");
    const Lettura lettura(sql, "prova");
    ASSERT_TRUE(lettura.trovata());
    EXPECT_EQ(lettura->righe(), 1);
}
