#include <sys/stat.h>

#include "core/format.h"
#include "data/gateway_archive.h"
#include "data/schema.h"
#include "data/sqlite_driver.h"
#include "doubles/child_process.h"

namespace {

// What opening the file answers; an empty text when it opens.
QString erroreApertura(const QString& percorso) {
    ErroreServer errore;
    return SqliteConnection::apri(percorso, errore) ? QString() : errore.descrizione;
}

QByteArray contenuto(const QString& percorso) {
    QFile file(percorso);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

void scrivi(const QString& percorso, const QByteArray& byte) {
    QFile file(percorso);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(byte), byte.size());
}

void permessi(const QString& percorso, mode_t modo) {
    ASSERT_EQ(chmod(QFile::encodeName(percorso).constData(), modo), 0);
}

}  // namespace

// ---- What is no archive

TEST(SqliteOnFile, MissingFileIsSaidAndNotMade) {
    const QTemporaryDir cartella;
    const QString percorso = cartella.filePath("manca.mdb");
    EXPECT_EQ(erroreApertura(percorso), "L'archivio \"" + percorso + "\" non esiste o non è un file.");
    EXPECT_FALSE(QFile::exists(percorso));
}

TEST(SqliteOnFile, MissingFolderIsSaid) {
    EXPECT_TRUE(erroreApertura("/non/esiste/prova.mdb").contains("non esiste"));
}

TEST(SqliteOnFile, FolderIsNoArchive) {
    const QTemporaryDir cartella;
    EXPECT_TRUE(erroreApertura(cartella.path()).contains("non esiste o non è un file"));
}

TEST(SqliteOnFile, GarbageIsSaidAndLeftAlone) {
    const QTemporaryDir cartella;
    const QString percorso = cartella.filePath("prova.mdb");
    const QByteArray byte = QByteArray(5000, 'x');
    scrivi(percorso, byte);
    EXPECT_EQ(erroreApertura(percorso),
              "Il file \"" + percorso + "\" non è un archivio o è danneggiato: file is not a database.");
    EXPECT_EQ(contenuto(percorso), byte);
}

TEST(SqliteOnFile, EmptyFileIsNoArchiveAndStaysEmpty) {
    const QTemporaryDir cartella;
    const QString percorso = cartella.filePath("prova.mdb");
    scrivi(percorso, {});
    EXPECT_EQ(erroreApertura(percorso), "Il file \"" + percorso + "\" non è un archivio di Bottegon.");
    EXPECT_EQ(QFileInfo(percorso).size(), 0);
}

TEST(SqliteOnFile, DatabaseOfAnotherProgramIsRefusedAndLeftAlone) {
    GatewayDiProva g;
    ASSERT_TRUE(g.altraCassa()->eseguiNativo("PRAGMA application_id = 1"));
    ASSERT_TRUE(QFile::copy(g.percorso(), g.percorso("altro.mdb")));
    const QByteArray byte = contenuto(g.percorso("altro.mdb"));
    EXPECT_EQ(erroreApertura(g.percorso("altro.mdb")),
              "Il file \"" + g.percorso("altro.mdb") + "\" non è un archivio di Bottegon.");
    EXPECT_EQ(contenuto(g.percorso("altro.mdb")), byte);
}

TEST(SqliteOnFile, ArchiveOfAnotherVersionIsRefusedAndLeftAlone) {
    GatewayDiProva g;
    const QString percorso = g.percorso("domani.mdb");
    ASSERT_TRUE(g.altraCassa()->eseguiNativo("PRAGMA user_version = 4711"));
    ASSERT_TRUE(QFile::copy(g.percorso(), percorso));
    const QByteArray byte = contenuto(percorso);
    EXPECT_EQ(erroreApertura(percorso), "L'archivio \"" + percorso +
                                            "\" è di un'altra versione (4711), il programma ne usa una (" +
                                            QString::number(schema::versione) + ").");
    EXPECT_EQ(contenuto(percorso), byte);
}

TEST(SqliteOnFile, NewArchiveCarriesTheVersionOfItsTables) {
    const GatewayDiProva g;
    EXPECT_EQ(g.valore("PRAGMA user_version"), QString::number(schema::versione));
}

TEST(SqliteOnFile, FileCutInItsHeaderIsRefusedAndLeftAlone) {
    GatewayDiProva g;
    const QByteArray byte = contenuto(g.percorso()).left(60);
    scrivi(g.percorso("corto.mdb"), byte);
    EXPECT_EQ(erroreApertura(g.percorso("corto.mdb")),
              "Il file \"" + g.percorso("corto.mdb") + "\" non è un archivio di Bottegon.");
    EXPECT_EQ(contenuto(g.percorso("corto.mdb")), byte);
}

TEST(SqliteOnFile, FileCutAfterItsHeaderFailsTheStatement) {
    GatewayDiProva g;
    g.ado.chiudiConnessioniCalde();
    scrivi(g.percorso(), contenuto(g.percorso()).left(5000));
    EXPECT_FALSE(g.inserisci("A"));
    EXPECT_EQ(g.operatore.avvisi.size(), 1u);
}

TEST(SqliteOnFile, DamagedPageFailsTheStatementAndIsSaid) {
    GatewayDiProva g;
    for (int i = 0; i < 200; ++i) {
        g.inserisci(QString(100, 'x') + QString::number(i));
    }
    g.ado.chiudiConnessioniCalde();
    QByteArray byte = contenuto(g.percorso());
    ASSERT_GT(byte.size(), 40000);
    byte.replace(4096, byte.size() - 4096, QByteArray(byte.size() - 4096, char(0xAB)));
    scrivi(g.percorso(), byte);
    EXPECT_TRUE(g.ado.getValueBySQL("SELECT COUNT(DATI) FROM Prova", "prova").isNull());
    ASSERT_EQ(g.operatore.avvisi.size(), 1u);
    EXPECT_TRUE(g.operatore.avvisi.front().descrizione.contains("malformed"))
        << g.operatore.avvisi.front().descrizione.toStdString();
    EXPECT_EQ(QFileInfo(g.percorso()).size(), byte.size());
}

TEST(SqliteOnFile, AnArchiveIsNeverMadeOverAFile) {
    GatewayDiProva g;
    ErroreServer errore;
    EXPECT_FALSE(SqliteConnection::crea(g.percorso(), errore));
    EXPECT_EQ(errore.descrizione, "Il file \"" + g.percorso() + "\" esiste già.");
}

// ---- Rights

class RightsMissingOnFile : public testing::Test {
  protected:
    RightsMissingOnFile() {
        permessi(g.cartella(), 0755);
        permessi(g.percorso(), 0644);
    }
    // The message that an ordinary user gets must name the cause.
    int nominaSolaLettura() const {
        return comeUtenteComune([this] {
            const QString errore = erroreApertura(g.percorso());
            if (errore.contains("sola lettura") && !errore.contains("danneggiato")) return 0;
            fprintf(stderr, "%s\n", qUtf8Printable(errore));
            return 1;
        });
    }
    GatewayDiProva g;
};

TEST_F(RightsMissingOnFile, ReadOnlyFileIsSaidAtTheOpening) {
    permessi(g.cartella(), 0777);
    permessi(g.percorso(), 0444);
    EXPECT_EQ(nominaSolaLettura(), 0);
}

TEST_F(RightsMissingOnFile, ReadOnlyFolderIsSaidAtTheOpening) {
    permessi(g.percorso(), 0666);
    EXPECT_EQ(nominaSolaLettura(), 0);
}

TEST_F(RightsMissingOnFile, ReadOnlyFileAndFolderAreSaidAtTheOpening) {
    EXPECT_EQ(nominaSolaLettura(), 0);
}

TEST_F(RightsMissingOnFile, UnreadableFileIsSaidAndNotCalledDamaged) {
    permessi(g.percorso(), 0600);
    EXPECT_EQ(comeUtenteComune([this] {
                  const QString errore = erroreApertura(g.percorso());
                  return errore.contains("non si può aprire") ? 0 : 1;
              }),
              0);
}

TEST_F(RightsMissingOnFile, OrdinaryUserWorksWithRights) {
    permessi(g.cartella(), 0777);
    permessi(g.percorso(), 0666);
    EXPECT_EQ(comeUtenteComune([this] { return g.inserisci("A") ? 0 : 1; }), 0);
}

// ---- Every connection alike

TEST(SqliteOnFile, ConnectionsAreSafeAndCheckKeys) {
    GatewayDiProva g;
    const auto altra = g.altraCassa();
    const auto pragma = [&](const char* nome) {
        Recordset righe;
        EXPECT_TRUE(altra->eseguiNativo(QString("PRAGMA ") + nome, &righe));
        return righe.campo(0).toString();
    };
    EXPECT_EQ(pragma("journal_mode"), "wal");
    EXPECT_EQ(pragma("synchronous"), "2");
    EXPECT_EQ(pragma("foreign_keys"), "1");
}

TEST(SqliteOnFile, OneTextIsOneStatement) {
    GatewayDiProva g;
    EXPECT_FALSE(g.ado.executeSQL(QString("DELETE FROM Figli; DROP TABLE Prova"), "prova"));
    EXPECT_EQ(g.operatore.avvisi.front().descrizione, "Più istruzioni in un solo comando.");
    EXPECT_EQ(g.valore("SELECT COUNT(*) FROM Prova"), "0");
}

TEST(SqliteOnFile, NulDoesNotCutAStatementShort) {
    GatewayDiProva g;
    EXPECT_FALSE(g.ado.executeSQL(QString("DELETE FROM Prova") + QChar(u'\0') + " WHERE RID = 1", "prova"));
    EXPECT_TRUE(g.operatore.avvisi.front().descrizione.contains("NUL"));
}

TEST(SqliteOnFile, ValuesComeBackInTheirTypes) {
    GatewayDiProva g;
    QString sql = "SELECT 1 AS I, 1.5 AS D, ¤x¤ AS T, Null AS N";
    const auto righe = g.ado.getNewRecordset(sql, "prova");
    ASSERT_TRUE(righe);
    EXPECT_EQ(righe->campo("i").typeId(), QMetaType::LongLong);
    EXPECT_EQ(righe->campo("D").typeId(), QMetaType::Double);
    EXPECT_EQ(righe->campo("T").typeId(), QMetaType::QString);
    EXPECT_TRUE(righe->campo("N").isNull());
    g.ado.disconnect();
}

TEST(SqliteOnFile, DateColumnsComeBackAsDates) {
    GatewayDiProva g;
    ASSERT_TRUE(g.ado.executeSQL(
        "INSERT INTO Prova (DATA) VALUES (" + g.ado.getSQLDate(QDate(2024, 2, 29)) + ")", "prova"));
    EXPECT_EQ(g.ado.getValueBySQL("SELECT DATA FROM Prova", "prova").toDateTime(),
              QDateTime(QDate(2024, 2, 29), QTime(0, 0), Qt::UTC));
}

TEST(SqliteOnFile, MidnightThatTheClockSkippedIsStillADate) {
    const GatewayDiProva g;
    ASSERT_TRUE(g.altraCassa()->eseguiNativo("INSERT INTO Prova (DATA) VALUES ('1975-06-01 00:00:00')"));
    EXPECT_EQ(inUnFiglio([&] {
                  // Summer time begins at midnight of the first Sunday of June.
                  if (setenv("TZ", "CET-1CEST,M6.1.0/0", 1) != 0) return 98;
                  tzset();
                  const auto altra = g.altraCassa();
                  Recordset righe;
                  if (!altra->eseguiNativo("SELECT DATA FROM Prova", &righe)) return 97;
                  const QVariant valore = righe.campo(0);
                  if (valore.typeId() != QMetaType::QDateTime) return 1;
                  return Format(valore.toDateTime(), u"DD/MM/YYYY Hh:Nn:Ss") == "01/06/1975 00:00:00" ? 0 : 2;
              }),
              0);
}

// ---- Warm connections

TEST(WarmConnectionsOnFile, AreUsedAgain) {
    GatewayDiProva g;
    int aperture = 0;
    sondaIstruzioni() = [&](const QString& sql) -> std::optional<ErroreServer> {
        if (sql == "PRAGMA application_id") ++aperture;
        return std::nullopt;
    };
    for (int i = 0; i < 20; ++i) {
        g.inserisci(QString::number(i));
    }
    EXPECT_EQ(aperture, 1);
}

TEST(WarmConnectionsOnFile, NestedReadsDoNotPileUpFiles) {
    GatewayDiProva g;
    const auto annida = [&] {
        for (int i = 0; i < 8; ++i) {
            EXPECT_TRUE(g.ado.Connect("prova", 60, 0, false));
        }
        while (g.ado.getConnectionCount() > 0) {
            g.ado.disconnect();
        }
    };
    annida();
    const int aperti = fileAperti();
    for (int i = 0; i < 20; ++i) {
        annida();
    }
    EXPECT_LE(fileAperti(), aperti);
}

TEST(WarmConnectionsOnFile, ClosingThemFreesTheirFiles) {
    GatewayDiProva g;
    const int prima = fileAperti();
    g.inserisci("A");
    EXPECT_GT(fileAperti(), prima);
    g.ado.chiudiConnessioniCalde();
    EXPECT_EQ(fileAperti(), prima);
}

TEST(WarmConnectionsOnFile, ReplacedFileIsTheOneInUse) {
    GatewayDiProva g;
    g.inserisci("vecchio");
    GatewayDiProva::creaArchivio(g.percorso("nuovo.mdb"));
    ASSERT_TRUE(QFile::remove(g.percorso()));
    ASSERT_TRUE(QFile::rename(g.percorso("nuovo.mdb"), g.percorso()));
    EXPECT_TRUE(g.inserisci("nuovo"));
    EXPECT_EQ(g.valore("SELECT group_concat(CODICE) FROM Prova"), "nuovo");
    EXPECT_EQ(g.valore("PRAGMA integrity_check"), "ok");
}

TEST(WarmConnectionsOnFile, CommitsOfAFileThatWasMovedAwayStayWithIt) {
    GatewayDiProva g;
    g.inserisci("vecchio");
    GatewayDiProva::creaArchivio(g.percorso("nuovo.mdb"));
    ASSERT_TRUE(QFile::rename(g.percorso(), g.percorso("messo da parte.mdb")));
    ASSERT_TRUE(QFile::rename(g.percorso("nuovo.mdb"), g.percorso()));
    EXPECT_TRUE(g.inserisci("nuovo"));
    ErroreServer errore;
    const auto vecchia = SqliteConnection::apri(g.percorso("messo da parte.mdb"), errore);
    ASSERT_TRUE(vecchia);
    Recordset righe;
    ASSERT_TRUE(vecchia->eseguiNativo("SELECT CODICE FROM Prova", &righe));
    ASSERT_FALSE(righe.eof());
    EXPECT_EQ(righe.campo(0).toString(), "vecchio");
}

TEST(WarmConnectionsOnFile, DeletedFileIsSaidAndNotMadeAgain) {
    GatewayDiProva g;
    g.inserisci("A");
    ASSERT_TRUE(QFile::remove(g.percorso()));
    EXPECT_FALSE(g.inserisci("B"));
    EXPECT_EQ(g.operatore.avvisi.size(), 1u);
    EXPECT_FALSE(QFile::exists(g.percorso()));
}

TEST(WarmConnectionsOnFile, ConnectionWithAnOpenTurnIsCleanedBeforeItIsUsedAgain) {
    GatewayDiProva g;
    ASSERT_TRUE(g.ado.Connect("prova", 60, 0, false));
    ASSERT_TRUE(g.ado.getActiveConnection()->inizia());
    g.ado.disconnect();
    EXPECT_TRUE(g.altraCassa()->eseguiNativo("BEGIN IMMEDIATE"));
}

// ---- The path in a connection string

TEST(SqliteOnFile, PathStandsBehindDataSource) {
    EXPECT_EQ(percorsoArchivio("Provider=X;Data Source=/a/b.mdb;Persist Security Info=False"), "/a/b.mdb");
    EXPECT_EQ(percorsoArchivio("Provider=X;data source=/a/b;c.mdb;Persist Security Info=False"),
              "/a/b;c.mdb");
    EXPECT_EQ(percorsoArchivio("Data Source=/a/b.mdb"), "/a/b.mdb");
    EXPECT_EQ(percorsoArchivio("Server=x"), QString());
}
