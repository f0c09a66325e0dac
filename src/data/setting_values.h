#pragma once

#include <QString>

// Numbers as settings and options hold them: texts that go into variables of a given width.

enum class TipoIntero { Byte, Int16, Int32 };

// The number at the head of the text, 0 when there is none. Beyond the type's range: RunTimeError 6.
int valNelTipo(const QString& testo, TipoIntero tipo);
// The number that the whole text is. Not a number: RunTimeError 13; beyond the type's range: RunTimeError 6.
int interoStretto(const QString& testo, TipoIntero tipo);
