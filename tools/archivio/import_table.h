#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

#include "archivio/csv_reader.h"
#include "archivio/row_writer.h"

// What became of a table on its way in.
struct EsitoTabella {
    qint64 righe = 0;  // that came over
    qint64 rifiutate = 0;
    QStringList motivi;    // of the first refusals
    QStringList mancanti;  // our columns that the file does not have
    QStringList ignote;    // the file's columns that we do not have

    void rifiuta(const QString& motivo);
};

// Takes the rows of one table of an Access file, names of columns first, and writes them to ours.
class ImportazioneTabella {
  public:
    ImportazioneTabella(Scrittore& scrittore, const schema::Tabella& tabella)
        : mScrittore(scrittore), mTabella(tabella) {}

    void riga(const RigaCsv& campi);
    const EsitoTabella& esito() const { return mEsito; }

  private:
    void intestazione(const RigaCsv& campi);
    void pretendiObbligatorie() const;

    Scrittore& mScrittore;
    const schema::Tabella& mTabella;
    const TabellaScritta* mDove = nullptr;
    std::vector<size_t> mPosti;  // of our columns among the file's
    bool mSenzaChiave = false;   // the file numbers no rows: we do
    std::vector<QVariant> mValori;
    EsitoTabella mEsito;
};
