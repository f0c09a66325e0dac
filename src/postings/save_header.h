#pragma once

#include "core/currency.h"
#include "postings/save_state.h"

// The header of a sale in Movimenti. Each is false when the statement failed, which has been reported.

// A new header under the next number of its counter; its key and number go to `d`, the number to the screen.
bool inserisciTestata(Vendita& v, Documento& d);
// The header on the screen. `testataSparita` of `d` says that there is none any more.
bool modificaTestata(const Vendita& v, Documento& d);
// The totals of the header are those of all sales that share it.
bool scriviTotali(Documento& d, Currency totale, Currency imposta);
// Inside the turn, ahead of modificaTestata(): what the books hold of the sale is what the screen has of it,
// and its payment is theirs where the screen knows of none. False also when another desk has changed it,
// which the operator is told after the transaction.
bool riprendiDaiLibri(Vendita& v);
