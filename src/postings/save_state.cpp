#include "postings/save_state.h"

#include "sale/totals.h"
#include "sale/vendita.h"

StatoPrimaDelSalvataggio::StatoPrimaDelSalvataggio(const Vendita& v)
    : mRid(v.lblRID.testo()),
      mProg(v.txtProg.testo()),
      mTotConto(v.lblTotConto.testo()),
      mGiaContato(v.lblLastMainDisplay.testo()),
      mPrimaNota(v.idPrimaNota),
      mPNPagamento(v.idPNPagamento),
      mPagamento(v.idPagamento) {
    if (trasferimento(v)) mCelle = celle(v.flxVB);
}

bool StatoPrimaDelSalvataggio::trasferimento(const Vendita& v) {
    return v.magazzinoOrigine >= 1 && v.magazzinoDestinazione >= 1;
}

void StatoPrimaDelSalvataggio::ripristina(Vendita& v) const {
    v.lblRID.testo(mRid);
    v.txtProg.testo(mProg);
    v.lblTotConto.testo(mTotConto);
    v.idPrimaNota = mPrimaNota;
    v.idPNPagamento = mPNPagamento;
    v.idPagamento = mPagamento;
    rimetti(v);
}

StatoPrimaDelSalvataggio::Celle StatoPrimaDelSalvataggio::celle(const FlexVB& g) {
    Celle tutte(static_cast<size_t>(g.ultima()));
    for (int r = 1; r <= g.ultima(); ++r) {
        for (int c = 0; c < numeroColonne; ++c)
            tutte[static_cast<size_t>(r - 1)][static_cast<size_t>(c)] = g.cella(r, static_cast<Colonna>(c));
    }
    return tutte;
}

// A transfer has put costs in the place of the prices.
void StatoPrimaDelSalvataggio::rimetti(Vendita& v) const {
    if (mCelle.empty()) return;
    for (int r = 1; r <= v.flxVB.ultima(); ++r) {
        for (int c = 0; c < numeroColonne; ++c)
            v.flxVB.scrivi(r, static_cast<Colonna>(c),
                           mCelle[static_cast<size_t>(r - 1)][static_cast<size_t>(c)]);
    }
    v.lblLastMainDisplay.testo(mGiaContato);
    calcolaTotali(v, false);
}
