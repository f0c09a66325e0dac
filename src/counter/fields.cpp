#include "counter/fields.h"

#include <algorithm>

#include "core/errors.h"
#include "counter/accounts.h"
#include "counter/next_sale.h"
#include "data/client_settings.h"
#include "data/settings_store.h"
#include "sale/customer.h"
#include "sale/line_pricing.h"
#include "sale/product_entry.h"
#include "sale/quantity.h"
#include "sale/returns.h"
#include "sale/row_editor.h"
#include "sale/vat_entry.h"

namespace {

using RegolaFuoco = void (*)(Vendita&);

struct VoceRegola {
    Campo Vendita::*campo;
    RegolaFuoco regola;
};

// The fields that have a rule of their own when they are left.
const VoceRegola regole[] = {
    {&Vendita::txtQta, txtQta_LostFocus},
    {&Vendita::txtIVA, txtIVA_LostFocus},
    {&Vendita::txtPrezzoListino, txtPrezzoListino_LostFocus},
    {&Vendita::txtPrezzoListinoLordo, txtPrezzoListinoLordo_LostFocus},
    {&Vendita::txtPrezzoNetto, txtPrezzoNetto_LostFocus},
    {&Vendita::txtPrezzoFinito, txtPrezzoFinito_LostFocus},
    {&Vendita::TxtPrezzoRiga, TxtPrezzoRiga_LostFocus},
    {&Vendita::txtSconto1, [](Vendita& v) { txtSconto_LostFocus(v, v.txtSconto1); }},
    {&Vendita::txtSconto2, [](Vendita& v) { txtSconto_LostFocus(v, v.txtSconto2); }},
    {&Vendita::txtSconto3, [](Vendita& v) { txtSconto_LostFocus(v, v.txtSconto3); }},
};

// False when the rule failed: that is an event of its own, and what comes after it may still run.
bool lasciaCampo(Conto& conto, Campo& campo) {
    Vendita& v = conto.vendita();
    const QByteArray nome = (campo.nome() + "_LostFocus").toUtf8();
    return protetto(
        moduloFrmMain, nome.constData(),
        [&] {
            if (conto.raffica.di(&campo)) conto.raffica.ripristina();
            if (CTextBox* casella = v.caselle.di(campo)) {
                casella->lostFocus();
                if (!campo.bloccato()) casella->validate();
            }
            const auto voce = std::find_if(std::begin(regole), std::end(regole),
                                           [&](const VoceRegola& r) { return &(v.*r.campo) == &campo; });
            // Of a locked box too: leaving the price at the end of a row ends the row, whoever may change it.
            if (voce != std::end(regole)) voce->regola(v);
            return true;
        },
        false);
}

// A code that came without keys of its own, as from the keypad, is kept where it begins a new sale.
void codiceDigitato(Conto& conto, QChar tasto) {
    Campo& campo = conto.vendita().txtCodProdotto;
    const QString codice = campo.testo();
    if (!tasto.isPrint() && (tasto != u'\r' || codice.isEmpty())) return;
    primaDelProdotto(conto, true);
    if (!tasto.isPrint()) campo.testo(codice);
}

}  // namespace

std::optional<QChar> tastoInCampo(Conto& conto, Campo& campo, QChar tasto) {
    Vendita& v = conto.vendita();
    std::optional<QChar> passa = tasto;
    if (&campo == &v.txtCodProdotto) codiceDigitato(conto, tasto);
    if (&campo == &v.txtCodProdotto) passa = txtCodProdotto_KeyPress(v, tasto);
    if (&campo == &v.txtCodCliente && tasto == u'\r') txtCodCliente_Invio(v);
    if (!passa) return std::nullopt;
    CTextBox* casella = v.caselle.di(campo);
    return casella != nullptr ? casella->keyPress(*passa) : passa;
}

void fuocoPassa(Conto& conto, Campo* nuovo) {
    Campo* lasciato = conto.campoAttivo();
    if (lasciato == nuovo) return;
    conto.campoAttivo(nuovo);
    if (lasciato != nullptr) lasciaCampo(conto, *lasciato);
    if (nuovo == nullptr || nuovo != conto.campoAttivo()) return;
    if (CTextBox* casella = conto.vendita().caselle.di(*nuovo)) casella->gotFocus();
}

bool terminaCampo(Conto& conto) {
    Campo* campo = conto.campoAttivo();
    if (campo == nullptr) return true;
    const bool riuscito = lasciaCampo(conto, *campo);
    // Where nothing moved the focus on, it is still the field in use, and looks so.
    CTextBox* casella = conto.vendita().caselle.di(*campo);
    if (casella != nullptr && conto.campoAttivo() == campo) casella->gotFocus();
    return riuscito;
}

void spuntaCambiata(Conto& conto, Campo& spunta, int valore) {
    Vendita& v = conto.vendita();
    const bool dellaVendita = &spunta == &v.chkPagato || &spunta == &v.chkPrezziIva;
    if (dellaVendita && !v.modificaConsentita) {
        // The screen shows what stands.
        spunta.valore(valore);
        return spunta.valore(1 - valore);
    }
    spunta.valore(valore);
    if (&spunta == &v.chkReso) {
        chkReso_Click(v);
    } else if (&spunta == &v.chkCodiceProdotto) {
        impostazioni().scrivi(applicazioneClient, "Options", "ChkLike_Prodotto", QString::number(valore));
    } else if (v.flxVB.righe() > 1) {
        setVenditaModificata(v);
    }
}

std::vector<Campo*> ordineTab(Vendita& v) {
    return {&v.txtCodProdotto,
            &v.txtDescProdotto,
            &v.txtQta,
            &v.txtPrezzoListino,
            &v.txtPrezzoListinoLordo,
            &v.txtSconto1,
            &v.txtSconto2,
            &v.txtSconto3,
            &v.txtPrezzoNetto,
            &v.txtPrezzoFinito,
            &v.TxtPrezzoRiga,
            &v.txtIVA,
            &v.txtData,
            &v.txtProg,
            &v.txtSottoProg,
            &v.txtNumDoc,
            &v.chkPrezziIva,
            &v.txtCodCliente,
            &v.chkPagato};
}
