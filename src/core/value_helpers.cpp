#include "core/value_helpers.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/format.h"
#include "core/numbers.h"
#include "core/operator_port.h"
#include "core/run_time_error.h"

namespace {

enum class Genere { NonNumerico, Intero, Reale, Testo };

Genere genere(const QVariant& valore) {
    if (valore.isNull()) return Genere::NonNumerico;
    switch (valore.typeId()) {
        case QMetaType::Bool:
        case QMetaType::Short:
        case QMetaType::UShort:
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::Long:
        case QMetaType::ULong:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
            return Genere::Intero;
        case QMetaType::Float:
        case QMetaType::Double:
            return Genere::Reale;
        case QMetaType::QString:
            return Genere::Testo;
        default:
            return Genere::NonNumerico;
    }
}

// A true counts as -1.
qint64 interoDi(const QVariant& valore) {
    if (valore.typeId() == QMetaType::Bool) return valore.toBool() ? -1 : 0;
    // QVariant would wrap it into a negative number without a word.
    const bool senzaSegno = valore.typeId() == QMetaType::ULongLong || valore.typeId() == QMetaType::ULong;
    if (senzaSegno && valore.toULongLong() > std::numeric_limits<qint64>::max()) {
        throw RunTimeError(RunTimeError::Overflow);
    }
    return valore.toLongLong();
}

// The value of a field that may be anything; nothing when it is not numeric.
std::optional<double> doubleDi(const QVariant& valore) {
    switch (genere(valore)) {
        case Genere::Intero:
            return static_cast<double>(interoDi(valore));
        case Genere::Reale:
            return valore.toDouble();
        case Genere::Testo:
            return seDouble(valore.toString());
        case Genere::NonNumerico:
            break;
    }
    return std::nullopt;
}

QString importoNullo(int decimali) {
    return "0," + QString(std::max(decimali, 0), u'0');
}

bool soloCifre(const QString& testo) {
    return std::all_of(testo.begin(), testo.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

int cifraIn(const QString& testo, int posto) {
    return testo[posto].unicode() - u'0';
}

}  // namespace

QString getValoreNumerico(const QString& valore, OperatorPort* avvisa) {
    const std::optional<double> numero = seDouble(QString(valore).remove(u'.'));
    if (numero) return testoNumero(*numero);
    if (avvisa != nullptr) {
        avvisa->messaggio(
            "Attenzione! è stato riscontrata una incongruenza di valore:\n"
            "Si attendeva un numero ed è stato trovato il valore: [" +
                valore + "]",
            OperatorPort::Icona::Esclamazione);
    }
    return "0";
}

Currency getValoreCurrency(QStringView testo) {
    return seCurrency(testo).value_or(Currency());
}

Currency getValoreCurrency(const QVariant& valore) {
    switch (genere(valore)) {
        case Genere::Intero:
            return Currency::daIntero(interoDi(valore));
        case Genere::Reale:
            return Currency::daDouble(valore.toDouble());
        case Genere::Testo:
            return getValoreCurrency(valore.toString());
        case Genere::NonNumerico:
            break;
    }
    return {};
}

float getValoreSingle(QStringView testo) {
    return seSingle(testo).value_or(0.0F);
}

float getValoreSingle(const QVariant& valore) {
    const auto single = static_cast<float>(doubleDi(valore).value_or(0.0));
    if (!std::isfinite(single)) throw RunTimeError(RunTimeError::Overflow);
    return single;
}

QString formattaImporto(const QVariant& valore, int decimali) {
    if (valore.typeId() == QMetaType::Float) return formatoMigliaia(valore.toFloat(), decimali);
    const std::optional<double> numero = doubleDi(valore);
    return numero ? formatoMigliaia(*numero, decimali) : importoNullo(decimali);
}

QString formattaImporto(const QString& testo, int decimali) {
    const std::optional<double> numero = seDouble(testo);
    return numero ? formatoMigliaia(*numero, decimali) : importoNullo(decimali);
}

QString formattaImporto(Currency valore, int decimali) {
    return formatoMigliaia(valore, decimali);
}

QString formattaImporto(double valore, int decimali) {
    return formatoMigliaia(valore, decimali);
}

QString formattaImporto(float valore, int decimali) {
    return formatoMigliaia(valore, decimali);
}

QString formattaIntero(const QVariant& valore) {
    if (genere(valore) == Genere::Intero) return Format(interoDi(valore), u"###,##0");
    const std::optional<double> numero = doubleDi(valore);
    return numero ? Format(*numero, u"###,##0") : QString();
}

// A comma would part the value in two in a list of values.
QString getIDOrNullStr(const QString& valore) {
    const std::optional<double> numero = seDouble(valore);
    return numero && *numero > 0 ? testoNumero(*numero).replace(u',', u'.') : "Null";
}

QString getIDOrNullStr(int valore) {
    return valore > 0 ? QString::number(valore) : "Null";
}

int getChekByBool(const QVariant& valore) {
    const double assoluto = std::abs(std::nearbyint(doubleDi(valore).value_or(0.0)));
    return assoluto <= std::numeric_limits<qint16>::max() ? static_cast<int>(assoluto) : 0;
}

bool getBoolByChek(const QVariant& valore) {
    if (valore.isNull()) return false;
    if (genere(valore) == Genere::NonNumerico) return true;
    try {
        const std::optional<double> numero = doubleDi(valore);
        return (numero ? *numero : Val(QString(valore.toString() + u'0'))) != 0;
    } catch (const RunTimeError&) {
        return true;
    }
}

QDate getDataFineMese(QDate data, int giorni) {
    const QDate giorno = data.addDays(giorni);
    return QDate(giorno.year(), giorno.month(), giorno.daysInMonth());
}

bool checkPartitaIva(const QString& partitaIva) {
    if (partitaIva.size() < 11 || !soloCifre(partitaIva)) return false;
    int somma = 0;
    for (int i = 0; i < 10; i += 2) {
        const int doppio = 2 * cifraIn(partitaIva, i + 1);
        somma += cifraIn(partitaIva, i) + doppio / 10 + doppio % 10;
    }
    return 10 - somma % 10 == cifraIn(partitaIva, 10);
}

int getEAN13ChekDigit(const QString& dodiciCifre) {
    if (dodiciCifre.size() != 12 || !soloCifre(dodiciCifre)) return -1;
    int somma = 0;
    for (int i = 0; i < 12; ++i)
        somma += cifraIn(dodiciCifre, i) * (i % 2 == 0 ? 1 : 3);
    return (10 - somma % 10) % 10;
}
