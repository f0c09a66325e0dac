#pragma once

#include <QString>

#include "core/currency.h"

// Code lookups. A typed code, or a known key when the code is empty, becomes the record's key, code and
// description. Not found with `rid` below 1 on entry: the operator is told that the code does not exist.
// `rid` stays as it came when nothing was found or the query failed, so that a caller that set it to -1 can
// test it.

void validaAspetto(QString& codice, QString& descrizione, int& rid);           // AspettoEsteriore
void validaMagazzino(QString& codice, QString& descrizione, int& rid);         // Magazzini
void ValidaTipoDocumento(QString& codice, QString& descrizione, int& rid);     // TipoDocumenti
void ValidaConto(QString& codice, QString& descrizione, int& rid);             // PianoConti
void valisaCausale(QString& codice, QString& descrizione, int& rid);           // Causali
void validaCausaleTrasporto(QString& codice, QString& descrizione, int& rid);  // CausaliTrasporto
void validaCategoria(QString& codice, QString& descrizione, int& rid);         // CategorieMerceologiche
void validaDocumento(QString& codice, QString& descrizione, int& rid);         // TipoDocumenti
void validaGruppo(QString& codice, QString& descrizione, int& rid);            // Gruppi
void validaMarca(QString& codice, QString& descrizione, int& rid);             // Marche
void validaSpedizione(QString& codice, QString& descrizione, int& rid);        // Spedizioni
void validaVenditore(QString& codice, QString& descrizione, int& rid);         // Venditori
void validaPagamento(QString& codice, QString& descrizione, int& rid);         // Pagamenti

// Anagrafiche: a numeric code is NUMERO, any other CODICEEXTRA. `codice` becomes NUMERO, `descrizione`
// DENOMINAZIONE.
void validaAnagrafica(QString& codice, QString& descrizione, int& rid);

// Prodotti by CODICE, BARCODE or EXTRACODICE, with the VAT code and percentage; these two stay as they
// came when the product has none.
void validaProdottoEsteso(QString& codice, QString& descrizione, int& rid, double& valoreIva,
                          QString& codIva);

// Empty when there is no such product.
QString getDescrizioneProdotto(int rid);

// The sums over the components of a saved kit's row (DettagliMovimento): list price, net price, and net
// price with VAT, each times the quantity. No component: all 0.
void getTotaliFigli(int rigaPadre, Currency& totaleLordo, Currency& totaleNetto, Currency& totaleIvato);
