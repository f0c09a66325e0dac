#pragma once

#include <QString>
#include <QTextStream>

// Both take what there is to say in `esito`, and answer whether it is done.

// Saves an archive, its name as in archive_name.h, as a file: the state of one moment, also while tills are
// selling. A file that is there already is replaced only if it may.
bool salvaArchivio(const QString& nome, const QString& copia, bool sovrascrivi, QTextStream& esito);

// Puts a saved file in force. The file archive that it replaces stays beside as
// "<archive>.prima-del-ripristino-<date>"; one that a till has open is not replaced. A database is
// replaced only if it may, and is gone then.
bool ripristinaArchivio(const QString& copia, const QString& nome, bool sovrascrivi, QTextStream& esito);
