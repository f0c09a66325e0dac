#pragma once

#include <QString>

// The global state of plain value that all screens read. Only the start-up and the options screen write
// it. Identifiers of database rows are -1 when not set. Globals that hold an object (gAdo, gErr, gConti,
// gFrmRegCassa, mTextBoxCorrente) live with their types.

// ---- Connection and paths; workstation settings, and what follows from them at start

extern int gTipoDB;          // server type: 0 SQL Server, 1 MS Access, 2 MySQL
extern QString gPathDB;      // the archive file of type 1
extern QString gConnMySql;   // written by hand; may hold line breaks
extern QString gConnSqlSrv;  // written by hand; may hold line breaks
extern QString gReportPathAccess;
extern QString gReportPathMySql;
extern QString gReportPathSqlSrv;
extern QString gRptConnectionAccess;
extern QString gRptConnectionMySql;
extern QString gRptConnectionSqlSrv;
extern QString gStrConnessione;          // in force; the gateway reads it at every Connect
extern QString gReportPath;              // in force
extern QString gRptConnection;           // in force
extern QString gDescrizioneConnessione;  // for display: target, ": ", server name
extern QString gSQLSep;                  // the text delimiter of the neutral SQL
extern QString gFileAiuto;               // the help file
extern QString gNomeModulo;              // module name in error reports and database calls

// ---- Desk and operator

extern int gIDCassa;            // this cash desk; Movimenti.ID_CASSA
extern int gIDVenditore;        // operator logged to the screen; below 1 when none
extern QString gDescVenditore;  // that operator's name
extern QString gRegCassa;       // register interface chosen; empty: the desk has no fiscal register
extern int gTCPPort;            // TCP port of that interface
extern bool gModaleAperta;      // the system itself opened a modal form from a counter screen
extern bool gVenditaSalvata;    // set by every successful salvaVendita, never cleared

// ---- Workstation behaviour; flags are 0 or 1

extern int gMultiSel;                 // the search keeps several products
extern int gNuovaRiga;                // a new row starts after each product
extern int gRicercaProdAdv;           // the wider product search
extern int gSottoCosto;               // warn of a sale under cost price
extern int gDisabilitaInvio;          // Enter at the end of a row does nothing
extern int gNoBarcode;                // a repeated barcode does not add quantity
extern int gMonitor;                  // show the tender dialogue
extern int gStampa;                   // ask about printing after a sale
extern int gSimulaStampa;             // printing is simulated
extern int gPrdEsistente;             // ask before summing on a row of the same product
extern int gPrezzoListinoLordo;       // show the list price with VAT
extern int gDecimaliDopo;             // decimals of quantities and prices
extern int gRitardoGriglia;           // milliseconds before a loaded row is looked up
extern int gPrezzoType;               // price at the end of a row: 0 net, 1 with VAT, 2 total
extern int gPCType;                   // cost price shown: 0 of the master data, 1 average
extern int gStampaCopie;              // copies printed, at least 1
extern QString gLaserChar;            // prefix that marks a scan
extern QString gClienteChar;          // prefix that marks a customer code
extern int gContoCassa;               // PianoConti
extern int gTipoDocOverride;          // TipoDocumenti; above 0 it replaces the option TipoDocVb
extern int gCausalePagOverride;       // Causali; above 0 it replaces the option CausalePagVb
extern int gIDMagazzino;              // Magazzini; for the stock shown with gGiacenzaMagazzino
extern int gGiacenzaMagazzino;        // show the stock of one warehouse
extern QString gAltriDocConversione;  // document codes, separated by commas, none at the end

// ---- Business rules shared by all desks: the table Opzioni

extern int gTipoStampaDistinta;  // how kits are printed
extern int gClientePredefinito;  // Anagrafiche; customer of an empty sale
extern int gCatPrezziNetti;      // discount category whose tables hold net prices
extern int gTipoDocVb;           // TipoDocumenti; document type of a counter sale
extern int gCausalePagVb;        // Causali; collection of a counter sale
extern int gPagamentoVB;         // Pagamenti; payment of a counter sale
extern int gContoClienti;        // PianoConti
extern int gContoFornitori;      // PianoConti
extern int gNumeratoreElencoSpeciale;
extern QString gDistintaBase;   // prefix of the product codes that are kits
extern QString gRigaLibera;     // prefix of the product codes with free description and price
extern QString gVenditoreChar;  // prefix of an operator's badge; empty when the option is missing
extern QString gPiePagina;
extern QString gReportElencoSpeciale;
extern int gPrezzoMedio;
extern int gMesiPrezzoMedio;  // months that the average price looks back
extern int gSottoScorta;
extern bool gBloccaSottoScorta;
extern bool gAvvisaSottoScorta;
extern int gVenditeGiorniDiversi;
extern bool gBloccaVenditeGiorniDiversi;
extern bool gAvvisaVenditeGiorniDiversi;
extern int gLockVBEdit;
extern int gLockVBPrezzo;
extern int gFidoAllaData;  // the credit check counts up to the date of the sale
extern int gVenditoriObbligatori;
extern int gVenditoriBlocco;  // ask for the operator again after every saved sale
extern int gPagatoAltriClienti;

// Gives every variable above its value at the start of a process.
void ripristinaGlobali();
