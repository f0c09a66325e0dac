#include "sale/row_writer.h"

#include "core/errors.h"
#include "core/format.h"
#include "core/globals.h"
#include "core/numbers.h"
#include "core/value_helpers.h"
#include "sale/grid.h"
#include "sale/line_pricing.h"
#include "sale/row_editor.h"
#include "sale/totals.h"
#include "sale/vendita.h"

namespace {

using Icona = OperatorPort::Icona;

constexpr int coloreReso = 0xFF0000;

DatiRiga datiDallEditor(const Vendita& v, int rigaInserimento) {
    DatiRiga d;
    d.posizione = valIntero(v.lblPos.testo());
    d.idProdotto = v.txtCodProdotto.chiave();
    d.marca = v.lblMarca.testo();
    d.codice = v.txtCodProdotto.testo();
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

// The prices and discounts as they were before the change that the operator took back: those of the row, or
// of the product as it was read when it has no row yet.
void ripristinaPrezzi(Vendita& v, int riga) {
    if (riga > 0) return mostraPrezziRiga(v, riga);
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

double fattoreSconto(const QString& sconto) {
    return 1 - static_cast<double>(getValoreSingle(sconto)) / 100;
}

// The row's amount, from the list price and not from the rounded net price.
QString importoRiga(const DatiRiga& d) {
    const double factor = fattoreSconto(d.sconto2) * fattoreSconto(d.sconto1) * fattoreSconto(d.sconto3) *
                          static_cast<double>(d.quantita);
    return formattaImporto(d.prezzoListino.toDouble() * (1 + static_cast<double>(d.iva) / 100) * factor, 2);
}

void scriviPrezzi(FlexVB& g, int r, const DatiRiga& d) {
    if (!testaDistinta(d.codice)) {
        g.scrivi(r, Colonna::PrezzoListino, formattaImporto(d.prezzoListino, gDecimaliDopo));
        g.scrivi(r, Colonna::PrezzoNetto, formattaImporto(d.prezzoNetto, gDecimaliDopo));
        g.scrivi(r, Colonna::PrezzoNettoEsteso, d.prezzoNetto.testo());
        g.scrivi(r, Colonna::Importo, importoRiga(d));
    }
    const double quantita = static_cast<double>(d.quantita);
    g.scrivi(r, Colonna::ScNetto, d.scNetto);
    g.scrivi(r, Colonna::TotPrNetto, testoNumero(d.prezzoNetto.toDouble() * quantita));
    g.scrivi(r, Colonna::IvaProd, d.ivaProdotto);
    g.scrivi(r, Colonna::TotIvaProd,
             testoNumero(quantita * static_cast<double>(getValoreSingle(d.ivaProdotto))));
}

void scriviProdotto(FlexVB& g, int r, const DatiRiga& d, bool nuova) {
    g.scrivi(r, Colonna::Marca, d.marca);
    g.scrivi(r, Colonna::Codice, d.codice);
    g.scrivi(r, Colonna::IdProdotto, QString::number(d.idProdotto));
    g.scrivi(r, Colonna::Descrizione, d.descrizione);
    g.scrivi(r, Colonna::IdIva, d.idIva);
    g.scrivi(r, Colonna::CodIva, d.codIva);
    g.scrivi(r, Colonna::DescIva, d.descIva);
    g.scrivi(r, Colonna::Iva, formattaImporto(d.iva, 2));
    g.scrivi(r, Colonna::Quantita, formattaImporto(d.quantita, 2));
    if (nuova) g.scrivi(r, Colonna::OldQuantita, "0");
    g.scrivi(r, Colonna::IdUm, d.idUm);
    g.scrivi(r, Colonna::Um, d.um);
    g.scrivi(r, Colonna::ScontoTesto, d.sconto1 + "+" + d.sconto2 + "+" + d.sconto3);
    g.scrivi(r, Colonna::Sconto1, d.sconto1);
    g.scrivi(r, Colonna::Sconto2, d.sconto2);
    g.scrivi(r, Colonna::Sconto3, d.sconto3);
}

void scriviRiga(const Vendita& v, FlexVB& g, int r, const DatiRiga& d, bool nuova) {
    scriviProdotto(g, r, d, nuova);
    scriviPrezzi(g, r, d);
    g.scrivi(r, Colonna::Gestione,
             QString::number(g.chiave(r, Colonna::Rid) > 0 ? RigaModificata : RigaNuova));
    const QString taglio = nuova && v.mGestioneTaglio ? d.prezzoNetto.testo() : d.taglio;
    g.scrivi(r, Colonna::Taglio, formattaImporto(taglio, gDecimaliDopo));
    if (g.chiave(r, Colonna::IdVenditore) == 0) {
        g.scrivi(r, Colonna::IdVenditore, QString::number(gIDVenditore));
        g.scrivi(r, Colonna::DescVenditore, gDescVenditore);
    }
    g.scrivi(r, Colonna::Ora, {});
    g.scrivi(r, Colonna::ElencoSpeciale, d.elencoSpeciale);
    g.scrivi(r, Colonna::BloccaPrezzo, d.bloccaPrezzo);
}

int nuovaRiga(Vendita& v, const DatiRiga& d) {
    const int riga = v.flxVB.aggiungi(d.rigaInserimento);
    if (d.rigaInserimento > 0) v.mRigaInserimento = riga + 1;
    return riga;
}

bool qualcheRigaViva(const Vendita& v) {
    for (int r = 1; r <= v.flxVB.ultima(); ++r) {
        if (v.flxVB.viva(r)) return true;
    }
    return false;
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
        selFlexRow(v, riga);
        mostraRigaSelezionata(v);
        return riga;
    }
    const bool nuova = riga < 1;
    if (nuova) riga = nuovaRiga(v, dati);
    scriviRiga(v, v.flxVB, riga, dati, nuova);
    v.flxVB.corrente(riga);
    v.chkPrezziIva.abilitato(false);
    checkRowReso(v, riga);
    v.mRigaDaCodice = false;
    return riga;
}

int controllaPresenzaElemento2(const Vendita& v, int idProdotto, const QString& chiavePadre) {
    const FlexVB& g = v.flxVB;
    for (int r = 1; r <= g.ultima(); ++r) {
        if (!g.viva(r) || g.cella(r, Colonna::Codice).startsWith('/')) continue;
        if (g.chiave(r, Colonna::IdProdotto) == idProdotto &&
            g.cella(r, Colonna::IdDistintaBase) == chiavePadre)
            return r;
    }
    return 0;
}

void checkRowReso(Vendita& v, int riga) {
    v.flxVB.coloreTesto(riga, v.flxVB.single(riga, Colonna::Quantita) < 0 ? coloreReso : -1);
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
            v.flxVB.scrivi(r, Colonna::Gestione, QString::number(RigaCancellata));
            v.flxVB.nascondi(r, true);
            updateNextRow(v, r);
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
