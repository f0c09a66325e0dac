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
// False, and nothing changed, when the customer has no band or the product no discount category.
bool setScontiVendita(Vendita& v, int categoria, int marca, int cliente, float quantita, int idProdotto);

// Purchase price less the purchase discounts for a quantity; `idFornitore` below 1 means any. 0 when the
// product has no purchase discount category.
Currency getPrezzoNettoAcquisto(int idProdotto, float quantita, int idFornitore);
