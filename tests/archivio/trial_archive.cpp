#include "archivio/trial_archive.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTextStream>

#include "archivio/create_archive.h"
#include "data/access_sql.h"

namespace {

// Made once; every test gets a copy.
QByteArray creato(bool demo) {
    const QTemporaryDir cartella;
    QString testo;
    QTextStream esito(&testo);
    OpzioniCreazione opzioni;
    opzioni.demo = demo;
    EXPECT_TRUE(creaArchivio(cartella.filePath("a.db"), opzioni, esito)) << testo.toStdString();
    return contenuto(cartella.filePath("a.db"));
}

const QByteArray& demo() {
    static const QByteArray byte = creato(true);
    return byte;
}

const QByteArray& vuoto() {
    static const QByteArray byte = creato(false);
    return byte;
}

sqlite3* apri(const QString& percorso) {
    sqlite3* db = nullptr;
    EXPECT_EQ(sqlite3_open_v2(percorso.toUtf8().constData(), &db,
                              SQLITE_OPEN_READWRITE | SQLITE_OPEN_EXRESCODE, nullptr),
              SQLITE_OK);
    registraFunzioniAccess(db);
    return db;
}

}  // namespace

QByteArray contenuto(const QString& percorso) {
    QFile file(percorso);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << percorso.toStdString();
    return file.readAll();
}

void scriviFile(const QString& percorso, const QByteArray& contenuto) {
    QFile file(percorso);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    ASSERT_EQ(file.write(contenuto), contenuto.size());
}

ArchivioInCartella::ArchivioInCartella(Contenuto contenuto) {
    scriviFile(percorso(), contenuto == Contenuto::Demo ? demo() : vuoto());
    if (contenuto == Contenuto::Demo) return;
    EXPECT_EQ(
        esegui("INSERT INTO Marche (CODICE) VALUES ('M1'), ('M2');"
               "INSERT INTO Gruppi (CODICE) VALUES ('G1'), ('G2'), ('G3');"
               "INSERT INTO Anagrafiche (NUMERO, DENOMINAZIONE) VALUES (1, 'UNO'), (2, 'DUE'), (3, 'TRE');"
               "INSERT INTO Prodotti (CODICE, FK_MARCA) VALUES ('P1', 1), ('P2', 2), ('P3', NULL);"
               "INSERT INTO DistintaBase (CODICE) VALUES ('%D')"),
        SQLITE_OK);
}

QStringList ArchivioInCartella::file() const {
    return QDir(mCartella.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

int ArchivioInCartella::esegui(const QByteArray& sql, bool chiaviControllate) const {
    sqlite3* db = apri(percorso());
    sqlite3_exec(db, chiaviControllate ? "PRAGMA foreign_keys = ON" : "PRAGMA foreign_keys = OFF", nullptr,
                 nullptr, nullptr);
    const int codice = sqlite3_exec(db, sql.constData(), nullptr, nullptr, nullptr);
    sqlite3_close_v2(db);
    return codice;
}

QString ArchivioInCartella::leggi(const QString& file, const QByteArray& sql, int colonna) const {
    sqlite3* db = apri(percorso(file));
    sqlite3_stmt* istruzione = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(db, sql.constData(), -1, &istruzione, nullptr), SQLITE_OK)
        << sqlite3_errmsg(db);
    QStringList righe;
    while (sqlite3_step(istruzione) == SQLITE_ROW) {
        const auto* byte = reinterpret_cast<const char*>(sqlite3_column_text(istruzione, colonna));
        righe << QString::fromUtf8(byte);
    }
    sqlite3_finalize(istruzione);
    sqlite3_close_v2(db);
    return righe.join('\n');
}

QString ArchivioInCartella::valore(const QByteArray& sql) const {
    return leggi("prova.db", sql, 0);
}
int ArchivioInCartella::conta(const QString& file, const QString& daDove) const {
    return leggi(file, "SELECT COUNT(*) FROM " + daDove.toUtf8(), 0).toInt();
}
QString ArchivioInCartella::piano(const QByteArray& sql) const {
    return leggi("prova.db", "EXPLAIN QUERY PLAN " + sql, 3);
}

void ArchivioInCartella::aggiungiDifficili() const {
    const QByteArray testi[] = {"è ß 😀 ‰ ¤ ‡ ¿ •",
                                "l''ora \"doppia\" `grave`",
                                "a\\b\\''c\\",
                                "1\n2\r\n3\t4",
                                "%_?:a;--/*x*/",
                                "  due spazi  ",
                                "",
                                QByteArray("lungo ").repeated(20000)};
    for (const QByteArray& testo : testi)
        ASSERT_EQ(esegui("INSERT INTO Opzioni (NOME, VALORE) VALUES (hex(randomblob(9)), '" + testo + "')"),
                  SQLITE_OK);
    ASSERT_EQ(
        esegui("INSERT INTO Gruppi (RID, CODICE) VALUES (0, 'zero'), (-3, 'sotto'), (2147483647, 'ultimo');"
               "INSERT INTO Anagrafiche (NUMERO, DATANASCITA, FIDO, SCONTO) VALUES "
               "(900, '1899-12-30 00:00:00', 1234567.8901, 0.1), (901, '9999-12-31 23:59:59', -0.0001, 1e-9),"
               "(902, NULL, NULL, 123456789.125), (903, '2024-02-29 12:00:00', 99999999999.9999, "
               "-0.3333333333333333);"
               "INSERT INTO Movimenti (PROGRESSIVO, ANNO, DATA, FK_TIPODOCUMENTO, ORACONS) VALUES "
               "(1, 2026, '2026-01-01 00:00:00', 1, '1899-12-30 23:59:59')"),
        SQLITE_OK);
}

void ArchivioInCartella::aggiungiVendite() const {
    const QByteArray testate =
        "INSERT INTO Contatori (FK_NUMERATORE, ANNO, NUMERO, NOTE) VALUES (1, '2026', 2, 'n/d');"
        "INSERT INTO PrimaNota (PROGRESSIVO, DATA, DATAVALUTA, FK_CAUSALE, FK_ANAGRAFE, DESCRIZIONE, "
        "IMPORTO, "
        "CODICEPARTITA) VALUES "
        "(1, '2026-11-21 00:00:00', '2026-11-21 00:00:00', 1, 1, 'Vendita al banco N° 0001', 26.47, 'VB/1'),"
        "(2, '2026-11-21 00:00:00', '2026-11-21 00:00:00', 2, 1, 'Incasso Vendita al banco', 26.47, 'VB/1');"
        "INSERT INTO PrimaNotaDettagli (FK_PRIMANOTA, FK_CONTO, DARE) VALUES (1, 3, 26.47), (2, 1, 26.47);"
        "INSERT INTO PrimaNotaDettagli (FK_PRIMANOTA, FK_CONTO, AVERE) VALUES (1, 5, 21.696), (1, 6, 4.774), "
        "(2, 3, 26.47);"
        "INSERT INTO Movimenti (PROGRESSIVO, ANNO, DATA, FK_TIPODOCUMENTO, FK_ORIGINE, FK_CONTROPARTITA, "
        "FK_PAGAMENTO, ID_CASSA, TOTIMPONIBILE, TOTIMPOSTA, TOTDOCUMENTO, FK_PRIMANOTA, FK_PNPAGAMENTO) "
        "VALUES "
        "(1, 2026, '2026-11-21 00:00:00', 1, 1, 1, 1, 255, 21.696, 4.774, 26.47, 1, 2),"
        "(2, 2026, '2026-11-21 00:00:00', 1, 1, 2, 1, 255, 40.9844, 9.0156, 50, NULL, NULL);";
    const QByteArray righe =
        "INSERT INTO DettagliMovimento (FK_MOVIMENTO, EXTRAPROG, POS, FK_PRODOTTO, CODPRODOTTO, "
        "DESCPRODOTTO, "
        "QUANTITA, PREZZO, PREZZONETTO, TOTALEIVA, TOTALERIGA, VALOREIVA, IK_DETTAGLIOMOVIMENTO) VALUES "
        "(1, 1, 1, 1, 'VITI440', 'VITI', 1, 5.32, 5.32, 1.1704, 6.49, 22, NULL),"
        "(1, 1, 2, 2, 'MART500', 'MARTELLO', 1, 13.11, 13.11, 2.8842, 15.99, 22, NULL),"
        "(1, 2, 1, 4, 'LED10C', 'LAMPADINA', 1, 3.27, 3.27, 0.7194, 3.99, 22, NULL),"
        "(2, 1, 1, 19, '%BAGNO', 'KIT BAGNO', 1, 0, 0, 0, 0, 22, NULL),"
        "(2, 1, 2, 6, 'RUBLAV', 'RUBINETTO', 1, 40.98, 40.98, 9.0156, 50, 22, 4);";
    ASSERT_EQ(esegui(testate + righe), SQLITE_OK);
}
