#include "sale/kits.h"

#include <set>
#include <vector>

#include "core/globals.h"
#include "core/numbers.h"
#include "core/run_time_error.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "data/prepare_sql.h"
#include "sale/kit_components.h"
#include "sale/line_pricing.h"
#include "sale/row_cells.h"
#include "sale/row_editor.h"
#include "sale/totals.h"
#include "sale/vendita.h"

namespace {

bool figlio(const FlexVB& g, int r) {
    return r >= 1 && r <= g.ultima() && !g.cella(r, Colonna::IdDistintaBase).isEmpty();
}

// The live components of the head at `riga`.
std::vector<int> figliVivi(const FlexVB& g, int riga) {
    std::vector<int> righe;
    for (int r = riga + 1; figlio(g, r); ++r) {
        if (g.viva(r)) righe.push_back(r);
    }
    return righe;
}

double ivaRiga(const FlexVB& g, int r) {
    return static_cast<double>(g.single(r, Colonna::Iva));
}

void daSalvare(FlexVB& g, int r) {
    g.scrivi(r, Colonna::Gestione,
             QString::number(g.chiave(r, Colonna::Rid) > 0 ? RigaModificata : RigaNuova));
}

// A component that the rows below a head already hold, each taken once.
bool presente(const FlexVB& g, int riga, int idProdotto, std::set<int>& prese) {
    for (const int r : figliVivi(g, riga)) {
        if (g.chiave(r, Colonna::IdProdotto) == idProdotto && prese.insert(r).second) return true;
    }
    return false;
}

int dopoIFigli(const FlexVB& g, int riga) {
    int r = riga + 1;
    while (figlio(g, r))
        ++r;
    return r;
}

bool chiaveUsata(const FlexVB& g, const QString& chiave) {
    for (int r = 1; r <= g.ultima(); ++r) {
        if (g.cella(r, Colonna::IdDistintaBase) == chiave) return true;
    }
    return false;
}

// The sums of the components of a head, each with its own rate.
void sommaFigli(FlexVB& g, int testa) {
    Currency netto;
    Currency totale;
    for (const int r : figliVivi(g, testa)) {
        if (testaDistinta(g.cella(r, Colonna::Codice))) continue;
        const double importo =
            g.currency(r, Colonna::PrezzoNetto).toDouble() * static_cast<double>(quantitaRiga(g, r));
        netto += Currency::daDouble(importo);
        totale += Currency::daDouble(importo * (1 + ivaRiga(g, r) / 100));
    }
    g.scrivi(testa, Colonna::PrezzoNetto, formattaImporto(netto, gDecimaliDopo));
    g.scrivi(testa, Colonna::Importo, formattaImporto(totale, 2));
}

bool scontiDellEditor(const Vendita& v, int r) {
    const FlexVB& g = v.flxVB;
    return g.single(r, Colonna::Sconto1) == getValoreSingle(v.txtSconto1.testo()) &&
           g.single(r, Colonna::Sconto2) == getValoreSingle(v.txtSconto2.testo()) &&
           g.single(r, Colonna::Sconto3) == getValoreSingle(v.txtSconto3.testo());
}

// The list price with all its decimals, which net price and discount of the unit still hold.
Currency listinoEsteso(const FlexVB& g, int r) {
    const Currency somma = g.currency(r, Colonna::PrezzoNettoEsteso) + g.currency(r, Colonna::ScNetto);
    return formattaImporto(somma, gDecimaliDopo) == g.cella(r, Colonna::PrezzoListino)
               ? somma
               : g.currency(r, Colonna::PrezzoListino);
}

// What a component costs from now on. Discounts that it took with an earlier change reach its price here.
CelleRiga prezzoFiglio(Vendita& v, int r) {
    const FlexVB& g = v.flxVB;
    if (!scontiDellEditor(v, r) || testaDistinta(g.cella(r, Colonna::Codice))) return {};
    const Currency netto = calcolaPrezzoNetto(v, listinoEsteso(g, r), g.single(r, Colonna::Iva));
    const QString mostrato = formattaImporto(netto, gDecimaliDopo);
    if (mostrato == g.cella(r, Colonna::PrezzoNetto)) return {};
    return {{Colonna::PrezzoNetto, mostrato},
            {Colonna::PrezzoNettoEsteso, netto.testo()},
            {Colonna::ScNetto, v.lblScNetto.testo()},
            {Colonna::IvaProd, v.lblIvaProdotto.testo()}};
}

// The component's cells for a head of `q` pieces that had `p`; nothing when all stays.
CelleRiga quantitaFiglio(Vendita& v, int r, float p, float q) {
    const FlexVB& g = v.flxVB;
    CelleRiga celle = prezzoFiglio(v, r);
    if (p == q && celle.empty()) return {};
    const Currency netto =
        celle.empty() ? g.currency(r, Colonna::PrezzoNetto) : getValoreCurrency(celle.front().second);
    const double quantita =
        static_cast<double>(quantitaRiga(g, r)) / static_cast<double>(p) * static_cast<double>(q);
    const QString mostrata = formattaImporto(quantita, 2);
    const bool stessa = mostrata == g.cella(r, Colonna::Quantita);
    const double nuova = static_cast<double>(stessa ? quantitaRiga(g, r) : getValoreSingle(mostrata));
    celle.emplace_back(Colonna::Quantita, mostrata);
    if (!testaDistinta(g.cella(r, Colonna::Codice)))
        celle.emplace_back(Colonna::Importo,
                           testoImporto(netto.toDouble() * (1 + ivaRiga(g, r) / 100) * nuova));
    return celle;
}

}  // namespace

void getPrezzoTotaleDistinta(Vendita& v, const QString& codice) {
    Currency totale;
    {
        const Lettura lettura(
            "SELECT DBD.PREZZO, DBD.QUANTITA, DBD.FK_Prodotto, DBD.FK_IVA, DBD.VALOREIVA "
            "FROM (DistintaBaseDettagli DBD INNER JOIN DistintaBase DB ON DBD.FK_DISTINTABASE = DB.RID) "
            "INNER JOIN Iva I ON DBD.FK_IVA = I.RID WHERE DB.CODICE = " +
                testoSQL(codice),
            moduloFrmMain + QString(".getPrezzoTotaleDistinta"));
        if (!lettura) return;
        for (; !lettura->eof(); lettura->moveNext()) {
            const Currency prezzo =
                prezzoComponente(v, lettura->importo("PREZZO"), lettura->intero("FK_Prodotto"));
            totale += Currency::daDouble(prezzo.toDouble() * lettura->reale("QUANTITA"));
        }
    }
    v.txtPrezzoListino.testo(formattaImporto(totale, gDecimaliDopo));
    ricalcolaPrezzi(v, false, false);
    const double iva = static_cast<double>(getValoreSingle(v.lblValoraIva.testo()));
    v.txtPrezzoListinoLordo.testo(
        formattaImporto(getValoreCurrency(v.txtPrezzoListino.testo()).toDouble() * (1 + iva / 100), 2));
}

bool getProdFigli(Vendita& v, const QString& codice, const QString& chiave, float quantita, int riga) {
    const auto distinta = leggiDistinta(v, codice, quantita);
    if (distinta) scriviFigli(v, *distinta, chiave, riga);
    return distinta.has_value();
}

void scriviFigli(Vendita& v, const Distinta& distinta, const QString& chiave, int riga) {
    FlexVB& g = v.flxVB;
    std::set<int> prese;
    Currency importo = g.currency(riga, Colonna::Importo);
    for (const FiglioDistinta& nuovo : distinta.figli) {
        if (presente(g, riga, nuovo.dati.idProdotto, prese)) continue;
        const int r = inserisciRiga(v, dopoIFigli(g, riga), nuovo.celle);
        g.scrivi(r, Colonna::IdDistintaBase, chiave);
        g.nascondi(r, g.piegata(riga));
        checkRowReso(v, r);
        prese.insert(r);
        importo += nuovo.importo;
    }
    g.scrivi(riga, Colonna::PrezzoListino, formattaImporto(distinta.listino, gDecimaliDopo));
    g.scrivi(riga, Colonna::PrezzoNetto, formattaImporto(distinta.netto, gDecimaliDopo));
    g.scrivi(riga, Colonna::Importo, formattaImporto(importo, 2));
    g.listinoLetto(riga, {});
}

QString chiaveFigli(const Vendita& v, int riga) {
    const FlexVB& g = v.flxVB;
    if (figlio(g, riga + 1)) return g.cella(riga + 1, Colonna::IdDistintaBase);
    QString chiave = QString::number(riga) + "*";
    const int rid = g.chiave(riga, Colonna::Rid);
    if (rid > 0) chiave.prepend(QString::number(rid));
    // Rows that were put in between may have moved another head away from its number.
    while (chiaveUsata(g, chiave))
        chiave += '*';
    return chiave;
}

void aggiornaQTFigli(Vendita& v, int riga, float quantita) {
    FlexVB& g = v.flxVB;
    const std::vector<int> figli = figliVivi(g, riga);
    if (figli.empty()) return;
    const float p = quantitaRiga(g, riga);
    if (p == 0.0F) throw RunTimeError(RunTimeError::DivisionePerZero);
    std::vector<std::pair<int, CelleRiga>> cambiate;
    for (const int r : figli) {
        if (CelleRiga celle = quantitaFiglio(v, r, p, quantita); !celle.empty())
            cambiate.emplace_back(r, std::move(celle));
    }
    calcolaPrezzoNetto(v, getValoreCurrency(v.txtPrezzoListino.testo()),
                       getValoreSingle(v.lblValoraIva.testo()));
    if (cambiate.empty()) return;
    for (const auto& [r, celle] : cambiate) {
        for (const auto& [colonna, testo] : celle)
            g.scrivi(r, colonna, testo);
        daSalvare(g, r);
        checkRowReso(v, r);
    }
    sommaFigli(g, riga);
}

void aggiornaScontiFigli(Vendita& v, int riga) {
    FlexVB& g = v.flxVB;
    const QString s1 = v.txtSconto1.testo();
    const QString s2 = v.txtSconto2.testo();
    const QString s3 = v.txtSconto3.testo();
    for (const int r : figliVivi(g, riga)) {
        if (scontiDellEditor(v, r)) continue;
        g.scrivi(r, Colonna::ScontoTesto, s1 + "+" + s2 + "+" + s3);
        g.scrivi(r, Colonna::Sconto1, s1);
        g.scrivi(r, Colonna::Sconto2, s2);
        g.scrivi(r, Colonna::Sconto3, s3);
        daSalvare(g, r);
    }
}

void aggiornaStatisticheFigli(Vendita& v, int riga) {
    FlexVB& g = v.flxVB;
    for (const int r : figliVivi(g, riga)) {
        if (g.gestione(r) == RigaInvariata) continue;
        const double q = static_cast<double>(quantitaRiga(g, r));
        g.scrivi(r, Colonna::TotPrNetto,
                 testoNumero(g.currency(r, Colonna::PrezzoNettoEsteso).toDouble() * q));
        g.scrivi(r, Colonna::TotIvaProd, testoNumero(q * static_cast<double>(g.single(r, Colonna::IvaProd))));
    }
}

void delFigli(Vendita& v, int riga) {
    for (const int r : figliVivi(v.flxVB, riga)) {
        v.flxVB.scrivi(r, Colonna::Gestione, QString::number(RigaCancellata));
        v.flxVB.nascondi(r, true);
    }
}

void aggiornaTesta(Vendita& v, int rigaFiglio) {
    int testa = rigaFiglio;
    while (figlio(v.flxVB, testa))
        --testa;
    if (testa < 1 || testa == rigaFiglio || !v.flxVB.viva(testa)) return;
    sommaFigli(v.flxVB, testa);
}

void piegaFigli(Vendita& v, int riga) {
    FlexVB& g = v.flxVB;
    if (riga < 1 || riga > g.ultima() || figlio(g, riga)) return;
    const std::vector<int> figli = figliVivi(g, riga);
    if (figli.empty()) return;
    g.piega(riga, !g.piegata(riga));
    for (const int r : figli)
        g.nascondi(r, g.piegata(riga));
}
