#pragma once

#include <optional>

#include <QString>

// The password for what is named: from the environment variable BOTTEGON_PASSWORD, or else from the person at
// the terminal, unseen. Nothing when there is neither.
std::optional<QString> chiediPassword(const QString& diChe);
