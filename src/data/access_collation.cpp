#include "data/access_collation.h"

#include <algorithm>
#include <array>

#include <QChar>
#include <QList>
#include <QString>

namespace dialetto {
namespace {

constexpr char32_t ultimoValido = 0x10FFFF;

bool accento(char32_t c) {
    return QChar::combiningClass(c) != 0;
}

// The letter under the accents of a composed one; the character itself when it is made of more.
char32_t senzaAccenti(char32_t c) {
    while (QChar::decompositionTag(c) == QChar::Canonical) {
        const QList<uint> parti = QChar::decomposition(c).toUcs4();
        if (!std::all_of(parti.begin() + 1, parti.end(), accento)) break;
        c = parti.front();
    }
    return c;
}

char32_t calcolaPiega(char32_t c) {
    return accento(c) ? 0 : QChar::toCaseFolded(senzaAccenti(c));
}

// The letters of the western languages, worked out once.
constexpr char32_t fineTavola = 0x250;
const std::array<char32_t, fineTavola> piegate = [] {
    std::array<char32_t, fineTavola> t{};
    for (char32_t c = 0; c < fineTavola; ++c)
        t[c] = calcolaPiega(c);
    return t;
}();

// Bytes of the UTF-8 character that begins so; 0 when none does.
size_t lunghezzaSequenza(char32_t primo) {
    if (primo < 0xC2 || primo >= 0xF5) return 0;
    if (primo < 0xE0) return 2;
    return primo < 0xF0 ? 3 : 4;
}

// Walks over a text in folded characters.
class Cursore {
  public:
    explicit Cursore(std::string_view testo) : mTesto(testo) {}

    // The next folded character, 0 at the end.
    char32_t prossimo() {
        while (!mTesto.empty()) {
            const char32_t c = leggi();
            if (c != 0) return c;
        }
        return 0;
    }
    bool finito() const { return mTesto.empty(); }
    bool soloSpazi() const {
        Cursore resto = *this;
        char32_t c = U' ';
        while (c == U' ')
            c = resto.prossimo();
        return c == 0;
    }

  private:
    char32_t byte(size_t i) const { return static_cast<unsigned char>(mTesto[i]); }

    char32_t leggi() {
        const char32_t primo = byte(0);
        if (primo >= 0x80) return piega(decodifica());
        mTesto.remove_prefix(1);
        return piegate[primo];
    }

    // A character of several bytes, or one byte that is part of no character.
    char32_t decodifica() {
        const char32_t primo = byte(0);
        const size_t lunghezza = lunghezzaSequenza(primo);
        char32_t c = primo & (0x7FU >> lunghezza);
        bool valido = lunghezza > 0 && lunghezza <= mTesto.size();
        for (size_t i = 1; valido && i < lunghezza; ++i) {
            valido = (byte(i) & 0xC0) == 0x80;
            c = c << 6 | (byte(i) & 0x3F);
        }
        mTesto.remove_prefix(valido ? lunghezza : 1);
        return valido ? c : ultimoValido + 1 + primo;
    }

    std::string_view mTesto;
};

// How many ASCII bytes at the head of both texts are equal but for case.
size_t testaUguale(std::string_view a, std::string_view b) {
    const size_t limite = std::min(a.size(), b.size());
    size_t i = 0;
    for (; i < limite; ++i) {
        const auto x = static_cast<unsigned char>(a[i]);
        const auto y = static_cast<unsigned char>(b[i]);
        if (x >= 0x80 || y >= 0x80 || piegate[x] != piegate[y]) break;
    }
    return i;
}

}  // namespace

char32_t piega(char32_t carattere) {
    if (carattere < fineTavola) return piegate[carattere];
    return carattere > ultimoValido ? carattere : calcolaPiega(carattere);
}

int confronta(std::string_view a, std::string_view b) {
    const size_t uguali = testaUguale(a, b);
    Cursore cursoreA(a.substr(uguali));
    Cursore cursoreB(b.substr(uguali));
    for (;;) {
        char32_t x = cursoreA.prossimo();
        char32_t y = cursoreB.prossimo();
        if (x == y && x != 0) continue;
        // Blanks up to the end are no part of the text.
        if (x == U' ' && cursoreA.soloSpazi()) x = 0;
        if (y == U' ' && cursoreB.soloSpazi()) y = 0;
        return x == y ? 0 : x < y ? -1 : 1;
    }
}

bool somiglia(std::string_view modello, std::string_view testo, char32_t fuga) {
    Cursore m(modello), t(testo);
    Cursore dopoPercento = m, ripresa = t;  // where to try again, one character later each time
    bool percento = false;
    for (;;) {
        char32_t atteso = m.prossimo();
        const bool letterale = fuga != 0 && atteso == fuga;
        if (letterale) atteso = m.prossimo();
        if (!letterale && atteso == U'%') {
            if (m.finito()) return true;
            percento = true;
            dopoPercento = m;
            ripresa = t;
            continue;
        }
        const char32_t trovato = t.prossimo();
        if (atteso == 0 && trovato == 0) return true;
        if (trovato != 0 && (atteso == trovato || (atteso == U'_' && !letterale))) continue;
        if (!percento || trovato == 0) return false;
        ripresa.prossimo();
        m = dopoPercento;
        t = ripresa;
    }
}

}  // namespace dialetto
