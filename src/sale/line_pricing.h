#pragma once

#include "core/currency.h"

class Campo;
struct Vendita;

// One sale line has seven linked numbers: list price net and with VAT, three cascading discounts, net and
// final unit price, row total. Values pass through their shown text, which fixes the cents.

// The net unit price of a list price `listino` at a VAT percentage, with the editor's discounts; the
// line's hidden labels take the amounts.
Currency calcolaPrezzoNetto(Vendita& v, Currency listino, float iva);
// Forward from the list price, or with `daTotale` backward from the row total. With `aggiornaRiga` the
// row is committed. A quantity of 0 backward: RunTimeError 6.
void ricalcolaPrezzi(Vendita& v, bool daTotale, bool aggiornaRiga);
// Commits the editor to its row. A net price more than one cent away from the reference was set by hand.
void aggiornaRigaCorrente(Vendita& v);
// Commits and clears the editor.
void chiudiRiga(Vendita& v);
// The net price becomes the list price, without discounts.
void ricalcolaSconti(Vendita& v);
void azzeraScontiDaNetto(Vendita& v);
// Prices by the discounts in the editor; a negative one is not kept, the net price it gave stands.
void applicaScontiRiga(Vendita& v);

// What leaving a field does. Unchanged fields do nothing, but the price at the row's end always commits.
void txtPrezzoListino_LostFocus(Vendita& v);
void txtPrezzoListinoLordo_LostFocus(Vendita& v);
void txtPrezzoNetto_LostFocus(Vendita& v);
void txtPrezzoFinito_LostFocus(Vendita& v);
void TxtPrezzoRiga_LostFocus(Vendita& v);
void txtSconto_LostFocus(Vendita& v, Campo& sconto);
