#include "data/connection_string.h"

#include <QRegularExpression>

QString mascheraPassword(const QString& stringaConnessione) {
    static const QRegularExpression password(
        R"re((\b(?:pwd|password)\s*=\s*)("(?:[^"]|"")*"?|'(?:[^']|'')*'?|\{(?:[^}]|\}\})*\}?|[^;\r\n]*))re",
        QRegularExpression::CaseInsensitiveOption);
    return QString(stringaConnessione).replace(password, "\\1***");
}
