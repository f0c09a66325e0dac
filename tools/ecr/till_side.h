#pragma once

#include <QByteArray>
#include <QString>
#include <QTcpSocket>

// A till's end of the wire, for checks: sends what it is told and reads what comes back.
class LatoCassa {
  public:
    explicit LatoCassa(int attesa) : mAttesa(attesa) {}

    bool connetti(int porta);
    void riaggancia() { mPresa.abort(); }
    bool collegato() const { return mPresa.state() == QAbstractSocket::ConnectedState; }
    void manda(const QByteArray& byte);
    // What comes back until an answer is complete (ACK, NAK or a frame) or the time is over.
    QByteArray risposta();
    // The latest answer came in more than one chunk: a till takes each for an answer of its own.
    bool inPezzi() const { return mInPezzi; }
    // More has come together with the latest answer: a till takes all of it for one.
    bool avanza() const { return !mResto.isEmpty(); }
    // What comes although nothing was asked, within `millisecondi`.
    QByteArray inatteso(int millisecondi);

  private:
    // The first complete answer in what has come so far, taken out of it; empty when there is none.
    QByteArray prendi();

    int mAttesa;
    QTcpSocket mPresa;
    QByteArray mResto;
    bool mInPezzi = false;
};
