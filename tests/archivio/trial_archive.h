#pragma once

#include <sqlite3.h>

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

// An archive of its own for each test, in a folder that vanishes with it: the demo shop, or a handful of rows
// where a test is quicker with them.
class ArchivioInCartella {
  public:
    enum class Contenuto { Demo, Poco };
    explicit ArchivioInCartella(Contenuto contenuto = Contenuto::Demo);

    QString percorso() const { return mCartella.filePath("prova.db"); }
    QString percorso(const QString& nome) const { return mCartella.filePath(nome); }
    QStringList file() const;

    // Runs statements in SQLite's own words, with or without the check of foreign keys. The native code
    // of the first failure, 0 when all is well.
    int esegui(const QByteArray& sql, bool chiaviControllate = true) const;
    // The first column of a query as text, a line for each row.
    QString valore(const QByteArray& sql) const;
    // How many rows another file of the folder has.
    int conta(const QString& file, const QString& daDove) const;
    QString leggiDa(const QString& file, const QByteArray& sql) const { return leggi(file, sql, 0); }

    // What SQLite would do to answer a query, line by line.
    QString piano(const QByteArray& sql) const;

    // Two sales of a day on one header (RID 1, rows 1 to 3) with their journal entries (1 and 2), and a kit
    // on a second header (RID 2, rows 4 and 5), all as the till would have saved them.
    void aggiungiVendite() const;
    // Values that have been lost on some way before.
    void aggiungiDifficili() const;

  private:
    QString leggi(const QString& file, const QByteArray& sql, int colonna) const;

    QTemporaryDir mCartella;
};

QByteArray contenuto(const QString& percorso);
void scriviFile(const QString& percorso, const QByteArray& contenuto);
