#pragma once

#include <QString>

// A server on Linux tells the case of table names and of their aliases apart, the statements of the system do
// not. The names of the schema's tables are put into the spelling that the tables are made with, and every
// alias into the spelling of its first mention. Texts, columns and names of other tables stay.
QString nomiTabelleMySql(const QString& sql);
