#pragma once

#include "kit/campo.h"

class QCheckBox;
class QLabel;
class QPushButton;
class QWidget;

// Bind a field to the widget that shows it: object name, text, enabling, visibility and colours follow the
// field from now on. Boxes that are typed in: CampoEdit.

// Plain text, never markup.
void collega(Campo& campo, QLabel* etichetta);
// A light or badge: visibility and colours follow the field, the text is the widget's own.
void collegaSpia(Campo& campo, QWidget* spia);
// The tick follows the field; a click of the operator is for the screen to handle.
void collega(Campo& campo, QCheckBox* spunta);
void collega(Campo& campo, QPushButton* pulsante);

// Hidden or not as the field says; a widget not yet placed does not pop up.
void mostraVisibilita(QWidget& widget, const Campo& campo);
