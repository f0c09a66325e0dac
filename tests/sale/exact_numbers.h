#pragma once

#include <QString>

// A second arithmetic beside the program's: whole numbers only, rounded where and how a rule says. No
// floating value of the machine takes part.

__extension__ using Lungo = __int128;

// cifre / 10^decimali. A Currency is one of four decimals.
struct Decimale {
    Lungo cifre = 0;
    int decimali = 0;
};

// mantissa x 2^esponente, exactly: the value of a Single or of a double.
struct Binario {
    qint64 mantissa = 0;
    int esponente = 0;
};

// The result has no place in its type.
struct Traboccato {};

// The nearest Single or double, ties to even.
Binario singolo(Decimale valore);
Binario singolo(Binario valore);
Binario doppio(Decimale valore);
// One step in double precision, ties to even. Divisor 0: Traboccato.
Binario operator*(Binario a, Binario b);
Binario operator/(Binario a, Binario b);
Binario operator+(Binario a, Binario b);
Binario operator-(Binario a, Binario b);

// Currency: the nearest 0,0001, ties to even. Beyond 64 bits: Traboccato.
Decimale valuta(Decimale valore);
Decimale valuta(Binario valore);
// Sum and difference of two Currency.
Decimale somma(Decimale a, Decimale b);
Decimale differenza(Decimale a, Decimale b);

// The decimal digits that count of a floating value: 15 of a double, 7 of a Single. From 10^15 on:
// Traboccato; what is below 10^-8 counts as 0.
enum Significative { DiSingolo = 7, DiDoppio = 15 };
Decimale significativo(Binario valore, Significative cifre = DiDoppio);
// What formattaImporto shows, as a value: half away from zero, up to six decimals.
Decimale arrotondato(Decimale valore, int decimali);
Decimale arrotondato(Binario valore, int decimali, Significative cifre = DiDoppio);

// "1.234,50": all decimals, dots for thousands; with no decimals the comma stays.
QString mostrato(Decimale valore);
// "1234,5": no dots, no trailing zeros.
QString piano(Decimale valore);
// Back from either.
Decimale letto(const QString& testo);
