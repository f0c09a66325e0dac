#include "core/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "core/decimal_digits.h"
#include "core/run_time_error.h"

// A cell is read on every step of every total, so a text is read in one pass and without allocation: its
// digits make one integer, which is then scaled. Only numbers of more than 18 digits take a longer road.

namespace {

template <class Numero, size_t quante>
constexpr std::array<Numero, quante> potenzeDiDieci() {
    std::array<Numero, quante> potenze{};
    Numero potenza = 1;
    for (Numero& p : potenze) {
        p = potenza;
        potenza = static_cast<Numero>(potenza * 10);
    }
    return potenze;
}

constexpr auto potenzeIntere = potenzeDiDieci<quint64, 19>();
constexpr auto potenzeEsatte = potenzeDiDieci<double, 23>();  // all of these a double holds exactly
constexpr quint64 mantissaEsatta = quint64{1} << 53;
constexpr quint64 mantissaPiena = potenzeIntere[17];  // no room for one more digit

struct NumeroLetto {
    bool numerico = false;
    bool negativo = false;
    bool lungo = false;    // the mantissa did not take all digits
    quint64 mantissa = 0;  // all digits, as one integer
    int decimali = 0;      // how many of them are decimals
    QStringView cifre;     // the text without blanks and sign
    char16_t virgola = u',';

    void aggiungi(unsigned cifra, bool decimale) {
        if (mantissa < mantissaPiena) {
            mantissa = mantissa * 10 + cifra;
        } else {
            lungo = true;
        }
        if (decimale) ++decimali;
        numerico = true;
    }
};

bool eBianco(char16_t c) {
    return c == u' ' || c == u'\t';
}

unsigned valoreCifra(char16_t c) {
    return static_cast<unsigned>(c) - u'0';
}

// Skips the blanks and the sign at the head of a text.
const char16_t* dopoIlSegno(const char16_t* p, const char16_t* fine, NumeroLetto& numero) {
    while (p != fine && eBianco(*p))
        ++p;
    if (p != fine && (*p == u'-' || *p == u'+')) numero.negativo = *p++ == u'-';
    return p;
}

NumeroLetto leggiItaliano(QStringView testo) {
    NumeroLetto numero;
    const char16_t* fine = testo.utf16() + testo.size();
    const char16_t* p = dopoIlSegno(testo.utf16(), fine, numero);
    while (fine != p && eBianco(fine[-1]))
        --fine;
    numero.cifre = QStringView(p, fine);

    bool decimale = false;
    for (; p != fine; ++p) {
        if (const unsigned cifra = valoreCifra(*p); cifra <= 9) {
            numero.aggiungi(cifra, decimale);
        } else if (*p == u',' && !decimale) {
            decimale = true;
        } else if (*p != u'.' || decimale) {
            return {};
        }
    }
    return numero;
}

NumeroLetto leggiTesta(QStringView testo) {
    NumeroLetto numero;
    numero.virgola = u'.';
    const char16_t* fine = testo.utf16() + testo.size();
    const char16_t* const inizio = dopoIlSegno(testo.utf16(), fine, numero);
    const char16_t* p = inizio;

    bool decimale = false;
    for (; p != fine; ++p) {
        if (const unsigned cifra = valoreCifra(*p); cifra <= 9) {
            numero.aggiungi(cifra, decimale);
        } else if (*p == u'.' && !decimale) {
            decimale = true;
        } else {
            break;
        }
    }
    numero.cifre = QStringView(inizio, p);
    return numero;
}

double doubleLungo(const NumeroLetto& numero) {
    std::string cifre;
    bool grande = false;  // a text that does not fit is too large, or too near to 0
    bool decimale = false;
    for (const QChar c : numero.cifre) {
        if (c == numero.virgola) {
            decimale = true;
            cifre += '.';
        } else if (valoreCifra(c.unicode()) <= 9) {
            grande = grande || (!decimale && c != u'0');
            cifre += c.toLatin1();
        }
    }
    double valore = 0;
    const auto letto =
        std::from_chars(cifre.data(), cifre.data() + cifre.size(), valore, std::chars_format::fixed);
    if (letto.ec == std::errc::result_out_of_range) {
        if (grande) throw RunTimeError(RunTimeError::Overflow);
        return 0;
    }
    return valore;
}

double doubleDi(const NumeroLetto& numero) {
    const bool breve = !numero.lungo && numero.mantissa <= mantissaEsatta &&
                       numero.decimali < static_cast<int>(potenzeEsatte.size());
    const double valore =
        breve ? static_cast<double>(numero.mantissa) / potenzeEsatte[static_cast<size_t>(numero.decimali)]
              : doubleLungo(numero);
    return numero.negativo && valore != 0 ? -valore : valore;
}

float singleDi(double valore) {
    const auto single = static_cast<float>(valore);
    if (!std::isfinite(single)) throw RunTimeError(RunTimeError::Overflow);
    return single;
}

quint64 scalatoBreve(quint64 mantissa, int decimali) {
    if (decimali <= 4) {
        quint64 scalato = 0;
        if (__builtin_mul_overflow(mantissa, potenzeIntere[static_cast<size_t>(4 - decimali)], &scalato)) {
            throw RunTimeError(RunTimeError::Overflow);
        }
        return scalato;
    }
    const auto tolte = static_cast<size_t>(decimali - 4);
    if (tolte >= potenzeIntere.size()) return 0;
    const quint64 unita = potenzeIntere[tolte];
    const quint64 quoziente = mantissa / unita;
    const quint64 resto = mantissa % unita;
    const bool inSu = resto > unita / 2 || (resto == unita / 2 && quoziente % 2 != 0);
    return quoziente + (inSu ? 1 : 0);
}

// The digits up to the fourth decimal as one integer; the fifth and what follows round it.
quint64 scalatoLungo(QStringView cifre) {
    const qsizetype virgola = cifre.indexOf(u',');
    const qsizetype interi = virgola < 0 ? cifre.size() : virgola;
    quint64 scalato = 0;
    const auto aggiungi = [&scalato](unsigned cifra) {
        if (__builtin_mul_overflow(scalato, quint64{10}, &scalato) ||
            __builtin_add_overflow(scalato, quint64{cifra}, &scalato)) {
            throw RunTimeError(RunTimeError::Overflow);
        }
    };
    for (const QChar c : cifre.left(interi)) {
        if (c != u'.') aggiungi(valoreCifra(c.unicode()));
    }
    const QStringView decimali = cifre.mid(std::min(interi + 1, cifre.size()));
    for (qsizetype i = 0; i < 4; ++i)
        aggiungi(i < decimali.size() ? valoreCifra(decimali[i].unicode()) : 0);

    const unsigned quinta = decimali.size() > 4 ? valoreCifra(decimali[4].unicode()) : 0;
    const QStringView coda = decimali.mid(std::min<qsizetype>(5, decimali.size()));
    const bool esatta = std::all_of(coda.begin(), coda.end(), [](QChar c) { return c == u'0'; });
    const bool inSu = quinta > 5 || (quinta == 5 && (!esatta || scalato % 2 != 0));
    // Far beyond the range of the type already: one more must not wrap.
    return inSu && scalato != std::numeric_limits<quint64>::max() ? scalato + 1 : scalato;
}

Currency currencyDi(const NumeroLetto& numero) {
    const quint64 scalato =
        numero.lungo ? scalatoLungo(numero.cifre) : scalatoBreve(numero.mantissa, numero.decimali);
    const quint64 limite =
        static_cast<quint64>(std::numeric_limits<qint64>::max()) + (numero.negativo ? 1 : 0);
    if (scalato > limite) throw RunTimeError(RunTimeError::Overflow);
    return Currency::daScalato(static_cast<qint64>(numero.negativo ? 0 - scalato : scalato));
}

NumeroLetto leggiNumerico(QStringView testo) {
    const NumeroLetto numero = leggiItaliano(testo);
    if (!numero.numerico) throw RunTimeError(RunTimeError::TipoNonCorrispondente);
    return numero;
}

// Plain digits where a person would write them so; such a text can be read back.
template <class Reale>
QString testoReale(Reale valore) {
    const CifreDecimali cifre(valore);
    const bool piano = cifre.esponente() >= -15 && cifre.esponente() < 15;
    return piano ? cifre.testo() : cifre.testoEsponente();
}

}  // namespace

bool isNumeric(QStringView testo) {
    return leggiItaliano(testo).numerico;
}

double numeroDouble(QStringView testo) {
    return doubleDi(leggiNumerico(testo));
}

float numeroSingle(QStringView testo) {
    return singleDi(numeroDouble(testo));
}

Currency numeroCurrency(QStringView testo) {
    return currencyDi(leggiNumerico(testo));
}

std::optional<double> seDouble(QStringView testo) {
    const NumeroLetto numero = leggiItaliano(testo);
    return numero.numerico ? std::optional(doubleDi(numero)) : std::nullopt;
}

std::optional<float> seSingle(QStringView testo) {
    const NumeroLetto numero = leggiItaliano(testo);
    return numero.numerico ? std::optional(singleDi(doubleDi(numero))) : std::nullopt;
}

std::optional<Currency> seCurrency(QStringView testo) {
    const NumeroLetto numero = leggiItaliano(testo);
    return numero.numerico ? std::optional(currencyDi(numero)) : std::nullopt;
}

double Val(QStringView testo) {
    return doubleDi(leggiTesta(testo));
}

int valIntero(QStringView testo) {
    const double valore = std::nearbyint(Val(testo));
    if (valore < std::numeric_limits<int>::min() || valore > std::numeric_limits<int>::max()) {
        throw RunTimeError(RunTimeError::Overflow);
    }
    return static_cast<int>(valore);
}

QString testoNumero(double valore) {
    return testoReale(valore);
}

QString testoNumero(float valore) {
    return testoReale(valore);
}

QString testoNumero(qint64 valore) {
    return QString::number(valore);
}
