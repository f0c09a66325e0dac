#include "postings/row_stock.h"

#include "core/errors.h"
#include "core/globals.h"
#include "core/value_helpers.h"
#include "postings/average_price.h"
#include "postings/stock.h"
#include "sale/product_info.h"
#include "sale/row_cells.h"
#include "sale/totals.h"
#include "sale/vendita.h"

namespace {

MovimentoMerce movimento(const Vendita& v, int riga, Currency taglio) {
    const FlexVB& g = v.flxVB;
    MovimentoMerce m;
    m.quantita = quantitaRiga(g, riga);
    m.quantitaVecchia = g.single(riga, Colonna::OldQuantita);
    m.taglio = taglio;
    m.idProdotto = g.chiave(riga, Colonna::IdProdotto);
    m.azione = g.gestione(riga);
    m.idOrigine = v.magazzinoOrigine;
    m.idDestinazione = v.magazzinoDestinazione;
    m.informazioni =
        "Prodotto [" + g.cella(riga, Colonna::Codice) + " - " + g.cella(riga, Colonna::Descrizione) + "]";
    // Of a row that was never saved the cell tells a price, and there is no layer to be undone.
    const bool salvata = g.chiave(riga, Colonna::Rid) > 0;
    if (v.mGestioneTaglio && salvata && !m.trasferimento())
        m.taglioVecchio = g.currency(riga, Colonna::Taglio);
    return m;
}

// The layer that the row is to move, as far as it is known beforehand.
Currency taglioRiga(const Vendita& v, int riga, bool trasferimento) {
    const FlexVB& g = v.flxVB;
    if (trasferimento) return getTaglioProdotto(g.chiave(riga, Colonna::IdProdotto), v.magazzinoOrigine);
    return g.currency(riga, v.mGestioneTaglio ? Colonna::PrezzoNettoEsteso : Colonna::Taglio);
}

bool muoveMerce(const Vendita& v, int riga) {
    const FlexVB& g = v.flxVB;
    return g.gestione(riga) > RigaInvariata && v.operazione &&
           getAggiornamentoGiacenzeByProdotto(g.chiave(riga, Colonna::IdProdotto));
}

bool muovi(Vendita& v, int riga, Currency& taglio) {
    const QString& codice = v.flxVB.cella(riga, Colonna::Codice);
    if (testaDistinta(codice)) {
        taglio = Currency();
        return true;
    }
    MovimentoMerce m = movimento(v, riga, taglio);
    if (!giacenzeAggiornate(aggiornaGiacenze(m, v.schermo.operatore()))) return false;
    taglio = m.taglio;
    if (gPrezzoMedio == 1 || taglio >= Currency() || rigaLibera(codice)) return true;
    gErr.mostraMessaggio(
        "Impossibile determinare il taglio su: [" + codice + "]. Riga: " + QString::number(riga),
        OperatorPort::Icona::Critica);
    return false;
}

}  // namespace

bool scaricaRiga(Vendita& v, int riga, bool trasferimento, Currency& taglio) {
    taglio = taglioRiga(v, riga, trasferimento);
    return !muoveMerce(v, riga) || muovi(v, riga, taglio);
}

// Each amount is what its cell shows, so that the columns of the row agree with each other.
void valutaAlCosto(Vendita& v, int riga, Currency taglio) {
    FlexVB& g = v.flxVB;
    const double quantita = static_cast<double>(quantitaRiga(g, riga));
    const double aliquota = static_cast<double>(g.single(riga, Colonna::Iva));
    const auto scrivi = [&](Colonna colonna, double valore) {
        g.scrivi(riga, colonna, formattaImporto(Currency::daDouble(valore), 2));
        return g.currency(riga, colonna);
    };
    scrivi(Colonna::PrezzoListino, taglio.toDouble());
    scrivi(Colonna::PrezzoNettoEsteso, taglio.toDouble());
    g.scrivi(riga, Colonna::ScNetto, "0");
    const Currency netto = scrivi(Colonna::TotPrNetto, taglio.toDouble() * quantita);
    const Currency iva = scrivi(Colonna::IvaProd, taglio.toDouble() * aliquota / 100);
    const Currency totaleIva = scrivi(Colonna::TotIvaProd, iva.toDouble() * quantita);
    scrivi(Colonna::Importo, (netto + totaleIva).toDouble());
}
