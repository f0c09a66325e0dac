#pragma once

struct Documento;
struct Vendita;

// A server refuses a row that refers to something that is no more: a customer, a product, ... In its own
// words that is of no use at a counter.

// Inside the failed transaction: whether it was for that. The server's words are then left to the log.
bool riferimentoRifiutato();
// After the rollback: tells which of the things that the sale refers to are gone.
void spiegaRiferimentiMancanti(const Vendita& v, const Documento& d);
