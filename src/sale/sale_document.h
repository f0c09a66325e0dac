#pragma once

struct Vendita;

// The sale as a document: its empty state, a new one, and what a closed one allows.

// Header and rows to their empty state.
void pulisciTestata(Vendita& v);
// No rows, displays at 0.
void pulisciCorpo(Vendita& v);
// A new sale on this screen. On account 0 it goes on under the day's header when there is one.
void nuovoDocumento(Vendita& v);
// What stood on the screen has gone and nothing came in its place: it is ready for a sale under a header of
// its own, with the default customer.
void sgombraSchermata(Vendita& v);
// Re-homes the rows on a new header: all live rows are inserted anew.
bool setForNewMovimento(Vendita& v);
// The rule of closed sales: whether the sale shown may be changed.
void checkPolicyDeleteUpadte(Vendita& v);
// How many rows the next save has to write.
int contaRigheDaSalvare(const Vendita& v);
// The sale's date is today's, or the shop lets it differ.
bool controlloDataMovimento(Vendita& v);
