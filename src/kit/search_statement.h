#pragma once

#include <QString>

// The statement behind one page of a search, and what is read out of the caller's SELECT. All of it is text
// work on the neutral dialect: an expression with a plain comma in it breaks the numbering of the columns.

// The database field behind a grid column: piece `colonna` - 1 of the SELECT between commas, without its
// alias and adapted to the server in force; empty when there is no such piece (haCampo).
bool haCampo(const QString& sql, int colonna);
QString getNomeCampo(const QString& sql, int colonna);

// Which page: 1 the one before `valore`, 2 the one behind it, anything else the first.
enum DirezionePagina { PaginaPrima = -1, PaginaPrecedente = 1, PaginaSuccessiva = 2 };

struct Pagina {
    QString campoChiave;
    bool discendente = false;
    int direzione = PaginaPrima;
    QString valore;  // the key to go on from
};

// `sql` narrowed to the rows whose `campo` begins with `testo`, or holds it anywhere with `ovunque`. An empty
// text narrows nothing.
QString conFiltro(const QString& sql, const QString& campo, const QString& testo, bool ovunque);

// `sql` cut to the page and sorted by its key; the page before comes in reverse order.
QString conPagina(const QString& sql, const Pagina& pagina);
