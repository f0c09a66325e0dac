#pragma once

#include <QString>

class QPlainTextEdit;
class QWidget;

// A box that shows what went over the register's wire: fixed pitch, to be read and copied.
QPlainTextEdit* testoDelFilo(const QString& nome, const QString& nomeAccessibile, QWidget* genitore);
