#pragma once

#include <QString>
#include <QTextStream>

// Makes an archive, its name as in archive_name.h, from an Access file: all tables and columns that both
// know, keys kept. `esito` takes a report: rows by table, tables and columns that only one side knows, rows
// left out and references emptied, and why. True when nothing had to be left out or emptied.
bool importaAccess(const QString& file, const QString& nome, bool sovrascrivi, QTextStream& esito);
