#pragma once

#include <cstdio>

#include <QByteArray>
#include <QString>

#include "core/currency.h"

// An independent exact computation for the tests of the arithmetic: decimal texts and 128-bit integers.

using Intero128 = __int128;

inline QString testoDi(Intero128 valore) {
    if (valore == 0) return "0";
    QString cifre;
    for (Intero128 v = valore < 0 ? -valore : valore; v > 0; v /= 10) {
        cifre.prepend(QChar(u'0' + static_cast<char16_t>(v % 10)));
    }
    return valore < 0 ? u'-' + cifre : cifre;
}

inline Intero128 diecialla(int esponente) {
    Intero128 potenza = 1;
    while (esponente-- > 0)
        potenza *= 10;
    return potenza;
}

// valore / divisore (above 0), to the nearest; ties away from zero or to the even one.
inline Intero128 dividi(Intero128 valore, Intero128 divisore, bool pari) {
    const Intero128 assoluto = valore < 0 ? -valore : valore;
    Intero128 quoziente = assoluto / divisore;
    const Intero128 doppioResto = 2 * (assoluto % divisore);
    if (doppioResto > divisore || (doppioResto == divisore && (!pari || quoziente % 2 != 0))) ++quoziente;
    return valore < 0 ? -quoziente : quoziente;
}

// A whole number of 10^-decimali with its comma in place.
inline QString conVirgola(Intero128 valore, int decimali) {
    const QString cifre = testoDi(valore < 0 ? -valore : valore).rightJustified(decimali + 1, u'0');
    const QString testo = cifre.chopped(decimali) + u',' + cifre.right(decimali);
    return valore < 0 ? u'-' + testo : testo;
}

// The same as the screens show it.
inline QString importoMostrato(Intero128 valore, int decimali) {
    QString testo = conVirgola(valore < 0 ? -valore : valore, decimali);
    for (qsizetype i = testo.indexOf(u',') - 3; i > 0; i -= 3)
        testo.insert(i, u'.');
    return valore < 0 ? u'-' + testo : testo;
}

// The exact value of a double, to the nearest 0,0001, ties to even, from its full decimal expansion.
inline Intero128 scalatoEsatto(double valore) {
    QByteArray espansione(1500, '\0');
    espansione.resize(std::snprintf(espansione.data(), 1500, "%.1100f", valore));
    const bool negativo = espansione.startsWith('-');
    const qsizetype punto = espansione.indexOf('.');
    Intero128 scalato = 0;
    for (qsizetype i = negativo ? 1 : 0; i < punto + 5; ++i) {
        if (i != punto) scalato = scalato * 10 + (espansione[i] - '0');
    }
    const QByteArray resto = espansione.mid(punto + 5);
    const QByteArray meta = QByteArray("5").leftJustified(resto.size(), '0');
    if (resto > meta || (resto == meta && scalato % 2 != 0)) ++scalato;
    return negativo ? -scalato : scalato;
}
