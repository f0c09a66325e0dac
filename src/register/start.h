#pragma once

#include <QString>

class OperatorPort;

// Starts the link to the fiscal register, if this desk has one.
void setRegCassa(OperatorPort& operatore);

// Starts a program that lives on by itself, without arguments; false when it cannot be started.
bool avviaInterfaccia(const QString& percorso);
