#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>

#include <QByteArray>
#include <QList>
#include <QString>

// What a disk was asked to keep.
enum class EsitoScarico {
    Fatto,
    NomeRifiutato,  // the records are on the disk; of the file's name it is not known
    DatiRifiutati   // of the records it is not known, whatever the disk takes next
};

// A file of records that only grows: each is a line with its check sum, so that a torn end is told from what
// was written whole. A record is in the system's hands when `aggiungi` returns, where a killed process cannot
// lose it; a thread of its own brings it to the disk right after, for the day the power goes.
class RegistroAppeso {
  public:
    explicit RegistroAppeso(QString percorso);
    ~RegistroAppeso();
    RegistroAppeso(const RegistroAppeso&) = delete;
    RegistroAppeso& operator=(const RegistroAppeso&) = delete;

    // The records of a file, up to the first one that is not whole; none when there is no file.
    static QList<QByteArray> leggi(const QString& percorso);

    // Without line breaks. The file begins anew with its first record, readable by its owner alone.
    // False when it could not be written; then nothing of it is in the file.
    bool aggiungi(const QByteArray& record);
    // Returns when all records are on the disk, and with them the name of a file that is new, or when the
    // disk has refused them.
    EsitoScarico sincronizza();
    // The file goes.
    void elimina();

  private:
    bool apri();
    void chiudi();
    void lavora(const std::stop_token& fine);

    QString mPercorso;
    qint64 mLunghezza = 0;  // of what was written whole
    int mFile = -1;         // guarded by mSerratura, as all below
    bool mDaScaricare = false;
    bool mScaricoInCorso = false;  // the thread is at the disk
    bool mScaricoFallito = false;  // the disk has refused records of this file; it says so only once
    int mNomi = 0;                 // how often the file was made anew or removed
    int mNomiSuDisco = 0;          // how many of these have reached the disk
    std::mutex mSerratura;
    std::condition_variable_any mSveglia;
    std::jthread mScarico;
};
