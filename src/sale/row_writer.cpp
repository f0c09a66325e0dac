#include "sale/row_writer.h"

#include <optional>

#include "core/errors.h"
#include "core/globals.h"
#include "core/numbers.h"
#include "core/value_helpers.h"
#include "sale/grid.h"
#include "sale/kit_components.h"
#include "sale/kits.h"
#include "sale/line_pricing.h"
#include "sale/row_cells.h"
#include "sale/row_editor.h"
#include "sale/totals.h"
#include "sale/vendita.h"

namespace {

using Icona = OperatorPort::Icona;

constexpr int coloreReso = 0xFF0000;

// A row that stands keeps its code, whatever is being typed over it.
QString codiceProdotto(const Vendita& v, const DatiRiga& d) {
    const FlexVB& g = v.flxVB;
    const bool suaRiga = d.posizione >= 1 && d.posizione <= g.ultima() &&
                         g.chiave(d.posizione, Colonna::IdProdotto) == d.idProdotto;
    return suaRiga ? g.cella(d.posizione, Colonna::Codice) : v.txtCodProdotto.testo();
}

DatiRiga datiDallEditor(const Vendita& v, int rigaInserimento) {
    DatiRiga d;
    d.posizione = valIntero(v.lblPos.testo());
    d.idProdotto = v.txtCodProdotto.chiave();
    d.marca = v.lblMarca.testo();
    d.codice = codiceProdotto(v, d);
    d.descrizione = v.txtDescProdotto.testo();
    d.idIva = v.lblIDIva.testo();
    d.codIva = v.lblCodIva.testo();
    d.descIva = v.lblDescIva.testo();
    d.iva = getValoreSingle(v.lblValoraIva.testo());
    d.quantita = quantitaEditor(v);
    d.prezzoNetto = getValoreCurrency(v.txtPrezzoNetto.tag());
    d.prezzoListino = getValoreCurrency(v.txtPrezzoListino.testo());
    d.sconto1 = v.txtSconto1.testo();
    d.sconto2 = v.txtSconto2.testo();
    d.sconto3 = v.txtSconto3.testo();
    d.taglio = v.lblTaglio.testo();
    d.idUm = v.lblUM.tag();
    d.um = v.lblUM.testo();
    d.scNetto = v.lblScNetto.testo();
    d.ivaProdotto = v.lblIvaProdotto.testo();
    d.elencoSpeciale = v.lblMarca.tag();
    d.bloccaPrezzo = v.lblPrezzoListino.tag();
    d.rigaInserimento = rigaInserimento;
    return d;
}

// The editor as it was before the change that the operator took back: as the row has it, or the prices of the
// product as they were read when it has no row yet.
void ripristinaPrezzi(Vendita& v, int riga) {
    if (riga > 0) {
        mostraPrezziRiga(v, riga);
        return mostraQuantitaRiga(v, riga);
    }
    v.txtPrezzoListino.testo(v.lblPrezzoListino.testo());
    v.txtPrezzoListinoLordo.testo(v.lblPrezzoListinoLordo.testo());
    v.txtSconto1.testoETag(v.lblSconto1.testo());
    v.txtSconto2.testoETag(v.lblSconto2.testo());
    v.txtSconto3.testoETag(v.lblSconto3.testo());
    txtPrezzoListino_LostFocus(v);
}

// A price below cost is accepted once a row; false when the operator takes it back.
bool accettaSottocosto(Vendita& v, const DatiRiga& d) {
    if (gSottoCosto == 0 || v.mSottocostoOk || d.prezzoNetto <= Currency()) return true;
    if (getValoreCurrency(v.lblPrezzoAcquisto.testo()) <= d.prezzoNetto) return true;
    v.mSottocostoOk = v.schermo.operatore().chiedeSi("Attenzione! Vendita sottocosto.\nContinuare?");
    if (!v.mSottocostoOk) ripristinaPrezzi(v, d.posizione);
    return v.mSottocostoOk;
}

bool qualcheRigaViva(const Vendita& v) {
    for (int r = 1; r <= v.flxVB.ultima(); ++r) {
        if (v.flxVB.viva(r)) return true;
    }
    return false;
}

// A product that has its row: into the editor, unchanged. A kit gets the components that it lacks.
int richiamaRiga(Vendita& v, int riga, const QString& codice) {
    if (testaDistinta(codice) &&
        !getProdFigli(v, codice, chiaveFigli(v, riga), v.flxVB.single(riga, Colonna::Quantita), riga))
        return 0;
    selFlexRow(v, riga);
    mostraRigaSelezionata(v);
    return riga;
}

int aggiungiRiga(Vendita& v, const DatiRiga& d) {
    const CelleRiga celle = celleRiga(v, d, true);
    std::optional<Distinta> distinta;
    if (testaDistinta(d.codice)) {
        // Without its components a kit would be given away.
        distinta = leggiDistinta(v, d.codice, d.quantita);
        if (!distinta) return 0;
    }
    const int riga = inserisciRiga(v, d.rigaInserimento, celle);
    if (distinta) scriviFigli(v, *distinta, chiaveFigli(v, riga), riga);
    if (d.rigaInserimento > 0) v.mRigaInserimento = riga + 1;
    return riga;
}

int aggiornaRiga(Vendita& v, int riga, const DatiRiga& d) {
    const CelleRiga celle = celleRiga(v, d, false);
    if (testaDistinta(d.codice)) {
        aggiornaQTFigli(v, riga, d.quantita);
        aggiornaScontiFigli(v, riga);
        aggiornaStatisticheFigli(v, riga);
    }
    scriviRiga(v.flxVB, riga, celle);
    return riga;
}

void marcaCancellata(Vendita& v, int riga) {
    FlexVB& g = v.flxVB;
    if (testaDistinta(g.cella(riga, Colonna::Codice))) delFigli(v, riga);
    g.scrivi(riga, Colonna::Gestione, QString::number(RigaCancellata));
    g.nascondi(riga, true);
    aggiornaTesta(v, riga);
    updateNextRow(v, riga);
}

}  // namespace

int addNewElement(Vendita& v, int rigaInserimento, bool& presente) {
    presente = false;
    if (!controllaElemento(v)) return 0;
    return addElement(v, datiDallEditor(v, rigaInserimento), presente);
}

bool controllaElemento(Vendita& v) {
    if (v.txtCodProdotto.chiave() <= 0) return false;
    QString righe;
    if (getValoreSingle(v.txtQta.testo()) == 0.0F) righe += "\n - Campo [Quantità] Obbligatorio";
    if (!isNumeric(v.txtPrezzoNetto.testo())) righe += "\n - Campo [Prezzo] Obbligatorio";
    if (righe.isEmpty()) return true;
    v.schermo.operatore().messaggio("Attenzione:" + righe, Icona::Esclamazione);
    v.schermo.fuoco(v.txtCodProdotto);
    return false;
}

int addElement(Vendita& v, const DatiRiga& dati, bool& presente) {
    presente = false;
    if (!accettaSottocosto(v, dati)) return 0;
    setVenditaModificata(v);
    int riga = dati.posizione;
    if (v.mRigaDaCodice && riga < 1) riga = v.flxVB.ultima();
    if (riga < 1) {
        riga = controllaPresenzaElemento2(v, dati.idProdotto, dati.chiavePadre);
        presente = riga > 0;
    }
    if (presente) {
        riga = richiamaRiga(v, riga, dati.codice);
        presente = riga > 0;
        return riga;
    }
    riga = riga < 1 ? aggiungiRiga(v, dati) : aggiornaRiga(v, riga, dati);
    if (riga < 1) return 0;
    v.flxVB.corrente(riga);
    v.chkPrezziIva.abilitato(false);
    checkRowReso(v, riga);
    v.mRigaDaCodice = false;
    return riga;
}

int controllaPresenzaElemento2(const Vendita& v, int idProdotto, const QString& chiavePadre) {
    const FlexVB& g = v.flxVB;
    const QString id = QString::number(idProdotto);  // as text: a long sale is walked at every scan
    for (int r = 1; r <= g.ultima(); ++r) {
        if (g.cella(r, Colonna::IdProdotto) != id || g.cella(r, Colonna::IdDistintaBase) != chiavePadre)
            continue;
        if (g.viva(r) && !g.cella(r, Colonna::Codice).startsWith('/')) return r;
    }
    return 0;
}

void checkRowReso(Vendita& v, int riga) {
    const int colore = v.flxVB.single(riga, Colonna::Quantita) < 0 ? coloreReso : -1;
    if (colore != v.flxVB.coloreTesto(riga)) v.flxVB.coloreTesto(riga, colore);
}

void delRowToGrid(Vendita& v, int riga, bool conferma) {
    protetto(moduloFrmMain, "delRowToGrid", [&] {
        const int r = riga < 0 ? v.flxVB.corrente() : riga;
        if (!qualcheRigaViva(v) || r < 1 || r > v.flxVB.ultima() || !v.flxVB.viva(r)) return;
        const QString descrizione = v.flxVB.cella(r, Colonna::Descrizione);
        if (conferma && !v.schermo.operatore().chiedeSi("Eliminare il prodotto [" + descrizione + "]?"))
            return;
        {
            const RidisegnoFermo fermo(v.schermo);
            const Clessidra clessidra(v.schermo.operatore());
            marcaCancellata(v, r);
            calcolaTotali(v, false);
            v.chkPrezziIva.abilitato(!qualcheRigaViva(v));
            if (valIntero(v.lblPos.testo()) == r) pulisciCampiRiga(v, false);
        }
        v.schermo.fuoco(v.txtCodProdotto);
        setVenditaModificata(v);
    });
}

void updateNextRow(Vendita& v, int primaRiga) {
    for (int r = v.flxVB.ultima(); r >= primaRiga && r >= 1; --r) {
        if (v.flxVB.gestione(r) <= 0) v.flxVB.scrivi(r, Colonna::Gestione, QString::number(RigaModificata));
    }
}
