#include "postings/save_sale.h"

#include "core/clock.h"
#include "core/globals.h"
#include "core/numbers.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "postings/lost_deletion.h"
#include "postings/missing_references.h"
#include "postings/numbering.h"
#include "postings/post_accounts.h"
#include "postings/save_header.h"
#include "postings/save_outcome.h"
#include "postings/save_rows.h"
#include "register/interface_link.h"
#include "sale/sale_document.h"
#include "sale/totals.h"
#include "sale/vendita.h"

namespace {

using Icona = OperatorPort::Icona;

bool contabilizza(Vendita& v, Documento& d) {
    Currency iva;
    if (!getTotIva(d.idMovimento, iva)) return false;
    const DocumentoContabile contabile{
        d.idMovimento, d.progressivo,   d.data,       getValoreCurrency(v.lblTotConto.testo()),
        iva,           d.trasferimento, d.conversione};
    if (!scriviTotali(d, contabile.totale, iva) || !registraContabilita(v, contabile)) return false;
    d.testata.emplace_back("FK_PRIMANOTA", getIDOrNullStr(v.idPrimaNota));
    d.testata.emplace_back("FK_PNPAGAMENTO", getIDOrNullStr(v.idPNPagamento));
    return true;
}

// A customer who pays at the counter does so by the counter's own payment, whatever the terms.
bool pagataAlBanco(const Vendita& v, const Documento& d) {
    return !d.conversione && v.chkPagato.valore() == 1 && v.cliente() != gClientePredefinito;
}

// Everything between begin and commit; false: roll back.
bool scriviNeiLibri(Vendita& v, Documento& d) {
    d.trasferimento = StatoPrimaDelSalvataggio::trasferimento(v);
    const bool nuova = v.rid() <= 0;
    if (!nuova && !riprendiDaiLibri(v)) return false;
    if (pagataAlBanco(v, d) || v.idPagamento < 1) v.idPagamento = gPagamentoVB;
    if (!(nuova ? inserisciTestata(v, d) : modificaTestata(v, d))) return false;
    d.extraProg = v.extraProg() > 0 ? v.extraProg() : getNewSottoProgressivo(v, d.progressivo);
    d.righeScritte = saveDettagli(v, d);
    if (!d.righeScritte) return false;
    if (d.trasferimento) calcolaTotali(v, true);
    return contabilizza(v, d);
}

bool salvaInTransazione(Vendita& v, bool conversione, int tipoDocumento) {
    const StatoPrimaDelSalvataggio prima(v);
    if (!gAdo.beginTrasaction(".saveRecord" + gNomeModulo)) return false;
    const Clessidra clessidra(v.schermo.operatore());
    Documento d;
    try {
        d.conversione = conversione;
        d.data = conversione ? orologio().oggi() : v.giorno();
        d.tipo = conversione ? tipoDocumento : gTipoDocVb;
        if (!scriviNeiLibri(v, d)) {
            const auto riferimenti = riferimentiRifiutati(v, d);
            prima.ripristina(v);
            gAdo.rollbackTrasaction(transazioneSalvataggio());
            if (riferimenti) spiegaRiferimentiMancanti(*riferimenti);
            return d.testataSparita && diventaNuova(v, d) &&
                   salvaInTransazione(v, conversione, tipoDocumento);
        }
        if (v.primaDelCommit) v.primaDelCommit(descriviSalvataggio(d));
    } catch (const std::exception&) {
        return confermaDopoErrore(v, d, prima);
    }
    if (!gAdo.commitTrasaction(transazioneSalvataggio())) {
        if (gAdo.commitDiEsitoIgnoto()) return dopoCommitPerso(v, d, prima);
        prima.ripristina(v);
        return false;
    }
    segnaSalvata(v, d);
    return true;
}

}  // namespace

bool salvaVendita(Vendita& v, bool conversione, int tipoDocumento) {
    if (!v.flxVB.haElementi()) {
        v.schermo.operatore().messaggio(
            "Attenzione! non vi è nessun elemento da salvare.\nAggiungere almeno un prodotto",
            Icona::Informazione);
        return false;
    }
    if (const EsitoCommit cancellata = chiarisciCancellazione(v); cancellata != EsitoCommit::NonRegistrato) {
        if (cancellata == EsitoCommit::Registrato) nuovoDocumento(v);
        return false;
    }
    if (const auto ripreso = riprendiSalvataggio(v)) return *ripreso;
    if (!controllaInserimento(v) || !controllaDataStampa(v)) return false;
    const bool salvata = salvaInTransazione(v, conversione, tipoDocumento);
    gFrmRegCassa().scontrini.salvataggioConcluso(salvata);
    return salvata;
}

bool controllaInserimento(Vendita& v) {
    QString righe;
    if (v.cliente() <= 0) righe += "\n - Campo [Cliente] Obbligatorio.";
    if (v.txtData.testo().trimmed().isEmpty()) righe += "\n - Campo [Data] Obbligatorio.";
    if (righe.isEmpty()) return true;
    v.schermo.operatore().messaggio("Attenzione:" + righe, Icona::Esclamazione);
    return false;
}

bool controllaDataStampa(Vendita& v) {
    const QString stampa = v.lblDataStampa.testo();
    if (v.cliente() == gClientePredefinito || stampa.trimmed().isEmpty()) return true;
    const bool continua =
        v.schermo.operatore().chiedeSi("Attenzione il documetno selezionato risulta gia stampato in data " +
                                           stampa + ".\nSicuri di voler continuare con le modifiche?",
                                       Icona::Esclamazione);
    if (!continua) v.venditaModificata = false;
    return continua;
}
