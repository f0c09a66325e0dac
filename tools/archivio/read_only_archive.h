#pragma once

#include <QString>

struct sqlite3;

// An archive opened to be looked at: nothing of it changes, and no file appears beside it. What is no
// archive raises RunTimeError 9999 with a text for the person at the keyboard.
class ArchivioLetto {
  public:
    explicit ArchivioLetto(const QString& percorso);
    ~ArchivioLetto();
    ArchivioLetto(const ArchivioLetto&) = delete;
    ArchivioLetto& operator=(const ArchivioLetto&) = delete;

    sqlite3* db() const { return mDb; }

  private:
    qint64 pragma(const char* nome, const QString& percorso);
    void apri(const QString& percorso);
    void controllaTabelle();

    sqlite3* mDb = nullptr;
};
