#pragma once

class Conto;

// The sale on the screen once more, in a new account, where all its rows are new. `idCausalePagamento` above
// 0 is the payment reason there, and `idCliente` above 0 the customer. False when no account is free; what
// stands in the way has been told.
bool ricopiaVendita(Conto& conto, int idCausalePagamento, int idCliente);

// The command: asks first. A sale without rows is told so.
void ricopia(Conto& conto);

// Another payment reason (Causali with MOSTRAVB): the sale goes on with it in a new account, and this screen
// starts a new one. Cancelled, everything stays.
void cambiaPagamento(Conto& conto);
