#include "counter/copy_sale.h"

#include <QScopedValueRollback>

#include "core/globals.h"
#include "core/numbers.h"
#include "core/operator_port.h"
#include "counter/accounts.h"
#include "kit/search_request.h"
#include "sale/customer.h"
#include "sale/document_info.h"
#include "sale/grid.h"
#include "sale/row_editor.h"
#include "sale/row_writer.h"
#include "sale/sale_document.h"
#include "sale/totals.h"

namespace {

// Cells that tie a row to the books: of the copy, none is there yet.
void sciogliDaiLibri(FlexVB& g, int riga) {
    g.scrivi(riga, Colonna::Key, {});
    g.scrivi(riga, Colonna::Rid, {});
    g.scrivi(riga, Colonna::OldQuantita, "0");
    g.scrivi(riga, Colonna::Gestione, QString::number(RigaNuova));
}

// All other cells as they are, and what the row looks like; rows marked for deletion stay behind.
void copiaRighe(const FlexVB& da, FlexVB& a) {
    for (int r = 1; r <= da.ultima(); ++r) {
        if (!da.viva(r)) continue;
        const int nuova = a.aggiungi();
        for (int c = 0; c < numeroColonne; ++c) {
            const auto colonna = static_cast<Colonna>(c);
            a.scrivi(nuova, colonna, da.cella(r, colonna));
        }
        sciogliDaiLibri(a, nuova);
        a.nascondi(nuova, da.nascosta(r));
        a.piega(nuova, da.piegata(r));
        a.listinoLetto(nuova, da.listinoLetto(r));
    }
}

// Without the look for an open document of that customer: the sale that is being moved may be that one.
void prendiCliente(Vendita& v, int idCliente) {
    if (mostraCliente(v, idCliente)) impostaPagatoCliente(v, false);
}

}  // namespace

bool ricopiaVendita(Conto& conto, int idCausalePagamento, int idCliente) {
    Vendita& v = conto.vendita();
    Vendita* nuova = conto.apriNuovoConto({});
    if (nuova == nullptr) return false;
    if (idCausalePagamento > 0) setNuovoPagamento(*nuova, idCausalePagamento);
    if (idCliente > 0) prendiCliente(*nuova, idCliente);
    if (v.flxVB.righe() < 2) return true;
    const RidisegnoFermo fermo(nuova->schermo);
    svuotaGriglia(*nuova);
    copiaRighe(v.flxVB, nuova->flxVB);
    for (int r = 1; r <= nuova->flxVB.ultima(); ++r) {
        checkRowReso(*nuova, r);
    }
    calcolaTotali(*nuova, false);
    setVenditaModificata(*nuova);
    return true;
}

void ricopia(Conto& conto) {
    if (conto.vendita().flxVB.righe() < 2) {
        return conto.operatore().messaggio("Nessun prodotto venduto! Impossibile ricopiare la vendita.",
                                           OperatorPort::Icona::Esclamazione);
    }
    if (conto.operatore().chiedeSi("Ricopiare la vendita corrente in nuovo conto?"))
        ricopiaVendita(conto, 0, 0);
}

void cambiaPagamento(Conto& conto) {
    Vendita& v = conto.vendita();
    QString scelta;
    {
        const QScopedValueRollback aperta(gModaleAperta, true);
        scelta =
            conto.ricerca({.sql = "SELECT TOP 9 RID, CODICE, DESCRIZIONE FROM Causali WHERE MOSTRAVB = 1",
                           .campoChiave = "DESCRIZIONE"});
    }
    const int idCausale = valIntero(scelta);
    if (idCausale < 1) return conto.fuoco(v.txtCodProdotto);
    if (ricopiaVendita(conto, idCausale, v.cliente())) nuovoDocumento(v);
}
