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
#include "postings/weight.h"
#include "register/interface_link.h"
#include "register/register_link.h"
#include "sale/totals.h"
#include "sale/vendita.h"

namespace {

// What all rows of one save share, and what they add up to.
struct Salvataggio {
    int idMovimento;
    int extraProg;
    bool trasferimento;
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
    const int rid = inserisciRiga(riga);
    if (rid < 1) return false;
    if (nuovaTesta(g, riga.riga)) s.ultimaTesta = rid;
    if (!g.cella(riga.riga, Colonna::IdDistintaBase).isEmpty() && !collegaComponente(rid, s.ultimaTesta))
        return false;
    if (!gRegCassa.isEmpty()) s.scontrino.aggiungiRiga(g, riga.riga);
    return true;
}

bool scriviRiga(const FlexVB& g, const RigaDaScrivere& riga, Salvataggio& s) {
    switch (g.gestione(riga.riga)) {
        case RigaNuova:
            return inserisci(g, riga, s);
        case RigaModificata:
            return g.chiave(riga.riga, Colonna::Rid) > 0 ? modificaRiga(riga) : inserisci(g, riga, s);
        case RigaCancellata:
            return cancellaRiga(g, riga.riga);
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

// Every row counts, deleted ones too.
void sommaPeso(const FlexVB& g, int r, Salvataggio& s) {
    const int prodotto = g.chiave(r, Colonna::IdProdotto);
    const double quantita = static_cast<double>(g.single(r, Colonna::Quantita));
    s.peso = static_cast<float>(static_cast<double>(s.peso) +
                                static_cast<double>(getPesoProd(prodotto)) * quantita);
    s.colli = arrotondaColli(s.colli + getColliProd(prodotto) * quantita);
}

bool salvaRiga(Vendita& v, int r, Salvataggio& s) {
    if (v.flxVB.viva(r)) ++s.pos;
    // A component added to a kit that was saved before joins its head.
    if (nuovaTesta(v.flxVB, r) && v.flxVB.chiave(r, Colonna::Rid) > 0)
        s.ultimaTesta = v.flxVB.chiave(r, Colonna::Rid);
    Currency taglio;
    if (!scaricaRiga(v, r, s.trasferimento, taglio)) return false;
    const bool daScrivere = v.flxVB.gestione(r) == RigaNuova || v.flxVB.gestione(r) == RigaModificata;
    if (s.trasferimento && daScrivere) valutaAlCosto(v, r, std::max(taglio, Currency()));
    const RigaDaScrivere riga{v.flxVB, r, s.idMovimento, s.extraProg, s.pos, taglio, s.trasferimento};
    if (!scriviRiga(v.flxVB, riga, s) || !aggiornaStatistiche(v, r)) return false;
    if (v.mAccompagnatorio) sommaPeso(v.flxVB, r, s);
    return true;
}

// A sale in words, for the list of those without a receipt.
QString nomeVendita(const Vendita& v, const Salvataggio& s) {
    return "N° " + v.txtProg.testo() + "/" + Format(s.extraProg, u"0000") + " del " + v.txtData.testo() +
           ", € " + formattaImporto(s.scontrino.totale(), 2);
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

bool saveDettagli(Vendita& v, int idMovimento, int extraProg, bool trasferimento) {
    return protetto(
        gNomeModulo, "saveDettagli",
        [&] {
            Salvataggio s{idMovimento, extraProg, trasferimento};
            for (int r = 1; r <= v.flxVB.ultima(); ++r) {
                if (!salvaRiga(v, r, s)) return false;
            }
            if (!getTotaleConto(v, idMovimento)) return false;
            emettiScontrino(v, s);
            return !v.mAccompagnatorio || updatePesoColli(idMovimento, s.peso, s.colli);
        },
        false);
}
