#pragma once

#include <QString>

// The statement that finds products that are not disabled, by key, or by code when that is not empty.
QString sqlProdotto(int idProdotto, const QString& codice, bool like);
