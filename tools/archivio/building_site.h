#pragma once

#include <memory>

#include <QFileInfo>
#include <QLockFile>
#include <QTemporaryDir>

// A new folder beside a file to be, where it is made; it goes with all that is in it. One that a killed
// process has left behind goes with the next making of the same file.
class Cantiere {
  public:
    // A missing or closed folder raises RunTimeError 9999.
    explicit Cantiere(const QFileInfo& destinazione);

    QString percorso() const { return mCartella.filePath("archivio"); }
    // Puts the file in its place in one step, with all of it on the disk before.
    void consegna(const QString& destinazione) const;

  private:
    QTemporaryDir mCartella;
    std::unique_ptr<QLockFile> mOccupato;
};

// Whether a program has the archive at this path open now. A missing file, or one that is no archive, is not
// in use.
bool archivioInUso(const QString& percorso);
