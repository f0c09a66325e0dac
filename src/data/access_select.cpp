#include "data/access_rules.h"

namespace dialetto {
namespace {

// One SELECT of a bracket level, by the positions of its clauses among the tokens (-1: not there).
struct Ramo {
    int select = -1;
    int top = -1;
    int where = -1;
    int having = -1;
    bool raggruppato = false;
    bool aggregato = false;  // an aggregate in HAVING, or in brackets that may be part of one
    bool dopoUnione = false;
};

class RegoleSelect {
  public:
    RegoleSelect(const std::vector<Token>& token, Modifiche& modifiche, bool conTop)
        : mToken(token), mModifiche(modifiche), mConTop(conTop) {}

    void applica() {
        mRami.emplace_back();
        const int quanti = static_cast<int>(mToken.size());
        for (int i = 0; i < quanti; ++i) {
            const Token& t = mToken[static_cast<size_t>(i)];
            if (t.simbolo(u'(')) {
                mRami.emplace_back();
            } else if (t.simbolo(u')')) {
                chiudiParentesi(i);
            } else if (t.simbolo(u';')) {
                chiudiSelect(i);
                mRami.back() = {};
            } else if (t.chiave != 0) {
                leggiParola(i, t.chiave);
            }
        }
        for (; !mRami.empty(); mRami.pop_back())
            chiudiSelect(quanti);
    }

  private:
    const Token& tokenA(int i) const { return mToken[static_cast<size_t>(i)]; }
    quint64 chiaveA(int i) const { return i < static_cast<int>(mToken.size()) ? tokenA(i).chiave : 0; }
    bool parentesiDopo(int i) const {
        return i + 1 < static_cast<int>(mToken.size()) && tokenA(i + 1).simbolo(u'(');
    }

    void leggiParola(int i, quint64 chiave) {
        Ramo& ramo = mRami.back();
        switch (chiave) {
            case parola("SELECT"):
                iniziaSelect(i);
                break;
            case parola("WHERE"):
                ramo.where = i;
                break;
            case parola("GROUP"):
                ramo.raggruppato = true;
                break;
            case parola("HAVING"):
                ramo.having = i;
                break;
            case parola("ORDER"):
                iniziaOrdine(i);
                break;
            case parola("UNION"):
            case parola("EXCEPT"):
                chiudiRamoUnione(i);
                break;
            case parola("SUM"):
            case parola("COUNT"):
            case parola("AVG"):
            case parola("MIN"):
            case parola("MAX"):
                if (parentesiDopo(i)) segnaAggregato(ramo);
                break;
            default:
                break;
        }
    }

    static void segnaAggregato(Ramo& ramo) {
        if (ramo.having >= 0 || ramo.select < 0) ramo.aggregato = true;
    }

    void iniziaSelect(int i) {
        Ramo& ramo = mRami.back();
        ramo.select = i;
        int dopo = i + 1;
        if (chiaveA(dopo) == parola("DISTINCT") || chiaveA(dopo) == parola("ALL")) ++dopo;
        if (chiaveA(dopo) != parola("TOP") || dopo + 1 >= static_cast<int>(mToken.size())) return;
        if (tokenA(dopo + 1).tipo == Tipo::Numero) ramo.top = dopo;
    }

    // The order of the last SELECT of a union belongs to the union.
    void iniziaOrdine(int i) {
        Ramo& ramo = mRami.back();
        chiudiHaving(i);
        if (ramo.dopoUnione) chiudiTop(i);
    }

    void chiudiRamoUnione(int i) {
        mRami.back().dopoUnione = true;
        chiudiSelect(i);
        mRami.back() = {};
        mRami.back().dopoUnione = true;
    }

    void chiudiParentesi(int i) {
        if (mRami.size() == 1) return;
        chiudiSelect(i);
        const Ramo interno = mRami.back();
        mRami.pop_back();
        if (interno.select < 0 && interno.aggregato) segnaAggregato(mRami.back());
    }

    // `i` is the first token behind the SELECT.
    void chiudiSelect(int i) {
        chiudiHaving(i);
        chiudiTop(i);
    }

    void chiudiHaving(int i) {
        Ramo& ramo = mRami.back();
        if (ramo.having < 0 || ramo.raggruppato || ramo.aggregato) return;
        if (ramo.where < 0) {
            mModifiche.sostituisci(tokenA(ramo.having), "WHERE");
        } else {
            mModifiche.dopo(tokenA(ramo.where), Modifiche::FineEspressione, " (");
            mModifiche.sostituisci(tokenA(ramo.having), ") AND (");
            mModifiche.dopo(tokenA(i - 1), Modifiche::FineClausola, ")");
        }
        ramo.having = -1;
    }

    // A LIMIT belongs to a whole union, so a SELECT of one with its own TOP becomes a table.
    void chiudiTop(int i) {
        Ramo& ramo = mRami.back();
        if (ramo.top < 0 || !mConTop) return;
        const Token& numero = tokenA(ramo.top + 1);
        const QString limite = " LIMIT " + numero.testo.toString();
        mModifiche.sostituisci(tokenA(ramo.top), {});
        mModifiche.sostituisci(numero, {});
        if (ramo.dopoUnione) mModifiche.primaDi(tokenA(ramo.select), "SELECT * FROM (");
        mModifiche.dopo(tokenA(i - 1), Modifiche::FineSelect, ramo.dopoUnione ? limite + ')' : limite);
        ramo.top = -1;
    }

    const std::vector<Token>& mToken;
    Modifiche& mModifiche;
    const bool mConTop;
    std::vector<Ramo> mRami;
};

}  // namespace

void regoleSelect(const std::vector<Token>& token, Modifiche& modifiche) {
    RegoleSelect(token, modifiche, true).applica();
}

void regolaHaving(const std::vector<Token>& token, Modifiche& modifiche) {
    RegoleSelect(token, modifiche, false).applica();
}

}  // namespace dialetto
