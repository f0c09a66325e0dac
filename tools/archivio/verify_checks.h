#pragma once

#include "archivio/verify_archive.h"

struct sqlite3;

// The single checks; each adds what it finds.

// Rows against the totals of their header, and the amounts of kits.
void verificaTotali(sqlite3* db, EsitoVerifica& esito);
// Numbers that must be unique, and the counters that gave them.
void verificaNumeri(sqlite3* db, EsitoVerifica& esito);
// The stock of a product against its layers.
void verificaGiacenze(sqlite3* db, EsitoVerifica& esito);
// Debit against credit of each journal entry.
void verificaPrimaNota(sqlite3* db, EsitoVerifica& esito);
// References to rows that are not there.
void verificaRiferimenti(sqlite3* db, EsitoVerifica& esito);
