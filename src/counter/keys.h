#pragma once

#include <QChar>

class Conto;

// The keys as the screen sees them before its fields do. Codes are Qt::Key, modifiers Qt::KeyboardModifiers.

// A key goes down: true when it is consumed.
bool Form_KeyDown(Conto& conto, int tasto, int modificatori);
// A character comes, or Enter '\r' or Tab '\t': true when it is consumed (the scanner's prefix, and the end
// of a scan without one). `istante`: milliseconds of any clock; below 0 a hand's, however fast.
bool Form_KeyPress(Conto& conto, QChar carattere, qint64 istante = -1);
// A held cursor key makes its next step.
void timerTasti(Conto& conto);
// Another window takes the keys: nothing is held any more.
void lasciaTasti(Conto& conto);
// A key comes up: the function keys press their commands. True when it is consumed. An error here is ignored.
bool Form_KeyUp(Conto& conto, int tasto, int modificatori);
// The keys that belong to the field they are pressed in reach this screen from now on.
void ascoltaTastiFunzione(Conto& conto);
