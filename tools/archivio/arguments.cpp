#include "archivio/arguments.h"

#include <algorithm>

std::optional<quint64> Argomenti::prendiNumero(const QString& nome, quint64 normale) {
    const auto posizione = mArgomenti.indexOf(nome);
    if (posizione < 0) return normale;
    bool valido = false;
    const quint64 valore = mArgomenti.value(posizione + 1).toULongLong(&valido);
    mArgomenti.remove(posizione, valido ? 2 : 1);
    return valido ? std::optional(valore) : std::nullopt;
}

std::optional<QStringList> Argomenti::nomi(qsizetype quanti) const {
    const bool strani = std::any_of(mArgomenti.begin(), mArgomenti.end(), [](const QString& argomento) {
        return argomento.startsWith("--") || argomento.isEmpty();
    });
    if (strani || mArgomenti.size() != quanti) return std::nullopt;
    return mArgomenti;
}
