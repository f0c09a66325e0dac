#include "data/mysql_connection.h"

#include <mysql.h>

#include <QCryptographicHash>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlResult>

#include "data/mysql_errors.h"
#include "data/mysql_like.h"
#include "data/mysql_sql.h"
#include "data/sql_opening.h"

namespace {

constexpr int portaConsueta = 3306;
// The longest name of a lock.
constexpr int nomeMassimo = 64;

// Everything that a statement's meaning rests on is said here, not left to the server's settings. Waiting
// for a lock is short: the wait for another desk is tries under a notice.
const char* const sessione =
    "SET SESSION sql_mode = 'STRICT_ALL_TABLES,NO_BACKSLASH_ESCAPES,NO_ZERO_DATE,NO_ZERO_IN_DATE,"
    "ERROR_FOR_DIVISION_BY_ZERO,NO_ENGINE_SUBSTITUTION', SESSION innodb_lock_wait_timeout = 1, "
    "SESSION autocommit = 1, SESSION time_zone = @@GLOBAL.time_zone, SESSION sql_select_limit = DEFAULT, "
    "SESSION group_concat_max_len = 1048576";

MYSQL* maniglia(const QSqlDatabase& database) {
    const QVariant v = database.driver()->handle();
    return database.isOpen() && qstrcmp(v.typeName(), "st_mysql*") == 0
               ? *static_cast<MYSQL* const*>(v.constData())
               : nullptr;
}

QString opzione(const char* nome, const QString& valore) {
    return valore.isEmpty() ? QString() : QString(nome) + '=' + valore + ';';
}

TipoColonna tipoDi(enum_field_types tipo) {
    switch (tipo) {
        case MYSQL_TYPE_DECIMAL:
        case MYSQL_TYPE_NEWDECIMAL:
            return TipoColonna::Decimale;
        case MYSQL_TYPE_FLOAT:
        case MYSQL_TYPE_DOUBLE:
            return TipoColonna::Reale;
        case MYSQL_TYPE_TIME:
            return TipoColonna::Ora;
        case MYSQL_TYPE_BIT:
            return TipoColonna::Bit;
        default:
            return TipoColonna::Qualunque;
    }
}

}  // namespace

MySqlConnection::MySqlConnection(const QString& luogo, DatiConnessione dati, int secondi)
    : ConnessioneSql("QMYSQL", luogo, attesaMassima), mDati(std::move(dati)), mSecondi(secondi) {}

std::unique_ptr<MySqlConnection> MySqlConnection::apri(const QString& stringaConnessione, int secondi,
                                                       ErroreServer& errore) {
    return apriArchivioSql<MySqlConnection>(stringaConnessione, secondi, errore);
}

// ---- The session

bool MySqlConnection::apriSessione() {
    QSqlDatabase& db = database();
    const int secondi = mDati.secondiIstruzione > 0 ? mDati.secondiIstruzione : secondiRisposta;
    const QString attesa = QString::number(secondi);
    const bool cifrabile = mDati.cifratura != DatiConnessione::Cifratura::Mai;
    const QString certificati = cifrabile ? opzione("SSL_CA", mDati.certificati) : QString();
    QString opzioni = "CLIENT_FOUND_ROWS=1;" +
                      opzione("MYSQL_OPT_CONNECT_TIMEOUT", QString::number(qMax(1, mSecondi))) +
                      opzione("MYSQL_OPT_READ_TIMEOUT", attesa) + opzione("MYSQL_OPT_WRITE_TIMEOUT", attesa) +
                      opzione("UNIX_SOCKET", mDati.socket) + certificati;
    // The client library encrypts when it is told of a certification authority, or of what ciphers it may
    // use.
    if (mDati.cifratura == DatiConnessione::Cifratura::Richiesta) opzioni += "SSL_CIPHER=HIGH;";
    db.setConnectOptions(opzioni);
    // "localhost" means the server's socket to the client library; a port means that TCP is wanted.
    const bool locale = mDati.server.compare("localhost", Qt::CaseInsensitive) == 0;
    const bool viaRete = mDati.socket.isEmpty() && mDati.porta > 0;
    db.setHostName(!mDati.socket.isEmpty() ? "localhost" : locale && viaRete ? "127.0.0.1" : mDati.server);
    db.setPort(mDati.porta > 0 ? mDati.porta : portaConsueta);
    db.setDatabaseName(mDati.database);
    db.setUserName(mDati.utente);
    db.setPassword(mDati.password);
    if (!db.open()) return fallita(erroreDi(db.lastError(), nullptr));
    return controllaCifratura() && preparaSessione();
}

bool MySqlConnection::controllaCifratura() {
    if (mDati.cifratura < DatiConnessione::Cifratura::Richiesta) return true;
    if (mysql_get_ssl_cipher(maniglia(database())) != nullptr) return true;
    return fallita(erroreMySql(2026, "Il server non offre la cifratura."));
}

bool MySqlConnection::preparaSessione() {
    // One text is one statement, whatever a value holds.
    if (mysql_set_server_option(maniglia(database()), MYSQL_OPTION_MULTI_STATEMENTS_OFF) != 0) {
        return fallita(erroreMySql(static_cast<int>(mysql_errno(maniglia(database()))),
                                   mysql_error(maniglia(database()))));
    }
    Recordset dati;
    if (!spedisci(sessione) || !spedisci("SET SESSION TRANSACTION ISOLATION LEVEL SERIALIZABLE") ||
        !spedisci("SELECT DATABASE(), @@lower_case_table_names", &dati)) {
        return false;
    }
    mNomiEsatti = dati.campo(1).toInt() == 0;
    mNomeTurno = "bottegon:" + dati.campo(0).toString().toLower().replace('\'', '_');
    if (mNomeTurno.size() > nomeMassimo) {
        mNomeTurno =
            "bottegon:" + QCryptographicHash::hash(mNomeTurno.toUtf8(), QCryptographicHash::Sha1).toHex();
    }
    return true;
}

bool MySqlConnection::pronta() {
    MYSQL* mysql = maniglia(database());
    if (mysql_ping(mysql) == 0) return true;
    return fallita(erroreMySql(static_cast<int>(mysql_errno(mysql)), mysql_error(mysql)));
}

// ---- Statements

QString MySqlConnection::traduci(const QString& sql) const {
    return modelliLikeMySql(decodificaTestoSQL(mNomiEsatti ? nomiTabelleMySql(sql) : sql));
}

ErroreServer MySqlConnection::erroreDi(const QSqlError& errore, const QSqlQuery* /*query*/) const {
    return erroreMySql(errore.nativeErrorCode().toInt(), errore.databaseText());
}

std::vector<TipoColonna> MySqlConnection::tipiColonne(const QSqlQuery& query) const {
    const QVariant v = query.result()->handle();
    auto* risultato = *static_cast<MYSQL_RES* const*>(v.constData());
    std::vector<TipoColonna> tipi;
    for (unsigned i = 0; i < mysql_num_fields(risultato); ++i)
        tipi.push_back(tipoDi(mysql_fetch_field_direct(risultato, i)->type));
    return tipi;
}

// ---- The turn

// MariaDB waits for a part of a second itself, MySQL answers at once.
ConnessioneSql::Turno MySqlConnection::prendiTurno() {
    Recordset esito;
    if (!spedisci("SELECT GET_LOCK('" + mNomeTurno + "', 0.2)", &esito)) return Turno::Fallito;
    return esito.campo(0).toInt() == 1 ? Turno::Preso : Turno::Occupato;
}

bool MySqlConnection::serverInTransazione() const {
    const MYSQL* mysql = maniglia(database());
    return mysql != nullptr && (mysql->server_status & SERVER_STATUS_IN_TRANS) != 0;
}

// The answer to an error does not tell the state of the transaction, the one to any other statement does.
bool MySqlConnection::verificaTransazione() {
    return errore().classe == ErroreServer::Classe::Nessuno ? serverInTransazione()
                                                            : spedisci("DO 0") && serverInTransazione();
}
