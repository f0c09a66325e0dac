#include "sale/row_cells.h"

#include "core/format.h"
#include "core/globals.h"
#include "core/numbers.h"
#include "core/value_helpers.h"
#include "sale/row_writer.h"
#include "sale/totals.h"
#include "sale/vendita.h"

namespace {

double fattoreSconto(const QString& sconto) {
    return 1 - static_cast<double>(getValoreSingle(sconto)) / 100;
}

// The row's amount, from the list price and not from the rounded net price.
QString importoRiga(const DatiRiga& d) {
    const double factor = fattoreSconto(d.sconto2) * fattoreSconto(d.sconto1) * fattoreSconto(d.sconto3) *
                          static_cast<double>(d.quantita);
    return testoImporto(d.prezzoListino.toDouble() * (1 + static_cast<double>(d.iva) / 100) * factor);
}

void aggiungiProdotto(CelleRiga& celle, const DatiRiga& d) {
    celle.insert(celle.end(), {{Colonna::Marca, d.marca},
                               {Colonna::Codice, d.codice},
                               {Colonna::IdProdotto, QString::number(d.idProdotto)},
                               {Colonna::Descrizione, d.descrizione},
                               {Colonna::IdIva, d.idIva},
                               {Colonna::CodIva, d.codIva},
                               {Colonna::DescIva, d.descIva},
                               {Colonna::Iva, formattaImporto(d.iva, 2)},
                               {Colonna::Quantita, formattaImporto(d.quantita, 2)},
                               {Colonna::IdUm, d.idUm},
                               {Colonna::Um, d.um},
                               {Colonna::ElencoSpeciale, d.elencoSpeciale},
                               {Colonna::BloccaPrezzo, d.bloccaPrezzo},
                               {Colonna::IdDistintaBase, d.chiavePadre}});
}

void aggiungiSconti(CelleRiga& celle, const DatiRiga& d) {
    celle.insert(celle.end(), {{Colonna::ScontoTesto, d.sconto1 + "+" + d.sconto2 + "+" + d.sconto3},
                               {Colonna::Sconto1, d.sconto1},
                               {Colonna::Sconto2, d.sconto2},
                               {Colonna::Sconto3, d.sconto3}});
}

// A plain number that the books can hold as money.
QString testoSomma(double valore) {
    [[maybe_unused]] const Currency leggibile = Currency::daDouble(valore);
    return testoNumero(valore);
}

// The totals also sum what the row comes to before its discounts.
void controllaLordo(const DatiRiga& d) {
    testoSomma(d.prezzoListino.toDouble() * (1 + static_cast<double>(d.iva) / 100) *
               static_cast<double>(d.quantita));
}

// The head of a kit has its prices from its components.
void aggiungiPrezzi(CelleRiga& celle, const DatiRiga& d) {
    if (!testaDistinta(d.codice)) {
        celle.insert(celle.end(), {{Colonna::PrezzoListino, formattaImporto(d.prezzoListino, gDecimaliDopo)},
                                   {Colonna::PrezzoNetto, formattaImporto(d.prezzoNetto, gDecimaliDopo)},
                                   {Colonna::PrezzoNettoEsteso, d.prezzoNetto.testo()},
                                   {Colonna::Importo, importoRiga(d)}});
    }
    const double quantita = static_cast<double>(d.quantita);
    controllaLordo(d);
    celle.insert(celle.end(), {{Colonna::ScNetto, d.scNetto},
                               {Colonna::TotPrNetto, testoSomma(d.prezzoNetto.toDouble() * quantita)},
                               {Colonna::IvaProd, d.ivaProdotto},
                               {Colonna::TotIvaProd,
                                testoSomma(quantita * static_cast<double>(getValoreSingle(d.ivaProdotto)))}});
}

void scriviOperatore(FlexVB& g, int r) {
    if (g.chiave(r, Colonna::IdVenditore) != 0) return;
    g.scrivi(r, Colonna::IdVenditore, QString::number(gIDVenditore));
    g.scrivi(r, Colonna::DescVenditore, gDescVenditore);
}

}  // namespace

QString testoImporto(double importo) {
    QString testo = formattaImporto(importo, 2);
    [[maybe_unused]] const Currency leggibile = getValoreCurrency(testo);
    return testo;
}

const QString& quantitaEsatta(const FlexVB& g, int riga) {
    const QString& mostrata = g.cella(riga, Colonna::Quantita);
    const bool immutata = mostrata == formattaImporto(g.single(riga, Colonna::OldQuantita), 2);
    return immutata ? g.cella(riga, Colonna::OldQuantita) : mostrata;
}

float quantitaRiga(const FlexVB& g, int riga) {
    return getValoreSingle(quantitaEsatta(g, riga));
}

CelleRiga celleRiga(const Vendita& v, const DatiRiga& d, bool nuova) {
    CelleRiga celle;
    aggiungiProdotto(celle, d);
    aggiungiSconti(celle, d);
    aggiungiPrezzi(celle, d);
    if (nuova) celle.emplace_back(Colonna::OldQuantita, "0");
    const QString taglio = nuova && v.mGestioneTaglio ? d.prezzoNetto.testo() : d.taglio;
    celle.emplace_back(Colonna::Taglio, formattaImporto(taglio, gDecimaliDopo));
    celle.emplace_back(Colonna::Ora, QString());
    return celle;
}

void scriviRiga(FlexVB& g, int riga, const CelleRiga& celle) {
    for (const auto& [colonna, testo] : celle) {
        g.scrivi(riga, colonna, testo);
    }
    g.scrivi(riga, Colonna::Gestione,
             QString::number(g.chiave(riga, Colonna::Rid) > 0 ? RigaModificata : RigaNuova));
    scriviOperatore(g, riga);
}

int inserisciRiga(Vendita& v, int posizione, const CelleRiga& celle) {
    const int riga = v.flxVB.aggiungi(posizione);
    scriviRiga(v.flxVB, riga, celle);
    updateNextRow(v, riga + 1);
    v.flxVB.listinoLetto(riga, v.flxVB.cella(riga, Colonna::PrezzoListino));
    return riga;
}
