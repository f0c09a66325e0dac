#include "register/receipt_log.h"

#include <algorithm>
#include <utility>

#include "core/clock.h"

void RegistroScontrini::nonConsegnato(Esito esito) {
    mNonConsegnato = {orologio().adesso(), mVendita, esito};
}

void RegistroScontrini::consegnato(qsizetype cornici) {
    mCoda.push_back({{orologio().adesso(), mVendita, Esito::InCoda}, cornici});
    mConsegnato = true;
    cambiato();
}

// A sale that was not saved needs no receipt; one that went out for it says what never happened. It may have
// been printed before the failed save has ended.
void RegistroScontrini::salvataggioConcluso(bool salvata) {
    const auto mancante = std::exchange(mNonConsegnato, std::nullopt);
    auto stampato = std::exchange(mStampato, std::nullopt);
    const bool consegnato = std::exchange(mConsegnato, false);
    mVendita.clear();
    if (salvata && mancante) aggiungi(*mancante);
    if (!salvata && stampato) {
        stampato->esito = Esito::NonSalvata;
        aggiungi(*stampato);
    } else if (!salvata && consegnato && !mCoda.empty()) {
        mCoda.back().voce.esito = Esito::NonSalvata;
    }
    cambiato();
}

void RegistroScontrini::inviata() {
    const auto primo =
        std::find_if(mCoda.begin(), mCoda.end(), [](const Lotto& l) { return l.daInviare > 0; });
    if (primo == mCoda.end()) return;
    --primo->daInviare;
    mInVolo = static_cast<int>(primo - mCoda.begin());
}

void RegistroScontrini::accettata() {
    bool finito = false;
    for (; !mCoda.empty() && mCoda.front().daInviare == 0; finito = true) {
        archivia(mCoda.front());
        mCoda.pop_front();
        --mInVolo;
    }
    mInVolo = std::max(mInVolo, -1);
    if (finito) cambiato();
}

void RegistroScontrini::rifiutata() {
    if (mInVolo >= 0) mCoda[static_cast<size_t>(mInVolo)].rifiutato = true;
}

void RegistroScontrini::ripresa() {
    if (mInVolo < 0) return;
    Lotto& lotto = mCoda[static_cast<size_t>(mInVolo)];
    lotto.rifiutato = false;
    ++lotto.daInviare;
}

void RegistroScontrini::annullate() {
    for (Lotto& lotto : std::exchange(mCoda, {})) {
        // Nothing was printed for what was not saved either: nobody needs to know.
        if (lotto.voce.esito == Esito::NonSalvata) continue;
        lotto.voce.esito = Esito::Annullato;
        aggiungi(std::move(lotto.voce));
    }
    mInVolo = -1;
    cambiato();
}

void RegistroScontrini::archivia(const Lotto& lotto) {
    Voce voce = lotto.voce;
    if (voce.esito != Esito::NonSalvata) {
        if (!lotto.rifiutato) {
            if (mConsegnato && mCoda.size() == 1) mStampato = voce;
            return;
        }
        voce.esito = Esito::Incompleto;
    }
    aggiungi(std::move(voce));
}

void RegistroScontrini::aggiungi(Voce voce) {
    if (voce.vendita.isEmpty()) return;
    mMancanti.push_back(std::move(voce));
    if (mMancanti.size() > vociMassime) mMancanti.pop_front();
}

void RegistroScontrini::cambiato() const {
    if (mOsservatore) mOsservatore();
}

std::vector<RegistroScontrini::Voce> RegistroScontrini::voci() const {
    std::vector<Voce> tutte(mMancanti.begin(), mMancanti.end());
    for (const Lotto& lotto : mCoda) {
        if (!lotto.voce.vendita.isEmpty()) tutte.push_back(lotto.voce);
    }
    std::stable_sort(tutte.begin(), tutte.end(), [](const Voce& a, const Voce& b) { return a.ora < b.ora; });
    return tutte;
}

QString descrizioneEsito(RegistroScontrini::Esito esito) {
    using Esito = RegistroScontrini::Esito;
    switch (esito) {
        case Esito::InCoda:
            return "in attesa del registratore";
        case Esito::Scollegato:
            return "registratore scollegato";
        case Esito::Sospeso:
            return "invio sospeso";
        case Esito::Annullato:
            return "annullato dall'operatore";
        case Esito::Incompleto:
            return "un comando rifiutato non è stato ripreso";
        case Esito::NonSalvata:
            return "scontrino inviato, salvataggio NON riuscito";
    }
    return {};
}
