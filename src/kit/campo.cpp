#include "kit/campo.h"

#include "core/numbers.h"

Campo* ElencoCampi::trova(const QString& nome) const {
    for (Campo* campo : mCampi) {
        if (campo->nome() == nome) return campo;
    }
    return nullptr;
}

Campo::Campo(ElencoCampi& elenco, const char* nome) : mNome(nome) {
    elenco.mCampi.push_back(this);
}

void Campo::testo(const QString& testo) {
    assegna(mTesto, testo);
}

int Campo::chiave() const {
    return valIntero(mTag);
}

void Campo::testoETag(const QString& testo) {
    mTag = testo;
    this->testo(testo);
}

void Campo::valore(int valore) {
    assegna(mValore, valore);
}
void Campo::bloccato(bool bloccato) {
    assegna(mBloccato, bloccato);
}
void Campo::abilitato(bool abilitato) {
    assegna(mAbilitato, abilitato);
}
void Campo::visibile(bool visibile) {
    assegna(mVisibile, visibile);
}

void Campo::colori(std::optional<unsigned> fondo, std::optional<unsigned> testo) {
    if (mColoreFondo == fondo && mColoreTesto == testo) return;
    mColoreFondo = fondo;
    mColoreTesto = testo;
    cambiato();
}
