#pragma once

#include <QString>

class OperatorPort;

// Puts the link to the fiscal register in force, and starts it if this desk has a register.
void setRegCassa(OperatorPort& operatore);

// Starts a program that lives on by itself, without arguments; false when it cannot be started.
bool avviaInterfaccia(const QString& percorso);
