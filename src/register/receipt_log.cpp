#include "register/receipt_log.h"

#include <algorithm>
#include <utility>

#include "core/clock.h"

// ---- The books

void RegistroScontrini::inizia(const QString& vendita) {
    // A save that begins anew within itself has failed so far.
    if (mSalvataggio != 0) salvataggioConcluso(false);
    mVendita = vendita;
    mSalvataggio = ++mUltimoSalvataggio;
}

RegistroScontrini::Voce RegistroScontrini::nuovaVoce(Esito esito) const {
    return {orologio().adesso(), mVendita, esito, mSalvataggio};
}

void RegistroScontrini::nonConsegnato(Esito esito) {
    archivia(nuovaVoce(esito));
}

void RegistroScontrini::consegnato(qsizetype cornici) {
    // What has no answer by now is not waited for: it may never come.
    if (std::exchange(mRisposteAttese, false)) {
        segnaInVolo(Esito::Dubbio);
        mArretrate += std::exchange(mSenzaRisposta, 0);
    }
    archiviaInviati();
    mCoda.push_back({nuovaVoce(Esito::InCoda), cornici});
    // If it does come, it counts for this receipt, whose last answer is then missing.
    if (std::exchange(mArretrate, 0) > 0) mCoda.back().guasta(Esito::Dubbio);
    cambiato();
}

void RegistroScontrini::salvataggioConcluso(bool salvata) {
    mVendita.clear();
    chiarisci(std::exchange(mSalvataggio, 0), salvata);
}

int RegistroScontrini::salvataggioIncerto() {
    const int numero = std::exchange(mSalvataggio, 0);
    mVendita.clear();
    for (Voce& voce : mInSospeso) {
        voce.incerta |= voce.salvataggio == numero;
    }
    for (Lotto& lotto : mCoda) {
        lotto.voce.incerta |= numero != 0 && lotto.voce.salvataggio == numero;
    }
    cambiato();
    return numero;
}

void RegistroScontrini::chiarisci(int salvataggio, bool salvata) {
    if (salvataggio == 0) return;
    for (Lotto& lotto : mCoda) {
        Voce& voce = lotto.voce;
        if (voce.salvataggio != salvataggio) continue;
        voce.salvataggio = 0;
        voce.incerta = false;
        if (!salvata) voce.esito = Esito::NonSalvata;
    }
    const auto sue = std::stable_partition(mInSospeso.begin(), mInSospeso.end(),
                                           [=](const Voce& v) { return v.salvataggio != salvataggio; });
    const std::vector<Voce> decise(sue, mInSospeso.end());
    mInSospeso.erase(sue, mInSospeso.end());
    for (const Voce& voce : decise) {
        decidi(voce, salvata);
    }
    cambiato();
}

// A sale that was not saved needs no receipt; one that went out for it says what never happened.
void RegistroScontrini::decidi(Voce voce, bool salvata) {
    const bool uscito =
        voce.esito != Esito::Scollegato && voce.esito != Esito::Sospeso && voce.esito != Esito::Annullato;
    if (!salvata && !uscito) return;
    if (!salvata) voce.esito = Esito::NonSalvata;
    voce.salvataggio = 0;
    voce.incerta = false;
    archivia(std::move(voce));
}

// ---- The link

void RegistroScontrini::inviata() {
    // From here on the last frame is another one than what was refused.
    mRiprendibile = false;
    if (mOrfane > 0) {
        --mOrfane;
        ++mArretrate;
        mInVolo = -1;
        return;
    }
    const auto primo =
        std::find_if(mCoda.begin(), mCoda.end(), [](const Lotto& l) { return l.daInviare > 0; });
    if (primo == mCoda.end()) return;
    --primo->daInviare;
    primo->iniziato = true;
    primo->intero = primo->intero || primo->daInviare == 0;
    mInVolo = static_cast<int>(primo - mCoda.begin());
    ++mSenzaRisposta;
}

void RegistroScontrini::accettata() {
    if (mSenzaRisposta > 0) {
        --mSenzaRisposta;
    } else {
        rispostaSenzaCornice();
    }
    mRisposteAttese = mSenzaRisposta > 0 && std::all_of(mCoda.begin(), mCoda.end(),
                                                        [](const Lotto& l) { return l.daInviare == 0; });
    archiviaInviati();
}

void RegistroScontrini::rispostaNascosta() {
    segnaInVolo(Esito::Dubbio);
    // It has come, at least: only the answer before it is still to be told.
    if (mSenzaRisposta > 1) --mSenzaRisposta;
}

void RegistroScontrini::rifiutata() {
    if (mSenzaRisposta == 0) return rispostaSenzaCornice();
    segnaInVolo(Esito::Incompleto);
    // With two in flight it is the later one that a retry sends again, whichever was refused.
    mRiprendibile = mSenzaRisposta == 1;
    --mSenzaRisposta;
    cambiato();
}

// With one answer too many, each since then was taken for that of the frame behind its own: what the last
// ones said is known now alone.
void RegistroScontrini::rispostaSenzaCornice() {
    if (mArretrate > 0) {
        --mArretrate;
        return;
    }
    for (Lotto& lotto : mCoda) {
        if (lotto.iniziato) lotto.guasta(Esito::Dubbio);
    }
    for (Voce& voce : mInSospeso) {
        if (voce.esito == Esito::Stampato) voce.esito = Esito::Dubbio;
    }
    for (Voce& voce : std::exchange(mUltimi, {})) {
        voce.esito = Esito::Dubbio;
        archivia(std::move(voce));
    }
    cambiato();
}

void RegistroScontrini::ripresa() {
    if (mInVolo < 0) {
        ++mOrfane;
        return;
    }
    Lotto& lotto = mCoda[static_cast<size_t>(mInVolo)];
    if (!std::exchange(mRiprendibile, false)) {
        lotto.guasta(Esito::Dubbio);
    } else if (lotto.difetto == Esito::Incompleto) {
        lotto.difetto.reset();
    }
    ++lotto.daInviare;
    cambiato();
}

void RegistroScontrini::annullate() {
    const int rifiutato = mRiprendibile ? mInVolo : -1;
    int posto = 0;
    for (Lotto& lotto : std::exchange(mCoda, {})) {
        // What was sent to its end is on paper, unless its own last frame is what was refused.
        const bool forseStampato = posto++ != rifiutato && lotto.intero;
        // Nothing was printed for what was not saved either: nobody needs to know.
        if (lotto.voce.esito == Esito::NonSalvata && !forseStampato) continue;
        if (lotto.voce.esito != Esito::NonSalvata)
            lotto.voce.esito = forseStampato ? Esito::Dubbio : Esito::Annullato;
        archivia(std::move(lotto.voce));
    }
    mInVolo = -1;
    mArretrate += std::exchange(mSenzaRisposta, 0);
    mOrfane = 0;
    mRisposteAttese = false;
    mRiprendibile = false;
    cambiato();
}

void RegistroScontrini::collegamentoPerso() {
    for (Lotto& lotto : mCoda) {
        if (lotto.iniziato) lotto.guasta(Esito::Interrotto);
    }
    mRiprendibile = false;
    mSenzaRisposta = 0;
    mArretrate = 0;
    mRisposteAttese = false;
    mUltimi.clear();
    cambiato();
}

void RegistroScontrini::segnaInVolo(Esito difetto) {
    if (mSenzaRisposta == 0) return;
    for (int i = 0; i <= mInVolo; ++i) {
        mCoda[static_cast<size_t>(i)].guasta(difetto);
    }
}

void RegistroScontrini::archiviaInviati() {
    if (mSenzaRisposta > 0) return;
    const auto finito = [this] { return !mCoda.empty() && mCoda.front().daInviare == 0; };
    if (!finito()) return;
    mUltimi.clear();
    while (finito()) {
        Voce voce = mCoda.front().comeSta();
        if (voce.esito == Esito::InCoda) voce.esito = Esito::Stampato;
        mCoda.pop_front();
        archivia(std::move(voce));
        mInVolo = std::max(mInVolo - 1, -1);
    }
    cambiato();
}

// ---- The list

RegistroScontrini::Voce RegistroScontrini::Lotto::comeSta() const {
    Voce questa = voce;
    if (questa.esito != Esito::NonSalvata) questa.esito = difetto.value_or(questa.esito);
    return questa;
}

void RegistroScontrini::Lotto::guasta(Esito nuovo) {
    if (!difetto || difetto == Esito::Incompleto) difetto = nuovo;
}

void RegistroScontrini::archivia(Voce voce) {
    if (voce.vendita.isEmpty()) return;
    if (voce.salvataggio != 0) {
        mInSospeso.push_back(std::move(voce));
    } else if (voce.esito == Esito::Stampato) {
        mUltimi.push_back(std::move(voce));
    } else {
        mMancanti.push_back(std::move(voce));
        if (mMancanti.size() > vociMassime) mMancanti.pop_front();
    }
}

qsizetype RegistroScontrini::inAttesa() const {
    if (mRisposteAttese) return 0;
    return std::count_if(mCoda.begin(), mCoda.end(),
                         [this](const Lotto& l) { return l.daInviare > 0 || mSenzaRisposta > 0; });
}

void RegistroScontrini::cambiato() const {
    if (mOsservatore) mOsservatore();
}

std::vector<RegistroScontrini::Voce> RegistroScontrini::voci() const {
    std::vector<Voce> tutte(mMancanti.begin(), mMancanti.end());
    std::copy_if(mInSospeso.begin(), mInSospeso.end(), std::back_inserter(tutte),
                 [](const Voce& v) { return v.incerta; });
    for (const Lotto& lotto : mCoda) {
        if (!lotto.voce.vendita.isEmpty()) tutte.push_back(lotto.comeSta());
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
        case Esito::Interrotto:
            return "collegamento caduto durante la stampa";
        case Esito::Dubbio:
            return "le risposte non tornano: da controllare";
        case Esito::Stampato:
            return "scontrino stampato";
        case Esito::NonSalvata:
            return "scontrino inviato, salvataggio NON riuscito";
    }
    return {};
}

QString descrizione(const RegistroScontrini::Voce& voce) {
    return descrizioneEsito(voce.esito) + (voce.incerta ? ", salvataggio incerto" : "");
}
