#pragma once

#include <QString>
#include <QStringList>

class Archivio;

// What a check of an archive has found. A note is a difference that the rules of the system produce by
// themselves; it names its cause.
struct EsitoVerifica {
    QStringList errori;
    QStringList note;

    // One line per finding, "ERRORE: ..." and "NOTA: ...", sorted, and a summary as the last one.
    QStringList righe() const;
};

// Checks an archive without changing it; its name as in archive_name.h.
EsitoVerifica verificaArchivio(const QString& nome);

// The damages to the pages, indexes and rows of a file; none when it is whole.
QStringList danniFile(Archivio& archivio);
