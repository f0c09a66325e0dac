#include "exact_numbers.h"

#include <bit>
#include <limits>
#include <utility>

namespace {

__extension__ using Intero = unsigned __int128;

constexpr int bitSingolo = 24;
constexpr int bitDoppio = 53;

int lunghezza(Intero n) {
    const auto alto = static_cast<quint64>(n >> 64);
    if (alto != 0) return 64 + static_cast<int>(std::bit_width(alto));
    return static_cast<int>(std::bit_width(static_cast<quint64>(n)));
}

Intero potenza10(int esponente) {
    Intero n = 1;
    for (int i = 0; i < esponente; ++i) {
        n *= 10;
    }
    return n;
}

Intero modulo(Lungo n) {
    return n < 0 ? 0 - static_cast<Intero>(n) : static_cast<Intero>(n);
}

enum class Meta { Pari, LontanoDaZero };

// n / d to the nearest whole number.
Intero diviso(Intero n, Intero d, Meta meta, bool avanzo = false) {
    const Intero intero = n / d;
    const Intero resto = n % d;
    const Intero mancante = d - resto;
    if (resto < mancante) return intero;
    if (resto > mancante || avanzo) return intero + 1;
    return meta == Meta::Pari ? intero + (intero & 1) : intero + 1;
}

Lungo conSegno(bool negativo, Intero n) {
    const auto valore = static_cast<Lungo>(n);
    return negativo ? -valore : valore;
}

Decimale inValuta(bool negativo, Intero decimillesimi) {
    const auto massimo = static_cast<Intero>(std::numeric_limits<qint64>::max()) + (negativo ? 1 : 0);
    if (decimillesimi > massimo) throw Traboccato{};
    return {conSegno(negativo, decimillesimi), 4};
}

Lungo perPotenza10(Lungo n, int esponente) {
    return n * static_cast<Lungo>(potenza10(esponente));
}

// The nearest value of so many bits to n / d x 2^esponente.
Binario alPiuVicino(bool negativo, Intero n, Intero d, int esponente, int bit) {
    if (n == 0) return {};
    const int alzata = 126 - lunghezza(n);
    n <<= alzata;
    esponente -= alzata;
    const bool avanzo = n % d != 0;
    Intero quoziente = n / d;
    const int superflui = lunghezza(quoziente) - bit;
    quoziente = diviso(quoziente, static_cast<Intero>(1) << superflui, Meta::Pari, avanzo);
    esponente += superflui;
    while ((quoziente & 1) == 0) {
        quoziente >>= 1;
        ++esponente;
    }
    return {static_cast<qint64>(conSegno(negativo, quoziente)), esponente};
}

// The value times 10^decimali, to the nearest whole number, ties to even.
Intero inDecimali(Binario b, int decimali) {
    const Intero n = modulo(b.mantissa) * potenza10(decimali);
    if (b.esponente >= 0) {
        if (lunghezza(n) + b.esponente > 127) throw Traboccato{};
        return n << b.esponente;
    }
    if (-b.esponente > 126) return 0;
    return diviso(n, static_cast<Intero>(1) << -b.esponente, Meta::Pari);
}

}  // namespace

Binario singolo(Decimale valore) {
    return alPiuVicino(valore.cifre < 0, modulo(valore.cifre), potenza10(valore.decimali), 0, bitSingolo);
}

Binario singolo(Binario valore) {
    return alPiuVicino(valore.mantissa < 0, modulo(valore.mantissa), 1, valore.esponente, bitSingolo);
}

Binario doppio(Decimale valore) {
    return alPiuVicino(valore.cifre < 0, modulo(valore.cifre), potenza10(valore.decimali), 0, bitDoppio);
}

Binario operator*(Binario a, Binario b) {
    const Intero prodotto = modulo(a.mantissa) * modulo(b.mantissa);
    const bool negativo = (a.mantissa < 0) != (b.mantissa < 0);
    return alPiuVicino(negativo, prodotto, 1, a.esponente + b.esponente, bitDoppio);
}

Binario operator/(Binario a, Binario b) {
    if (b.mantissa == 0) throw Traboccato{};
    const bool negativo = (a.mantissa < 0) != (b.mantissa < 0);
    return alPiuVicino(negativo, modulo(a.mantissa), modulo(b.mantissa), a.esponente - b.esponente,
                       bitDoppio);
}

Binario operator+(Binario a, Binario b) {
    if (a.mantissa == 0) return b;
    if (b.mantissa == 0) return a;
    if (a.esponente < b.esponente) std::swap(a, b);
    const int salto = a.esponente - b.esponente;
    if (lunghezza(modulo(a.mantissa)) + salto > 125) throw Traboccato{};
    const Intero primo = modulo(a.mantissa) << salto;
    const Intero secondo = modulo(b.mantissa);
    const bool concordi = (a.mantissa < 0) == (b.mantissa < 0);
    const bool negativo = primo > secondo ? a.mantissa < 0 : b.mantissa < 0;
    const Intero distanza = primo > secondo ? primo - secondo : secondo - primo;
    return alPiuVicino(negativo, concordi ? primo + secondo : distanza, 1, b.esponente, bitDoppio);
}

Binario operator-(Binario a, Binario b) {
    return a + Binario{-b.mantissa, b.esponente};
}

Decimale valuta(Decimale valore) {
    const bool negativo = valore.cifre < 0;
    if (valore.decimali <= 4) {
        return inValuta(negativo, modulo(perPotenza10(valore.cifre, 4 - valore.decimali)));
    }
    return inValuta(negativo, diviso(modulo(valore.cifre), potenza10(valore.decimali - 4), Meta::Pari));
}

Decimale valuta(Binario valore) {
    return inValuta(valore.mantissa < 0, inDecimali(valore, 4));
}

Decimale somma(Decimale a, Decimale b) {
    const Lungo cifre = a.cifre + b.cifre;
    return inValuta(cifre < 0, modulo(cifre));
}

Decimale differenza(Decimale a, Decimale b) {
    return somma(a, {-b.cifre, b.decimali});
}

Decimale arrotondato(Decimale valore, int decimali) {
    if (valore.decimali <= decimali) {
        return {perPotenza10(valore.cifre, decimali - valore.decimali), decimali};
    }
    const Intero n = diviso(modulo(valore.cifre), potenza10(valore.decimali - decimali), Meta::LontanoDaZero);
    return {conSegno(valore.cifre < 0, n), decimali};
}

Decimale significativo(Binario valore, Significative cifre) {
    if (inDecimali(valore, 8) == 0) return {};
    const Intero oltre = potenza10(cifre);
    int posti = 22;
    Intero n = inDecimali(valore, posti);
    while (posti > 0 && n >= oltre) {
        n = inDecimali(valore, --posti);
    }
    if (n >= oltre) throw Traboccato{};
    return {conSegno(valore.mantissa < 0, n), posti};
}

Decimale arrotondato(Binario valore, int decimali, Significative cifre) {
    return arrotondato(significativo(valore, cifre), decimali);
}

QString mostrato(Decimale valore) {
    QString cifre;
    for (Intero n = modulo(valore.cifre); n > 0; n /= 10) {
        cifre.prepend(QChar('0' + static_cast<int>(n % 10)));
    }
    cifre = cifre.rightJustified(valore.decimali + 1, '0');
    const qsizetype interi = cifre.size() - valore.decimali;
    cifre.insert(interi, ',');
    for (qsizetype i = interi - 3; i > 0; i -= 3) {
        cifre.insert(i, '.');
    }
    return valore.cifre < 0 ? "-" + cifre : cifre;
}

QString piano(Decimale valore) {
    while (valore.decimali > 0 && valore.cifre % 10 == 0) {
        valore = {valore.cifre / 10, valore.decimali - 1};
    }
    QString testo = mostrato(valore).remove('.');
    if (testo.endsWith(',')) testo.chop(1);
    return testo;
}

Decimale letto(const QString& testo) {
    Decimale valore;
    bool dopoVirgola = false;
    for (const QChar c : testo) {
        if (c == ',') dopoVirgola = true;
        if (!c.isDigit()) continue;
        valore.cifre = valore.cifre * 10 + c.digitValue();
        if (dopoVirgola) ++valore.decimali;
    }
    if (testo.startsWith('-')) valore.cifre = -valore.cifre;
    return valore;
}
