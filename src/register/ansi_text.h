#pragma once

#include <QByteArray>
#include <QString>

// The text of the register's wire: one byte a character, in the Windows-1252 code page.

// A character that the page does not have goes out as "?".
QByteArray inAnsi(QStringView testo);
QString daAnsi(const QByteArray& byte);
