#pragma once

#include <QString>

// The workstation settings: per user and machine, read at start into the global variables.

// The two applications of the settings store: the one shared with the back office, and the client's own.
inline const char* const applicazioneComune = "prgBottegon";
inline const char* const applicazioneClient = "prgBottegonClientVB";

// The server settings and the two scanner characters, then what follows from the server type: the
// connection, report folder, report connection and description in force, and the type in the gateway. A
// setting that cannot be converted is skipped, with a warning in the store.
void leggiImpostazioniServer();

// leggiImpostazioniServer, then the settings of this desk; at the end version, program folder and the
// settings are written back, so that a first start leaves the defaults in the store. A number beyond its
// variable's range is skipped, with a warning. A garbled PrezzoType or PCType: RunTimeError 13.
void leggiImpostazioniClient();
