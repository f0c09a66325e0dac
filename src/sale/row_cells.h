#pragma once

#include <utility>
#include <vector>

#include "sale/flxvb.h"

struct DatiRiga;
struct Vendita;

// A row's cells as texts, worked out before the first of them is written: a value that overflows leaves
// the grid as it was.
using CelleRiga = std::vector<std::pair<Colonna, QString>>;

// An amount as a cell shows it. One that the sums could not read back: RunTimeError 6.
QString testoImporto(double importo);

// A row's quantity with all its decimals, of which the cell shows two: as stored, until another one is
// entered.
const QString& quantitaEsatta(const FlexVB& griglia, int riga);
// The same, to reckon with.
float quantitaRiga(const FlexVB& griglia, int riga);
// Beyond the range of a price or amount: RunTimeError 6. `nuova`: the row is not in the grid yet.
CelleRiga celleRiga(const Vendita& v, const DatiRiga& dati, bool nuova);
// Writes them, with the row's save state and, on a row that has none, the operator.
void scriviRiga(FlexVB& griglia, int riga, const CelleRiga& celle);
// A new row before `posizione` (0: at the end), as told by its cells; answers its place. The rows behind it
// are to be saved anew.
int inserisciRiga(Vendita& v, int posizione, const CelleRiga& celle);
