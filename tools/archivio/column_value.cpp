#include "archivio/column_value.h"

#include <cmath>
#include <limits>

#include "core/currency.h"
#include "core/run_time_error.h"
#include "data/prepare_sql.h"
#include "data/stored_date.h"

namespace {

using schema::Colonna;
using schema::Tipo;

// The day on which a time of day alone is kept.
const QDate giornoZero(1899, 12, 30);

[[noreturn]] void rifiuta(const Colonna& colonna, const QString& motivo) {
    throw RunTimeError(RunTimeError::TipoNonCorrispondente, colonna.nome + ": " + motivo);
}

QVariant interoEsatto(const Colonna& colonna, const QVariant& valore) {
    bool numero = false;
    qlonglong intero = valore.toLongLong(&numero);
    if (valore.typeId() == QMetaType::Double || !numero) {
        const double reale = valore.toDouble(&numero);
        if (!numero || reale != std::floor(reale) || std::fabs(reale) > 1e15)
            rifiuta(colonna, "\"" + valore.toString() + "\" non è un numero intero");
        intero = static_cast<qlonglong>(reale);
    }
    const bool flag = colonna.tipo == Tipo::Flag;
    const qlonglong massimo = flag ? std::numeric_limits<qint16>::max() : std::numeric_limits<qint32>::max();
    if (intero > massimo || intero < -massimo - 1)
        rifiuta(colonna, "il numero " + QString::number(intero) + " è troppo grande");
    return intero;
}

// Digits with a decimal point, at most four decimals that count; exact where a double is not.
bool importoDaTesto(const QString& testo, qlonglong& scalato) {
    const qsizetype punto = testo.indexOf('.');
    QString decimali = punto < 0 ? QString() : testo.mid(punto + 1);
    while (decimali.size() > 4 && decimali.endsWith('0'))
        decimali.chop(1);
    if (decimali.size() > 4) return false;
    bool numero = false;
    scalato =
        (testo.left(punto < 0 ? testo.size() : punto) + decimali.leftJustified(4, '0')).toLongLong(&numero);
    return numero && testo.front() != '+' && !testo.startsWith('.') && !testo.startsWith("-.");
}

QVariant importoEsatto(const Colonna& colonna, const QVariant& valore) {
    qlonglong scalato = 0;
    if (valore.typeId() == QMetaType::QString && !valore.toString().isEmpty() &&
        importoDaTesto(valore.toString(), scalato))
        return scalato;
    bool numero = false;
    const double reale = valore.toDouble(&numero);
    if (!numero) rifiuta(colonna, "\"" + valore.toString() + "\" non è un importo");
    try {
        return static_cast<qlonglong>(Currency::daDouble(reale).scalato());
    } catch (const RunTimeError&) {
        rifiuta(colonna, "l'importo " + valore.toString() + " è troppo grande");
    }
}

QVariant realeEsatto(const Colonna& colonna, const QVariant& valore) {
    bool numero = false;
    const double reale = valore.toDouble(&numero);
    if (!numero || !std::isfinite(reale)) rifiuta(colonna, "\"" + valore.toString() + "\" non è un numero");
    return reale;
}

// A character beyond the first 65,536 is two units; half of one stands for nothing.
bool mezzoCarattere(const QString& testo) {
    for (qsizetype i = 0; i < testo.size(); ++i) {
        if (!testo[i].isSurrogate()) continue;
        if (!testo[i].isHighSurrogate() || i + 1 == testo.size() || !testo[i + 1].isLowSurrogate())
            return true;
        ++i;
    }
    return false;
}

QVariant testoEsatto(const Colonna& colonna, const QVariant& valore) {
    const QString testo = valore.toString();
    if (testo.contains(QChar(u'\0'))) rifiuta(colonna, "il testo contiene un carattere nullo");
    if (mezzoCarattere(testo)) rifiuta(colonna, "il testo contiene un carattere a metà");
    const bool forseLungo = colonna.tipo == Tipo::Testo && testo.size() > colonna.lunghezza;
    if (const qsizetype caratteri = forseLungo ? testo.toUcs4().size() : 0; caratteri > colonna.lunghezza) {
        rifiuta(colonna, QString("il testo ha %1 caratteri, la colonna ne tiene %2")
                             .arg(caratteri)
                             .arg(colonna.lunghezza));
    }
    return testo;
}

QVariant dataEsatta(const Colonna& colonna, const QVariant& valore) {
    QDateTime data;
    if (valore.typeId() == QMetaType::QTime) {
        data = QDateTime(giornoZero, valore.toTime(), Qt::UTC);
    } else if (valore.typeId() == QMetaType::QString) {
        const QString testo = valore.toString();
        data = dataOraArchivio(testo.size() == 8 ? giornoZero.toString("yyyy-MM-dd ") + testo : testo);
    } else {
        data = valore.toDateTime();
    }
    if (!data.isValid() || data.date().year() < 1 || data.date().year() > 9999)
        rifiuta(colonna, "\"" + valore.toString() + "\" non è una data");
    if (colonna.tipo == Tipo::Ora) data = QDateTime(giornoZero, data.time(), Qt::UTC);
    return data;
}

QString importoLeggibile(qlonglong scalato) {
    const QString cifre = QString::number(std::llabs(scalato)).rightJustified(5, '0');
    return (scalato < 0 ? "-" : "") + cifre.chopped(4) + "." + cifre.right(4);
}

// NUL and backslash are nothing special here: the first never comes so far, and the servers' sessions take
// the second for itself.
QString traApici(const QString& testo, int tipoServer) {
    return (tipoServer == SqlServer ? "N'" : "'") + QString(testo).replace('\'', "''") + "'";
}

QString letteraleData(const QDateTime& data, const Colonna& colonna, int tipoServer) {
    const bool soloOra = colonna.tipo == Tipo::Ora && tipoServer == MySql;
    return "'" + (soloOra ? data.toString(u"HH:mm:ss") : dataArchivio(data)) + "'";
}

}  // namespace

QVariant valoreEsatto(const Colonna& colonna, const QVariant& valore) {
    if (valore.isNull()) return {};
    switch (colonna.tipo) {
        case Tipo::Chiave:
        case Tipo::Intero:
        case Tipo::Flag:
            return interoEsatto(colonna, valore);
        case Tipo::Importo:
            return importoEsatto(colonna, valore);
        case Tipo::Reale:
            return realeEsatto(colonna, valore);
        case Tipo::Testo:
        case Tipo::Note:
            return testoEsatto(colonna, valore);
        case Tipo::DataOra:
        case Tipo::Ora:
            return dataEsatta(colonna, valore);
    }
    return {};
}

QVariant valoreFile(const Colonna& colonna, const QVariant& esatto) {
    if (esatto.isNull()) return {};
    switch (colonna.tipo) {
        case Tipo::Importo: {
            const double importo = static_cast<double>(esatto.toLongLong()) / 10000.0;
            if (std::fabs(importo) > 9e14 || Currency::daDouble(importo).scalato() != esatto.toLongLong())
                rifiuta(colonna, "un archivio a file non tiene esattamente l'importo " +
                                     importoLeggibile(esatto.toLongLong()));
            return importo;
        }
        case Tipo::DataOra:
        case Tipo::Ora:
            return dataArchivio(esatto.toDateTime());
        default:
            return esatto;
    }
}

void aggiungiLetterale(QString& sql, int tipoServer, const Colonna& colonna, const QVariant& esatto) {
    if (esatto.isNull()) {
        sql += "NULL";
        return;
    }
    switch (colonna.tipo) {
        case Tipo::Chiave:
        case Tipo::Intero:
        case Tipo::Flag:
            sql += QString::number(esatto.toLongLong());
            break;
        case Tipo::Importo:
            sql += importoLeggibile(esatto.toLongLong());
            break;
        case Tipo::Reale:
            sql += QString::number(esatto.toDouble(), 'g', 17);
            break;
        case Tipo::Testo:
        case Tipo::Note:
            sql += traApici(esatto.toString(), tipoServer);
            break;
        case Tipo::DataOra:
        case Tipo::Ora:
            sql += letteraleData(esatto.toDateTime(), colonna, tipoServer);
            break;
    }
}
