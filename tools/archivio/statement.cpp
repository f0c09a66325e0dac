#include "archivio/statement.h"

#include <sqlite3.h>

#include "core/run_time_error.h"

namespace {

[[noreturn]] void segnala(sqlite3* db) {
    throw RunTimeError(RunTimeError::ErroreApplicazione, QString::fromUtf8(sqlite3_errmsg(db)));
}

int legaValore(sqlite3_stmt* stmt, int posizione, const QVariant& valore) {
    if (valore.isNull()) return sqlite3_bind_null(stmt, posizione);
    switch (valore.typeId()) {
        case QMetaType::Double:
            return sqlite3_bind_double(stmt, posizione, valore.toDouble());
        case QMetaType::QString: {
            const QByteArray byte = valore.toString().toUtf8();
            return sqlite3_bind_text(stmt, posizione, byte.constData(), static_cast<int>(byte.size()),
                                     SQLITE_TRANSIENT);
        }
        default:
            return sqlite3_bind_int64(stmt, posizione, valore.toLongLong());
    }
}

}  // namespace

Istruzione::Istruzione(sqlite3* db, const QString& sql) : mDb(db) {
    if (sqlite3_prepare_v2(mDb, sql.toUtf8().constData(), -1, &mStmt, nullptr) != SQLITE_OK) segnala(mDb);
}

Istruzione::~Istruzione() {
    sqlite3_finalize(mStmt);
}

void Istruzione::lega(const std::vector<QVariant>& valori) {
    sqlite3_reset(mStmt);
    int posizione = 0;
    for (const QVariant& valore : valori) {
        if (legaValore(mStmt, ++posizione, valore) != SQLITE_OK) segnala(mDb);
    }
}

bool Istruzione::passo() {
    const int esito = sqlite3_step(mStmt);
    if (esito != SQLITE_ROW && esito != SQLITE_DONE) segnala(mDb);
    return esito == SQLITE_ROW;
}

int Istruzione::campi() const {
    return sqlite3_column_count(mStmt);
}

QStringList Istruzione::nomi() const {
    QStringList nomi;
    for (int i = 0; i < campi(); ++i)
        nomi << QString::fromUtf8(sqlite3_column_name(mStmt, i));
    return nomi;
}

QVariant Istruzione::valore(int colonna) const {
    switch (sqlite3_column_type(mStmt, colonna)) {
        case SQLITE_NULL:
            return {};
        case SQLITE_INTEGER:
            return static_cast<qlonglong>(sqlite3_column_int64(mStmt, colonna));
        case SQLITE_FLOAT:
            return sqlite3_column_double(mStmt, colonna);
        default: {
            const auto* byte = reinterpret_cast<const char*>(sqlite3_column_text(mStmt, colonna));
            return QString::fromUtf8(byte, sqlite3_column_bytes(mStmt, colonna));
        }
    }
}
