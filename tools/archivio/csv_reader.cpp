#include "archivio/csv_reader.h"

#include <utility>

void LettoreCsv::leggi(const QByteArray& pezzo) {
    for (const char c : pezzo)
        leggi(c);
}

void LettoreCsv::leggi(char c) {
    if (mStato == Stato::Virgolette) {
        if (c == '"') {
            mStato = Stato::DopoVirgolette;
        } else {
            mCampo += c;
        }
        return;
    }
    if (c == '"' && mStato != Stato::Nudo) {
        if (mStato == Stato::DopoVirgolette) mCampo += c;
        mStato = Stato::Virgolette;
        mTraVirgolette = true;
        return;
    }
    if (c == separatore || c == '\n') {
        chiudiCampo();
        if (c == '\n') mRiga(std::exchange(mCampi, {}));
        return;
    }
    mCampo += c;
    mStato = Stato::Nudo;
}

void LettoreCsv::chiudiCampo() {
    mCampi.push_back({QString::fromUtf8(mCampo), mTraVirgolette});
    mCampo.clear();
    mTraVirgolette = false;
    mStato = Stato::Inizio;
}
