#include "counter/bring_back.h"

#include "core/errors.h"
#include "core/globals.h"
#include "counter/recovery_journal.h"
#include "postings/lost_deletion.h"
#include "postings/lost_save.h"
#include "sale/customer.h"
#include "sale/row_editor.h"
#include "sale/sale_document.h"
#include "sale/totals.h"

namespace {

using VenditaAperta = GiornaleVendite::VenditaAperta;

const char* const testoNonRiprese =
    "Vendite non riprese: %1.\n"
    "Non sono perse: restano conservate e vengono proposte di nuovo al prossimo avvio del programma.";

// Whether its deletion turns out to be in the books. One of which nothing is known is looked up once more
// before the sale is deleted or saved again.
bool cancellataNeiLibri(VenditaAperta& aperta, OperatorPort& operatore) {
    const std::set<int> righe =
        aperta.cancellate.empty() ? aperta.immagine.cancellazioneIncerta() : aperta.cancellate;
    if (righe.empty()) return false;
    const EsitoCommit esito = cercaCancellazione(operatore, righe);
    if (esito == EsitoCommit::Ignoto) return false;
    aperta.cancellate.clear();
    aperta.immagine.cancellazioneChiarita();
    return esito == EsitoCommit::Registrato;
}

// The save that was under way. An earlier one of which nothing was known had been found out before it.
bool salvataNeiLibri(VenditaAperta& aperta, OperatorPort& operatore) {
    const EsitoCommit esito = cercaSalvataggio(operatore, *aperta.salvataggio);
    aperta.immagine.salvataggioChiarito();
    if (esito != EsitoCommit::Ignoto) aperta.salvataggio.reset();
    return esito == EsitoCommit::Registrato;
}

// The last save, of which nothing was known. What was changed since is not in the books whatever became of
// it: such a sale comes back, and its next save says so.
bool incertaNeiLibri(VenditaAperta& aperta, OperatorPort& operatore) {
    const auto salvataggio = aperta.immagine.salvataggioIncerto();
    if (!salvataggio || !aperta.immagine.comeSalvata()) return false;
    const EsitoCommit esito = cercaSalvataggio(operatore, *salvataggio);
    if (esito != EsitoCommit::Ignoto) aperta.immagine.salvataggioChiarito();
    return esito == EsitoCommit::Registrato;
}

bool neiLibri(VenditaAperta& aperta, OperatorPort& operatore) {
    if (cancellataNeiLibri(aperta, operatore)) return true;
    return aperta.salvataggio ? salvataNeiLibri(aperta, operatore) : incertaNeiLibri(aperta, operatore);
}

bool libero(int posto) {
    const ContoAperto& conto = gConti[static_cast<size_t>(posto)];
    return !conto || !conto->vendita().venditaModificata;
}

// Its own account, or the first one without a sale; -1 when there is none.
int postoDi(const VenditaAperta& aperta) {
    if (aperta.conto < contiMassimi && libero(aperta.conto)) return aperta.conto;
    for (int posto = 0; posto < contiMassimi; ++posto) {
        if (libero(posto)) return posto;
    }
    return -1;
}

// The field that was being typed in has its rule when it is left, also where another window is in front.
void riprendiFuoco(const VenditaAperta& aperta, Conto& conto) {
    Vendita& v = conto.vendita();
    Campo* campo = v.elenco.trova(aperta.immagine.campoAttivo());
    if (campo == nullptr || !campo->abilitato() || !campo->visibile()) campo = &v.txtCodProdotto;
    conto.fuoco(*campo);
    conto.campoAttivo(campo);
}

void mostra(const VenditaAperta& aperta, Conto& conto) {
    Vendita& v = conto.vendita();
    const RidisegnoFermo fermo(v.schermo);
    aperta.immagine.scriviIn(v);
    if (aperta.salvataggio) {
        v.salvataggioIncerto = aperta.salvataggio;
        v.salvataggioIncerto->schermo = descriviSchermo(v);
    }
    if (!aperta.cancellate.empty()) v.cancellazioneIncerta = aperta.cancellate;
    calcolaTotali(v, false);
    mostraSegnala(v);
    mostraSaldo(v);
    applicaModificaConsentita(v);
    setVenditaModificata(v);
    riprendiFuoco(aperta, conto);
}

// False when no account stayed open for it, or an error came before all of it was there.
bool riprendi(const VenditaAperta& aperta) {
    const int posto = postoDi(aperta);
    if (posto < 0) return false;
    const ContoAperto& conto = gConti[static_cast<size_t>(posto)];
    protetto(moduloFrmMain, "riprendiVendite", [&] {
        getConto(posto, false);
        if (conto) mostra(aperta, *conto);
    });
    if (!conto) return false;
    if (!libero(posto)) return true;
    protetto(moduloFrmMain, "riprendiVendite", [&] { nuovoDocumento(conto->vendita()); });
    return false;
}

}  // namespace

void riprendiVendite(GiornaleVendite& giornale, OperatorPort& operatore) {
    std::vector<VenditaAperta> aperte = giornale.leggi();
    std::erase_if(aperte, [&](VenditaAperta& aperta) { return neiLibri(aperta, operatore); });
    if (aperte.empty() || !operatore.chiedeSi("Riprendere le vendite non salvate?")) {
        giornale.dimentica();
        return;
    }
    giornale.cominciaRipresa();
    std::erase_if(aperte, [](const VenditaAperta& aperta) { return riprendi(aperta); });
    const int nonRiprese = static_cast<int>(aperte.size());
    giornale.finisciRipresa(std::move(aperte));
    if (nonRiprese == 0) return;
    operatore.messaggio(QString(testoNonRiprese).arg(nonRiprese), OperatorPort::Icona::Esclamazione);
}
