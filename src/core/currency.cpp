#include "core/currency.h"

#include <cmath>
#include <limits>

#include "core/decimal_digits.h"
#include "core/run_time_error.h"

namespace {

using Grande = unsigned __int128;

constexpr int scala = 10000;

// valore * 2^-bit, to the nearest, ties to even.
Grande spostaPari(Grande valore, int bit) {
    const Grande unita = Grande{1} << bit;
    const Grande resto = valore & (unita - 1);
    const Grande quoziente = valore >> bit;
    const bool inSu = resto > unita / 2 || (resto == unita / 2 && (quoziente & 1) != 0);
    return quoziente + (inSu ? 1 : 0);
}

}  // namespace

Currency Currency::daIntero(qint64 unita) {
    Currency c;
    if (__builtin_mul_overflow(unita, scala, &c.mScalato)) throw RunTimeError(RunTimeError::Overflow);
    return c;
}

Currency Currency::daDouble(double valore) {
    // The range ends below 2^50 units; also stops what is not a number.
    if (!(std::abs(valore) < 0x1p50)) throw RunTimeError(RunTimeError::Overflow);

    int esponente = 0;
    const double frazione = std::frexp(std::abs(valore), &esponente);
    // The 53 bits of the value times the scale stay below 2^67: from 68 bits of shift on nothing is left.
    const Grande esatto = static_cast<Grande>(std::ldexp(frazione, 53)) * scala;
    const int bit = 53 - esponente;
    const Grande scalato = bit < 68 ? spostaPari(esatto, bit) : 0;

    const bool negativo = valore < 0;
    const Grande limite = static_cast<Grande>(std::numeric_limits<qint64>::max()) + (negativo ? 1 : 0);
    if (scalato > limite) throw RunTimeError(RunTimeError::Overflow);
    const auto assoluto = static_cast<quint64>(scalato);
    return daScalato(static_cast<qint64>(negativo ? 0 - assoluto : assoluto));
}

QString Currency::testo() const {
    return CifreDecimali(*this).testo();
}

Currency Currency::assoluto() const {
    return mScalato < 0 ? -*this : *this;
}

Currency Currency::operator-() const {
    if (mScalato == std::numeric_limits<qint64>::min()) throw RunTimeError(RunTimeError::Overflow);
    return daScalato(-mScalato);
}

Currency& Currency::operator+=(Currency altro) {
    qint64 somma = 0;
    if (__builtin_add_overflow(mScalato, altro.mScalato, &somma)) throw RunTimeError(RunTimeError::Overflow);
    mScalato = somma;
    return *this;
}

Currency& Currency::operator-=(Currency altro) {
    qint64 differenza = 0;
    if (__builtin_sub_overflow(mScalato, altro.mScalato, &differenza)) {
        throw RunTimeError(RunTimeError::Overflow);
    }
    mScalato = differenza;
    return *this;
}
