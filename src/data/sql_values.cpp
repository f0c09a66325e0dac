#include "data/sql_values.h"

#include <limits>

#include <QDateTime>
#include <QSqlQuery>

namespace {

constexpr int cifreDiUnDouble = 15;
const QDate giornoDelleOre(1899, 12, 30);

QVariant dataOra(QDate giorno, QTime ora) {
    return giorno.isValid() && ora.isValid() ? QVariant(QDateTime(giorno, ora, Qt::UTC)) : QVariant();
}

int cifreSignificative(const QString& numero) {
    int cifre = 0;
    int zeri = 0;
    for (const QChar c : numero) {
        if (!c.isDigit()) continue;
        zeri = c == u'0' ? zeri + 1 : 0;
        if (cifre > 0 || c != u'0') ++cifre;
    }
    return cifre - qMin(zeri, cifre);
}

QString senzaZeriFinali(QString numero) {
    if (!numero.contains(u'.')) return numero;
    while (numero.endsWith(u'0'))
        numero.chop(1);
    if (numero.endsWith(u'.')) numero.chop(1);
    return numero;
}

QVariant decimale(const QString& testo) {
    if (!testo.contains(u'.')) {
        bool intero = false;
        const qlonglong numero = testo.toLongLong(&intero);
        return intero ? QVariant(numero) : QVariant(testo);
    }
    if (cifreSignificative(testo) <= cifreDiUnDouble) return testo.toDouble();
    return senzaZeriFinali(testo);
}

QVariant interoSenzaSegno(qulonglong numero) {
    if (numero > static_cast<qulonglong>(std::numeric_limits<qlonglong>::max())) {
        return QString::number(numero);
    }
    return static_cast<qlonglong>(numero);
}

// The bits arrive as the bytes of a text, the highest first.
QVariant bit(const QString& byte) {
    qulonglong numero = 0;
    for (const QChar c : byte)
        numero = numero << 8 | c.unicode();
    return interoSenzaSegno(numero);
}

QVariant daTesto(const QString& testo, TipoColonna tipo) {
    switch (tipo) {
        case TipoColonna::Decimale:
            return decimale(testo);
        case TipoColonna::Reale:
            return testo.toDouble();
        case TipoColonna::Ora:
            return dataOra(giornoDelleOre, QTime::fromString(testo.left(8), u"HH:mm:ss"));
        case TipoColonna::Bit:
            return bit(testo);
        case TipoColonna::Qualunque:
            return testo;
    }
    return {};
}

}  // namespace

QVariant valoreArchivio(const QVariant& valore, TipoColonna tipo) {
    if (valore.isNull()) return {};
    switch (valore.typeId()) {
        case QMetaType::ULongLong:
            return interoSenzaSegno(valore.toULongLong());
        case QMetaType::Bool:
        case QMetaType::Char:
        case QMetaType::SChar:
        case QMetaType::UChar:
        case QMetaType::Short:
        case QMetaType::UShort:
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::Long:
        case QMetaType::ULong:
        case QMetaType::LongLong:
            return valore.toLongLong();
        case QMetaType::Float:
        case QMetaType::Double:
            return valore.toDouble();
        case QMetaType::QDate:
            return dataOra(valore.toDate(), QTime(0, 0));
        case QMetaType::QTime:
            return dataOra(giornoDelleOre, valore.toTime());
        case QMetaType::QDateTime:
            return dataOra(valore.toDateTime().date(), valore.toDateTime().time());
        case QMetaType::QByteArray:
            return daTesto(QString::fromUtf8(valore.toByteArray()), tipo);
        default:
            return daTesto(valore.toString(), tipo);
    }
}

std::vector<QVariant> celleDi(QSqlQuery& query, const std::vector<TipoColonna>& tipi) {
    std::vector<QVariant> celle;
    while (query.next()) {
        for (size_t i = 0; i < tipi.size(); ++i)
            celle.push_back(valoreArchivio(query.value(static_cast<int>(i)), tipi[i]));
    }
    return celle;
}
