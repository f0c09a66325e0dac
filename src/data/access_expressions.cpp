#include <algorithm>
#include <iterator>

#include "data/access_rules.h"

namespace dialetto {
namespace {

// Words that end an expression, or stand before one; a bracket behind them is no call.
constexpr quint64 paroleChiave[] = {
    parola("ALL"),      parola("AND"),    parola("AS"),      parola("ASC"),    parola("BETWEEN"),
    parola("BY"),       parola("CASE"),   parola("COLLATE"), parola("DELETE"), parola("DESC"),
    parola("DISTINCT"), parola("ELSE"),   parola("END"),     parola("ESCAPE"), parola("EXCEPT"),
    parola("EXISTS"),   parola("FROM"),   parola("GROUP"),   parola("HAVING"), parola("IN"),
    parola("INNER"),    parola("INSERT"), parola("INTO"),    parola("IS"),     parola("JOIN"),
    parola("LEFT"),     parola("LIKE"),   parola("LIMIT"),   parola("NOT"),    parola("ON"),
    parola("OR"),       parola("ORDER"),  parola("OUTER"),   parola("RIGHT"),  parola("SELECT"),
    parola("SET"),      parola("THEN"),   parola("TOP"),     parola("UNION"),  parola("UPDATE"),
    parola("VALUES"),   parola("WHEN"),   parola("WHERE"),   parola("XOR"),
};

bool parolaChiave(quint64 chiave) {
    return std::find(std::begin(paroleChiave), std::end(paroleChiave), chiave) != std::end(paroleChiave);
}

bool confronto(const Token& t) {
    if (t.tipo != Tipo::Simbolo) return false;
    const QChar c = t.testo.front();
    return c == u'=' || c == u'<' || c == u'>' || c == u'!';
}

// What is open on one bracket level.
struct Livello {
    int inizio = -1;      // first token of the expression
    bool catena = false;  // a CONCAT is open
    int isNull = -1;      // the word ISNULL before the bracket
    bool virgola = false;
};

class RegoleEspressioni {
  public:
    RegoleEspressioni(const std::vector<Token>& token, Modifiche& modifiche)
        : mToken(token), mModifiche(modifiche) {}

    void applica() {
        mLivelli.emplace_back();
        const int quanti = static_cast<int>(mToken.size());
        for (int i = 0; i < quanti; ++i)
            leggi(i);
        for (; !mLivelli.empty(); mLivelli.pop_back())
            chiudiCatena(quanti);
    }

  private:
    const Token& tokenA(int i) const { return mToken[static_cast<size_t>(i)]; }
    bool parentesiDopo(int i) const {
        return i + 1 < static_cast<int>(mToken.size()) && tokenA(i + 1).simbolo(u'(');
    }

    bool chiave(int i) const {
        const quint64 c = tokenA(i).chiave;
        if (c == 0 || !parolaChiave(c)) return false;
        return (c != parola("LEFT") && c != parola("RIGHT")) || !parentesiDopo(i);
    }
    // Ends a value: a second one right behind it is an alias or begins something else.
    bool fineValore(int i) const {
        if (i < 0) return false;
        return tokenA(i).tipo == Tipo::Simbolo ? tokenA(i).simbolo(u')') : !chiave(i);
    }
    bool chiamata(int parentesi) const {
        if (parentesi == 0) return false;
        const Token& t = tokenA(parentesi - 1);
        return t.tipo == Tipo::Nome || (t.tipo == Tipo::Parola && !chiave(parentesi - 1));
    }

    void leggi(int i) {
        const Token& t = tokenA(i);
        if (t.simbolo(u'(')) return apriParentesi(i);
        if (t.simbolo(u')')) return chiudiParentesi(i);
        if (t.simbolo(u'&')) return concatena(i);
        if (t.simbolo(u',') || t.simbolo(u';') || confronto(t) || chiave(i)) {
            chiudiCatena(i);
            mLivelli.back().inizio = -1;
            mLivelli.back().virgola |= t.simbolo(u',');
        } else if (t.tipo == Tipo::Simbolo) {
            if (mLivelli.back().inizio < 0) mLivelli.back().inizio = i;
        } else {
            iniziaValore(i);
        }
    }

    void iniziaValore(int i) {
        Livello& livello = mLivelli.back();
        if (livello.inizio >= 0 && !fineValore(i - 1)) return;
        chiudiCatena(i);
        livello.inizio = i;
    }

    void apriParentesi(int i) {
        const bool diFunzione = chiamata(i);
        if (!diFunzione) iniziaValore(i);
        Livello interno;
        if (diFunzione && tokenA(i - 1).chiave == parola("ISNULL")) interno.isNull = i - 1;
        mLivelli.push_back(interno);
    }

    void chiudiParentesi(int i) {
        if (mLivelli.size() == 1) return;
        chiudiCatena(i);
        const Livello interno = mLivelli.back();
        mLivelli.pop_back();
        const bool unArgomento = !interno.virgola && !tokenA(i - 1).simbolo(u'(');
        if (interno.isNull < 0 || !unArgomento) return;
        mModifiche.sostituisci(tokenA(interno.isNull), "(");
        mModifiche.dopo(tokenA(i), Modifiche::FineEspressione, " IS NULL)");
    }

    void concatena(int i) {
        Livello& livello = mLivelli.back();
        if (livello.inizio < 0) return;
        if (!livello.catena) mModifiche.primaDi(tokenA(livello.inizio), "CONCAT(");
        livello.catena = true;
        mModifiche.sostituisci(tokenA(i), ",");
    }

    // `i` is the first token behind the chain.
    void chiudiCatena(int i) {
        Livello& livello = mLivelli.back();
        if (livello.catena) mModifiche.dopo(tokenA(i - 1), Modifiche::FineEspressione, ")");
        livello.catena = false;
    }

    const std::vector<Token>& mToken;
    Modifiche& mModifiche;
    std::vector<Livello> mLivelli;
};

}  // namespace

void regoleEspressioni(const std::vector<Token>& token, Modifiche& modifiche) {
    RegoleEspressioni(token, modifiche).applica();
}

}  // namespace dialetto
