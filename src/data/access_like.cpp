#include "data/access_rules.h"
#include "data/prepare_sql.h"

namespace dialetto {
namespace {

bool nome(const Token& t) {
    return t.tipo == Tipo::Parola || t.tipo == Tipo::Nome;
}

// The condition stands by itself: nothing before or behind it binds tighter than LIKE.
bool precedeCondizione(const Token& t) {
    switch (t.chiave) {
        case parola("WHERE"):
        case parola("AND"):
        case parola("OR"):
        case parola("ON"):
        case parola("HAVING"):
            return true;
        default:
            return t.simbolo(u'(');
    }
}

bool segueCondizione(const Token& t) {
    switch (t.chiave) {
        case parola("AND"):
        case parola("OR"):
        case parola("GROUP"):
        case parola("HAVING"):
        case parola("ORDER"):
        case parola("UNION"):
            return true;
        default:
            return t.simbolo(u')') || t.simbolo(u';');
    }
}

// The beginning that every match has, as it stands in the literal; empty when no range can serve.
// Negative numbers have none: in a number column those that go on stand before their beginning.
QString inizioFisso(const Token& letterale) {
    const QString testo = decodificaTestoSQL(letterale.testo.toString());
    if (testo.size() < 3 || testo.back() != u'\'') return {};
    qsizetype fine = 1;
    while (fine < testo.size() - 1 && testo[fine] != u'%' && testo[fine] != u'_')
        ++fine;
    const QString inizio = testo.mid(1, fine - 1);
    return inizio.startsWith('-') ? QString() : inizio;
}

}  // namespace

void regolaLike(const std::vector<Token>& token, Modifiche& modifiche) {
    for (size_t i = 2; i + 1 < token.size(); ++i) {
        if (token[i].chiave != parola("LIKE") || token[i + 1].tipo != Tipo::Testo || !nome(token[i - 1]))
            continue;
        const bool conTabella = i >= 4 && token[i - 2].simbolo(u'.') && nome(token[i - 3]);
        const size_t primo = conTabella ? i - 3 : i - 1;
        if (!precedeCondizione(token[primo - 1])) continue;
        if (i + 2 < token.size() && !segueCondizione(token[i + 2])) continue;
        const QString inizio = inizioFisso(token[i + 1]);
        if (inizio.isEmpty()) continue;
        const QString colonna =
            (conTabella ? token[primo].testo.toString() + '.' : QString()) + token[i - 1].testo.toString();
        // U+10FFFF is no character: it sorts behind every text that begins like this.
        modifiche.primaDi(token[primo], "(");
        modifiche.dopo(token[i + 1], Modifiche::FineEspressione,
                       " AND " + colonna + " COLLATE ACCESS_TEXT BETWEEN '" + inizio + "' AND '" + inizio +
                           QString::fromUcs4(U"\U0010FFFF", 1) + "')");
    }
}

}  // namespace dialetto
