#pragma once

#include <map>
#include <memory>
#include <utility>
#include <vector>

#include <QString>
#include <QVariant>

#include "data/schema.h"

class ArchivioFile;
class ArchivioServer;

// Column names and values of a row to write.
using Riga = std::vector<std::pair<const char*, QVariant>>;

// A table and those of its columns that rows are written to; the first one is the key.
struct TabellaScritta {
    const schema::Tabella* tabella;
    std::vector<const schema::Colonna*> colonne;

    QString elencoColonne() const;
};

// Writes rows, with the keys that they bring or new ones. One interface for all that fills an archive: the
// demo shop, shops of any size, copies and imports. What a column cannot keep raises RunTimeError 13 and
// leaves its row out; what the server refuses, RunTimeError 9999.
class Scrittore {
  public:
    Scrittore() = default;
    virtual ~Scrittore() = default;
    Scrittore(const Scrittore&) = delete;
    Scrittore& operator=(const Scrittore&) = delete;

    // Rows of one shape; it stands as long as the writer. A column that is not there raises RunTimeError
    // 9999.
    const TabellaScritta& tabella(const QString& nome, const QStringList& colonne);
    // All columns of a table, in the order of the schema.
    const TabellaScritta& tabella(const schema::Tabella& intera);

    // Writes the values, in the order of the columns, key included.
    void scrivi(const TabellaScritta& dove, const std::vector<QVariant>& valori);
    // Writes a row without a key under the next one, and answers it.
    qint64 inserisci(const char* nome, const Riga& riga);

    // The next key of a table, for a row that is about to be written.
    qint64 nuovaChiave(const QString& nome) { return ++mChiavi[nome]; }

    // Rows that are held back for a batch reach the server.
    virtual void scarica() {}

  protected:
    // Values in the form of column_value.h.
    virtual void scriviEsatti(const TabellaScritta& dove, const std::vector<QVariant>& esatti) = 0;

  private:
    std::map<QString, std::unique_ptr<TabellaScritta>> mTabelle;
    std::map<QString, qint64> mChiavi;  // the last one given, by table
    std::vector<QVariant> mEsatti;
};

// To a file: a prepared statement for each shape.
std::unique_ptr<Scrittore> nuovoScrittore(ArchivioFile& archivio);
// To a server: one INSERT for many rows.
std::unique_ptr<Scrittore> nuovoScrittore(ArchivioServer& archivio);
