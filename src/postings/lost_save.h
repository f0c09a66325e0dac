#pragma once

#include "postings/lost_commit.h"
#include "sale/uncertain_save.h"

struct Vendita;

// What the grid's rows wrote, in the states in which they were saved.
RigheSalvate descriviRighe(const Vendita& v, int idMovimento, int extraProg, bool trasferimento);
// The sale on the screen, to tell whether it was changed since.
QStringList descriviSchermo(const Vendita& v);

// Whether the save is in the books: each column that it wrote holds what it wrote, but for the stock's cost
// layers. Of one that an error has cut short, what it had written by then. Reads Movimenti and
// DettagliMovimento.
EsitoCommit cercaSalvataggio(OperatorPort& operatore, const SalvataggioIncerto& salvataggio);
