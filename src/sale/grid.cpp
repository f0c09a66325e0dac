#include "sale/grid.h"

#include <algorithm>
#include <cmath>

#include <QDateTime>

#include "core/format.h"
#include "core/globals.h"
#include "core/operator_port.h"
#include "core/value_helpers.h"
#include "sale/alternatives.h"
#include "sale/product_info.h"
#include "sale/row_cells.h"
#include "sale/row_editor.h"
#include "sale/vendita.h"

namespace {

bool esiste(const Vendita& v, int riga) {
    return riga >= 1 && riga <= v.flxVB.ultima();
}

// "Vendita del <date> Ora: <time>", from a row's stored date and time; empty for a row without one.
QString testoOra(const QString& ora) {
    const QDateTime quando = QDateTime::fromString(ora, "dd/MM/yyyy HH:mm:ss");
    if (!quando.isValid()) return {};
    return "Vendita del " + Format(quando, u"DD/MM/YYYY") + " Ora: " + Format(quando, u"Hh:Nn:Ss");
}

void mostraProdotto(Vendita& v, int r) {
    const FlexVB& g = v.flxVB;
    v.txtCodProdotto.testo(g.cella(r, Colonna::Codice));
    v.txtCodProdotto.tag(g.cella(r, Colonna::IdProdotto));
    v.lblCodProdotto.testo(g.cella(r, Colonna::Codice));
    v.txtDescProdotto.testo(g.cella(r, Colonna::Descrizione));
    v.lblMarca.testo(g.cella(r, Colonna::Marca));
    v.lblMarca.tag(g.cella(r, Colonna::ElencoSpeciale));
    v.lblUM.testo(g.cella(r, Colonna::Um));
    v.lblUM.tag(g.cella(r, Colonna::IdUm));
    v.lblTaglio.testo(g.cella(r, Colonna::Taglio));
    v.txtIVA.testo(g.cella(r, Colonna::CodIva));
    v.txtIVA.tag(g.cella(r, Colonna::IdIva));
    v.lblIVA.testo(g.cella(r, Colonna::DescIva));
    v.lblIDIva.testo(g.cella(r, Colonna::IdIva));
    v.lblCodIva.testo(g.cella(r, Colonna::CodIva));
    v.lblDescIva.testo(g.cella(r, Colonna::DescIva));
    v.lblValoraIva.testo(g.cella(r, Colonna::Iva));
}

void mostraSconto(Vendita& v, int r, Colonna colonna, Campo& campo, Campo& ombra) {
    campo.testoETag(formattaImporto(v.flxVB.cella(r, colonna), gDecimaliDopo));
    ombra.testo(campo.testo());
}

// The next row to step to in the direction, past those that are deleted or folded away; 0 when there is none.
int rigaVicina(const Vendita& v, int direzione) {
    const int passo = direzione == 1 ? -1 : 1;
    for (int r = v.flxVB.corrente() + passo; esiste(v, r); r += passo) {
        if (v.flxVB.viva(r) && !v.flxVB.nascosta(r)) return r;
    }
    return 0;
}

}  // namespace

void formattaGriglia(Vendita& v) {
    svuotaGriglia(v);
}

void svuotaGriglia(Vendita& v) {
    v.ridisegnoGriglia = true;
    v.flxVB.svuota();
    v.ridisegnoGriglia = false;
}

void selFlexRow(Vendita& v, int riga) {
    if (!esiste(v, riga)) return;
    v.flxVB.corrente(riga);
    v.schermo.mostraRiga(riga);
    selectGridRow(v);
}

void selectGridRow(Vendita& v) {
    if (v.ridisegnoGriglia) return;
    v.selezioneInCorso = true;
    v.flxVB.seleziona(v.flxVB.corrente());
    v.selezioneInCorso = false;
}

void mostraPrezziRiga(Vendita& v, int r) {
    const FlexVB& g = v.flxVB;
    const double iva = static_cast<double>(g.single(r, Colonna::Iva));
    const Currency listino = g.currency(r, Colonna::PrezzoListino);
    v.txtPrezzoListino.testo(g.cella(r, Colonna::PrezzoListino));
    v.lblPrezzoListino.testo(g.cella(r, Colonna::PrezzoListino));
    v.lblPrezzoListino.tag(g.cella(r, Colonna::BloccaPrezzo));
    v.txtPrezzoListinoLordo.testoETag(formattaImporto(listino.toDouble() * (1 + iva / 100), 2));
    v.lblPrezzoListinoLordo.testo(v.txtPrezzoListinoLordo.testo());
    v.txtPrezzoNetto.testo(g.cella(r, Colonna::PrezzoNetto));
    v.txtPrezzoNetto.tag(g.cella(r, Colonna::PrezzoNettoEsteso));
    v.lblPrezzoNetto.testo(g.cella(r, Colonna::PrezzoNetto));
    // The reference of the commit test: the net price that the row's discounts gave.
    v.txtPrezzoListino.tag(g.cella(r, Colonna::PrezzoNetto));
    mostraSconto(v, r, Colonna::Sconto1, v.txtSconto1, v.lblSconto1);
    mostraSconto(v, r, Colonna::Sconto2, v.txtSconto2, v.lblSconto2);
    mostraSconto(v, r, Colonna::Sconto3, v.txtSconto3, v.lblSconto3);
    const double quantita = static_cast<double>(quantitaRiga(g, r));
    const double importo = g.currency(r, Colonna::Importo).toDouble();
    v.txtPrezzoFinito.testoETag(formattaImporto(quantita == 0.0 ? 0.0 : importo / quantita, 2));
    v.TxtPrezzoRiga.testoETag(formattaImporto(importo, 2));
    v.lblScNetto.testo(g.cella(r, Colonna::ScNetto));
    v.lblTotPrezzoNetto.testo(g.cella(r, Colonna::TotPrNetto));
    v.lblIvaProdotto.testo(g.cella(r, Colonna::IvaProd));
    v.lblTotIVA.testo(g.cella(r, Colonna::TotIvaProd));
    v.lblTotRiga.testo(g.cella(r, Colonna::Importo));
}

void mostraQuantitaRiga(Vendita& v, int r) {
    const float quantita = v.flxVB.single(r, Colonna::Quantita);
    v.txtQta.testoETag(formattaImporto(std::fabs(quantita), 2));
    setResoStatus(v, quantita < 0 ? 1 : 0);
}

void mostraRigaSelezionata(Vendita& v) {
    const int r = v.flxVB.corrente();
    if (v.modificaConsentita) {
        const Clessidra clessidra(v.schermo.operatore());
        pulisciCampiRiga(v, false);
        mostraProdotto(v, r);
        mostraPrezziRiga(v, r);
        mostraQuantitaRiga(v, r);
        v.lblPos.testo(QString::number(r));
        v.schermo.fuoco(v.txtCodProdotto);
        v.caselle.codProdotto
            .selezionaTutto();  // the next code replaces this one, also in a box that has the focus
        v.schermo.avviaTimer(SchermoVendita::Timer::Griglia, std::max(0, gRitardoGriglia));
        bloccaPrezzi(v);
    }
    mostraOraRiga(v, r);
}

void mostraOraRiga(Vendita& v, int riga) {
    v.lblOperatoreScreen.testo(v.flxVB.cella(riga, Colonna::DescVenditore));
    v.lblOra.testo(testoOra(v.flxVB.cella(riga, Colonna::Ora)));
}

void flxVB_RowColChange(Vendita& v, int riga) {
    if (v.selezioneInCorso || !esiste(v, riga)) return;
    v.rigaGiaCaricata = true;
    v.flxVB.corrente(riga);
    selectGridRow(v);
    if (!v.flxVB.cella(riga, Colonna::IdDistintaBase).isEmpty()) return;  // components cannot be edited
    v.schermo.fermaTimer(SchermoVendita::Timer::Griglia);
    mostraRigaSelezionata(v);
}

void flxVB_Click(Vendita& v, int riga) {
    if (!v.rigaGiaCaricata) flxVB_RowColChange(v, riga);
    v.rigaGiaCaricata = false;
}

void TimerGrid_Timer(Vendita& v) {
    v.schermo.fermaTimer(SchermoVendita::Timer::Griglia);
    const int prodotto = v.txtCodProdotto.chiave();
    if (prodotto < 1) return;
    showAlternativi(v, prodotto);
    showInfrmazioniStatic(v, prodotto);
    showMargineProdotto(v, prodotto, getValoreCurrency(v.txtPrezzoNetto.testo()));
}

void TimerKeys_Timer(Vendita& v) {
    if (v.flxVB.righe() <= 1 || v.direzioneTasti == 0) return;
    const int riga = rigaVicina(v, v.direzioneTasti);
    if (riga == 0) return;
    v.schermo.mostraRiga(riga);
    flxVB_RowColChange(v, riga);
    v.rigaGiaCaricata = false;
}
