#include "data/access_sql.h"

#include <algorithm>

#include <QDate>
#include <QTime>

#include "data/access_rules.h"
#include "data/prepare_sql.h"
#include "data/stored_date.h"

namespace dialetto {
namespace {

bool segno(QStringView testo, qsizetype posizione, char16_t atteso) {
    return posizione < testo.size() && testo[posizione] == atteso;
}

// "hh:nn" or "hh:nn:ss" as "hh:nn:ss"; empty when it is no time.
QString oraArchivio(QStringView testo) {
    const bool conSecondi = testo.size() == 8 && segno(testo, 5, u':');
    if ((testo.size() != 5 && !conSecondi) || !segno(testo, 2, u':')) return {};
    const QTime ora(cifre(testo, 0, 2), cifre(testo, 3, 2), conSecondi ? cifre(testo, 6, 2) : 0);
    return ora.isValid() ? ora.toString(u"HH:mm:ss") : QString();
}

// A date literal as the text under which the archive keeps it; empty when it is no date. A time without a
// date belongs to day 0 of the dialect.
QString letteraleData(QStringView letterale) {
    const QStringView testo = letterale.mid(1, letterale.size() - 2);
    if (!segno(testo, 2, u'/')) {
        const QString ora = oraArchivio(testo);
        return ora.isEmpty() ? ora : "1899-12-30 " + ora;
    }
    const QDate data(cifre(testo, 6, 4), cifre(testo, 0, 2), cifre(testo, 3, 2));
    if (!data.isValid() || !segno(testo, 5, u'/')) return {};
    const QString giorno = data.toString(Qt::ISODate);
    if (testo.size() == 10) return giorno + " 00:00:00";
    const QString ora = segno(testo, 10, u' ') ? oraArchivio(testo.mid(11)) : QString();
    return ora.isEmpty() ? ora : giorno + ' ' + ora;
}

QString traApici(QStringView testoDoppio) {
    if (testoDoppio.size() < 2 || testoDoppio.back() != u'"') return testoDoppio.toString();
    QString testo = testoDoppio.mid(1, testoDoppio.size() - 2).toString();
    testo.replace("\"\"", "\"").replace("'", "''");
    return '\'' + decodificaTestoSQL(testo) + '\'';
}

class Traduttore {
  public:
    explicit Traduttore(const QString& sql) : mSql(sql), mToken(tokenizza(sql)) {}

    QString traduci() {
        for (size_t i = 0; i < mToken.size(); ++i)
            leggi(i);
        if (mSelect) regoleSelect(mToken, mModifiche);
        if (mEspressioni) regoleEspressioni(mToken, mModifiche);
        if (mLike) regolaLike(mToken, mModifiche);
        return mModifiche.applica(mSql);
    }

  private:
    void leggi(size_t i) {
        const Token& t = mToken[i];
        switch (t.tipo) {
            case Tipo::Testo: {
                const QString testo = decodificaTestoSQL(t.testo.toString());
                if (testo != t.testo) mModifiche.sostituisci(t, testo);
                break;
            }
            case Tipo::TestoDoppio:
                mModifiche.sostituisci(t, traApici(t.testo));
                break;
            case Tipo::Data: {
                const QString data = letteraleData(t.testo);
                if (!data.isEmpty()) mModifiche.sostituisci(t, '\'' + data + '\'');
                break;
            }
            case Tipo::Parola:
                leggiParola(i);
                break;
            default:
                mEspressioni |= t.simbolo(u'&');
        }
    }

    void leggiParola(size_t i) {
        const Token& t = mToken[i];
        switch (t.chiave) {
            case parola("TOP"):
            case parola("HAVING"):
                mSelect = true;
                break;
            case parola("ISNULL"):
                mEspressioni = true;
                break;
            case parola("LIKE"):
                mLike = true;
                break;
            // Functions here, words of a join for SQLite.
            case parola("LEFT"):
            case parola("RIGHT"):
                if (vicino(i + 1, u'(')) mModifiche.sostituisci(t, '"' + t.testo.toString() + '"');
                break;
            case parola("TRUE"):
                costante(i, "(-1)");
                break;
            case parola("FALSE"):
                costante(i, "0");
                break;
            default:
                break;
        }
    }

    bool vicino(size_t i, char16_t simbolo) const { return i < mToken.size() && mToken[i].simbolo(simbolo); }

    void costante(size_t i, const QString& valore) {
        const bool partediNome = (i > 0 && vicino(i - 1, u'.')) || vicino(i + 1, u'.');
        if (!partediNome) mModifiche.sostituisci(mToken[i], valore);
    }

    const QString& mSql;
    std::vector<Token> mToken;
    Modifiche mModifiche;
    bool mSelect = false;
    bool mEspressioni = false;
    bool mLike = false;
};

}  // namespace

QString Modifiche::applica(const QString& sql) {
    if (mModifiche.empty()) return sql;
    std::stable_sort(mModifiche.begin(), mModifiche.end(), [](const Modifica& a, const Modifica& b) {
        return a.posizione != b.posizione ? a.posizione < b.posizione : a.ordine < b.ordine;
    });
    QString testo;
    testo.reserve(sql.size() + 32 * static_cast<qsizetype>(mModifiche.size()));
    qsizetype copiato = 0;
    for (const Modifica& m : mModifiche) {
        testo += QStringView(sql).mid(copiato, m.posizione - copiato);
        testo += m.testo;
        copiato = m.posizione + m.lunghezza;
    }
    return testo += QStringView(sql).mid(copiato);
}

}  // namespace dialetto

QString traduciAccessSQL(const QString& sql) {
    return dialetto::Traduttore(sql).traduci();
}
