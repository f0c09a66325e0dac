#include <algorithm>
#include <iterator>

#include "core/run_time_error.h"
#include "data/prepare_sql.h"

namespace {

// A private-use character starts an encoded one; a letter behind it tells which. The letters alone can
// make no word of the dialect, because the private-use character stands between them.
constexpr QChar fuga(u'\uE5CA');

struct Sostituto {
    QChar carattere;
    QChar lettera;
};

constexpr Sostituto sostituti[] = {
    {u'\u00A4', u'a'},  // text delimiter
    {u'\u2021', u'b'},  // protected comma
    {u'\u00BF', u'c'},  // alias word
    {u'\u2022', u'd'},  // server blocks
    {u'`', u'e'},       // quoted name
    {u'\\', u'f'},      // escape of MySQL
    {u'(', u'g'},       // the FORMAT rule
    {u')', u'h'},       // the FORMAT rule
    {u',', u'i'},       // the FORMAT rule
    {u'@', u'j'},       // statement templates
    {fuga, u'k'},
};
// The blank of the TOP rule is encoded only in values that spell that rule's words.
constexpr Sostituto spazio{u' ', u'l'};

bool daCodificare(QChar c) {
    return std::any_of(std::begin(sostituti), std::end(sostituti),
                       [c](const Sostituto& s) { return s.carattere == c; });
}

QChar letteraDi(QChar c) {
    if (c == spazio.carattere) return spazio.lettera;
    return std::find_if(std::begin(sostituti), std::end(sostituti),
                        [c](const Sostituto& s) { return s.carattere == c; })
        ->lettera;
}

// The character behind a letter, or a null character when the letter means nothing.
QChar carattereDi(QChar lettera) {
    if (lettera == spazio.lettera) return spazio.carattere;
    const auto* trovato = std::find_if(std::begin(sostituti), std::end(sostituti),
                                       [lettera](const Sostituto& s) { return s.lettera == lettera; });
    return trovato == std::end(sostituti) ? QChar() : trovato->carattere;
}

}  // namespace

QString testoSQL(const QString& valore) {
    if (valore.contains(QChar(u'\0'))) {
        throw RunTimeError(RunTimeError::ChiamataNonValida,
                           "Il testo contiene un carattere nullo e non può essere registrato.");
    }
    const bool conSpazi = valore.contains("SELECT TOP ", Qt::CaseInsensitive);
    QString testo;
    testo.reserve(valore.size() + 8);
    testo += getSQLSeparator();
    for (const QChar c : valore) {
        if (daCodificare(c) || (conSpazi && c == spazio.carattere)) {
            testo += fuga;
            testo += letteraDi(c);
        } else {
            testo += c;
        }
    }
    return testo += getSQLSeparator();
}

QString decodificaTestoSQL(const QString& testo) {
    if (!testo.contains(fuga)) return testo;
    QString valore;
    valore.reserve(testo.size());
    for (qsizetype i = 0; i < testo.size(); ++i) {
        const QChar originale =
            testo[i] == fuga && i + 1 < testo.size() ? carattereDi(testo[i + 1]) : QChar();
        valore += originale.isNull() ? testo[i] : originale;
        if (!originale.isNull()) ++i;
    }
    return valore;
}
