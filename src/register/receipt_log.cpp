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
    // What has no answer by now is not waited for: it would be taken from the next receipt.
    if (std::exchange(mRisposteAttese, false)) {
        segnaInVolo(Esito::Dubbio);
        mSenzaRisposta = 0;
    }
    archiviaInviati();
    mCoda.push_back({nuovaVoce(Esito::InCoda), cornici});
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
    if (mOrfane > 0) {
        --mOrfane;
        mInVolo = -1;
        return;
    }
    const auto primo =
        std::find_if(mCoda.begin(), mCoda.end(), [](const Lotto& l) { return l.daInviare > 0; });
    if (primo == mCoda.end()) return;
    --primo->daInviare;
    mInVolo = static_cast<int>(primo - mCoda.begin());
    ++mSenzaRisposta;
}

void RegistroScontrini::accettata() {
    mSenzaRisposta = std::max(0, mSenzaRisposta - 1);
    mRisposteAttese = mSenzaRisposta > 0 && std::all_of(mCoda.begin(), mCoda.end(),
                                                        [](const Lotto& l) { return l.daInviare == 0; });
    archiviaInviati();
}

void RegistroScontrini::rispostaNascosta() {
    segnaInVolo(Esito::Dubbio);
}

void RegistroScontrini::rifiutata() {
    if (mSenzaRisposta == 0) return;
    segnaInVolo(Esito::Incompleto);
    // With two in flight it is the later one that a retry sends again, whichever was refused.
    mRiprendibile = mSenzaRisposta == 1;
    --mSenzaRisposta;
    cambiato();
}

void RegistroScontrini::ripresa() {
    if (mInVolo < 0) {
        ++mOrfane;
        return;
    }
    Lotto& lotto = mCoda[static_cast<size_t>(mInVolo)];
    if (!std::exchange(mRiprendibile, false)) {
        lotto.difetto = Esito::Dubbio;
    } else if (lotto.difetto != Esito::Dubbio) {
        lotto.difetto.reset();
    }
    ++lotto.daInviare;
    cambiato();
}

void RegistroScontrini::annullate() {
    for (Lotto& lotto : std::exchange(mCoda, {})) {
        // Nothing was printed for what was not saved either: nobody needs to know.
        if (lotto.voce.esito == Esito::NonSalvata) continue;
        lotto.voce.esito = Esito::Annullato;
        archivia(std::move(lotto.voce));
    }
    mInVolo = -1;
    mSenzaRisposta = 0;
    mOrfane = 0;
    mRisposteAttese = false;
    mRiprendibile = false;
    cambiato();
}

void RegistroScontrini::collegamentoPerso() {
    if (mSenzaRisposta == 0) return;
    segnaInVolo(Esito::Interrotto);
    mRiprendibile = mSenzaRisposta == 1;
    mSenzaRisposta = 0;
    mRisposteAttese = false;
    cambiato();
}

void RegistroScontrini::segnaInVolo(Esito difetto) {
    if (mSenzaRisposta == 0) return;
    for (int i = 0; i <= mInVolo; ++i) {
        Lotto& lotto = mCoda[static_cast<size_t>(i)];
        if (lotto.difetto != Esito::Dubbio) lotto.difetto = difetto;
    }
}

void RegistroScontrini::archiviaInviati() {
    if (mSenzaRisposta > 0) return;
    bool finito = false;
    for (; !mCoda.empty() && mCoda.front().daInviare == 0; finito = true) {
        Voce voce = mCoda.front().comeSta();
        if (voce.esito == Esito::InCoda) voce.esito = Esito::Stampato;
        mCoda.pop_front();
        archivia(std::move(voce));
        mInVolo = std::max(mInVolo - 1, -1);
    }
    if (finito) cambiato();
}

// ---- The list

RegistroScontrini::Voce RegistroScontrini::Lotto::comeSta() const {
    Voce questa = voce;
    if (questa.esito != Esito::NonSalvata) questa.esito = difetto.value_or(questa.esito);
    return questa;
}

void RegistroScontrini::archivia(Voce voce) {
    if (voce.vendita.isEmpty()) return;
    if (voce.salvataggio != 0) {
        mInSospeso.push_back(std::move(voce));
    } else if (voce.esito != Esito::Stampato) {
        mMancanti.push_back(std::move(voce));
        if (mMancanti.size() > vociMassime) mMancanti.pop_front();
    }
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
            return "manca una risposta: da controllare";
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
