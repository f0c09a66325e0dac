#include "postings/save_rows.h"

#include <algorithm>

#include "core/errors.h"
#include "core/globals.h"
#include "core/numbers.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "data/prepare_sql.h"
#include "postings/weight.h"
#include "sale/totals.h"
#include "sale/vendita.h"

namespace {

QString sorgente() {
    return gNomeModulo + ".saveDettagli";
}

// What all rows of one save share, and what they add up to.
struct Salvataggio {
    int idMovimento;
    int extraProg;
    int pos = 0;
    int ultimaTesta = -1;  // key of the latest kit head
    float peso = 0;
    int colli = 0;
};

// Money columns hold four decimals; the cells may show the tail of a product of two Singles. A kit's head
// carries no money of its own: its components do.
QString importo(const FlexVB& g, int r, Colonna colonna) {
    if (testaDistinta(g.cella(r, Colonna::Codice))) return "0";
    return getSqlNumber(g.currency(r, colonna));
}

QString taglioRiga(const FlexVB& g, int r) {
    return getSqlNumber(std::max(g.currency(r, Colonna::Taglio), Currency()));
}

// The columns that an insert and an update share, each with its value, in the order of the table.
std::vector<std::pair<QString, QString>> valoriRiga(const FlexVB& g, int r, const Salvataggio& s) {
    return {
        {"FK_Movimento", QString::number(s.idMovimento)},
        {"FK_Prodotto", getIDOrNullStr(g.cella(r, Colonna::IdProdotto))},
        {"CodProdotto", testoSQL(g.cella(r, Colonna::Codice))},
        {"DescProdotto", testoSQL(g.cella(r, Colonna::Descrizione))},
        {"Quantita", getSqlNumberOrZero(g.cella(r, Colonna::Quantita))},
        {"Prezzo", importo(g, r, Colonna::PrezzoListino)},
        {"ScontoNetto", importo(g, r, Colonna::ScNetto)},
        {"PrezzoNetto", importo(g, r, Colonna::PrezzoNettoEsteso)},
        {"TotPrezzoNetto", importo(g, r, Colonna::TotPrNetto)},
        {"Iva", importo(g, r, Colonna::IvaProd)},
        {"TotaleIva", importo(g, r, Colonna::TotIvaProd)},
        {"TotaleRiga", importo(g, r, Colonna::Importo)},
        {"FK_IVA", getIDOrNullStr(g.cella(r, Colonna::IdIva))},
        {"ValoreIva", getSqlNumberOrZero(g.cella(r, Colonna::Iva))},
        {"Pos", QString::number(s.pos)},
        {"Sconto", getSqlNumberOrZero(g.cella(r, Colonna::Sconto1))},
        {"Sconto2", getSqlNumberOrZero(g.cella(r, Colonna::Sconto2))},
        {"Sconto3", getSqlNumberOrZero(g.cella(r, Colonna::Sconto3))},
        {"Taglio", taglioRiga(g, r)},
        {"ExtraProg", QString::number(s.extraProg)},
        {"FK_UM", getIDOrNullStr(g.cella(r, Colonna::IdUm))},
    };
}

// A kit that is a component of another belongs to that one's head, and so do its own components.
bool nuovaTesta(const FlexVB& g, int r) {
    return testaDistinta(g.cella(r, Colonna::Codice)) && g.cella(r, Colonna::IdDistintaBase).isEmpty();
}

bool inserisciRiga(const FlexVB& g, int r, Salvataggio& s) {
    QStringList colonne;
    QStringList valori;
    for (const auto& [colonna, valore] : valoriRiga(g, r, s)) {
        colonne << colonna;
        valori << valore;
    }
    colonne << "FK_Venditore"
            << "Ora";
    valori << getIDOrNullStr(g.cella(r, Colonna::IdVenditore));
    const int rid = gAdo.getIDByInsert("INSERT INTO DettagliMovimento (" + colonne.join(", ") + ") VALUES (" +
                                           valori.join(", ") +
                                           ", "
                                           "Now()) ",
                                       sorgente(), "RID", "DettagliMovimento");
    if (rid < 1) return false;
    if (nuovaTesta(g, r)) s.ultimaTesta = rid;
    if (g.cella(r, Colonna::IdDistintaBase).isEmpty()) return true;
    return gAdo.executeSQL("UPDATE DettagliMovimento SET IK_DETTAGLIOMOVIMENTO = " +
                               QString::number(s.ultimaTesta) + " WHERE RID = " + QString::number(rid),
                           sorgente());
}

// The seller and the time keep their first value.
bool modificaRiga(const FlexVB& g, int r, const Salvataggio& s) {
    QStringList assegnazioni;
    for (const auto& [colonna, valore] : valoriRiga(g, r, s)) {
        assegnazioni << colonna + " = " + valore;
    }
    return gAdo.executeSQL("UPDATE DettagliMovimento SET " + assegnazioni.join(", ") + " " +
                               "WHERE RID = " + QString::number(g.chiave(r, Colonna::Rid)),
                           sorgente());
}

bool cancellaRiga(const FlexVB& g, int r) {
    const int rid = g.chiave(r, Colonna::Rid);
    return rid < 1 ||
           gAdo.executeSQL("DELETE FROM DettagliMovimento WHERE RID = " + QString::number(rid), sorgente());
}

bool salvaRiga(const FlexVB& g, int r, Salvataggio& s) {
    const int stato = g.gestione(r);
    if (stato != RigaCancellata) ++s.pos;
    // A component added to a kit that was saved before joins its head.
    if (nuovaTesta(g, r) && g.chiave(r, Colonna::Rid) > 0) s.ultimaTesta = g.chiave(r, Colonna::Rid);
    switch (stato) {
        case RigaNuova:
            return inserisciRiga(g, r, s);
        case RigaModificata:
            return g.chiave(r, Colonna::Rid) > 0 ? modificaRiga(g, r, s) : inserisciRiga(g, r, s);
        case RigaCancellata:
            return cancellaRiga(g, r);
        default:
            return true;
    }
}

// Every row counts, deleted ones too.
void sommaPeso(const FlexVB& g, int r, Salvataggio& s) {
    const int prodotto = g.chiave(r, Colonna::IdProdotto);
    const double quantita = static_cast<double>(g.single(r, Colonna::Quantita));
    s.peso = static_cast<float>(static_cast<double>(s.peso) +
                                static_cast<double>(getPesoProd(prodotto)) * quantita);
    s.colli = arrotondaColli(s.colli + getColliProd(prodotto) * quantita);
}

}  // namespace

bool saveDettagli(Vendita& v, int idMovimento, int extraProg) {
    return protetto(
        gNomeModulo, "saveDettagli",
        [&] {
            Salvataggio s{idMovimento, extraProg};
            for (int r = 1; r <= v.flxVB.ultima(); ++r) {
                if (!salvaRiga(v.flxVB, r, s)) return false;
                if (v.mAccompagnatorio) sommaPeso(v.flxVB, r, s);
            }
            if (!getTotaleConto(v, idMovimento)) return false;
            return !v.mAccompagnatorio || updatePesoColli(idMovimento, s.peso, s.colli);
        },
        false);
}
