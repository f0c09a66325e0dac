#pragma once

#include <map>
#include <vector>

#include <QStringList>

#include "data/sqlite_parameters.h"

struct sqlite3;
struct sqlite3_stmt;

// What a statement's columns are called, and which hold dates.
struct ColonneSqlite {
    QStringList nomi;
    std::vector<bool> date;

    ColonneSqlite() = default;
    explicit ColonneSqlite(sqlite3_stmt* istruzione);
};

// The statements that a connection has prepared, the last used ones. To be emptied before it is closed.
class IstruzioniPronte {
  public:
    IstruzioniPronte() = default;
    ~IstruzioniPronte() { svuota(); }
    IstruzioniPronte(const IstruzioniPronte&) = delete;
    IstruzioniPronte& operator=(const IstruzioniPronte&) = delete;

    struct Pronta {
        sqlite3_stmt* istruzione;
        ColonneSqlite colonne;
        quint64 uso;
    };

    // The statement, ready to be stepped with its values; to be given to riponi afterwards. Nothing when
    // SQLite does not take it, or when it is running already.
    const Pronta* prendi(sqlite3* db, const IstruzioneParametrica& istruzione);
    static void riponi(sqlite3_stmt* istruzione);
    void svuota();

  private:
    const Pronta* trova(sqlite3* db, const QByteArray& testo);
    void sfoltisci();

    std::map<QByteArray, Pronta> mPronte;
    quint64 mUsi = 0;
};
