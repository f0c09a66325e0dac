#pragma once

#include <vector>

#include <QString>
#include <QStringList>
#include <QVariant>

struct sqlite3;
struct sqlite3_stmt;

// A prepared statement of SQLite. Whatever the server refuses raises RunTimeError 9999 with its text.
class Istruzione {
  public:
    Istruzione(sqlite3* db, const QString& sql);
    ~Istruzione();
    Istruzione(const Istruzione&) = delete;
    Istruzione& operator=(const Istruzione&) = delete;

    // Starts anew with these values for the question marks: Null, double, QString, or a whole number.
    void lega(const std::vector<QVariant>& valori);
    // The next row; false when there is none.
    bool passo();

    int campi() const;
    QStringList nomi() const;
    // A column of the current row, from 0: Null, qlonglong, double or QString.
    QVariant valore(int colonna) const;

  private:
    sqlite3* mDb;
    sqlite3_stmt* mStmt = nullptr;
};
