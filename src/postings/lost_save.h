#pragma once

#include "postings/lost_commit.h"
#include "sale/uncertain_save.h"

struct Vendita;

// The sale on the screen, to tell whether it was changed since.
QStringList descriviSchermo(const Vendita& v);

// Whether the save is in the books: its new rows are there, or its deleted ones are gone; without either,
// each column that it wrote holds what it wrote. Of one that an error has cut short, what it had written by
// then. Reads Movimenti and DettagliMovimento.
EsitoCommit cercaSalvataggio(OperatorPort& operatore, const SalvataggioIncerto& salvataggio);
