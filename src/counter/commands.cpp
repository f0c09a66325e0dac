#include "counter/commands.h"

#include "core/errors.h"
#include "core/globals.h"
#include "core/numbers.h"
#include "counter/accounts.h"
#include "counter/fields.h"
#include "counter/save_question.h"
#include "postings/save_sale.h"
#include "sale/line_pricing.h"
#include "sale/recall.h"
#include "sale/row_editor.h"
#include "sale/row_writer.h"
#include "sale/sale_document.h"

namespace {

void nuovaVendita(Conto& conto) {
    if (chiediSalvataggio(conto)) return;
    if (!conto.vendita().inChiusura) nuovoDocumento(conto.vendita());
}

void chiudi(Conto& conto) {
    if (!chiediSalvataggio(conto)) conto.scarica();
}

void nuovaRiga(Vendita& v) {
    chiudiRiga(v);
    pulisciCampiRiga(v, false);
    v.schermo.fuoco(v.txtCodProdotto);
}

// Account 0 goes on with the saved sale in sight; the others close.
void salva(Conto& conto) {
    Vendita& v = conto.vendita();
    if (!salvaVendita(v, false, -1)) return;
    v.lblUltimaVendita.testo(v.lblMainDisplay.testo());
    // Numbers start again every year: a sale saved after midnight is looked up in its own.
    const int anno = QDate::fromString(v.txtData.testo(), "dd/MM/yyyy").year();
    showVendita(v, 0, valIntero(v.txtProg.testo()), valIntero(v.txtSottoProg.testo()), anno);
    if (v.indice > 0) conto.scarica();
}

// The price box that ends a row, as the workstation shows it.
Campo& prezzoFineRiga(Vendita& v) {
    if (v.txtPrezzoFinito.visibile()) return v.txtPrezzoFinito;
    return v.TxtPrezzoRiga.visibile() ? v.TxtPrezzoRiga : v.txtPrezzoNetto;
}

}  // namespace

void cmdComando_Click(Conto& conto, int indice) {
    Vendita& v = conto.vendita();
    if (indice < 0 || indice >= CampiVendita::numeroComandi) return;
    if (!v.cmdComando[static_cast<size_t>(indice)].abilitato()) return;
    protetto(moduloFrmMain, "cmdComando_Click", [&] {
        if (!terminaCampo(conto)) return;
        switch (indice) {
            case 0:
                return nuovaVendita(conto);
            case 6:
                return delRowToGrid(v, -1, true);
            case 7:
                return chiudi(conto);
            case 9:
                return salva(conto);
            case 15:
                return nuovaRiga(v);
            default:
                return;
        }
    });
}

void cmdConto_Click(Conto& conto, int indice) {
    Vendita& v = conto.vendita();
    if (indice < 0 || indice >= CampiVendita::numeroConti) return;
    if (!v.cmdConto[static_cast<size_t>(indice)].abilitato()) return;
    protetto(moduloFrmMain, "cmdConto_Click", [&] {
        switch (indice) {
            case 0:
                return getConto(0, false);
            case 1:
            case 2:
            case 3:
                return getConto(indice, true);
            case 4:
                return conto.fuoco(v.txtData);
            case 8:
                return conto.fuoco(v.txtQta);
            case 9:
                return conto.fuoco(gPrezzoListinoLordo != 0 ? v.txtPrezzoListinoLordo : v.txtPrezzoListino);
            case 11:
                return conto.fuoco(v.txtSconto1);
            case 12:
                return conto.fuoco(prezzoFineRiga(v));
            default:
                return;
        }
    });
}
