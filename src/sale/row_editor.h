#pragma once

class Campo;
struct Vendita;

// The row editor: the fields above the grid.

// The module name under which the screen's procedures report.
extern const char* const moduloFrmMain;

// What lblGiacenza shows in an empty editor; a stock that was read has its decimals.
extern const char* const giacenzaNonLetta;

// To their empty state; with `mantieniCodice` the typed code stays.
void pulisciCampiRiga(Vendita& v, bool mantieniCodice);
// Says of a saved sale whether it is closed or suspended, and whether it is printed.
void mostraStatoVendita(Vendita& v);
// Pushes modificaConsentita to commands, fields and what is said of the sale.
void applicaModificaConsentita(Vendita& v);
// Locks the price fields of a row whose price may not be changed; applicaModificaConsentita unlocks.
void bloccaPrezzi(Vendita& v);
// Shows which price box ends a row, and which list price, as the workstation asks.
void impostaCampiPrezzo(Vendita& v);

// A number field holds another value than the one in its tag. The same number written with other decimals is
// no change, and is put back as it was.
bool valoreCambiato(Campo& campo);

// There are unsaved changes from now on.
void setVenditaModificata(Vendita& v);

// The live row of the grid that is in the editor; 0 when there is none.
int rigaInEditor(const Vendita& v);

// Return mode of the row in the editor: 1 a return, 0 not.
void setResoStatus(Vendita& v, int valore);
// Single(txtQta), with the sign of the return mode; what the row in the editor shows stands for its whole
// quantity.
float quantitaEditor(const Vendita& v);
