#pragma once

#include <QStringList>
#include <QTextStream>

// What the program answers to its shell.
enum CodiceUscita { UscitaBuona = 0, UscitaErrori = 1, UscitaUso = 2 };

// Runs the command that the arguments name (without the program's own name).
int eseguiComando(const QStringList& argomenti, QTextStream& esito);
