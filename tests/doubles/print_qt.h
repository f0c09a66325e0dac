#pragma once

#include <ostream>

#include <QString>

// How a failed comparison shows a text: as it reads.
inline void PrintTo(const QString& testo, std::ostream* uscita) {
    *uscita << '"' << testo.toStdString() << '"';
}
