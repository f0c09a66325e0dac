#include "postings/save_rows.h"

#include <algorithm>

#include "core/errors.h"
#include "core/format.h"
#include "core/globals.h"
#include "core/value_helpers.h"
#include "postings/product_statistics.h"
#include "postings/receipt_text.h"
#include "postings/row_statements.h"
#include "postings/row_stock.h"
#include "postings/save_state.h"
#include "postings/weight.h"
#include "register/interface_link.h"
#include "register/register_link.h"
#include "sale/totals.h"
#include "sale/vendita.h"

namespace {

// The document of all rows of one save, and what they add up to.
struct Salvataggio {
    Documento& documento;
    int pos = 0;
    int ultimaTesta = -1;  // key of the latest kit head
    float peso = 0;
    int colli = 0;
    TestoScontrino scontrino = {};
};

// A kit that is a component of another belongs to that one's head, and so do its own components.
bool nuovaTesta(const FlexVB& g, int r) {
    return testaDistinta(g.cella(r, Colonna::Codice)) && g.cella(r, Colonna::IdDistintaBase).isEmpty();
}

bool inserisci(const FlexVB& g, const RigaDaScrivere& riga, Salvataggio& s) {
    RigaScritta colonne = colonneRiga(riga, true);
    const int rid = inserisciRiga(colonne);
    if (rid < 1) return false;
    s.documento.righe.nuove[rid] = std::move(colonne);
    if (nuovaTesta(g, riga.riga)) s.ultimaTesta = rid;
    if (!g.cella(riga.riga, Colonna::IdDistintaBase).isEmpty() && !collegaComponente(rid, s.ultimaTesta))
        return false;
    if (!gRegCassa.isEmpty()) s.scontrino.aggiungiRiga(g, riga.riga);
    return true;
}

bool modifica(int rid, const RigaDaScrivere& riga, Salvataggio& s) {
    RigaScritta colonne = colonneRiga(riga, false);
    if (!modificaRiga(rid, colonne)) return false;
    s.documento.righe.mutate[rid] = std::move(colonne);
    return true;
}

bool cancella(int rid, Salvataggio& s) {
    s.documento.righe.cancellate.insert(rid);
    return cancellaRiga(rid);
}

bool scriviRiga(const FlexVB& g, const RigaDaScrivere& riga, Salvataggio& s) {
    const int rid = g.chiave(riga.riga, Colonna::Rid);
    switch (g.gestione(riga.riga)) {
        case RigaNuova:
            return inserisci(g, riga, s);
        case RigaModificata:
            return rid > 0 ? modifica(rid, riga, s) : inserisci(g, riga, s);
        case RigaCancellata:
            return cancella(rid, s);
        default:
            return true;
    }
}

// Goods that leave a warehouse for a customer mark their product as sold.
bool aggiornaStatistiche(const Vendita& v, int r) {
    const FlexVB& g = v.flxVB;
    const QString& codice = g.cella(r, Colonna::Codice);
    const bool venduta = v.operazione && v.origine == 3 && v.destinazione == 1;
    if (g.gestione(r) <= RigaInvariata || !venduta || testaDistinta(codice) || rigaLibera(codice))
        return true;
    return aggiornaStatisticaCarico(g.chiave(r, Colonna::IdProdotto), g.currency(r, Colonna::PrezzoListino),
                                    v.giorno());
}

// Every row that is or was in the books counts, deleted ones too.
void sommaPeso(const FlexVB& g, int r, Salvataggio& s) {
    const int prodotto = g.chiave(r, Colonna::IdProdotto);
    const double quantita = static_cast<double>(g.single(r, Colonna::Quantita));
    s.peso = static_cast<float>(static_cast<double>(s.peso) +
                                static_cast<double>(getPesoProd(prodotto)) * quantita);
    s.colli = arrotondaColli(s.colli + getColliProd(prodotto) * quantita);
}

// A row taken away before it was ever saved is in no book, and leaves no trace in any; one of a sale that is
// converted goes with the document that it stands under.
bool estranea(const FlexVB& g, int r, const Documento& d) {
    return !g.viva(r) && (d.conversione || g.chiave(r, Colonna::Rid) < 1);
}

bool salvaRiga(Vendita& v, int r, Salvataggio& s) {
    const Documento& d = s.documento;
    if (estranea(v.flxVB, r, d)) return true;
    if (v.flxVB.viva(r)) ++s.pos;
    // A component added to a kit that was saved before joins its head.
    if (nuovaTesta(v.flxVB, r) && v.flxVB.chiave(r, Colonna::Rid) > 0)
        s.ultimaTesta = v.flxVB.chiave(r, Colonna::Rid);
    Currency taglio;
    if (!scaricaRiga(v, r, d.trasferimento, taglio)) return false;
    const bool daScrivere = v.flxVB.gestione(r) == RigaNuova || v.flxVB.gestione(r) == RigaModificata;
    if (d.trasferimento && daScrivere) valutaAlCosto(v, r, std::max(taglio, Currency()));
    const RigaDaScrivere riga{v.flxVB, r, d.idMovimento, d.extraProg, s.pos, taglio, d.trasferimento};
    if (!scriviRiga(v.flxVB, riga, s) || !aggiornaStatistiche(v, r)) return false;
    if (v.mAccompagnatorio) sommaPeso(v.flxVB, r, s);
    return true;
}

// A sale in words, for the list of those without a receipt.
QString nomeVendita(const Vendita& v, const Salvataggio& s) {
    return "N° " + v.txtProg.testo() + "/" + Format(s.documento.extraProg, u"0000") + " del " +
           v.txtData.testo() + ", € " + formattaImporto(s.scontrino.totale(), 2);
}

// The receipt leaves before the commit, and nothing calls it back.
void emettiScontrino(const Vendita& v, const Salvataggio& s) {
    CollegamentoRegCassa& registratore = collegamentoRegCassa();
    const bool connesso = registratore.statoConnessione();
    if (gRegCassa.isEmpty() || v.flxVB.ultima() < 1) return;
    RegistroScontrini& scontrini = gFrmRegCassa().scontrini;
    scontrini.inizia(nomeVendita(v, s));
    if (connesso) {
        registratore.sendData(s.scontrino.chiudi());
    } else if (!s.scontrino.vuoto()) {
        scontrini.nonConsegnato(RegistroScontrini::Esito::Scollegato);
    }
}

}  // namespace

bool saveDettagli(Vendita& v, Documento& d) {
    return protetto(
        gNomeModulo, "saveDettagli",
        [&] {
            Salvataggio s{d};
            for (int r = 1; r <= v.flxVB.ultima(); ++r) {
                if (!salvaRiga(v, r, s)) return false;
            }
            if (!getTotaleConto(v, d.idMovimento)) return false;
            emettiScontrino(v, s);
            return !v.mAccompagnatorio || updatePesoColli(d.idMovimento, s.peso, s.colli);
        },
        false);
}
