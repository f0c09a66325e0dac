#pragma once

#include <optional>

#include <QChar>
#include <QString>

class Campo;
class Conto;

// A scanner that sends no prefix types faster than any hand. A burst of its keys that lands in a number
// field, or in none, is a scan and never a quantity.
class RafficaTasti {
  public:
    // A scanner's keys are no further apart, in milliseconds.
    static constexpr qint64 passo = 50;
    // Codes that are taken for a scan: EAN-8 to GTIN-14.
    static constexpr int minima = 8;
    static constexpr int massima = 14;

    bool attiva = true;  // the desk's setting

    bool inCorso() const { return !mCodice.isEmpty(); }
    // A key at that time would belong to the burst.
    bool continua(qint64 istante) const { return inCorso() && istante - mUltimo <= passo; }
    bool di(const Campo* campo) const { return inCorso() && mCampo == campo; }
    bool valida() const { return mCodice.size() >= minima && mCodice.size() <= massima; }

    // A key; the first one remembers what the field held. `campo`: nothing when no field has the focus.
    void aggiungi(Campo* campo, QChar carattere, qint64 istante);
    // The field holds again what it held before a burst that is a scan.
    void ripristina();
    // Ends the burst: the code when it is a scan, with the field as it was before.
    std::optional<QString> prendi();
    void dimentica() { mCodice.clear(); }

  private:
    Campo* mCampo = nullptr;
    QString mTestoPrima;
    QString mCodice;
    qint64 mUltimo = 0;
};

// A key on its way to a field; '\r' and '\t' too. True when it is consumed. `istante`: milliseconds of any
// clock, below 0 for a key of a hand.
bool tastoDiRaffica(Conto& conto, QChar carattere, qint64 istante);
// No key has followed for a while.
void TimerRaffica_Timer(Conto& conto);
// Enters a code as the scanner's prefix, the code and Enter do.
void scansiona(Conto& conto, const QString& codice);
