#include "data/access_tokens.h"

#include <array>

namespace dialetto {
namespace {

enum Classe : unsigned char { Altro, Vuoto, Lettera, Cifra };

constexpr std::array<Classe, 128> classiAscii = [] {
    std::array<Classe, 128> classi{};
    for (const char c : {' ', '\t', '\n', '\v', '\f', '\r'})
        classi[static_cast<size_t>(c)] = Vuoto;
    for (size_t c = 'a'; c <= 'z'; ++c)
        classi[c] = classi[c - 'a' + 'A'] = Lettera;
    for (size_t c = '0'; c <= '9'; ++c)
        classi[c] = Cifra;
    classi['_'] = Lettera;
    return classi;
}();

Classe classe(QChar c) {
    if (c.unicode() < 128) return classiAscii[c.unicode()];
    return c.isSpace() ? Vuoto : c.isLetterOrNumber() || c.isMark() || c.isSurrogate() ? Lettera : Altro;
}

bool cifra(QChar c) {
    return c >= u'0' && c <= u'9';
}

quint64 chiaveDi(QStringView parola) {
    if (parola.size() > 8) return 0;
    quint64 chiave = 0;
    for (const QChar c : parola) {
        const char16_t lettera = c.unicode();
        const bool minuscola = lettera >= u'a' && lettera <= u'z';
        if (!minuscola && (lettera < u'A' || lettera > u'Z')) return 0;
        chiave = chiave << 8 | static_cast<quint64>(minuscola ? lettera - 32 : lettera);
    }
    return chiave;
}

class Lettore {
  public:
    explicit Lettore(QStringView sql) : mSql(sql) {}

    std::vector<Token> leggi() {
        mToken.reserve(static_cast<size_t>(mSql.size() / 4 + 8));
        while (mPosizione < mSql.size()) {
            if (!saltaVuoto()) leggiUno();
        }
        return std::move(mToken);
    }

  private:
    QChar carattere(qsizetype distanza = 0) const {
        const qsizetype i = mPosizione + distanza;
        return i < mSql.size() ? mSql[i] : QChar();
    }

    // Blanks and comments; false when a token begins here.
    bool saltaVuoto() {
        if (classe(carattere()) == Vuoto) {
            ++mPosizione;
        } else if (carattere() == u'-' && carattere(1) == u'-') {
            mPosizione = finoA(u"\n", 2);
        } else if (carattere() == u'/' && carattere(1) == u'*') {
            mPosizione = finoA(u"*/", 2);
        } else {
            return false;
        }
        return true;
    }

    // Behind the next `fine`, or the end of the statement.
    qsizetype finoA(QStringView fine, qsizetype distanza) const {
        const qsizetype trovato = mSql.indexOf(fine, mPosizione + distanza);
        return trovato < 0 ? mSql.size() : trovato + fine.size();
    }

    // Behind the closing mark of a text, in which the doubled mark stands for one.
    qsizetype fineTesto(QChar segno) const {
        for (qsizetype i = mPosizione + 1; i < mSql.size(); ++i) {
            if (mSql[i] != segno) continue;
            if (i + 1 >= mSql.size() || mSql[i + 1] != segno) return i + 1;
            ++i;
        }
        return mSql.size();
    }

    // Behind a date, or nowhere (-1) when no other "#" follows on the line.
    qsizetype fineData() const {
        for (qsizetype i = mPosizione + 1; i < mSql.size() && mSql[i] != u'\n'; ++i) {
            if (mSql[i] == u'#') return i + 1;
        }
        return -1;
    }

    bool inizioNumero() const {
        if (cifra(carattere())) return true;
        if (carattere() != u'.' || !cifra(carattere(1))) return false;
        return mToken.empty() || mToken.back().tipo == Tipo::Simbolo || mToken.back().fine() != mPosizione;
    }

    qsizetype fineNumero() const {
        qsizetype i = mPosizione;
        while (i < mSql.size() && (cifra(mSql[i]) || mSql[i] == u'.'))
            ++i;
        if (i < mSql.size() && (mSql[i] == u'e' || mSql[i] == u'E')) {
            qsizetype e = i + 1;
            if (e < mSql.size() && (mSql[e] == u'+' || mSql[e] == u'-')) ++e;
            if (e < mSql.size() && cifra(mSql[e])) {
                while (e < mSql.size() && cifra(mSql[e]))
                    ++e;
                i = e;
            }
        }
        return i;
    }

    qsizetype fineParola() const {
        qsizetype i = mPosizione;
        while (i < mSql.size() && (classe(mSql[i]) >= Lettera || mSql[i] == u'$'))
            ++i;
        return i;
    }

    // "<>", "<=", ">=", "!=", "==", "||", "<<" and ">>" are one mark each.
    qsizetype fineSimbolo() const {
        const char16_t primo = carattere().unicode();
        const char16_t secondo = carattere(1).unicode();
        const bool confronto = primo == u'<' || primo == u'>' || primo == u'!' || primo == u'=';
        const bool doppio = (confronto && secondo == u'=') || (primo == u'<' && secondo == u'>') ||
                            ((primo == u'<' || primo == u'>' || primo == u'|') && secondo == primo);
        return mPosizione + (doppio ? 2 : 1);
    }

    void leggiUno() {
        const QChar c = carattere();
        if (classe(c) == Lettera) return aggiungi(Tipo::Parola, fineParola());
        if (inizioNumero()) return aggiungi(Tipo::Numero, fineNumero());
        if (c == u'\'') return aggiungi(Tipo::Testo, fineTesto(c));
        if (c == u'"') return aggiungi(Tipo::TestoDoppio, fineTesto(c));
        if (c == u'[') return aggiungi(Tipo::Nome, finoA(u"]", 1));
        if (c == u'`') return aggiungi(Tipo::Nome, fineTesto(c));
        if (c == u'#') {
            const qsizetype fine = fineData();
            if (fine > 0) return aggiungi(Tipo::Data, fine);
        }
        aggiungi(Tipo::Simbolo, fineSimbolo());
    }

    void aggiungi(Tipo tipo, qsizetype fine) {
        const QStringView testo = mSql.mid(mPosizione, fine - mPosizione);
        mToken.push_back({tipo, testo, mPosizione, tipo == Tipo::Parola ? chiaveDi(testo) : 0});
        mPosizione = fine;
    }

    QStringView mSql;
    qsizetype mPosizione = 0;
    std::vector<Token> mToken;
};

}  // namespace

std::vector<Token> tokenizza(const QString& sql) {
    return Lettore(sql).leggi();
}

}  // namespace dialetto
