#include "data/stored_date.h"

namespace {

template <class Testo>
QDate leggiGiorno(Testo testo) {
    if (testo.size() < 10 || testo[4] != QChar(u'-') || testo[7] != QChar(u'-')) return {};
    if (testo.size() > 10 && testo[10] != QChar(u' ')) return {};
    const int anno = cifre(testo, 0, 4);
    const int mese = cifre(testo, 5, 2);
    const int giorno = cifre(testo, 8, 2);
    return anno > 0 ? QDate(anno, mese, giorno) : QDate();
}

}  // namespace

QString dataArchivio(const QDateTime& data) {
    return data.toString(u"yyyy-MM-dd HH:mm:ss");
}

QDate giornoArchivio(QStringView testo) {
    return leggiGiorno(testo);
}
QDate giornoArchivio(QLatin1StringView testo) {
    return leggiGiorno(testo);
}

QDateTime dataOraArchivio(QStringView testo) {
    const QDate giorno = leggiGiorno(testo);
    if (!giorno.isValid() || (testo.size() != 10 && testo.size() != 19)) return {};
    if (testo.size() == 10) return giorno.startOfDay(Qt::UTC);
    if (testo[13] != u':' || testo[16] != u':') return {};
    const QTime ora(cifre(testo, 11, 2), cifre(testo, 14, 2), cifre(testo, 17, 2));
    return ora.isValid() ? QDateTime(giorno, ora, Qt::UTC) : QDateTime();
}
