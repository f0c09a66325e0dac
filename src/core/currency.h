#pragma once

#include <compare>

#include <QString>

// Money: a 64-bit integer scaled by 10000, so four exact decimals. No implicit conversion in or out: a
// rule says where a step leaves or enters the type, because that is what fixes the cents.
// Every operation that leaves the range raises RunTimeError 6 (overflow).
class Currency {
  public:
    constexpr Currency() = default;

    static constexpr Currency daScalato(qint64 decimillesimi) {
        Currency c;
        c.mScalato = decimillesimi;
        return c;
    }
    static Currency daIntero(qint64 unita);
    // The nearest 0,0001, ties to even, by the exact binary value. Not a number or out of range: overflow.
    static Currency daDouble(double valore);
    // A Single: as daDouble.
    static Currency daSingle(float valore) { return daDouble(static_cast<double>(valore)); }

    constexpr qint64 scalato() const { return mScalato; }
    double toDouble() const { return static_cast<double>(mScalato) / 10000.0; }
    float toSingle() const { return static_cast<float>(toDouble()); }

    // Plain Italian text: decimal comma, no thousands, no trailing zeros ("8,55", "-0,0001", "0").
    QString testo() const;

    Currency assoluto() const;
    Currency operator-() const;
    Currency& operator+=(Currency altro);
    Currency& operator-=(Currency altro);
    friend Currency operator+(Currency a, Currency b) { return a += b; }
    friend Currency operator-(Currency a, Currency b) { return a -= b; }
    friend constexpr bool operator==(Currency, Currency) = default;
    friend constexpr std::strong_ordering operator<=>(Currency, Currency) = default;

  private:
    qint64 mScalato = 0;
};
