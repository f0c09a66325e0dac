#include "data/sqlserver_sql.h"

#include <QDate>
#include <QTime>

#include "data/prepare_sql.h"
#include "data/sqlserver_sql_blocks.h"

namespace dialetto {
namespace {

// The server drops a backslash together with the line break behind it, so a text is parted between the
// two. A sum of texts is cut at 4,000 characters unless one of them is of no fixed length.
QString comeUnicode(QStringView letterale) {
    QString testo = "N";
    testo.reserve(letterale.size() + 1);
    qsizetype copiato = 0;
    for (qsizetype i = letterale.indexOf(u'\\'); i >= 0; i = letterale.indexOf(u'\\', i + 1)) {
        const QChar dopo = i + 1 < letterale.size() ? letterale[i + 1] : QChar();
        if (dopo != u'\n' && dopo != u'\r') continue;
        testo += letterale.mid(copiato, i + 1 - copiato);
        testo += u"' + N'";
        copiato = i + 1;
    }
    testo += letterale.mid(copiato);
    return copiato == 0 ? testo : "(CAST(N'' AS NVARCHAR(MAX)) + " + testo + ")";
}

// The interval of DateAdd; empty when there is no such one.
QString intervallo(QStringView letterale) {
    static constexpr struct {
        QLatin1StringView lettera;
        const char* nome;
    } intervalli[] = {
        {QLatin1StringView("yyyy"), "year"}, {QLatin1StringView("q"), "quarter"},
        {QLatin1StringView("m"), "month"},   {QLatin1StringView("d"), "day"},
        {QLatin1StringView("ww"), "week"},   {QLatin1StringView("h"), "hour"},
        {QLatin1StringView("n"), "minute"},  {QLatin1StringView("s"), "second"},
    };
    const QStringView lettera = letterale.mid(1, letterale.size() - 2);
    for (const auto& i : intervalli) {
        if (lettera.compare(i.lettera, Qt::CaseInsensitive) == 0) return i.nome;
    }
    return {};
}

// What { d '..' } and { t '..' } hold, in a form that no language of the server reads otherwise; empty
// for a text that is no date or time.
QString dataTraGraffe(quint64 tipo, QStringView letterale) {
    const QString testo = letterale.mid(1, letterale.size() - 2).toString();
    if (tipo == parola("D")) {
        const QDate data = QDate::fromString(testo, "yyyy-MM-dd");
        return data.isValid() ? "CAST(N'" + data.toString("yyyyMMdd") + "' AS DATE)" : QString();
    }
    const QTime ora = QTime::fromString(testo, "HH:mm:ss");
    return ora.isValid() ? "CAST(N'" + testo + "' AS TIME(0))" : QString();
}

class TraduttoreSqlServer {
  public:
    explicit TraduttoreSqlServer(const QString& sql) : mSql(sql), mToken(tokenizza(sql)) {}

    QString traduci() {
        for (size_t i = 0; i < mToken.size(); i = leggi(i)) {
        }
        if (mHaving) regolaHaving(mToken, mModifiche);
        if (mEspressioni) regoleEspressioni(mToken, mModifiche);
        if (mBlocchi) regolaBlocchiSvaniti(mToken, mModifiche);
        return mModifiche.applica(mSql);
    }

  private:
    quint64 chiave(size_t i) const { return i < mToken.size() ? mToken[i].chiave : 0; }
    bool simbolo(size_t i, char16_t c) const { return i < mToken.size() && mToken[i].simbolo(c); }
    bool tipo(size_t i, Tipo atteso) const { return i < mToken.size() && mToken[i].tipo == atteso; }
    bool senzaArgomenti(size_t i) const { return simbolo(i + 1, u'(') && simbolo(i + 2, u')'); }

    // Answers the next token to read.
    size_t leggi(size_t i) {
        switch (mToken[i].tipo) {
            case Tipo::Testo:
                leggiTesto(i);
                return i + 1;
            case Tipo::Parola:
                return mToken[i].chiave == 0 ? i + 1 : leggiParola(i);
            case Tipo::Simbolo:
                mEspressioni |= simbolo(i, u'&');
                return simbolo(i, u'{') ? leggiGraffa(i) : i + 1;
            default:
                return i + 1;
        }
    }

    // A "[" of LIKE would begin a set of characters here, and here only.
    void leggiTesto(size_t i) {
        const Token& t = mToken[i];
        const bool giaUnicode = i > 0 && chiave(i - 1) == parola("N") && mToken[i - 1].fine() == t.inizio;
        if (giaUnicode) return;
        QString testo = decodificaTestoSQL(t.testo.toString());
        if (i > 0 && chiave(i - 1) == parola("LIKE")) testo.replace("[", "[[]");
        mModifiche.sostituisci(t, comeUnicode(testo));
    }

    size_t leggiGraffa(size_t i) {
        const quint64 tipoData = chiave(i + 1);
        if (tipoData != parola("D") && tipoData != parola("T")) return i + 1;
        if (!tipo(i + 2, Tipo::Testo) || !simbolo(i + 3, u'}')) return i + 1;
        const QString data = dataTraGraffe(tipoData, mToken[i + 2].testo);
        if (data.isEmpty()) return i + 1;
        mModifiche.sostituisci(mToken[i], mToken[i + 3], data);
        return i + 4;
    }

    size_t leggiParola(size_t i) {
        switch (mToken[i].chiave) {
            case parola("NOW"):
                if (senzaArgomenti(i)) mModifiche.sostituisci(mToken[i], "GETDATE");
                break;
            case parola("DATE"):
                if (!senzaArgomenti(i)) break;
                mModifiche.sostituisci(mToken[i], mToken[i + 2], "CAST(GETDATE() AS DATE)");
                return i + 3;
            case parola("DATEADD"):
                return leggiIntervallo(i);
            case parola("TRUE"):
                costante(i, "1");
                break;
            case parola("FALSE"):
                costante(i, "0");
                break;
            case parola("TOP"):
                leggiTop(i);
                break;
            default:
                segnaRegole(i);
        }
        return i + 1;
    }

    // Which of the rules over the whole statement there is something for.
    void segnaRegole(size_t i) {
        switch (mToken[i].chiave) {
            case parola("HAVING"):
                mHaving = true;
                break;
            case parola("ISNULL"):
                mEspressioni = true;
                break;
            case parola("TOTQTA"):
                mBlocchi = true;
                break;
            case parola("AS"):
                mBlocchi |= i > 0 && simbolo(i - 1, u',');
                break;
            default:
                break;
        }
    }

    void costante(size_t i, const QString& valore) {
        const bool parteDiNome = (i > 0 && simbolo(i - 1, u'.')) || simbolo(i + 1, u'.');
        if (!parteDiNome) mModifiche.sostituisci(mToken[i], valore);
    }

    size_t leggiIntervallo(size_t i) {
        const bool conTesto = tipo(i + 2, Tipo::Testo) || tipo(i + 2, Tipo::TestoDoppio);
        const QString nome = conTesto && simbolo(i + 1, u'(') ? intervallo(mToken[i + 2].testo) : QString();
        if (nome.isEmpty()) return i + 1;
        mModifiche.sostituisci(mToken[i + 2], nome);
        return i + 3;
    }

    // TOP n DISTINCT: here the second word comes first.
    void leggiTop(size_t i) {
        if (!tipo(i + 1, Tipo::Numero) || chiave(i + 2) != parola("DISTINCT")) return;
        mModifiche.primaDi(mToken[i], "DISTINCT ");
        mModifiche.sostituisci(mToken[i + 2], {});
    }

    const QString& mSql;
    std::vector<Token> mToken;
    Modifiche mModifiche;
    bool mHaving = false;
    bool mEspressioni = false;
    bool mBlocchi = false;
};

}  // namespace
}  // namespace dialetto

QString traduciSqlServer(const QString& sql) {
    return dialetto::TraduttoreSqlServer(sql).traduci();
}
