#pragma once

#include <QString>

struct Distinta;
struct Vendita;

// Kits: a product made of components. Its row is the head, which carries no money of its own; the rows of
// its components lie right below it and share a reference to it in column IdDistintaBase.

// The list price of one kit into the editor, from its components.
void getPrezzoTotaleDistinta(Vendita& v, const QString& codice);

// The components of the kit whose head stands at `riga`, `quantita` times, in the rows below it; those that
// are there already stay. The head shows their sums. False when they could not be read.
bool getProdFigli(Vendita& v, const QString& codice, const QString& chiave, float quantita, int riga);
// The same from components that were read before.
void scriviFigli(Vendita& v, const Distinta& distinta, const QString& chiave, int riga);
// The reference for the components of the head at `riga`: the one that they have, or a new one.
QString chiaveFigli(const Vendita& v, int riga);

// ---- The head at `riga` changes, and its components with it. Rows marked deleted are left alone.
// Its quantity becomes `quantita`; the ratios stay. To be called while the head still has the old one; an
// old quantity of 0: RunTimeError 11.
void aggiornaQTFigli(Vendita& v, int riga, float quantita);
// They take the editor's discounts. Their prices follow with the next change of the head.
void aggiornaScontiFigli(Vendita& v, int riga);
// Net amount and VAT of each for the quantity that it has now.
void aggiornaStatisticheFigli(Vendita& v, int riga);
// They are marked as deleted.
void delFigli(Vendita& v, int riga);

// A component went: the head shows the sums of those that are left.
void aggiornaTesta(Vendita& v, int rigaFiglio);
// Folds the components of the head at `riga` away, or unfolds them; another row is left as it is.
void piegaFigli(Vendita& v, int riga);
