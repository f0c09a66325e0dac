#pragma once

#include <exception>

#include <QString>

// A run-time error with the classic numbers. It is thrown by values and rules, and never leaves an event:
// the guard of core/errors.h turns it into a report and a failure value.
class RunTimeError : public std::exception {
  public:
    enum Numero {
        ChiamataNonValida = 5,  // an argument out of its domain
        Overflow = 6,           // a number too large for its type
        MemoriaEsaurita = 7,
        IndiceNonValido = 9,  // a subscript out of range
        DivisionePerZero = 11,
        TipoNonCorrispondente = 13,  // a text that should have been a number or a date
        CampoInesistente = 3265,     // a column that the recordset does not have
        ErroreApplicazione = 9999,   // raised by the program itself, with its own text
    };

    // With an empty description the classic Italian text of the number is used.
    explicit RunTimeError(int numero, QString descrizione = {}, QString origine = {});

    int numero() const { return mNumero; }
    const QString& descrizione() const { return mDescrizione; }
    const QString& origine() const { return mOrigine; }
    const char* what() const noexcept override { return mTesto.constData(); }

  private:
    int mNumero;
    QString mDescrizione;
    QString mOrigine;
    QByteArray mTesto;
};
