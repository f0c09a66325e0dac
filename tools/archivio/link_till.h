#pragma once

#include <QString>
#include <QTextStream>

// Points this user's till at an archive, its name as in archive_name.h: the server settings DBType and Path,
// MySql or SqlSrv. The archive is opened first; one that a till would not work on changes nothing. True when
// written; `esito` takes what there is to say in either case.
bool collegaCassa(const QString& nome, QTextStream& esito);
