#pragma once

#include <QString>
#include <QTextStream>

// Copies an archive, its name as in archive_name.h, to another place on any server: all tables with their
// keys and exact values. What the tills write to the first one meanwhile is not in the copy. True when all
// rows have come over; `esito` takes what there is to say in either case.
bool copiaArchivio(const QString& da, const QString& a, bool sovrascrivi, QTextStream& esito);
