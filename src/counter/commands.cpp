#include "counter/commands.h"

#include <algorithm>

#include "core/errors.h"
#include "core/globals.h"
#include "core/numbers.h"
#include "core/operator_port.h"
#include "counter/accounts.h"
#include "counter/close_account.h"
#include "counter/copy_sale.h"
#include "counter/fields.h"
#include "counter/go_to_sale.h"
#include "counter/movement_list.h"
#include "counter/next_sale.h"
#include "counter/payment_step.h"
#include "counter/save_question.h"
#include "counter/searches.h"
#include "postings/delete_sale.h"
#include "sale/line_pricing.h"
#include "sale/navigation.h"
#include "sale/row_editor.h"
#include "sale/row_writer.h"
#include "sale/sale_discount.h"
#include "sale/sale_document.h"

namespace {

void nuovaVendita(Conto& conto) {
    if (chiediSalvataggio(conto)) return;
    if (!conto.vendita().inChiusura) nuovoDocumento(conto.vendita());
}

void chiudi(Conto& conto) {
    chiudiConto(conto, Chiusura::Chiesta);
}

void nuovaRiga(Conto& conto) {
    Vendita& v = conto.vendita();
    chiudiRiga(v);
    pulisciCampiRiga(v, false);
    v.schermo.fuoco(v.txtCodProdotto);
}

void vendita(Conto& conto, Direzione direzione) {
    if (!chiediSalvataggio(conto)) validaFrecce(conto.vendita(), direzione);
}

void venditaPrecedente(Conto& conto) {
    vendita(conto, Direzione::Indietro);
}

void venditaSuccessiva(Conto& conto) {
    vendita(conto, Direzione::Avanti);
}

void chiediStampa(Conto& conto) {
    if (conto.vendita().cliente() == gClientePredefinito) return;
    if (gStampa != 0) conto.messaggioStampa(false);
    if (gSimulaStampa != 0) conto.messaggioStampa(true);
}

// Account 0 goes on with the saved sale in sight; the others close.
void salva(Conto& conto) {
    Vendita& v = conto.vendita();
    if (gMonitor != 0 && (v.chkPagato.valore() == 1 || !v.chkPagato.abilitato())) apriMonitorResto(conto);
    if (v.inChiusura) return;
    chiediStampa(conto);
    if (!salvaEMostraUltima(conto)) return;
    mostraVenditaSalvata(conto);
    if (v.indice > 0 && fineConfermata(conto)) return conto.scarica();
    conto.venditaSalvata();
}

// The sale on the screen leaves the books, and the screen goes on.
void cancella(Conto& conto) {
    Vendita& v = conto.vendita();
    if (!cancellaVendita(v, v.rid(), true)) return;
    if (bChiudiConto()) return conto.scarica();
    nuovoDocumento(v);
}

// The price box that ends a row, as the workstation shows it.
Campo& prezzoFineRiga(Vendita& v) {
    if (v.txtPrezzoFinito.visibile()) return v.txtPrezzoFinito;
    return v.TxtPrezzoRiga.visibile() ? v.TxtPrezzoRiga : v.txtPrezzoNetto;
}

void cancellaRiga(Conto& conto) {
    delRowToGrid(conto.vendita(), -1, true);
}

void scontoImmediato(Conto& conto) {
    getScontoImmediato(conto.vendita());
}

void nuovoConto(Conto& conto) {
    openNewContoForCliente(conto, true);
}

// The fields buttons that open a search act on what was typed before.
void cerca(Conto& conto, void (*ricerca)(Conto&)) {
    if (terminaCampo(conto)) ricerca(conto);
}

constexpr int comandoCancella = 4;

struct VoceComando {
    int indice;
    void (*azione)(Conto&);
};

// The commands that there are; a button without an entry here does nothing.
const VoceComando comandi[] = {
    {0, nuovaVendita},
    {1, venditaPrecedente},
    {2, venditaSuccessiva},
    {3, vaiAVendita},
    {comandoCancella, cancella},
    {5, nuovoConto},
    {6, cancellaRiga},
    {7, chiudi},
    {9, salva},
    {10, cambiaPagamento},
    {12, visualizzaDocDaStampare},
    {14, ricopia},
    {15, nuovaRiga},
    {16, scontoImmediato},
};

}  // namespace

void cmdComando_Click(Conto& conto, int indice, Pressione pressione) {
    if (indice < 0 || indice >= CampiVendita::numeroComandi) return;
    if (!conto.vendita().cmdComando[static_cast<size_t>(indice)].abilitato()) return;
    if (indice == comandoCancella && pressione == Pressione::Tasto && !conto.vendita().tastoShift) return;
    const auto comando = std::find_if(std::begin(comandi), std::end(comandi),
                                      [&](const VoceComando& voce) { return voce.indice == indice; });
    if (comando == std::end(comandi)) return;
    protetto(moduloFrmMain, "cmdComando_Click", [&] {
        if (terminaCampo(conto)) comando->azione(conto);
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
            case contoCliente:
                return cerca(conto, cercaCliente);
            case contoProgressivo:
                return cerca(conto, showMovimento);
            case contoProdotto:
                return cerca(conto, cercaProdotto);
            case 8:
                return conto.fuoco(v.txtQta);
            case contoListino:
                return conto.fuoco(gPrezzoListinoLordo != 0 ? v.txtPrezzoListinoLordo : v.txtPrezzoListino);
            case contoSconti:
                return conto.fuoco(v.txtSconto1);
            case contoPrezzo:
                return conto.fuoco(prezzoFineRiga(v));
            case contoIva:
                return cerca(conto, cercaIva);
            default:
                return;
        }
    });
}

void lblDescPagamento_DblClick(Conto& conto) {
    if (gContoCassa > 0) return;
    conto.operatore().messaggio(
        "Per visualizzare l'incasso giornaliero è necessario impostare il conto della Cassa nelle opzioni "
        "(CTRL+F11)",
        OperatorPort::Icona::Informazione);
}
