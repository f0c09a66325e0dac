#pragma once

#include <memory>

#include "archivio/archive.h"

class SqliteConnection;
struct sqlite3;

// The embedded archive, a file.
class ArchivioFile final : public Archivio {
  public:
    // A short look takes the file for unchanging when nobody has it open.
    enum class Sguardo { Breve, Lungo };

    ArchivioFile(const QString& percorso, Sguardo sguardo);
    // An archive that is being made.
    explicit ArchivioFile(std::unique_ptr<SqliteConnection> connessione);
    ~ArchivioFile() override;

    Recordset leggi(const QString& sql) override;
    void esegui(const QString& sql) override;
    void fermaIlTempo() override;

    sqlite3* db() const { return mDb; }

  private:
    void apriSolaLettura(const QString& percorso);
    qint64 pragma(const char* nome, const QString& percorso);

    std::unique_ptr<SqliteConnection> mConnessione;  // empty when read only
    sqlite3* mDb = nullptr;
};
