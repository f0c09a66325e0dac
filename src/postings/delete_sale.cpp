#include "postings/delete_sale.h"

#include <optional>

#include "core/errors.h"
#include "core/format.h"
#include "core/globals.h"
#include "core/numbers.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "data/options_table.h"
#include "postings/journal.h"
#include "postings/lost_deletion.h"
#include "postings/missing_references.h"
#include "postings/payment_schedule.h"
#include "postings/save_outcome.h"
#include "postings/stock.h"
#include "postings/stored_row.h"
#include "postings/stored_sale.h"
#include "sale/totals.h"
#include "sale/vendita.h"

namespace {

using Icona = OperatorPort::Icona;

const char* const testoSalvataggioIgnoto =
    "Non si sa se la vendita è stata salvata: il server non risponde o è occupato.\n"
    "Finché non si sa, la vendita non si può cancellare.";
const char* const testoGiaSalvata =
    "La vendita era già stata salvata: N° %1.\n"
    "Si mostra come è nell'archivio: controllarla prima di cancellarla.";

QString transazione() {
    return ".cancellaVendita" + gNomeModulo;
}

QString sorgente() {
    return gNomeModulo + ".cancellaVendita";
}

bool elimina(const QString& tabella, const QString& condizione) {
    return gAdo.executeSQL("DELETE FROM " + tabella + " WHERE " + condizione, sorgente());
}

// Only an origin warehouse gets its goods back: a document that loaded one leaves the stock as it is.
bool restituisciMerce(Vendita& v, int r) {
    const FlexVB& g = v.flxVB;
    const int prodotto = g.chiave(r, Colonna::IdProdotto);
    if (!getAggiornamentoGiacenzeByProdotto(prodotto) || !v.operazione ||
        testaDistinta(g.cella(r, Colonna::Codice)))
        return true;
    MovimentoMerce m;
    m.quantita = g.single(r, Colonna::Quantita);
    m.quantitaVecchia = g.single(r, Colonna::OldQuantita);
    m.taglio = g.currency(r, Colonna::Taglio);
    m.idProdotto = prodotto;
    m.azione = 3;
    m.idOrigine = v.magazzinoOrigine;
    m.informazioni =
        "Prodotto [" + g.cella(r, Colonna::Codice) + " - " + g.cella(r, Colonna::Descrizione) + "]";
    return giacenzeAggiornate(aggiornaGiacenze(m, v.schermo.operatore()));
}

bool removeDettagli(Vendita& v) {
    return protetto(
        gNomeModulo, "removeDettagli",
        [&] {
            for (int r = 1; r <= v.flxVB.ultima(); ++r) {
                const int rid = v.flxVB.chiave(r, Colonna::Rid);
                if (rid < 1) continue;
                if (!eseguiSuRiga("DELETE FROM DettagliMovimento WHERE RID = " + QString::number(rid),
                                  sorgente()))
                    return false;
                if (!restituisciMerce(v, r)) return false;
            }
            return true;
        },
        false);
}

// What the deletion has found out so far of the movement.
struct Cancellazione {
    QDate data;
    Currency iva;
    Currency totale;
    int causaleIncasso = -1;  // of the collection that was posted anew
};

RegistrazionePN registrazione(const Vendita& v, const Cancellazione& c, const QString& inizio) {
    RegistrazionePN r;
    r.idAnagrafe = v.cliente();
    r.descrizione = inizio + Format(v.progressivo(), u"0000") + " del " + v.txtData.testo();
    r.importo = c.totale;
    r.data = r.dataValuta = c.data;
    r.imposta = c.iva;
    r.idPagamento = v.idPagamento;
    r.codicePartita = "VB/" + QString::number(v.progressivo());
    return r;
}

// The document's entry for what remains; its key, below 1 on failure. One that is made here, because the
// sale had none, is not linked to the header.
int riscriviDocumento(const Vendita& v, const Cancellazione& c) {
    RegistrazionePN r = registrazione(v, c, "Vendita al Banco N° ");
    r.idPrimaNota = v.idPrimaNota;
    r.idCausale = v.mCausaleDoc;
    return salvaPrimaNota(r);
}

// The collection goes back to the shop's own causal, whatever this desk uses.
bool riscriviIncasso(const Vendita& v, Cancellazione& c) {
    c.causaleIncasso = gCausalePagOverride > 0 ? valIntero(getOpzione("CausalePagVb")) : gCausalePagVb;
    RegistrazionePN r = registrazione(v, c, "Incasso Vendita al Banco N° ");
    r.idPrimaNota = v.idPNPagamento;
    r.idCausale = c.causaleIncasso;
    return salvaPrimaNota(r) >= 0;
}

bool leggiResto(Vendita& v, int idMovimento, Cancellazione& c) {
    calcolaTotali(v, false);
    if (!getTotIva(idMovimento, c.iva)) return false;
    if (c.iva < Currency()) {
        gErr.mostraMessaggio(
            "Impossibile eliminare la vendita: l'IVA di ciò che resterebbe nel documento è negativa (" +
                formattaImporto(c.iva, 2) + ").",
            Icona::Critica);
        return false;
    }
    if (!getTotaleConto(v, idMovimento)) return false;
    c.totale = getValoreCurrency(v.lblTotConto.testo());
    return true;
}

bool comeNeiLibri(Vendita& v, int idMovimento) {
    const std::set<int> righe = righeRegistrate(v.flxVB);
    const auto vendita = leggiVenditaNeiLibri(idMovimento, righe);
    if (!vendita) return false;
    v.idPagamento = vendita->idPagamento;
    return riprendiRegistrazioni(v, *vendita) && righeComeSulloSchermo(v.flxVB, *vendita, righe);
}

// Everything between begin and commit; false: roll back.
bool togliDaiLibri(Vendita& v, int idMovimento, Cancellazione& c) {
    if (!comeNeiLibri(v, idMovimento) || !removeDettagli(v)) return false;
    c.data = v.giorno();
    if (!leggiResto(v, idMovimento, c)) return false;
    const int registrazioneDocumento = riscriviDocumento(v, c);
    if (registrazioneDocumento < 0) return false;
    const bool predefinito = v.cliente() == gClientePredefinito;
    if (predefinito && !riscriviIncasso(v, c)) return false;
    if (!predefinito && registrazioneDocumento >= 1 && v.generaScad &&
        !generaScadenzePagamento(registrazioneDocumento, v.idPagamento, c.totale, c.data, v.scadenzeNegative))
        return false;
    return registrazioneDocumento >= 1 && ctrlVenditaAfterDelete(v, idMovimento) != EsitoTestata::Fallita;
}

bool cancellaInTransazione(Vendita& v, int idMovimento) {
    if (!gAdo.beginTrasaction(transazione())) return false;
    const Clessidra clessidra(v.schermo.operatore());
    const QString totale = v.lblTotConto.testo();
    const int documento = v.idPrimaNota;
    const int incasso = v.idPNPagamento;
    const int pagamento = v.idPagamento;
    Cancellazione c;
    const bool tolta = protetto(
        gNomeModulo, "cancellaVendita", [&] { return togliDaiLibri(v, idMovimento, c); }, false);
    const bool registrata = tolta && gAdo.commitTrasaction(transazione());
    const auto riferimenti = registrata ? std::nullopt : riferimentiRifiutatiCancellando(v, c.causaleIncasso);
    v.idPagamento = pagamento;
    if (registrata) return true;
    v.lblTotConto.testo(totale);
    v.idPrimaNota = documento;
    v.idPNPagamento = incasso;
    if (tolta && gAdo.commitDiEsitoIgnoto()) return dopoCancellazionePersa(v, idMovimento);
    if (gAdo.inTransazione()) gAdo.rollbackTrasaction(transazione());
    if (riferimenti) spiegaRiferimentiMancantiCancellando(*riferimenti);
    return false;
}

// A save of which nothing is known is looked for first: rows that it wrote belong to what goes.
bool salvataggioChiarito(Vendita& v) {
    const std::optional<SalvataggioIncerto> salvataggio = v.salvataggioIncerto;
    OperatorPort& operatore = v.schermo.operatore();
    const EsitoCommit esito = chiarisciSalvataggio(v);
    if (esito == EsitoCommit::NonRegistrato) return true;
    if (esito == EsitoCommit::Ignoto) {
        operatore.messaggio(testoSalvataggioIgnoto, Icona::Critica);
        return false;
    }
    mostraSalvata(v, *salvataggio);
    operatore.messaggio(QString(testoGiaSalvata).arg(numeroScritto(*salvataggio)), Icona::Esclamazione);
    return false;
}

bool confermata(Vendita& v) {
    return v.schermo.operatore().chiedeSi("Eliminare il movimento con progressivo " +
                                          Format(v.progressivo(), u"0000") + "/" +
                                          Format(v.extraProg(), u"0000") + "?");
}

// Rows left under the header; nothing when the query failed.
std::optional<int> contaRighe(int idMovimento) {
    const Lettura lettura(
        "SELECT COUNT(RID) FROM DettagliMovimento WHERE FK_MOVIMENTO = " + QString::number(idMovimento),
        gNomeModulo + ".ctrlVenditaAfterDelete");
    return lettura.trovata() ? std::optional(lettura->campo(0).toInt()) : std::nullopt;
}

}  // namespace

EsitoTestata ctrlVenditaAfterDelete(const Vendita& v, int idMovimento) {
    const auto righe = contaRighe(idMovimento);
    if (!righe) return EsitoTestata::Fallita;
    if (*righe > 0) return EsitoTestata::Rimasta;
    const QString documento = QString::number(v.idPrimaNota);
    const QString incasso = QString::number(v.idPNPagamento);
    const bool cancellata =
        elimina("Scadenze", "FK_PrimaNota = " + documento) &&
        elimina("Movimenti", "RID = " + QString::number(idMovimento)) &&
        elimina("PrimaNotaDettagli", "FK_PRIMANOTA = " + documento + " OR FK_PRIMANOTA = " + incasso) &&
        elimina("PrimaNota", "RID = " + documento + " OR RID = " + incasso);
    return cancellata ? EsitoTestata::Cancellata : EsitoTestata::Fallita;
}

bool cancellaVendita(Vendita& v, int idMovimento, bool chiedi) {
    if (v.flxVB.righe() <= 1 || idMovimento < 1) return false;
    if (const EsitoCommit esito = chiarisciCancellazione(v); esito != EsitoCommit::NonRegistrato)
        return esito == EsitoCommit::Registrato;
    if (!salvataggioChiarito(v)) return false;
    if (chiedi && !confermata(v)) return false;
    if (v.primaDellaCancellazione) v.primaDellaCancellazione(righeRegistrate(v.flxVB));
    return cancellaInTransazione(v, idMovimento);
}
