#include "data/mysql_sql.h"

#include <algorithm>
#include <iterator>
#include <map>

#include <QHash>

#include "data/access_tokens.h"
#include "data/schema.h"

using dialetto::parola;
using dialetto::Tipo;
using dialetto::Token;

namespace {

const QHash<QString, QString>& grafie() {
    static const QHash<QString, QString> tutte = [] {
        QHash<QString, QString> g;
        for (const schema::Tabella& t : schema::tabelle())
            g[t.nome.toLower()] = t.nome;
        return g;
    }();
    return tutte;
}

bool traQueste(quint64 chiave, std::initializer_list<const char*> parole) {
    return chiave != 0 &&
           std::any_of(parole.begin(), parole.end(), [chiave](const char* p) { return parola(p) == chiave; });
}

// A word behind a table's name that is no alias.
bool riservata(quint64 chiave) {
    return traQueste(chiave,
                     {"ON",    "WHERE", "SET",    "INNER",  "LEFT",  "RIGHT",   "JOIN",  "GROUP", "ORDER",
                      "LIMIT", "UNION", "VALUES", "CROSS",  "OUTER", "FULL",    "USE",   "FORCE", "FOR",
                      "USING", "AS",    "HAVING", "SELECT", "LOCK",  "NATURAL", "IGNORE"});
}

// Walks over a statement and puts names into one spelling.
class Nomi {
  public:
    explicit Nomi(const QString& sql) : mSql(sql), mToken(dialetto::tokenizza(sql)) {}

    QString unificati() {
        for (mI = 0; mI < mToken.size(); ++mI)
            guarda(mToken[mI]);
        for (const Token* q : mQualificatori)
            qualificatore(*q);
        return testo();
    }

  private:
    struct Cambio {
        qsizetype lunghezza;
        QString testo;
    };

    void guarda(const Token& t) {
        if (t.tipo == Tipo::Simbolo) return simbolo(t);
        if (t.tipo != Tipo::Parola && t.tipo != Tipo::Nome) return;
        if (traQueste(t.chiave, {"FROM", "UPDATE", "JOIN", "INTO", "TABLE"})) {
            mAttesaTabella = true;
            mElenco.back() = mElenco.back() || traQueste(t.chiave, {"FROM", "UPDATE"});
        } else if (traQueste(t.chiave, {"WHERE", "GROUP", "ORDER", "HAVING", "SET", "LIMIT", "UNION",
                                        "SELECT", "VALUES"})) {
            mAttesaTabella = false;
            mElenco.back() = false;
        } else if (mAttesaTabella) {
            mAttesaTabella = false;
            tabella(t);
        } else if (seguente(1) != nullptr && seguente(1)->simbolo(u'.')) {
            mQualificatori.push_back(&t);
        }
    }

    void simbolo(const Token& t) {
        if (t.simbolo(u'(')) {
            mElenco.push_back(mAttesaTabella);
        } else if (t.simbolo(u')')) {
            if (mElenco.size() > 1) mElenco.pop_back();
            mAttesaTabella = false;
            if (mElenco.back()) aliasDietro();
        } else if (t.simbolo(u',')) {
            mAttesaTabella = mElenco.back();
        }
    }

    void tabella(const Token& t) {
        cambia(t, grafie().value(nomeDi(t).toLower()));
        aliasDietro();
    }

    // The alias behind the current token, if there is one.
    void aliasDietro() {
        const Token* t = seguente(1);
        const bool conAs = t != nullptr && t->chiave == parola("AS");
        if (conAs) t = seguente(2);
        if (t == nullptr || (t->tipo != Tipo::Parola && t->tipo != Tipo::Nome) || riservata(t->chiave))
            return;
        const QString nome = nomeDi(*t);
        const auto [noto, nuovo] = mAlias.try_emplace(nome.toLower(), nome);
        if (!nuovo) cambia(*t, noto->second);
        mI += conAs ? 2 : 1;
    }

    void qualificatore(const Token& t) {
        const QString nome = nomeDi(t).toLower();
        const auto alias = mAlias.find(nome);
        cambia(t, alias != mAlias.end() ? alias->second : grafie().value(nome));
    }

    const Token* seguente(size_t distanza) const {
        return mI + distanza < mToken.size() ? &mToken[mI + distanza] : nullptr;
    }

    static QString nomeDi(const Token& t) {
        return (t.tipo == Tipo::Nome ? t.testo.mid(1, t.testo.size() - 2) : t.testo).toString();
    }

    void cambia(const Token& t, const QString& nome) {
        if (nome.isEmpty() || nome == nomeDi(t)) return;
        mCambi[t.inizio] = {t.testo.size(), t.tipo == Tipo::Nome ? '`' + nome + '`' : nome};
    }

    QString testo() const {
        if (mCambi.empty()) return mSql;
        QString nuovo;
        qsizetype copiati = 0;
        for (const auto& [inizio, cambio] : mCambi) {
            nuovo += QStringView(mSql).mid(copiati, inizio - copiati);
            nuovo += cambio.testo;
            copiati = inizio + cambio.lunghezza;
        }
        return nuovo += QStringView(mSql).mid(copiati);
    }

    const QString& mSql;
    const std::vector<Token> mToken;
    size_t mI = 0;
    bool mAttesaTabella = false;
    std::vector<bool> mElenco{false};  // for each parenthesis: a comma parts tables
    std::map<QString, QString> mAlias;
    std::vector<const Token*> mQualificatori;
    std::map<qsizetype, Cambio> mCambi;
};

}  // namespace

QString nomiTabelleMySql(const QString& sql) {
    return Nomi(sql).unificati();
}
