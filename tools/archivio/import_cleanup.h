#pragma once

#include <QStringList>

class Archivio;

// An Access file may hold what its program never checked. Takes out the rows that repeat what must be
// unique, and those that need a row that is not there; an optional reference to nothing becomes empty, and
// one of 0 or less too, without a word. What was done, line by line; empty when nothing was.
QStringList rimediaImportazione(Archivio& archivio);
