#pragma once

#include <functional>
#include <vector>

#include <QByteArray>
#include <QString>

// A field as mdb-export writes it: texts and dates in quotes, numbers bare, nothing at all for a Null.
struct CampoCsv {
    QString testo;
    bool traVirgolette = false;

    bool nullo() const { return testo.isEmpty() && !traVirgolette; }
};
using RigaCsv = std::vector<CampoCsv>;

// Takes the output of mdb-export piece by piece, as it comes. Fields are parted by `separatore`, rows end
// with a line feed; quotes inside a text are doubled, and a text may hold line breaks and separators.
class LettoreCsv {
  public:
    static constexpr char separatore = '\x1f';

    explicit LettoreCsv(std::function<void(const RigaCsv&)> riga) : mRiga(std::move(riga)) {}

    void leggi(const QByteArray& pezzo);
    // False when the output stopped inside a row.
    bool finito() const { return mStato == Stato::Inizio && mCampi.empty(); }

  private:
    enum class Stato { Inizio, Nudo, Virgolette, DopoVirgolette };

    void leggi(char c);
    void chiudiCampo();

    std::function<void(const RigaCsv&)> mRiga;
    Stato mStato = Stato::Inizio;
    QByteArray mCampo;
    bool mTraVirgolette = false;
    RigaCsv mCampi;
};
