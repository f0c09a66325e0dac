#pragma once

#include <QString>

// A backslash in a pattern behind LIKE is an escape to the server whatever sql_mode says: it is doubled, so
// that it means itself. For statements with plain texts, after decodificaTestoSQL.
QString modelliLikeMySql(const QString& sql);
