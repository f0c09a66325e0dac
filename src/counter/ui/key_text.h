#pragma once

#include <optional>

#include <QChar>

class QKeyEvent;

// The character of a key for the rules: '\r' for Enter, '\t' for Tab, a printable one; nothing for a command
// such as Ctrl+C.
std::optional<QChar> carattereDelTasto(const QKeyEvent& tasto);
// When the key was pressed, in milliseconds: the window system's own time, so that keys which had to wait for
// a busy screen keep their distances.
qint64 istanteDelTasto(const QKeyEvent& tasto);
