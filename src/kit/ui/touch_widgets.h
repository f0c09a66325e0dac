#pragma once

#include <QLabel>
#include <QPushButton>
#include <QString>

// Widgets that a finger can press and that are read from two metres.

// The side of a touch target, in pixels: what a finger hits without looking twice.
constexpr int altezzaTocco = 44;

// The program's font, enlarged by that factor.
QFont carattereIngrandito(double fattore);

// A button with that caption and objectName.
QPushButton* pulsanteGrande(const QString& testo, const QString& nome, QWidget* genitore);

// A label that shows its text as it is, never as HTML.
QLabel* etichetta(const QString& testo, const QString& nome, QWidget* genitore);
