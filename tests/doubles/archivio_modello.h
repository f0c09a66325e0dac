#pragma once

#include <QString>

// The small shop as every test finds it, in an embedded archive that is made once for the process.
QString archivioModello();
