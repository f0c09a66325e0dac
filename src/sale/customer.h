#pragma once

#include <QChar>
#include <QString>

#include "core/currency.h"

struct Vendita;

// The customer of a sale: looked up, shown with balance and credit limit.

// Loads a customer by number (a numeric code), by extra code (any other), or by key when the code is
// empty. Not found: the sale stands without a customer (tag "-1").
bool getCliente(Vendita& v, int id, const QString& codice);
// The same by key, without the look for an open document of that customer.
bool mostraCliente(Vendita& v, int id);
// Enter in the customer box.
void txtCodCliente_Invio(Vendita& v);
// The public entry for other forms: as Enter in the box.
void validaCodiceCliente(Vendita& v);

// An open document of that customer which the operator wants to go on with; 0 for none.
int getDocumentoForCliente(Vendita& v, int id);
// The journal's balance of a customer on the customers' account.
Currency getSaldoCliente(int id);
void mostraSaldo(Vendita& v);
void mostraSegnala(Vendita& v);
// The paid tick by customer and state of the sale; with `mantieni` the tick itself stays.
void impostaPagatoCliente(Vendita& v, bool mantieni);
