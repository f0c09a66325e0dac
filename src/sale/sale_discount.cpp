#include "sale/sale_discount.h"

#include <map>

#include "core/errors.h"
#include "core/globals.h"
#include "core/numbers.h"
#include "core/run_time_error.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "kit/search_request.h"
#include "sale/grid.h"
#include "sale/product_info.h"
#include "sale/row_cells.h"
#include "sale/row_editor.h"
#include "sale/totals.h"
#include "sale/vendita.h"

namespace {

// The command key that shows the immediate discount in force, and keeps it in its tag.
constexpr size_t comandoScontoImmediato = 16;

CelleRiga operator+(CelleRiga a, const CelleRiga& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

double meno(float sconto) {
    return 1 - static_cast<double>(sconto) / 100;
}

// One discount in place of three.
CelleRiga unicoSconto(const QString& sconto, const QString& zero) {
    return {{Colonna::ScontoTesto, sconto + "+0+0"},
            {Colonna::Sconto1, sconto},
            {Colonna::Sconto2, zero},
            {Colonna::Sconto3, zero}};
}

// The amounts that follow from a net price per unit; the row total is net amount and VAT added up.
CelleRiga importiDaNetto(const FlexVB& g, int r, Currency netto) {
    const double quantita = static_cast<double>(quantitaRiga(g, r));
    const double iva = static_cast<double>(g.single(r, Colonna::Iva));
    const QString totaleNetto = testoNumero(netto.toDouble() * quantita);
    const Currency ivaUnitaria = Currency::daDouble(netto.toDouble() * iva / 100);
    const QString totaleIva = testoNumero(static_cast<double>(ivaUnitaria.toSingle()) * quantita);
    const Currency importo = getValoreCurrency(totaleNetto) + Currency::daSingle(getValoreSingle(totaleIva));
    return {{Colonna::TotPrNetto, totaleNetto},
            {Colonna::IvaProd, ivaUnitaria.testo()},
            {Colonna::TotIvaProd, totaleIva},
            {Colonna::Importo, formattaImporto(importo, 2)}};
}

CelleRiga conAltroSconto(const FlexVB& g, int r, float aggiunta) {
    const float prima =
        g.single(r, Colonna::Sconto1) + g.single(r, Colonna::Sconto2) + g.single(r, Colonna::Sconto3);
    const QString sconto = formattaImporto(getNewScontoByOldAndAdd(prima, aggiunta), 2);
    const Currency listino = g.currency(r, Colonna::PrezzoListino);
    const Currency scontato = Currency::daDouble(listino.toDouble() * meno(getValoreSingle(sconto)));
    const QString scontoNetto = formattaImporto(listino - scontato, 2);
    const Currency esteso = listino - getValoreCurrency(scontoNetto);
    const QString netto = formattaImporto(esteso, 2);
    // Also a row that is in the books is entered anew; whoever changes the total of such a sale asks first.
    return unicoSconto(sconto, "0,00") + importiDaNetto(g, r, getValoreCurrency(netto)) +
           CelleRiga{{Colonna::ScNetto, scontoNetto},
                     {Colonna::PrezzoNettoEsteso, esteso.testo()},
                     {Colonna::PrezzoNetto, netto},
                     {Colonna::Gestione, QString::number(RigaNuova)}};
}

CelleRiga prezziScontati(const FlexVB& g, int r, Currency netto, float sconto) {
    if (testaDistinta(g.cella(r, Colonna::Codice))) return {};
    const double listino = g.currency(r, Colonna::PrezzoListino).toDouble();
    const double conIva = 1 + g.currency(r, Colonna::Iva).toDouble() / 100;
    const double quantita = static_cast<double>(quantitaRiga(g, r));
    return {{Colonna::PrezzoNetto, formattaImporto(netto, gDecimaliDopo)},
            {Colonna::PrezzoNettoEsteso, netto.testo()},
            {Colonna::Importo, formattaImporto(listino * conIva * quantita * meno(sconto), 2)}};
}

CelleRiga conScontoImmediato(const FlexVB& g, int r, float sconto) {
    const Currency netto =
        Currency::daDouble(g.currency(r, Colonna::PrezzoListino).toDouble() * meno(sconto));
    const double quantita = static_cast<double>(quantitaRiga(g, r));
    const auto iva =
        static_cast<float>(netto.toDouble() * static_cast<double>(g.single(r, Colonna::Iva)) / 100);
    return unicoSconto(testoNumero(sconto), "0") + prezziScontati(g, r, netto, sconto) +
           CelleRiga{{Colonna::ScNetto, testoNumero(sconto)},  // the percentage: no amount stands here
                     {Colonna::TotPrNetto, testoNumero(netto.toDouble() * quantita)},
                     {Colonna::IvaProd, testoNumero(iva)},
                     {Colonna::TotIvaProd, testoNumero(quantita * static_cast<double>(iva))}};
}

// Rows by number, with their new cells: written when the last one is worked out, so that a value that
// overflows leaves the sale as it was.
using RigheNuove = std::map<int, CelleRiga>;

void scriviRighe(Vendita& v, const RigheNuove& righe) {
    for (const auto& [riga, celle] : righe) {
        for (const auto& [colonna, testo] : celle) {
            v.flxVB.scrivi(riga, colonna, testo);
        }
    }
}

// The row in the editor as the grid has it now: committed later, the editor must not bring back what it held.
void rileggiEditor(Vendita& v) {
    const int riga = rigaInEditor(v);
    if (riga < 1) return;
    mostraPrezziRiga(v, riga);
    showMargineProdotto(v, v.txtCodProdotto.chiave(), getValoreCurrency(v.txtPrezzoNetto.testo()));
}

// True when the chosen discount, a ScontiImmediati row, is in force now.
bool prendiSconto(Vendita& v, int idSconto) {
    const Lettura lettura(
        "SELECT VALORE, CODICE FROM ScontiImmediati WHERE RID = " + QString::number(idSconto),
        moduloFrmMain + QString(".getScontoImmediato"));
    if (!lettura.trovata()) return false;
    v.cmdComando[comandoScontoImmediato].testo(lettura->testo("CODICE"));
    v.cmdComando[comandoScontoImmediato].tag(testoNumero(lettura->single("VALORE")));
    return true;
}

}  // namespace

float getNewScontoByOldAndAdd(float vecchio, float aggiunta) {
    const double resta = 100 - static_cast<double>(vecchio);
    return static_cast<float>(100 - (resta - resta * static_cast<double>(aggiunta) / 100));
}

void ricalcolaScontiAfterPag(Vendita& v, float sconto) {
    if (sconto == 0.0F) return;
    RigheNuove righe;
    for (int r = 1; r <= v.flxVB.ultima(); ++r) {
        if (v.flxVB.viva(r)) righe[r] = conAltroSconto(v.flxVB, r, sconto);
    }
    scriviRighe(v, righe);
    rileggiEditor(v);
    setVenditaModificata(v);
}

void ricalcolaDaTotale(Vendita& v) {
    if (v.lblMainDisplay.testo().isEmpty()) return;
    const Currency totale = getValoreCurrency(v.lblMainDisplay.testo());
    const Currency prima = getValoreCurrency(v.lblMainDisplay.tag());
    if (prima == Currency()) throw RunTimeError(RunTimeError::Overflow);
    ricalcolaScontiAfterPag(v, static_cast<float>(100 - totale.toDouble() * 100 / prima.toDouble()));
    v.lblMainDisplay.tag(v.lblMainDisplay.testo());
    v.lblMainDisplay.testo(formattaImporto(totale, 2));
}

void getScontoImmediato(Vendita& v) {
    if (!v.modificaConsentita) return;
    protetto(moduloFrmMain, "getScontoImmediato", [&] {
        const QString scelto =
            v.schermo.ricerca({.sql = "SELECT TOP 9 RID, CODICE, DESCRIZIONE FROM ScontiImmediati",
                               .campoChiave = "DESCRIZIONE"});
        v.cmdComando[comandoScontoImmediato].testo(" ");
        const int id = valIntero(QString(scelto).remove('|'));
        if (id > 0 && prendiSconto(v, id)) ricalcolaScontiGriglia(v);
        v.schermo.fuoco(v.txtCodProdotto);
    });
}

void ricalcolaScontiGriglia(Vendita& v) {
    const float sconto = getValoreSingle(v.cmdComando[comandoScontoImmediato].tag());
    RigheNuove righe;
    for (int r = 1; r <= v.flxVB.ultima(); ++r) {
        righe[r] = conScontoImmediato(v.flxVB, r, sconto);
    }
    {
        const RidisegnoFermo fermo(v.schermo);
        scriviRighe(v, righe);
        rileggiEditor(v);
        calcolaTotali(v, false);
    }
    setVenditaModificata(v);
}
