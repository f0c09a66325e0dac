#pragma once

#include <QString>
#include <QStringList>

// Every row of every table of an archive as one text each, its name as in archive_name.h: what a copy must
// keep.
QStringList tutteLeRighe(const QString& nome);
