#pragma once

#include <QString>

class QPlainTextEdit;
class QWidget;

// A text as it is shown: a longer one is cut, since it would take the window seconds to lay it out.
constexpr qsizetype caratteriMostrati = 4000;
QString abbreviato(QString testo, qsizetype massimo = caratteriMostrati);

// A box that shows what went over the register's wire: fixed pitch, to be read and copied.
QPlainTextEdit* testoDelFilo(const QString& nome, const QString& nomeAccessibile, QWidget* genitore);
