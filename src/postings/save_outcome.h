#pragma once

#include <optional>

#include "postings/lost_commit.h"
#include "postings/save_state.h"

// How a save has ended, and what the operator is told of it.

// The transaction's name in reports.
QString transazioneSalvataggio();

// What the books hold when the commit succeeds.
SalvataggioIncerto descriviSalvataggio(const Documento& d);
// PROGRESSIVO and EXTRAPROG that the save wrote: "0012/0001".
QString numeroScritto(const SalvataggioIncerto& salvataggio);
// The sale as it is in the books takes the screen; behind a transfer a new sale does.
void mostraSalvata(Vendita& v, const SalvataggioIncerto& salvataggio);
// The sale on the screen is the one in the books.
void segnaSalvata(Vendita& v, const Documento& d);

// The answer to the commit was lost: the books are asked. They hold what was written, or nothing of it; true
// when they do.
bool dopoCommitPerso(Vendita& v, const Documento& d, const StatoPrimaDelSalvataggio& prima);
// What became of the last save, if nobody knows: the books are asked, and the list of receipts is told.
// Registrato when its rows are there; a header without rows only goes to the screen, by key and number.
// Ignoto: the books did not answer, and all stays as it is.
EsitoCommit chiarisciSalvataggio(Vendita& v);
// A sale that may be in the books already is looked for before it is saved again. Nothing when it is to be
// saved now, else what the save answers.
std::optional<bool> riprendiSalvataggio(Vendita& v);
// An unforeseen error, the one being handled, ends with a commit of what was written. When the rows are among
// it the screen shows them as they are in the books, so that saving again books nothing twice; otherwise it
// keeps what was typed, under the header that is there by now. Always false.
bool confermaDopoErrore(Vendita& v, const Documento& d, const StatoPrimaDelSalvataggio& prima);
// Another desk has taken the header away. True when the whole sale is to go under one of its own.
bool diventaNuova(Vendita& v, const Documento& d);
