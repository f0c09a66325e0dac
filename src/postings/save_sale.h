#pragma once

struct Vendita;

// Turns the sale on the screen into a committed document, first save and re-save alike, in one
// transaction: true only after the commit. A failed save leaves rows, keys and totals of the sale as they
// were. With `conversione` the date is today's and the header is of `tipoDocumento`.
bool salvaVendita(Vendita& v, bool conversione, int tipoDocumento);

// Customer and date are there; otherwise they are asked for.
bool controllaInserimento(Vendita& v);
// A printed sale of a named customer is changed only after a question.
bool controllaDataStampa(Vendita& v);
