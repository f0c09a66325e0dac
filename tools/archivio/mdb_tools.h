#pragma once

#include <functional>

#include <QByteArray>
#include <QStringList>

// The programs of the Debian package mdbtools, which read Access files. One that cannot be started, or that
// fails, raises RunTimeError 9999 with what it said.

// The tables of the file.
QStringList tabelleMdb(const QString& file);
// The rows of a table, as csv_reader.h takes them; the first row holds the names of the columns. Dates
// are "YYYY-MM-DD HH:MM:SS".
void esportaMdb(const QString& file, const QString& tabella,
                const std::function<void(const QByteArray&)>& pezzo);
// mdb-export cuts longer texts, in bytes.
constexpr qsizetype testoMdbMassimo = 199999;
