#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

// The frames that come from the till, put together from whatever pieces the network delivers.
class LettoreCornici {
  public:
    struct Cornice {
        QByteArray corpo;
        bool valida = false;  // begins with STX and its checksum is right
    };

    // The frames that these bytes complete. Bytes before an STX are dropped.
    QList<Cornice> leggi(const QByteArray& byte);
    // What an unfinished frame may hold at most; a longer one is dropped.
    static constexpr qsizetype massimo = 64 * 1024;

  private:
    QByteArray mResto;
};

// The last two decimal digits of the sum of the bytes; one digit when the sum is below 10.
QByteArray controllo(const QByteArray& corpo);
// STX, body, checksum, ETX.
QByteArray cornice(const QByteArray& corpo);
