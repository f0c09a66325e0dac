#pragma once

#include <functional>
#include <map>

#include <QStringList>

#include "data/recordset.h"

// For each table of the embedded archive that has rows, the statement that inserts them elsewhere.
std::map<QString, QString> inserimenti(const QString& percorso);

// Copies the tables of a server, read by `interroga`, to an embedded archive, and answers what the archive
// tool finds wrong there.
QStringList verificaCopia(const std::function<Recordset(const QString& sql)>& interroga);
