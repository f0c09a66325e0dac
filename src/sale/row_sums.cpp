#include "sale/row_sums.h"

#include "core/globals.h"
#include "sale/flxvb.h"
#include "sale/totals.h"

namespace {

double fattore(const FlexVB& g, int riga, Colonna sconto) {
    return 1 - static_cast<double>(g.single(riga, sconto)) / 100;
}

SommaRiga somma(const FlexVB& g, int riga) {
    SommaRiga s;
    s.conta = g.viva(riga) && !testaDistinta(g.cella(riga, Colonna::Codice));
    if (s.conta) {
        s.quantita = g.single(riga, Colonna::Quantita);
        const double listino = g.currency(riga, Colonna::PrezzoListino).toDouble();
        const double iva = g.currency(riga, Colonna::Iva).toDouble();
        s.netto =
            Currency::daDouble(listino * static_cast<double>(s.quantita) *
                               (fattore(g, riga, Colonna::Sconto2) * fattore(g, riga, Colonna::Sconto1)) *
                               fattore(g, riga, Colonna::Sconto3));
        s.totale = g.currency(riga, Colonna::Importo);
        s.lordo =
            Currency::daDouble(g.currency(riga, Colonna::Quantita).toDouble() * ((iva / 100 + 1) * listino));
    }
    s.revisione = g.revisione(riga);
    return s;
}

}  // namespace

const std::vector<SommaRiga>& SommeRighe::di(const FlexVB& righe) {
    if (mDistintaBase != gDistintaBase) {
        mDistintaBase = gDistintaBase;
        mSomme.clear();
    }
    mSomme.resize(static_cast<size_t>(righe.ultima()));
    int riga = 0;
    for (SommaRiga& s : mSomme) {
        ++riga;
        if (s.revisione != righe.revisione(riga)) s = somma(righe, riga);
    }
    return mSomme;
}
