#pragma once

#include <QString>

// T-SQL out of a statement after preparaSQL(.., SqlServer): what SQL Server does not know is put in its own
// words (Now(), ISNULL of one argument, True, "&", dates in braces, what only the blocks of the other
// servers hold). Works on tokens: quoted names and comments are never touched, and a text literal becomes
// one of Unicode that the server reads as exactly the value that testoSQL was given. Text that is already
// T-SQL, an N'..' literal among it, comes back as it is.
QString traduciSqlServer(const QString& sql);
