#include "price_precedence.h"

namespace {

const Fascia* fascia(const Fasce& fasce, int pezzi) {
    for (const Fascia& f : fasce) {
        if (f.da <= pezzi && pezzi <= f.a) return &f;
    }
    return nullptr;
}

Percentuali soloPrimo(Decimale sconto) {
    Percentuali p;
    p.sconti[0] = arrotondato(sconto, 2);
    return p;
}

Binario senza(Decimale percentuale) {
    return Binario{1, 0} - singolo(percentuale) / Binario{100, 0};
}

bool sonoZero(const Percentuali& p) {
    return p.sconti[0].cifre == 0 && p.sconti[1].cifre == 0 && p.sconti[2].cifre == 0;
}

// Product before customer; 0 when neither has one.
Decimale scontoFisso(const CasoDiPrezzo& caso) {
    return caso.scontoProdotto.cifre > 0 ? caso.scontoProdotto : caso.scontoCliente;
}

}  // namespace

PrezzoEffettivo::PrezzoEffettivo(const CasoDiPrezzo& caso)
    : mCaso(caso), mPrezzo(prezzoDiListino(caso, false)) {
    if (scontoFisso(caso).cifre > 0) {
        mPercentuali = soloPrimo(scontoFisso(caso));
        mFisso = true;
    } else {
        tabelle(1);
    }
}

void PrezzoEffettivo::quantita(int pezzi) {
    if (!mFisso) tabelle(pezzi);
}

void PrezzoEffettivo::tabelle(int pezzi) {
    if (!mCaso.haFascia || !mCaso.haCategoria) return;
    if (!mCaso.prezziNetti) {
        percentualiDiTabella(pezzi);
    } else if (const Fascia* netta = fascia(mCaso.nette, pezzi)) {
        mPrezzo = netta->prezzo;
        mPercentuali = {};
    }
    if (mCaso.immediato.cifre > 0) mPercentuali = soloPrimo(mCaso.immediato);
}

void PrezzoEffettivo::percentualiDiTabella(int pezzi) {
    const Fascia* trovata = fascia(mCaso.diMarca, pezzi);
    if (trovata == nullptr) trovata = fascia(mCaso.generali, pezzi);
    mPercentuali = trovata == nullptr ? Percentuali{} : trovata->percentuali;
}

Decimale prezzoDiListino(const CasoDiPrezzo& caso, bool conSconto) {
    if (caso.personale && caso.personale->cifre != 0) return *caso.personale;
    const int n = caso.listino < 1 ? 1 : caso.listino;
    const Decimale primo = valuta(caso.listini[0]);
    const Decimale suo = valuta(caso.listini[n - 1]);
    const Decimale prezzo = suo.cifre > 0 ? suo : primo;
    return conSconto ? valuta(doppio(prezzo) * senza(caso.scontoCliente)) : prezzo;
}

Decimale prezzoNettoInRicerca(const CasoDiPrezzo& caso) {
    const Decimale listino = valuta(prezzoDiListino(caso, false));
    if (caso.personale && caso.personale->cifre != 0) return listino;
    if (scontoFisso(caso).cifre > 0) return valuta(doppio(listino) * senza(scontoFisso(caso)));
    CasoDiPrezzo senzaImmediato = caso;
    senzaImmediato.immediato = {0, 2};
    const PrezzoEffettivo unPezzo(senzaImmediato);
    if (caso.prezziNetti) return valuta(unPezzo.prezzo());
    const Percentuali& p = unPezzo.percentuali();
    if (sonoZero(p)) return listino;
    return valuta(doppio(listino) * senza(p.sconti[0]) * senza(p.sconti[1]) * senza(p.sconti[2]));
}
