#pragma once

#include <QString>

struct sqlite3;

// Access SQL on SQLite: the statement with what SQLite does not know put in its own words. Works on
// tokens: texts, quoted names and comments are never touched, except that values encoded by testoSQL are
// decoded inside text literals.
QString traduciAccessSQL(const QString& sql);

// Gives an open SQLite connection the functions of Access SQL (Now, Date, DateAdd, Format, Val, Nz, IIf,
// ...) and the collation ACCESS_TEXT of code and name columns.
void registraFunzioniAccess(sqlite3* connessione);
