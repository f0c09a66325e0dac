#pragma once

#include <array>

#include <QString>

#include "core/currency.h"

// A number as its decimal digits: the common ground of patterns and of plain texts. What a person reads
// as 1,005 is rounded as 1,005, although no double holds that value.
class CifreDecimali {
  public:
    // 15 significant digits. Not a finite number: RunTimeError 6.
    explicit CifreDecimali(double valore);
    // 7 significant digits. Not a finite number: RunTimeError 6.
    explicit CifreDecimali(float valore);
    explicit CifreDecimali(qint64 valore);
    explicit CifreDecimali(Currency valore);

    // Never true of zero.
    bool negativo() const { return mNegativo; }
    // How many digits stand before the comma, without leading zeros (0 below 1).
    int interi() const { return mVirgola > 0 ? mVirgola : 0; }
    // How many digits stand behind the comma, without trailing zeros.
    int decimali() const { return mNumero > mVirgola ? mNumero - mVirgola : 0; }
    // The digit that counts 10 to the power `posto` (0 the units, -1 the first decimal).
    QChar cifra(int posto) const;

    // To so many decimals, half away from zero.
    void arrotonda(int decimali);

    // The value as its first digit, the others and a power of ten: "1,5E+20".
    QString testoEsponente() const;
    // The value with a decimal comma, no thousands, no superfluous zeros.
    QString testo() const;
    // The power of ten of the first digit.
    int esponente() const { return mVirgola - 1; }

  private:
    template <class Reale>
    void daReale(Reale valore, int significative);
    void daIntero(qint64 valore, int decimali);
    void normalizza(int lunghezza);

    // 0,d1d2d3... times 10 to mVirgola; the first and the last digit are not "0".
    std::array<char, 20> mCifre{};
    int mNumero = 0;
    int mVirgola = 0;
    bool mNegativo = false;
};
