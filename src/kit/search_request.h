#pragma once

#include <functional>

#include <QString>

#include "core/currency.h"

// What the search list tells of a product beside its code and description.
struct PrezziRicerca {
    float giacenza = 0.0F;  // stock
    Currency netto;         // net price for the customer
    Currency finale;        // the same with VAT
};

// What a caller asks of the search screen (frmRicerca). In the order of startMe's arguments.
struct RichiestaRicerca {
    // "SELECT TOP n RID, ..." without ORDER BY; n is the length of a page. Each field of it, in this order,
    // is a column of the grid, the first one hidden.
    QString sql;
    // The field by which pages are cut and sorted.
    QString campoChiave;
    // Several rows can be marked, if the workstation allows it (MultiSel).
    bool multi = false;
    // A new element can be asked for.
    bool nuovo = false;
    // The grid column that shows campoChiave: 0 for column 3, n for column n + 1.
    int colonnaChiave = 0;
    bool discendente = false;
    // "title¤width|title¤width..." in twips; the title may begin with "<", ">" or "^". Empty, or of one
    // column only: code and description.
    QString colonne = {};
    // Given: rows are products, and show their code, description and these figures, asked for each by its
    // key.
    std::function<PrezziRicerca(int idProdotto)> prezzi = {};
};

// What a search answers: the key of each chosen row, each followed by "|"; empty when it was cancelled.
// This one when a new element was asked for.
inline const QString ricercaNuovo = "-1";
