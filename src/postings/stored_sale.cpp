#include "postings/stored_sale.h"

#include <algorithm>
#include <cmath>

#include "core/errors.h"
#include "core/globals.h"
#include "core/numbers.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "postings/stored_row.h"
#include "sale/vendita.h"

namespace {

const char* const testoGiaIncassata =
    "Il documento è già stato incassato da un'altra cassa, dopo che la vendita è stata richiamata.\n"
    "Richiamarla e ripetere l'operazione.";

QString sorgente() {
    return gNomeModulo + ".leggiVenditaNeiLibri";
}

// By the text that a recall puts into the cell: it has fewer digits than the number that a server keeps.
bool stessaQuantita(const FlexVB& g, int r, const RigaNeiLibri& riga) {
    return g.single(r, Colonna::OldQuantita) == getValoreSingle(testoNumero(riga.quantita));
}

// An edited row shows its layer with the decimals of a price.
bool stessoTaglio(const FlexVB& g, int r, const RigaNeiLibri& riga) {
    const Currency scarto = (g.currency(r, Colonna::Taglio) - riga.taglio).assoluto();
    const double unita = std::pow(10.0, -gDecimaliDopo);
    return scarto.toDouble() * 2 <= unita;
}

bool comeSulloSchermo(const FlexVB& g, int r, const RigaNeiLibri& riga) {
    return std::max(g.chiave(r, Colonna::IdProdotto), 0) == riga.idProdotto && stessaQuantita(g, r, riga) &&
           stessoTaglio(g, r, riga);
}

// The customer of an account pays once, for all of it. Who ticks it as paid without knowing that it was
// collected would take the money a second time; at the till each sale is paid by itself.
bool pagataDiNuovo(const Vendita& v, const VenditaNeiLibri& vendita) {
    return v.idPNPagamento < 1 && vendita.idPNPagamento > 0 && v.chkPagato.valore() == 1 &&
           v.cliente() != gClientePredefinito;
}

template <class Quali>
std::set<int> chiavi(const FlexVB& g, Quali&& quali) {
    std::set<int> tutte;
    for (int r = 1; r <= g.ultima(); ++r) {
        if (g.chiave(r, Colonna::Rid) > 0 && quali(r)) tutte.insert(g.chiave(r, Colonna::Rid));
    }
    return tutte;
}

}  // namespace

std::optional<VenditaNeiLibri> leggiVenditaNeiLibri(int idMovimento, const std::set<int>& righe) {
    const Lettura lettura(
        "SELECT M.FK_PRIMANOTA, M.FK_PNPAGAMENTO, M.FK_PAGAMENTO, D.RID, D.FK_PRODOTTO, D.QUANTITA, "
        "D.TAGLIO FROM Movimenti M LEFT JOIN DettagliMovimento D ON (D.FK_MOVIMENTO = M.RID AND D.RID IN (" +
            elencoChiavi(righe) + ")) WHERE M.RID = " + QString::number(idMovimento),
        sorgente());
    if (!lettura) return std::nullopt;
    VenditaNeiLibri vendita;
    for (; !lettura->eof(); lettura->moveNext()) {
        vendita.presente = true;
        vendita.idPrimaNota = lettura->chiave("FK_PRIMANOTA");
        vendita.idPNPagamento = lettura->chiave("FK_PNPAGAMENTO");
        vendita.idPagamento = lettura->chiave("FK_PAGAMENTO");
        if (lettura->campo("RID").isNull()) continue;
        vendita.righe[lettura->intero("RID")] = {lettura->intero("FK_PRODOTTO"), lettura->single("QUANTITA"),
                                                 lettura->importo("TAGLIO")};
    }
    return vendita;
}

std::set<int> righeRegistrate(const FlexVB& griglia) {
    return chiavi(griglia, [](int) { return true; });
}

std::set<int> righeDaToccare(const FlexVB& griglia) {
    return chiavi(griglia, [&](int r) {
        return griglia.gestione(r) == RigaModificata || griglia.gestione(r) == RigaCancellata;
    });
}

bool righeComeSulloSchermo(FlexVB& griglia, const VenditaNeiLibri& vendita, const std::set<int>& righe) {
    for (int r = 1; r <= griglia.ultima(); ++r) {
        const int rid = griglia.chiave(r, Colonna::Rid);
        if (!righe.contains(rid)) continue;
        const auto letta = vendita.righe.find(rid);
        if (letta == vendita.righe.end() || !comeSulloSchermo(griglia, r, letta->second)) {
            avvisaCambiata();
            return false;
        }
        if (griglia.currency(r, Colonna::Taglio) != letta->second.taglio)
            griglia.scrivi(r, Colonna::Taglio, letta->second.taglio.testo());
    }
    return true;
}

bool riprendiRegistrazioni(Vendita& v, const VenditaNeiLibri& vendita) {
    const auto ripresa = [](int schermo, int libri) { return schermo < 1 || schermo == libri; };
    if (!vendita.presente || !ripresa(v.idPrimaNota, vendita.idPrimaNota) ||
        !ripresa(v.idPNPagamento, vendita.idPNPagamento)) {
        avvisaCambiata();
        return false;
    }
    if (pagataDiNuovo(v, vendita)) {
        gErr.mostraMessaggio(testoGiaIncassata, OperatorPort::Icona::Esclamazione);
        return false;
    }
    v.idPrimaNota = vendita.idPrimaNota;
    v.idPNPagamento = vendita.idPNPagamento;
    return true;
}
