#pragma once

#include <vector>

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

// There is no program that writes Access files. This one stands for such a file, with programs of the names
// of mdbtools before the real ones in PATH that answer for it in the form of mdbtools 1.0: names of columns
// bare, texts and dates quoted with doubled quotes, a Null as nothing.
class FileMdbFinto {
  public:
    FileMdbFinto();
    ~FileMdbFinto();
    FileMdbFinto(const FileMdbFinto&) = delete;
    FileMdbFinto& operator=(const FileMdbFinto&) = delete;

    QString percorso() const { return mCartella.filePath("negozio.mdb"); }
    // A table; the fields as mdb-export writes them.
    void tabella(const QString& nome, const std::vector<QByteArray>& colonne,
                 const std::vector<std::vector<QByteArray>>& righe);
    // A table whose export is exactly this.
    void grezza(const QString& nome, const QByteArray& uscita);

  private:
    void programma(const QString& nome, const QByteArray& testo);

    QTemporaryDir mCartella;
    QByteArray mPath;
};
