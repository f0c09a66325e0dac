#pragma once

#include "archivio/verify_archive.h"

class Archivio;

// The single checks; each adds what it finds. Their statements are in words that all servers know.

// Rows against the totals of their header, and the amounts of kits.
void verificaTotali(Archivio& archivio, EsitoVerifica& esito);
// Numbers that must be unique, and the counters that gave them.
void verificaNumeri(Archivio& archivio, EsitoVerifica& esito);
// The stock of a product against its layers.
void verificaGiacenze(Archivio& archivio, EsitoVerifica& esito);
// Debit against credit of each journal entry.
void verificaPrimaNota(Archivio& archivio, EsitoVerifica& esito);
// References to rows that are not there.
void verificaRiferimenti(Archivio& archivio, EsitoVerifica& esito);

// The references between tables that point to nothing, one text each; the first of each kind only.
QStringList riferimentiRotti(Archivio& archivio);
