#pragma once

#include <QElapsedTimer>
#include <QString>

// A bar on the terminal, redrawn a few times a second; nothing when the standard error is no terminal.
class Avanzamento {
  public:
    explicit Avanzamento(qint64 totale);
    // Takes its line away.
    ~Avanzamento();
    Avanzamento(const Avanzamento&) = delete;
    Avanzamento& operator=(const Avanzamento&) = delete;

    void aggiungi(qint64 quante, const QString& cosa);

  private:
    void disegna(const QString& cosa) const;

    bool mTerminale;
    qint64 mTotale;
    qint64 mFatte = 0;
    QElapsedTimer mUltimoDisegno;
};
