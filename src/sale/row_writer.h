#pragma once

#include <QString>

#include "core/currency.h"

struct Vendita;

// All that a row of the grid is written from.
struct DatiRiga {
    int posizione = -1;  // the row in the editor; below 0 a fresh entry
    int idProdotto = -1;
    QString marca;
    QString codice;
    QString descrizione;
    QString idIva;
    QString codIva;
    QString descIva;
    float iva = 0;  // percentage
    float quantita = 0;
    Currency prezzoNetto;  // per unit, unrounded
    Currency prezzoListino;
    QString sconto1, sconto2, sconto3;
    QString taglio;
    QString idUm;
    QString um;
    QString scNetto;
    QString ivaProdotto;
    QString elencoSpeciale;
    QString bloccaPrezzo;
    QString chiavePadre;      // of a kit's component; empty for a product of its own
    int rigaInserimento = 0;  // where a new row goes; 0 at the end
};

// Checks the editor and writes its row; `rigaInserimento` above 0 says where a new one goes. Answers the
// grid row; 0 when nothing was written. `presente`: the product has a row already, which is now in the
// editor, unchanged.
int addNewElement(Vendita& v, int rigaInserimento, bool& presente);

// Quantity and net price are there; otherwise they are asked for. False also with no product.
bool controllaElemento(Vendita& v);

// The row writer.
int addElement(Vendita& v, const DatiRiga& dati, bool& presente);

// The first live row of that product, of the same kit when `chiavePadre` is not empty; 0 when there is none.
int controllaPresenzaElemento2(const Vendita& v, int idProdotto, const QString& chiavePadre);

// Red for a return row.
void checkRowReso(Vendita& v, int riga);

// Marks a row as deleted, after a question when `conferma`; a negative row means the current one.
void delRowToGrid(Vendita& v, int riga, bool conferma);
// Every row from the last down to `primaRiga` is to be saved anew: its place has changed.
void updateNextRow(Vendita& v, int primaRiga);
