#pragma once

class Conto;

// The searches that the counter opens, and what is done with what they answer.

// A customer, into txtCodCliente; the rules of Enter run. Nothing while that box is disabled.
void cercaCliente(Conto& conto);
// Products, each of which is sold; several when the workstation keeps several. Nothing in a sale that may not
// be changed.
void cercaProdotto(Conto& conto);
// A VAT code, into txtIVA; its rule runs.
void cercaIva(Conto& conto);
// A further account with the search of its customer; without the search when `premi` is not set.
void openNewContoForCliente(Conto& conto, bool premi);
// The suspended sales of this desk; the one chosen comes up in a free account.
void visualizzaDocDaStampare(Conto& conto);
