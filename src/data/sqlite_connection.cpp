#include "data/sqlite_connection.h"

#include <sqlite3.h>
#include <sys/stat.h>

#include <QFileInfo>
#include <QThread>

#include "data/access_sql.h"
#include "data/connection_string.h"
#include "data/schema.h"
#include "data/stored_date.h"

namespace {

const char* const origineSqlite = "SQLite";

ErroreServer::Classe classeDi(int codiceEsteso) {
    if (codiceEsteso == SQLITE_CONSTRAINT_FOREIGNKEY) return ErroreServer::Classe::Integrita;
    switch (codiceEsteso & 0xff) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return ErroreServer::Classe::Conflitto;
        case SQLITE_READONLY:
            return ErroreServer::Classe::SolaLettura;
        case SQLITE_FULL:
            return ErroreServer::Classe::DiscoPieno;
        case SQLITE_CANTOPEN:
        case SQLITE_NOTADB:
        case SQLITE_CORRUPT:
        case SQLITE_IOERR:
            return ErroreServer::Classe::ConnessionePersa;
        default:
            return ErroreServer::Classe::Altro;
    }
}

ErroreServer erroreDi(int codice, const QString& descrizione) {
    return {classeDi(codice), codice, descrizione, origineSqlite};
}

QVariant valoreTesto(sqlite3_stmt* istruzione, int colonna, bool data) {
    const auto* byte = reinterpret_cast<const char*>(sqlite3_column_text(istruzione, colonna));
    const QString testo = QString::fromUtf8(byte, sqlite3_column_bytes(istruzione, colonna));
    if (!data) return testo;
    const QDateTime valore = dataOraArchivio(testo);
    return valore.isValid() ? QVariant(valore) : QVariant(testo);
}

QVariant valoreColonna(sqlite3_stmt* istruzione, int colonna, bool data) {
    switch (sqlite3_column_type(istruzione, colonna)) {
        case SQLITE_NULL:
            return {};
        case SQLITE_INTEGER:
            return static_cast<qlonglong>(sqlite3_column_int64(istruzione, colonna));
        case SQLITE_FLOAT:
            return sqlite3_column_double(istruzione, colonna);
        default:
            return valoreTesto(istruzione, colonna, data);
    }
}

bool soloBlanchi(const char* testo) {
    return QByteArray(testo).trimmed().isEmpty();
}

}  // namespace

SqliteConnection::SqliteConnection(sqlite3* db, QString percorso) : mDb(db), mPercorso(std::move(percorso)) {}

// The journal of a file that was moved away or replaced would be played onto the file that stands there
// now: its commits go to their own file first.
SqliteConnection::~SqliteConnection() {
    mAttesa = {};
    mPronte.svuota();
    if (mInode != 0 && !ancoraValida()) {
        sqlite3_wal_checkpoint_v2(mDb, nullptr, SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr);
    }
    sqlite3_close_v2(mDb);
}

std::unique_ptr<SqliteConnection> SqliteConnection::apri(const QString& percorso, ErroreServer& errore) {
    const QFileInfo file(percorso);
    if (!file.exists() || !file.isFile()) {
        errore = erroreDi(SQLITE_CANTOPEN, "L'archivio \"" + percorso + "\" non esiste o non è un file.");
        return nullptr;
    }
    return apriFile(percorso, false, errore);
}

std::unique_ptr<SqliteConnection> SqliteConnection::crea(const QString& percorso, ErroreServer& errore) {
    if (QFileInfo::exists(percorso)) {
        errore = erroreDi(SQLITE_CANTOPEN, "Il file \"" + percorso + "\" esiste già.");
        return nullptr;
    }
    return apriFile(percorso, true, errore);
}

std::unique_ptr<SqliteConnection> SqliteConnection::apriFile(const QString& percorso, bool nuovo,
                                                             ErroreServer& errore) {
    sqlite3* db = nullptr;
    const int opzioni = SQLITE_OPEN_READWRITE | SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_NOMUTEX |
                        (nuovo ? SQLITE_OPEN_CREATE : 0);
    const int esito = sqlite3_open_v2(percorso.toUtf8().constData(), &db, opzioni, nullptr);
    if (esito != SQLITE_OK) {
        errore = erroreDi(
            esito, "L'archivio \"" + percorso + "\" non si può aprire: " + sqlite3_errstr(esito) + ".");
        sqlite3_close_v2(db);
        return nullptr;
    }
    std::unique_ptr<SqliteConnection> connessione(new SqliteConnection(db, percorso));
    if (!connessione->prepara(nuovo)) {
        errore = connessione->errore();
        return nullptr;
    }
    return connessione;
}

bool SqliteConnection::prepara(bool nuovo) {
    sqlite3_busy_handler(mDb, &SqliteConnection::occupato, this);
    registraFunzioniAccess(mDb);
    if (nuovo ? !contrassegna() : !verificaArchivio()) return false;
    for (const char* pragma :
         {"PRAGMA journal_mode = WAL", "PRAGMA synchronous = FULL", "PRAGMA foreign_keys = ON"}) {
        if (!eseguiNativo(pragma)) return false;
    }
    struct stat stato {};
    if (::stat(mPercorso.toUtf8().constData(), &stato) == 0) {
        mDispositivo = stato.st_dev;
        mInode = stato.st_ino;
    }
    return true;
}

void SqliteConnection::spiegaApertura() {
    switch (mErrore.codice & 0xff) {
        case SQLITE_READONLY:
            mErrore.descrizione = "L'archivio \"" + mPercorso + "\" è in sola lettura.";
            return;
        case SQLITE_NOTADB:
        case SQLITE_CORRUPT:
            mErrore.descrizione = "Il file \"" + mPercorso +
                                  "\" non è un archivio o è danneggiato: " + mErrore.descrizione + ".";
            return;
        default:
            mErrore.descrizione =
                "L'archivio \"" + mPercorso + "\" non si può aprire: " + mErrore.descrizione + ".";
    }
}

bool SqliteConnection::contrassegna() {
    return eseguiNativo(QString("PRAGMA application_id = %1").arg(marchioArchivio)) &&
           eseguiNativo(QString("PRAGMA user_version = %1").arg(schema::versione));
}

QString SqliteConnection::testoAltraVersione(const QString& percorso, int versione) {
    return "L'archivio \"" + percorso + "\" è di un'altra versione (" + QString::number(versione) +
           "), il programma ne usa una (" + QString::number(schema::versione) + ").";
}

bool SqliteConnection::leggiPragma(const char* nome, int& valore) {
    Recordset righe;
    if (!eseguiNativo(QString("PRAGMA ") + nome, &righe)) {
        spiegaApertura();
        return false;
    }
    valore = righe.campo(0).toInt();
    return true;
}

bool SqliteConnection::verificaArchivio() {
    int marchio = 0;
    int versione = 0;
    if (!leggiPragma("application_id", marchio) || !leggiPragma("user_version", versione)) return false;
    if (marchio != marchioArchivio) {
        mErrore = erroreDi(SQLITE_NOTADB, "Il file \"" + mPercorso + "\" non è un archivio di Bottegon.");
        return false;
    }
    if (versione != schema::versione) {
        mErrore = erroreDi(SQLITE_NOTADB, testoAltraVersione(mPercorso, versione));
        return false;
    }
    if (sqlite3_db_readonly(mDb, "main") == 1) {
        mErrore = erroreDi(SQLITE_READONLY, "L'archivio \"" + mPercorso + "\" è in sola lettura.");
        return false;
    }
    return true;
}

QString SqliteConnection::luogoDi(const QString& stringaConnessione) {
    return percorsoArchivio(stringaConnessione);
}

bool SqliteConnection::ancoraValida() const {
    struct stat stato {};
    return ::stat(mPercorso.toUtf8().constData(), &stato) == 0 && stato.st_dev == mDispositivo &&
           stato.st_ino == mInode;
}

bool SqliteConnection::esegui(const QString& sql, Recordset* righe) {
    return eseguiNativo(traduciAccessSQL(sql), righe);
}

bool SqliteConnection::eseguiNativo(const QString& sql, Recordset* righe) {
    mErrore = {};
    if (sondaIstruzioni()) {
        if (auto errore = sondaIstruzioni()(sql)) {
            mErrore = *errore;
            return false;
        }
    }
    if (!inviabile(sql, origineSqlite, mErrore)) return false;
    const QByteArray testo = sql.toUtf8();
    if (const auto parametrica = togliLetterali(testo)) {
        if (const auto* pronta = mPronte.prendi(mDb, *parametrica)) {
            const std::unique_ptr<sqlite3_stmt, void (*)(sqlite3_stmt*)> riposta(pronta->istruzione,
                                                                                 &IstruzioniPronte::riponi);
            return percorri(pronta->istruzione, pronta->colonne, righe);
        }
    }
    return eseguiUnaVolta(testo, righe);
}

bool SqliteConnection::eseguiUnaVolta(const QByteArray& testo, Recordset* righe) {
    sqlite3_stmt* istruzione = nullptr;
    const char* resto = nullptr;
    const int esito =
        sqlite3_prepare_v2(mDb, testo.constData(), static_cast<int>(testo.size()) + 1, &istruzione, &resto);
    if (esito != SQLITE_OK) return fallito(esito);
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> pulizia(istruzione, &sqlite3_finalize);
    if (istruzione == nullptr || !soloBlanchi(resto)) {
        mErrore = erroreDi(SQLITE_MISUSE, istruzione == nullptr ? "L'istruzione è vuota."
                                                                : "Più istruzioni in un solo comando.");
        return false;
    }
    return percorri(istruzione, ColonneSqlite(istruzione), righe);
}

bool SqliteConnection::percorri(sqlite3_stmt* istruzione, const ColonneSqlite& colonne, Recordset* righe) {
    const auto campi = static_cast<int>(colonne.nomi.size());
    std::vector<QVariant> celle;
    int esito = SQLITE_OK;
    while ((esito = sqlite3_step(istruzione)) == SQLITE_ROW) {
        if (righe == nullptr) continue;
        for (int i = 0; i < campi; ++i) {
            celle.push_back(valoreColonna(istruzione, i, colonne.date[static_cast<size_t>(i)]));
        }
    }
    if (esito != SQLITE_DONE) return fallito(esito);
    if (righe != nullptr) *righe = Recordset(colonne.nomi, std::move(celle));
    return true;
}

int SqliteConnection::righeModificate() const {
    return sqlite3_changes(mDb);
}

bool SqliteConnection::inTransazione() const {
    return sqlite3_get_autocommit(mDb) == 0;
}

bool SqliteConnection::fallito(int codice) {
    mErrore = erroreDi(codice, QString::fromUtf8(sqlite3_errmsg(mDb)));
    return false;
}

int SqliteConnection::occupato(void* connessione, int tentativi) {
    auto* questa = static_cast<SqliteConnection*>(connessione);
    if (tentativi == 0) questa->mInizioAttesa.start();
    const auto trascorsi = static_cast<int>(questa->mInizioAttesa.elapsed());
    if (trascorsi >= attesaMassima) return 0;
    if (questa->mAttesa) questa->mAttesa(trascorsi);
    QThread::msleep(tentativi < 10 ? 2 : 20);
    return 1;
}
