#pragma once

#include <QList>

#include "data/server_driver.h"

// The class of an error of SQL Server, from the native codes of all its diagnostic records: the telling one
// may stand behind others. A plain Italian text comes where the reader can do something about it, with the
// server's own text behind; an integrity error keeps the server's text.
ErroreServer erroreSqlServer(const QList<int>& codici, const QString& testoServer);
