#pragma once

#include <QMap>
#include <QSet>
#include <QString>

class Archivio;

// The tables that are there, with their columns; all names in upper case.
QMap<QString, QSet<QString>> tabellePresenti(Archivio& archivio);

// Raises RunTimeError 9999, naming them, when tables or columns of the schema are missing.
void pretendiTabelle(Archivio& archivio);
