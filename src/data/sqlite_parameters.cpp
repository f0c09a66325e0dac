#include "data/sqlite_parameters.h"

#include <algorithm>

namespace {

bool cifra(char c) {
    return c >= '0' && c <= '9';
}

// Part of a name; names beyond ASCII too.
bool diNome(char c) {
    return cifra(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

bool blanco(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool comincia(const QByteArray& sql, const char* parola) {
    return qstrnicmp(sql.constData(), parola, qstrlen(parola)) == 0;
}

class Estrattore {
  public:
    explicit Estrattore(const QByteArray& sql) : mSql(sql), mInserimento(comincia(sql, "INSERT ")) {}

    std::optional<IstruzioneParametrica> estrai() {
        if (!mInserimento && !comincia(mSql, "SELECT ") && !comincia(mSql, "UPDATE ") &&
            !comincia(mSql, "DELETE "))
            return std::nullopt;
        mEsito.testo.reserve(mSql.size());
        while (mI < mSql.size()) {
            if (!passo()) return std::nullopt;
        }
        return std::move(mEsito);
    }

  private:
    char qui() const { return mSql[mI]; }
    char dopo() const { return mI + 1 < mSql.size() ? mSql[mI + 1] : '\0'; }

    bool passo() {
        const char c = qui();
        switch (c) {
            case '\'':
                return testo();
            case '"':
            case '`':
                return nome(c);
            case '[':
                return nome(']');
            case '?':
            case ':':
            case '@':
            case '$':
                return false;
            default:
                break;
        }
        if ((c == '-' && dopo() == '-') || (c == '/' && dopo() == '*')) return false;
        if (cifra(c)) return numero();
        if (diNome(c)) return parola();
        copia(1);
        if (!blanco(c)) mPrima = c;
        return true;
    }

    void copia(qsizetype quanti) {
        mEsito.testo.append(mSql.constData() + mI, quanti);
        mI += quanti;
    }

    void valore(IstruzioneParametrica::Valore v, qsizetype fine) {
        mEsito.testo += '?';
        mEsito.valori.push_back(std::move(v));
        mPrima = '?';
        mI = fine;
    }

    // To the closing mark; one that is doubled is part of the name.
    bool nome(char fine) {
        const auto chiusura = mSql.indexOf(fine, mI + 1);
        if (chiusura < 0) return false;
        copia(chiusura + 1 - mI);
        mPrima = fine;
        return true;
    }

    bool testo() {
        if (mI > 0 && diNome(mSql[mI - 1])) return false;
        QByteArray contenuto;
        for (qsizetype da = mI + 1;;) {
            const auto apice = mSql.indexOf('\'', da);
            if (apice < 0) return false;
            contenuto.append(mSql.constData() + da, apice - da);
            da = apice + 2;
            if (apice + 1 < mSql.size() && mSql[apice + 1] == '\'') {
                contenuto += '\'';
                continue;
            }
            valore(std::move(contenuto), apice + 1);
            return true;
        }
    }

    bool parola() {
        auto fine = mI;
        while (fine < mSql.size() && diNome(mSql[fine]))
            ++fine;
        copia(fine - mI);
        mPrima = 'a';
        return true;
    }

    bool daTogliere() const {
        return mPrima == '=' || mPrima == '<' || mPrima == '>' ||
               (mInserimento && (mPrima == '(' || mPrima == ','));
    }

    // Digits, with a decimal point; an exponent or a letter behind them makes it something else.
    bool numero() {
        auto fine = mI;
        while (fine < mSql.size() && (cifra(mSql[fine]) || mSql[fine] == '.'))
            ++fine;
        while (fine < mSql.size() && diNome(mSql[fine]))
            ++fine;
        const QByteArray cifre = mSql.mid(mI, fine - mI);
        bool valido = false;
        if (daTogliere() &&
            std::none_of(cifre.begin(), cifre.end(), [](char c) { return !cifra(c) && c != '.'; })) {
            if (const qint64 intero = cifre.toLongLong(&valido); valido) {
                valore(intero, fine);
            } else if (const double reale = cifre.toDouble(&valido); valido && cifre.contains('.')) {
                valore(reale, fine);
            } else {
                valido = false;
            }
        }
        if (valido) return true;
        copia(fine - mI);
        mPrima = 'a';
        return true;
    }

    const QByteArray& mSql;
    const bool mInserimento;
    qsizetype mI = 0;
    char mPrima = ' ';  // the last mark that is no blank; 'a' for a word
    IstruzioneParametrica mEsito;
};

}  // namespace

std::optional<IstruzioneParametrica> togliLetterali(const QByteArray& sql) {
    return Estrattore(sql).estrai();
}
