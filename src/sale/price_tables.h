#pragma once

#include "core/currency.h"

struct Vendita;

// List prices and discounts by customer, price list and the discount tables.

// The list price, net of VAT: the customer's personal price (Listini), else LISTINOn of the customer's
// list, else LISTINO1, else 0. `daListino` becomes true for a personal price, also one of 0. With
// `conSconto` the customer's discount is taken off, never from a personal price.
Currency getPrezzoVendita(int idCliente, int idProdotto, bool& daListino, bool conSconto);

// The customer's band, FK_FASCIACLIENTE; 0 when there is none.
int getFasciaCliente(int idCliente);

// The discounts of the tables for a product at the editor's quantity, into the row editor.
bool setSconti(Vendita& v, int idProdotto);
// False, and nothing changed, when the customer has no band or the product no discount category, or when the
// tables cannot be read. An immediate discount in force replaces what the tables gave.
bool setScontiVendita(Vendita& v, int categoria, int marca, int cliente, float quantita, int idProdotto);

// The same look-up for a caller without an editor, and without the immediate discount: percentages of a
// category (0 when no range fits), or for the category of net prices `prezzo` and no percentages; a net price
// that is not there leaves all four as they are.
void getScontiVendita(int categoria, int marca, int fascia, float quantita, int idProdotto, float& s1,
                      float& s2, float& s3, Currency& prezzo);

// Unit price net of VAT, the same with VAT, and stock of one piece for a customer, as a search shows them;
// the stock is that of a warehouse when `idMagazzino` is above 0. All 0 when there is no such product.
void getDatiProdotto(int idCliente, int idProdotto, int idMagazzino, Currency& netto, Currency& finale,
                     float& giacenza);

// Purchase price less the purchase discounts for a quantity; `idFornitore` below 1 means any. 0 when the
// product has no purchase discount category.
Currency getPrezzoNettoAcquisto(int idProdotto, float quantita, int idFornitore);
