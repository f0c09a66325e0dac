#include "core/format.h"
#include "core/numbers.h"
#include "data/gateway.h"
#include "data/prepare_sql.h"
#include "data/stored_date.h"

// The literals of the neutral dialect: dates and numbers as each server reads them.

namespace {

// Texts of a screen: "d/M/yyyy", "d/M/yyyy h:mm", "d/M/yyyy h:mm:ss".
QDateTime dataItaliana(const QString& testo) {
    const QDate giorno = QDate::fromString(testo.section(' ', 0, 0), "d/M/yyyy");
    if (!giorno.isValid()) return {};
    if (!testo.contains(' ')) return giorno.startOfDay(Qt::UTC);
    const QString ora = testo.section(' ', 1);
    const QTime orario = QTime::fromString(ora, ora.count(':') == 1 ? "h:mm" : "h:mm:ss");
    return orario.isValid() ? QDateTime(giorno, orario, Qt::UTC) : QDateTime();
}

QDateTime comeData(const QVariant& valore) {
    switch (valore.typeId()) {
        case QMetaType::QDate:
            return valore.toDate().startOfDay(Qt::UTC);
        case QMetaType::QTime:
            return QDateTime(QDate(1899, 12, 30), valore.toTime(), Qt::UTC);
        case QMetaType::QString: {
            const QDateTime scritta = dataItaliana(valore.toString());
            return scritta.isValid() ? scritta : dataOraArchivio(valore.toString());
        }
        default:
            return valore.toDateTime();
    }
}

// The system's time separator can be a point.
QString conDuePunti(QString testo) {
    return testo.replace('.', ':');
}

struct Forma {
    QString prima;
    const char* modello;
    QString dopo;
};

QString letterale(const QVariant& valore, const Forma& forma) {
    const QDateTime data = comeData(valore);
    if (!data.isValid()) return "Null";
    return forma.prima + conDuePunti(Format(data, QString(forma.modello))) + forma.dopo;
}

}  // namespace

QString cAdoSqlServer::getSQLDate(const QVariant& valore, int tipoServer) const {
    const QString sep = ::getSQLSeparator();
    switch (tipoServer < 0 ? TipoServer : tipoServer) {
        case SqlServer:
            return letterale(valore, {"{ d " + sep, "YYYY-MM-DD", sep + " }"});
        case Access:
            return letterale(valore, {"#", "MM/DD/YYYY", "#"});
        case MySql:
            return letterale(valore, {sep, "YYYY-MM-DD", sep});
        default:
            return {};
    }
}

QString cAdoSqlServer::getSQLDateTime(const QVariant& valore, int tipoServer) const {
    const QString sep = ::getSQLSeparator();
    switch (tipoServer < 0 ? TipoServer : tipoServer) {
        case SqlServer:
            return letterale(valore, {sep, "YYYY-MM-DD Hh:Nn:Ss", sep});
        case Access:
            return letterale(valore, {"#", "MM/DD/YYYY Hh:Nn:Ss", "#"});
        case MySql:
            return letterale(valore, {sep, "YYYY-MM-DD HH:NN:SS", sep});
        default:
            return {};
    }
}

QString cAdoSqlServer::getSQLTime(const QVariant& valore, int tipoServer) const {
    const QString sep = ::getSQLSeparator();
    switch (tipoServer < 0 ? TipoServer : tipoServer) {
        case SqlServer:
            return letterale(valore, {"{ t " + sep, "Hh:Nn:Ss", sep + " }"});
        case Access:
            return letterale(valore, {"#", "Hh:Nn:Ss", "#"});
        case MySql:
            return letterale(valore, {sep, "HH:NN:SS", sep});
        default:
            return {};
    }
}

QString getSqlNumber(const QString& testo) {
    QString numero = testo;
    if (!numero.contains(',')) numero.replace('.', ',');
    if (!isNumeric(numero)) return "Null";
    return testoNumero(numeroDouble(numero)).replace(',', '.');
}

QString getSqlNumber(const QVariant& valore) {
    switch (valore.typeId()) {
        case QMetaType::Double:
            return testoNumero(valore.toDouble()).replace(',', '.');
        case QMetaType::Float:
            return getSqlNumber(valore.toFloat());
        case QMetaType::Bool:
            return valore.toBool() ? "-1" : "0";
        default:
            return getSqlNumber(valore.toString());
    }
}

QString getSqlNumber(Currency valore) {
    return valore.testo().replace(',', '.');
}

QString getSqlNumber(float valore) {
    return testoNumero(valore).replace(',', '.');
}

QString getSqlNumberOrZero(const QString& testo) {
    const QString numero = getSqlNumber(testo);
    return numero == "Null" ? QString("0") : numero;
}
