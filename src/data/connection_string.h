#pragma once

#include <QString>

// The connection string as it may be shown and logged: the value of a password key is masked, nothing
// else is changed.
QString mascheraPassword(const QString& stringaConnessione);
