#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QSettings>
#include <QString>

// The text of a settings file: "[Section]" headers and "key=value" lines in UTF-8; keys before the first
// header belong to no section. A value stands as it is, so that a connection string typed by hand keeps
// its semicolons, commas and backslashes; only a value that would not survive so (blanks at its ends,
// control characters, a quote at its head) is put in quotes with backslash escapes. Lines that begin with
// ";" or "#" are comments. Keys of a map are "Section/key", or "key" without a section.

struct LetturaImpostazioni {
    QSettings::SettingsMap voci;
    bool leggibile = true;  // false: not a text, or too long; no entry was taken
    int righeScartate = 0;  // lines that are neither header, entry nor comment
};

// Longer files are no settings, in bytes.
constexpr qint64 dimensioneMassimaImpostazioni = 1'000'000;

LetturaImpostazioni analizzaImpostazioni(const QByteArray& contenuto);
QByteArray componiImpostazioni(const QSettings::SettingsMap& voci);
// False when not all of it reached the device.
bool scriviImpostazioni(QIODevice& file, const QSettings::SettingsMap& voci);

// The format under which QSettings reads and writes such files.
QSettings::Format formatoImpostazioni();
