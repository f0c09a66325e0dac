#include "sale/line_pricing.h"

#include "core/globals.h"
#include "core/run_time_error.h"
#include "core/value_helpers.h"
#include "sale/grid.h"
#include "sale/product_info.h"
#include "sale/row_editor.h"
#include "sale/row_writer.h"
#include "sale/totals.h"
#include "sale/vendita.h"

namespace {

// The tolerance of the commit test, on each side and inclusive.
constexpr Currency unCentesimo = Currency::daScalato(100);

double fattoreIva(double iva) {
    return 1 + iva / 100;
}

double percento(const Campo& sconto) {
    return static_cast<double>(getValoreSingle(sconto.testo()));
}

// A price times the three discount factors of the editor, from the first to the third.
double scontato(const Vendita& v, double prezzo) {
    return prezzo * (1 - percento(v.txtSconto1) / 100) * (1 - percento(v.txtSconto2) / 100) *
           (1 - percento(v.txtSconto3) / 100);
}

double ivaEditor(const Vendita& v) {
    return static_cast<double>(getValoreSingle(v.lblValoraIva.testo()));
}

double quantita(const Vendita& v) {
    return static_cast<double>(quantitaEditor(v));
}

// A quotient that a zero divisor makes an overflow.
Currency diviso(Currency dividendo, double divisore) {
    if (divisore == 0.0) throw RunTimeError(RunTimeError::Overflow);
    return Currency::daDouble(dividendo.toDouble() / divisore);
}

Currency valore(const Campo& campo) {
    return getValoreCurrency(campo.testo());
}

void ricalcolaAvanti(Vendita& v) {
    const Currency listino = valore(v.txtPrezzoListino);
    const float iva = getValoreSingle(v.lblValoraIva.testo());
    const Currency netto = calcolaPrezzoNetto(v, listino, iva);
    v.txtPrezzoNetto.tag(netto.testo());
    v.txtPrezzoNetto.testo(formattaImporto(netto, gDecimaliDopo));
    v.lblPrezzoNetto.testo(v.txtPrezzoNetto.testo());
    v.txtPrezzoListino.tag(formattaImporto(netto, gDecimaliDopo));
    v.lblPrezzoListino.testo(v.txtPrezzoListino.testo());
    // The final price comes straight from the list price, the row total from the net price: they may
    // differ by a cent, as the shop's receipts do.
    v.txtPrezzoFinito.testoETag(
        formattaImporto(scontato(v, listino.toDouble() * fattoreIva(static_cast<double>(iva))), 2));
    v.TxtPrezzoRiga.testoETag(
        formattaImporto(netto.toDouble() * quantita(v) * fattoreIva(static_cast<double>(iva)), 2));
    v.lblPrezzoListinoLordo.testo(v.txtPrezzoListinoLordo.testo());
}

void ricalcolaIndietro(Vendita& v) {
    const Currency unitario = diviso(valore(v.TxtPrezzoRiga), quantita(v));
    v.txtPrezzoListinoLordo.testo(formattaImporto(unitario, 2));
    v.lblPrezzoListinoLordo.testo(v.txtPrezzoListinoLordo.testo());
    const double iva = valore(v.lblValoraIva).toDouble();
    v.txtPrezzoNetto.testoETag(formattaImporto(unitario.toDouble() / fattoreIva(iva), gDecimaliDopo));
    v.lblPrezzoNetto.testo(v.txtPrezzoNetto.testo());
    Currency listino = valore(v.txtPrezzoNetto);
    for (const Campo* sconto : {&v.txtSconto3, &v.txtSconto2, &v.txtSconto1}) {
        listino = diviso(listino, (100 - percento(*sconto)) / 100);
    }
    v.txtPrezzoListino.testoETag(formattaImporto(listino, gDecimaliDopo));
    v.lblPrezzoListino.testo(v.txtPrezzoListino.testo());
}

void azzeraSconti(Vendita& v) {
    for (Campo* sconto : {&v.txtSconto1, &v.txtSconto2, &v.txtSconto3}) {
        sconto->testoETag("0,00");
    }
}

void prezzoPositivoSeReso(Vendita& v, Campo& prezzo) {
    if (v.chkReso.valore() == 1) prezzo.testo(formattaImporto(valore(prezzo).assoluto(), 2));
}

// A list price keeps its decimals: the commit would take a rounded one for a change.
void listinoPositivoSeReso(Vendita& v, Campo& listino, int decimali) {
    if (v.chkReso.valore() == 1 && valore(listino) < Currency())
        listino.testo(formattaImporto(valore(listino).assoluto(), decimali));
}

void lasciaPrezzo(Vendita& v) {
    if (v.mUsaPrezziIva) {
        ricalcolaPrezzi(v, true, true);
    } else if (gDisabilitaInvio != 0) {
        aggiornaRigaCorrente(v);
        v.schermo.fuoco(v.txtCodProdotto);
    } else {
        chiudiRiga(v);
    }
}

}  // namespace

Currency calcolaPrezzoNetto(Vendita& v, Currency listino, float iva) {
    const Currency sconto = listino - Currency::daDouble(scontato(v, listino.toDouble()));
    v.lblScNetto.testo(formattaImporto(sconto, 6));
    // The money discount goes through its text and a Single.
    const Currency netto = listino - Currency::daSingle(getValoreSingle(v.lblScNetto.testo()));
    v.lblTotPrezzoNetto.testo(formattaImporto(netto.toDouble() * quantita(v), 6));
    v.lblIvaProdotto.testo(formattaImporto(netto.toDouble() * static_cast<double>(iva) / 100, 6));
    v.lblTotIVA.testo(
        formattaImporto(static_cast<double>(getValoreSingle(v.lblIvaProdotto.testo())) * quantita(v), 6));
    v.lblTotRiga.testo(formattaImporto(valore(v.lblTotPrezzoNetto) + valore(v.lblTotIVA), 6));
    return netto;
}

void ricalcolaPrezzi(Vendita& v, bool daTotale, bool aggiornaRiga) {
    if (daTotale) {
        ricalcolaIndietro(v);
    } else {
        ricalcolaAvanti(v);
    }
    if (aggiornaRiga) aggiornaRigaCorrente(v);
}

void aggiornaRigaCorrente(Vendita& v) {
    const Currency netto = valore(v.txtPrezzoNetto);
    const Currency riferimento = getValoreCurrency(v.txtPrezzoListino.tag());
    if (netto < riferimento - unCentesimo || netto > riferimento + unCentesimo) {
        ricalcolaSconti(v);
        // The row is sold at the price that was set: its net price is that one, not the computed one before.
        v.txtPrezzoNetto.tag(netto.testo());
    }
    bool presente = false;
    const int riga = addNewElement(v, 0, presente);
    if (riga < 1) return;
    {
        const RidisegnoFermo fermo(v.schermo);
        calcolaTotali(v, false);
        selFlexRow(v, riga);
    }
    showMargineProdotto(v, v.txtCodProdotto.chiave(), valore(v.txtPrezzoNetto));
}

void chiudiRiga(Vendita& v) {
    aggiornaRigaCorrente(v);
    pulisciCampiRiga(v, false);
    v.schermo.fuoco(v.txtCodProdotto);
}

void ricalcolaSconti(Vendita& v) {
    azzeraSconti(v);
    v.txtPrezzoListino.testo(formattaImporto(valore(v.txtPrezzoNetto), gDecimaliDopo));
    v.txtPrezzoListinoLordo.testo(formattaImporto(
        valore(v.txtPrezzoListino).toDouble() * fattoreIva(valore(v.lblValoraIva).toDouble()), 2));
    v.lblPrezzoListino.testo(v.txtPrezzoListino.testo());
    v.lblPrezzoListinoLordo.testo(v.txtPrezzoListinoLordo.testo());
}

void azzeraScontiDaNetto(Vendita& v) {
    for (Campo* sconto : {&v.txtSconto1, &v.txtSconto2, &v.txtSconto3}) {
        sconto->testo("0,00");
    }
    v.txtPrezzoListino.testo(formattaImporto(valore(v.txtPrezzoNetto), gDecimaliDopo));
    v.txtPrezzoListino.tag(v.txtPrezzoNetto.testo());
}

void applicaScontiRiga(Vendita& v) {
    ricalcolaPrezzi(v, false, false);
    if (percento(v.txtSconto1) < 0 || percento(v.txtSconto2) < 0 || percento(v.txtSconto3) < 0)
        ricalcolaSconti(v);
}

void txtPrezzoListino_LostFocus(Vendita& v) {
    listinoPositivoSeReso(v, v.txtPrezzoListino, gDecimaliDopo);
    if (v.txtPrezzoListino.testo() == v.lblPrezzoListino.testo()) return;
    if (v.lblIDIva.testo().isEmpty() || getValoreSingle(v.lblIDIva.testo()) < 0) return;
    ricalcolaPrezzi(v, false, true);
    v.lblPrezzoListino.testo(v.txtPrezzoListino.testo());
}

void txtPrezzoListinoLordo_LostFocus(Vendita& v) {
    listinoPositivoSeReso(v, v.txtPrezzoListinoLordo, 2);
    if (v.txtPrezzoListinoLordo.testo() == v.lblPrezzoListinoLordo.testo()) return;
    v.txtPrezzoListino.testo(formattaImporto(
        valore(v.txtPrezzoListinoLordo).toDouble() / fattoreIva(valore(v.lblValoraIva).toDouble()), 6));
    txtPrezzoListino_LostFocus(v);
    v.lblPrezzoListinoLordo.testo(v.txtPrezzoListinoLordo.testo());
}

void txtPrezzoFinito_LostFocus(Vendita& v) {
    prezzoPositivoSeReso(v, v.txtPrezzoFinito);
    if (v.txtPrezzoFinito.testo() != v.txtPrezzoFinito.tag()) {
        const Currency netto = diviso(valore(v.txtPrezzoFinito), fattoreIva(ivaEditor(v)));
        v.txtPrezzoNetto.testo(formattaImporto(netto, gDecimaliDopo));
        v.lblPrezzoNetto.testo(v.txtPrezzoNetto.testo());
        v.TxtPrezzoRiga.testoETag(formattaImporto(valore(v.txtPrezzoFinito).toDouble() * quantita(v), 2));
    }
    v.txtPrezzoFinito.tag(v.txtPrezzoFinito.testo());
    lasciaPrezzo(v);
}

void txtPrezzoNetto_LostFocus(Vendita& v) {
    prezzoPositivoSeReso(v, v.txtPrezzoNetto);
    if (v.txtPrezzoNetto.testo() != v.lblPrezzoNetto.testo()) {
        const Currency finito =
            Currency::daDouble(valore(v.txtPrezzoNetto).toDouble() * fattoreIva(ivaEditor(v)));
        v.TxtPrezzoRiga.testoETag(formattaImporto(finito.toDouble() * quantita(v), 2));
    }
    v.lblPrezzoNetto.testo(v.txtPrezzoNetto.testo());
    lasciaPrezzo(v);
}

void TxtPrezzoRiga_LostFocus(Vendita& v) {
    if (quantita(v) == 0.0) return;
    if (v.chkReso.valore() == 1) {
        v.TxtPrezzoRiga.testo(formattaImporto(-valore(v.TxtPrezzoRiga).assoluto(), 2));
    }
    if (v.TxtPrezzoRiga.testo() != v.TxtPrezzoRiga.tag()) {
        const Currency netto =
            Currency::daDouble(valore(v.TxtPrezzoRiga).toDouble() / fattoreIva(ivaEditor(v)) / quantita(v));
        v.txtPrezzoNetto.testo(formattaImporto(netto, gDecimaliDopo));
        v.lblPrezzoNetto.testo(v.txtPrezzoNetto.testo());
        azzeraScontiDaNetto(v);
        txtPrezzoListino_LostFocus(v);
    }
    v.TxtPrezzoRiga.tag(v.TxtPrezzoRiga.testo());
    lasciaPrezzo(v);
}

void txtSconto_LostFocus(Vendita& v, Campo& sconto) {
    if (!valoreCambiato(sconto)) return;
    if (sconto.testo().trimmed().isEmpty()) sconto.testo("0,00");
    applicaScontiRiga(v);
    aggiornaRigaCorrente(v);
    sconto.tag(sconto.testo());
}
