#pragma once

#include <QString>

// The folder that holds the executable, without a closing slash.
QString cartellaProgramma();
// Where log, archive and working files go: the program's folder when it can be written, otherwise
// $XDG_DATA_HOME/Bottegon (made when missing). Decided once.
QString cartellaScrivibile();
// The choice behind it, for a program in `programma`: decided by writing, not by permissions, since these
// say nothing to an administrator or on a read-only disk.
QString scegliCartellaScrivibile(const QString& programma);
// For tests: both folders are this one from now on.
void impostaCartellaProgramma(const QString& cartella);
