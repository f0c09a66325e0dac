#pragma once

#include <map>

#include <QString>

class Scrittore;

// Writes a row of Opzioni for every option of the system: the value given here, or else the one of a shop
// that has not been set up.
void scriviOpzioni(Scrittore& scrittore, const std::map<QString, QString>& valori);
