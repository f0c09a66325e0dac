#include "data/odbc_connection.h"

#include <sql.h>
#include <sqlext.h>

#include <QSqlError>
#include <QSqlField>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QSqlResult>

#include "data/sqlserver_errors.h"

namespace {

// In braces where the value could be taken for something else. FreeTDS takes what stands between "{" and
// "};" as it is, the other drivers want a "}" doubled.
QString valoreOdbc(QString valore, bool freeTds) {
    const bool semplice = !valore.contains(';') && !valore.contains('=') && !valore.startsWith('{') &&
                          valore.trimmed() == valore;
    if (semplice) return valore;
    if (!freeTds) valore.replace("}", "}}");
    return '{' + valore + '}';
}

QString cifraturaFreeTds(DatiConnessione::Cifratura cifratura) {
    switch (cifratura) {
        case DatiConnessione::Cifratura::Mai:
            return "off";
        case DatiConnessione::Cifratura::SePossibile:
            return "request";
        default:
            return "require";
    }
}

QList<int> codiciDiagnostici(const QSqlQuery& query) {
    const QVariant maniglia = query.result()->handle();
    if (qstrcmp(maniglia.typeName(), "void*") != 0) return {};
    auto* istruzione = *static_cast<SQLHANDLE const*>(maniglia.constData());
    QList<int> codici;
    SQLCHAR stato[SQL_SQLSTATE_SIZE + 1];
    SQLINTEGER codice = 0;
    for (SQLSMALLINT i = 1;
         SQL_SUCCEEDED(SQLGetDiagRec(SQL_HANDLE_STMT, istruzione, i, stato, &codice, nullptr, 0, nullptr));
         ++i) {
        codici << static_cast<int>(codice);
    }
    return codici;
}

}  // namespace

QString stringaOdbc(const DatiConnessione& dati, int secondiRisposta) {
    const bool freeTds = dati.driver.isEmpty() || dati.driver.contains("FreeTDS", Qt::CaseInsensitive);
    const bool diMicrosoft = dati.driver.contains("SQL Server", Qt::CaseInsensitive);
    QStringList coppie;
    const auto aggiungi = [&](const char* chiave, const QString& valore) {
        if (!valore.isEmpty()) coppie << QString(chiave) + '=' + valoreOdbc(valore, freeTds);
    };
    const QString porta = dati.porta > 0 ? QString::number(dati.porta) : QString();
    aggiungi("DRIVER", dati.driver.isEmpty() ? "FreeTDS" : dati.driver);
    aggiungi("SERVER", diMicrosoft && !porta.isEmpty() ? dati.server + ',' + porta : dati.server);
    // A named instance tells its port by itself.
    const bool conIstanza = dati.server.contains('\\');
    if (!diMicrosoft) aggiungi("PORT", freeTds && porta.isEmpty() && !conIstanza ? "1433" : porta);
    aggiungi("DATABASE", dati.database);
    aggiungi("UID", dati.utente);
    aggiungi("PWD", dati.password);
    if (freeTds) {
        const int secondi = dati.secondiIstruzione > 0 ? dati.secondiIstruzione : secondiRisposta;
        aggiungi("TDS_Version", "7.4");
        aggiungi("ClientCharset", "UTF-8");
        aggiungi("Timeout", QString::number(secondi));
        aggiungi("Encryption", cifraturaFreeTds(dati.cifratura));
    } else if (diMicrosoft) {
        const bool cifrata = dati.cifratura >= DatiConnessione::Cifratura::Richiesta;
        const bool verificata = dati.cifratura == DatiConnessione::Cifratura::Verificata;
        aggiungi("Encrypt", cifrata ? "yes" : "no");
        aggiungi("TrustServerCertificate", verificata ? "no" : "yes");
    }
    // Not every driver takes a ";" at the end.
    return coppie.join(';');
}

OdbcConnection::OdbcConnection(const QString& luogo, DatiConnessione dati, int secondi,
                               const int& attesaMassima)
    : ConnessioneSql("QODBC", luogo, attesaMassima), mDati(std::move(dati)), mSecondi(secondi) {}

bool OdbcConnection::apriSessione() {
    QSqlDatabase& db = database();
    db.setDatabaseName(stringaOdbc(mDati, secondiRisposta));
    db.setConnectOptions("SQL_ATTR_LOGIN_TIMEOUT=" + QString::number(qMax(1, mSecondi)));
    if (!db.open()) return fallita(erroreDi(db.lastError(), nullptr));
    return preparaSessione();
}

// A floating number has no scale of its own; a decimal one does, or is whole.
std::vector<TipoColonna> OdbcConnection::tipiColonne(const QSqlQuery& query) const {
    std::vector<TipoColonna> tipi;
    const QSqlRecord record = query.record();
    for (int i = 0; i < record.count(); ++i) {
        const bool numero = record.field(i).metaType().id() == QMetaType::Double;
        const bool decimale = record.field(i).precision() > 0;
        tipi.push_back(!numero    ? TipoColonna::Qualunque
                       : decimale ? TipoColonna::Decimale
                                  : TipoColonna::Reale);
    }
    return tipi;
}

// QtSql tells the code of the last diagnostic record only, which may be "the statement has been terminated".
ErroreServer OdbcConnection::erroreDi(const QSqlError& errore, const QSqlQuery* query) const {
    QList<int> codici;
    if (query != nullptr) codici = codiciDiagnostici(*query);
    for (const QString& codice : errore.nativeErrorCode().split(';', Qt::SkipEmptyParts))
        codici << codice.toInt();
    return erroreSqlServer(codici, errore.databaseText());
}
