#pragma once

#include <deque>
#include <functional>

#include <QByteArray>
#include <QStringList>
#include <QTcpServer>
#include <QTcpSocket>

// A register's interface program as the test wants it: it keeps every byte that comes, and answers what it
// was told to. It shares nothing with the link, checksums included.
class PeerDiProva : public QObject {
  public:
    PeerDiProva();
    ~PeerDiProva() override { chiudi(); }

    int porta() const { return mPorta; }
    // Hangs up and stops listening; apri() listens on the same port again.
    void chiudi();
    bool apri();
    void riaggancia();
    bool collegato() const { return mPresa != nullptr; }

    // What it answers to each complete frame; without it one ACK each. Empty: nothing.
    std::function<QByteArray(const QByteArray& cornice)> risposta;
    void manda(const QByteArray& byte);
    // Every byte on its own, each as a notification of its own at the other side.
    void mandaASpizzichi(const QByteArray& byte);

    const QByteArray& ricevuti() const { return mRicevuti; }
    // The complete frames so far, without their marks.
    QStringList cornici() const;
    // Those whose checksum is wrong.
    QStringList guaste() const;
    void dimentica();

    // STX "ERR", code, a blank, text, checksum, ETX.
    static QByteArray errore(const QByteArray& codice, const QByteArray& testo);

  private:
    void accogli();
    void leggi(QTcpSocket* presa);

    QTcpServer mServer;
    QTcpSocket* mPresa = nullptr;
    int mPorta = 0;
    QByteArray mRicevuti;
    QByteArray mInArrivo;
    QList<QByteArray> mCornici;
};

// Whether the condition comes true within some seconds, while events run.
bool diventa(const std::function<bool()>& condizione, int millisecondi = 5000);
// Lets what is already on its way arrive: a round trip through a socket pair of its own.
void lasciaArrivare(int giri = 3);
