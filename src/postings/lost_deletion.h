#pragma once

#include <set>

#include "postings/lost_commit.h"

struct Vendita;

// The answer to a deletion's commit was lost. Its rows are looked for in DettagliMovimento.

// Whether rows that a deletion took are gone.
EsitoCommit cercaCancellazione(OperatorPort& operatore, const std::set<int>& righe);

// Looks at whether the sale's rows have left the books and tells the operator; true when they have. A
// deletion of which it is not known stays noted with the sale (Vendita::cancellazioneIncerta). `idMovimento`
// is the header that they stood under.
bool dopoCancellazionePersa(Vendita& v, int idMovimento);

// Before such a sale is saved or deleted again. NonRegistrato, also when nothing is open: go on. Otherwise
// the operator has been told.
EsitoCommit chiarisciCancellazione(Vendita& v);
