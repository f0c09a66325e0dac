#pragma once

#include <optional>
#include <variant>
#include <vector>

#include <QByteArray>

// A statement in SQLite's words with a "?" in the place of its values: two that differ in values alone are
// the same statement, and need to be prepared once.
struct IstruzioneParametrica {
    using Valore = std::variant<QByteArray, qint64, double>;
    QByteArray testo;
    std::vector<Valore> valori;  // in the order of the question marks
};

// Takes the text literals out, and the numbers that are compared, assigned or inserted: not those whose place
// has a meaning of its own, as behind LIMIT or ORDER BY. Nothing for what is no SELECT, INSERT, UPDATE or
// DELETE, and for what is not plain (comments, parameters, blobs, a text without its end).
std::optional<IstruzioneParametrica> togliLetterali(const QByteArray& sql);
