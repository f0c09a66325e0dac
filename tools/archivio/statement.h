#pragma once

#include <map>
#include <memory>
#include <utility>
#include <vector>

#include <QString>
#include <QVariant>

#include "core/currency.h"

struct sqlite3;
struct sqlite3_stmt;

// A prepared statement of SQLite. Whatever the server refuses raises RunTimeError 9999 with its text.
class Istruzione {
  public:
    Istruzione(sqlite3* db, const QString& sql);
    ~Istruzione();
    Istruzione(const Istruzione&) = delete;
    Istruzione& operator=(const Istruzione&) = delete;

    // Starts anew with these values for the question marks.
    void lega(const std::vector<QVariant>& valori);
    // The next row; false when there is none.
    bool passo();

    // The columns of the current row, from 0; a Null reads as 0 or as an empty text.
    bool nullo(int colonna) const;
    qint64 intero(int colonna) const;
    double reale(int colonna) const;
    QString testo(int colonna) const;
    Currency importo(int colonna) const { return Currency::daDouble(reale(colonna)); }

  private:
    sqlite3* mDb;
    sqlite3_stmt* mStmt = nullptr;
};

// Column names and values of a row to write.
using Riga = std::vector<std::pair<const char*, QVariant>>;

// Writes rows; statements of the same shape are prepared once.
class Scrittore {
  public:
    explicit Scrittore(sqlite3* db) : mDb(db) {}

    // The key of the new row.
    qint64 inserisci(const char* tabella, const Riga& riga);

  private:
    sqlite3* mDb;
    std::map<QByteArray, std::unique_ptr<Istruzione>> mPreparate;
};
