#pragma once

#include <QString>

// The business rules shared by all desks: the table Opzioni, one row an option (NOME, VALORE).

// The option's text; empty when the row is missing.
QString getOpzione(const QString& nome);

// Reads every option into its global variable. TipoDocVb and CausalePagVb give way to the workstation's
// gTipoDocOverride and gCausalePagOverride. A failure is reported, and ends the reading.
void getAllOpzioni();
