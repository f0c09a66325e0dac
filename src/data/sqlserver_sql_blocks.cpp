#include "data/sqlserver_sql_blocks.h"

#include "core/globals.h"

namespace dialetto {
namespace {

// Five digits or more, as Format(.., "00000") shows them: a negative count makes a Null, which is left out.
const char* const numeroDocumento =
    "CONCAT(REPLICATE(N'0', 5 - LEN(M.PROGRESSIVO)), M.PROGRESSIVO, N'/', TD.CODICE) ";

class RegolaBlocchi {
  public:
    RegolaBlocchi(const std::vector<Token>& token, Modifiche& modifiche)
        : mToken(token), mModifiche(modifiche) {}

    void applica() {
        for (size_t i = 1; i < mToken.size(); ++i) {
            leggiNumero(i);
            leggiCondizione(i);
        }
    }

  private:
    quint64 chiave(size_t i) const { return i < mToken.size() ? mToken[i].chiave : 0; }
    bool simbolo(size_t i, char16_t c) const { return i < mToken.size() && mToken[i].simbolo(c); }

    // "..., AS Numero" has lost what stood before its AS, and a search by that column has no name for it.
    void leggiNumero(size_t i) {
        const bool colonna =
            chiave(i) == parola("AS") && simbolo(i - 1, u',') && chiave(i + 1) == parola("NUMERO");
        const bool ricerca = mSenzaNumero && chiave(i) == parola("LIKE") &&
                             (chiave(i - 1) == parola("WHERE") || chiave(i - 1) == parola("AND"));
        mSenzaNumero |= colonna;
        if (colonna || ricerca) mModifiche.primaDi(mToken[i], numeroDocumento);
    }

    // Behind the last bracket of FROM a column can only belong to a condition that has lost its WHERE.
    void leggiCondizione(size_t i) {
        mPrezzoMedio |= chiave(i) == parola("TOTQTA");
        switch (chiave(i)) {
            case parola("FROM"):
                mFrom.back() = true;
                return;
            case parola("WHERE"):
            case parola("HAVING"):
            case parola("GROUP"):
            case parola("ORDER"):
                mFrom.back() = false;
                return;
            default:
                break;
        }
        if (simbolo(i, u'(')) {
            mFrom.push_back(false);
        } else if (simbolo(i, u')') && mFrom.size() > 1) {
            mFrom.pop_back();
            const bool colonna =
                i + 1 < mToken.size() && mToken[i + 1].tipo == Tipo::Parola && simbolo(i + 2, u'.');
            if (mPrezzoMedio && mFrom.back() && colonna) mettiCondizione(i + 1);
        }
    }

    void mettiCondizione(size_t i) {
        mModifiche.primaDi(mToken[i],
                           QString("WHERE m.Data >= DATEADD(month, %1, CAST(GETDATE() AS DATE)) AND ")
                               .arg(-gMesiPrezzoMedio));
        mFrom.back() = false;
    }

    const std::vector<Token>& mToken;
    Modifiche& mModifiche;
    bool mSenzaNumero = false;
    bool mPrezzoMedio = false;
    std::vector<bool> mFrom{false};  // for each bracket level: within a FROM
};

}  // namespace

void regolaBlocchiSvaniti(const std::vector<Token>& token, Modifiche& modifiche) {
    RegolaBlocchi(token, modifiche).applica();
}

}  // namespace dialetto
