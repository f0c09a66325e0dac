#pragma once

#include <memory>
#include <vector>

#include <QByteArray>
#include <QStringList>

class SqliteConnection;

// The same statements on SQLite's own interface, on a connection that is open already: what the archive alone
// costs.
class IstruzioniNude {
  public:
    explicit IstruzioniNude(const QString& archivio);
    ~IstruzioniNude();

    // Each text is prepared, all its rows and columns are read as texts, and it is finalized.
    void esegui(const std::vector<QByteArray>& istruzioni);

    static std::vector<QByteArray> inUtf8(const QStringList& istruzioni);

  private:
    std::unique_ptr<SqliteConnection> mConnessione;
};
