#include "counter/key_burst.h"

#include "counter/accounts.h"
#include "counter/fields.h"
#include "counter/next_sale.h"
#include "sale/product_entry.h"

namespace {

constexpr int attesaFine = 80;  // milliseconds without a key after which a burst has ended

// Where the keys of a scan do harm: in a number or a date, and where they are lost.
bool esposto(Conto& conto, const Campo* campo) {
    if (campo == nullptr) return true;
    const CTextBox* casella = conto.vendita().caselle.di(*campo);
    return casella != nullptr && casella->txtType() != CTextBox::Nessuno;
}

bool entraRaffica(Conto& conto) {
    conto.fermaTimer(SchermoVendita::Timer::Raffica);
    const auto codice = conto.raffica.prendi();
    if (codice) scansiona(conto, *codice);
    return codice.has_value();
}

bool tastoDiFine(Conto& conto, qint64 istante) {
    if (conto.raffica.continua(istante)) return entraRaffica(conto);
    TimerRaffica_Timer(conto);
    return false;
}

}  // namespace

void RafficaTasti::aggiungi(Campo* campo, QChar carattere, qint64 istante) {
    if (!inCorso()) {
        mCampo = campo;
        mTestoPrima = campo == nullptr ? QString() : campo->testo();
    }
    mCodice += carattere;
    mUltimo = istante;
}

void RafficaTasti::ripristina() {
    if (mCampo != nullptr && valida()) mCampo->testo(mTestoPrima);
}

std::optional<QString> RafficaTasti::prendi() {
    ripristina();
    const auto codice = valida() ? std::optional(mCodice) : std::nullopt;
    dimentica();
    return codice;
}

bool tastoDiRaffica(Conto& conto, QChar carattere, qint64 istante) {
    RafficaTasti& raffica = conto.raffica;
    if (!raffica.attiva || istante < 0 || conto.vendita().mDaLaser) {
        raffica.dimentica();
        return false;
    }
    if (carattere == u'\r' || carattere == u'\t') return tastoDiFine(conto, istante);
    if (!raffica.continua(istante) || !raffica.di(conto.campoAttivo())) entraRaffica(conto);
    Campo* campo = conto.campoAttivo();
    if (!esposto(conto, campo)) return false;
    raffica.aggiungi(campo, carattere, istante);
    conto.avviaTimer(SchermoVendita::Timer::Raffica, attesaFine);
    return false;
}

void TimerRaffica_Timer(Conto& conto) {
    entraRaffica(conto);
}

void scansiona(Conto& conto, const QString& codice) {
    Vendita& v = conto.vendita();
    terminaCampo(conto);
    primaDelProdotto(conto);
    iniziaScansione(v);
    v.txtCodProdotto.testo(codice);
    tastoInCampo(conto, v.txtCodProdotto, u'\r');
}
