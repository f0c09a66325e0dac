#pragma once

#include <map>

#include "data/sqlite_parameters.h"

struct sqlite3;
struct sqlite3_stmt;

// The statements that a connection has prepared, the last used ones. To be emptied before it is closed.
class IstruzioniPronte {
  public:
    IstruzioniPronte() = default;
    ~IstruzioniPronte() { svuota(); }
    IstruzioniPronte(const IstruzioniPronte&) = delete;
    IstruzioniPronte& operator=(const IstruzioniPronte&) = delete;

    // The statement, ready to be stepped with its values; to be given to riponi afterwards. Nothing when
    // SQLite does not take it, or when it is running already.
    sqlite3_stmt* prendi(sqlite3* db, const IstruzioneParametrica& istruzione);
    static void riponi(sqlite3_stmt* istruzione);
    void svuota();

  private:
    struct Pronta {
        sqlite3_stmt* istruzione;
        quint64 uso;
    };

    sqlite3_stmt* trova(sqlite3* db, const QByteArray& testo);
    void sfoltisci();

    std::map<QByteArray, Pronta> mPronte;
    quint64 mUsi = 0;
};
