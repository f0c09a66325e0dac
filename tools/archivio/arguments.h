#pragma once

#include <optional>

#include <QStringList>

// The arguments of a command, taken one by one; what is left at the end are its archives and files.
class Argomenti {
  public:
    explicit Argomenti(QStringList argomenti) : mArgomenti(std::move(argomenti)) {}

    bool prendiInterruttore(const QString& nome) { return mArgomenti.removeAll(nome) > 0; }
    // The number behind an option; the default without it, nothing when what follows is no number.
    std::optional<quint64> prendiNumero(const QString& nome, quint64 normale);
    // The arguments that are left, when they are exactly so many and none is empty or an unknown option.
    std::optional<QStringList> nomi(qsizetype quanti) const;

  private:
    QStringList mArgomenti;
};
