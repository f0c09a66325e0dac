#include "core/decimal_digits.h"

#include <charconv>
#include <cmath>

#include <QVarLengthArray>

#include "core/run_time_error.h"

CifreDecimali::CifreDecimali(double valore) {
    daReale(valore, 15);
}

CifreDecimali::CifreDecimali(float valore) {
    daReale(valore, 7);
}

CifreDecimali::CifreDecimali(qint64 valore) {
    daIntero(valore, 0);
}

CifreDecimali::CifreDecimali(Currency valore) {
    daIntero(valore.scalato(), 4);
}

template <class Reale>
void CifreDecimali::daReale(Reale valore, int significative) {
    if (!std::isfinite(valore)) throw RunTimeError(RunTimeError::Overflow);
    mNegativo = std::signbit(valore);

    // d.ddd...e[+-]xx
    std::array<char, 32> testo;
    const auto scritto = std::to_chars(testo.data(), testo.data() + testo.size(), std::abs(valore),
                                       std::chars_format::scientific, significative - 1);
    mCifre[0] = testo[0];
    std::copy_n(testo.data() + 2, significative - 1, mCifre.data() + 1);
    const char* esponente = testo.data() + significative + 2;
    if (*esponente == '+') ++esponente;
    int potenza = 0;
    std::from_chars(esponente, scritto.ptr, potenza);
    mVirgola = potenza + 1;
    normalizza(significative);
}

void CifreDecimali::daIntero(qint64 valore, int decimali) {
    mNegativo = valore < 0;
    const quint64 assoluto = mNegativo ? 0 - static_cast<quint64>(valore) : static_cast<quint64>(valore);
    const auto scritto = std::to_chars(mCifre.data(), mCifre.data() + mCifre.size(), assoluto);
    const int lunghezza = static_cast<int>(scritto.ptr - mCifre.data());
    mVirgola = lunghezza - decimali;
    normalizza(lunghezza);
}

// Only a zero has "0" as its first digit here.
void CifreDecimali::normalizza(int lunghezza) {
    mNumero = lunghezza;
    while (mNumero > 0 && mCifre[static_cast<size_t>(mNumero - 1)] == '0')
        --mNumero;
    if (mNumero == 0) {
        mVirgola = 0;
        mNegativo = false;
    }
}

QChar CifreDecimali::cifra(int posto) const {
    const int indice = mVirgola - 1 - posto;
    if (indice < 0 || indice >= mNumero) return u'0';
    return QLatin1Char(mCifre[static_cast<size_t>(indice)]);
}

void CifreDecimali::arrotonda(int decimali) {
    int restano = mVirgola + decimali;
    if (restano >= mNumero) return;
    if (restano < 0) return normalizza(0);

    const bool inSu = mCifre[static_cast<size_t>(restano)] >= '5';
    if (inSu) {
        while (restano > 0 && mCifre[static_cast<size_t>(restano - 1)] == '9')
            --restano;
        if (restano > 0) {
            ++mCifre[static_cast<size_t>(restano - 1)];
        } else {
            mCifre[0] = '1';
            restano = 1;
            ++mVirgola;
        }
    }
    normalizza(restano);
}

QString CifreDecimali::testo() const {
    QVarLengthArray<QChar, 64> testo;
    if (mNegativo) testo += u'-';
    for (int posto = std::max(interi(), 1) - 1; posto >= 0; --posto)
        testo += cifra(posto);
    if (decimali() > 0) testo += u',';
    for (int posto = -1; posto >= -decimali(); --posto)
        testo += cifra(posto);
    return QString(testo.constData(), testo.size());
}

QString CifreDecimali::testoEsponente() const {
    QString testo;
    if (mNegativo) testo += u'-';
    testo += cifra(esponente());
    if (mNumero > 1) testo += u',' + QString::fromLatin1(mCifre.data() + 1, mNumero - 1);
    testo += esponente() < 0 ? "E-" : "E+";
    return testo + QString::number(std::abs(esponente())).rightJustified(2, u'0');
}
