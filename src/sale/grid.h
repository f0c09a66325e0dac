#pragma once

struct Vendita;

// The rows on the screen: building, painting and stepping.

// Builds the grid and empties it.
void formattaGriglia(Vendita& v);
// One row only, the heading.
void svuotaGriglia(Vendita& v);

// Makes the row current, in view and painted.
void selFlexRow(Vendita& v, int riga);
// Paints the current row as selected.
void selectGridRow(Vendita& v);
// The current row's cells into the entry fields; reads cells only.
void mostraRigaSelezionata(Vendita& v);
// A row's prices and discounts into the entry fields, as they were accepted last.
void mostraPrezziRiga(Vendita& v, int riga);
// A row's quantity without its sign, and the return mode by its sign.
void mostraQuantitaRiga(Vendita& v, int riga);
// When and by whom a saved row was sold.
void mostraOraRiga(Vendita& v, int riga);

// ---- The grid's events. A row that does not exist is ignored.
void flxVB_RowColChange(Vendita& v, int riga);
void flxVB_Click(Vendita& v, int riga);
// Fires once after a row was loaded: the queries about its product.
void TimerGrid_Timer(Vendita& v);
// While a cursor key is held: one row up or down.
void TimerKeys_Timer(Vendita& v);
