#pragma once

#include <QLabel>
#include <QPushButton>
#include <QString>

// Widgets that a finger can press and that are read from two metres.

// The least height of what is pressed, in pixels.
constexpr int altezzaTocco = 48;

// The program's font, enlarged by that factor.
QFont carattereIngrandito(double fattore);

// A button with that caption and objectName.
QPushButton* pulsanteGrande(const QString& testo, const QString& nome, QWidget* genitore);

// A label that shows its text as it is, never as HTML.
QLabel* etichetta(const QString& testo, const QString& nome, QWidget* genitore);
