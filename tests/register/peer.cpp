#include "register/peer.h"

#include <cctype>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QHostAddress>
#include <QTimer>

namespace {

// Sum of the bytes, the last two of its decimal digits.
QByteArray cifreDiControllo(const QByteArray& corpo) {
    unsigned long somma = 0;
    for (const char c : corpo) {
        somma += static_cast<unsigned char>(c);
    }
    return somma < 10 ? QByteArray(1, static_cast<char>('0' + somma))
                      : QByteArray{}
                            .append(static_cast<char>('0' + somma / 10 % 10))
                            .append(static_cast<char>('0' + somma % 10));
}

}  // namespace

PeerDiProva::PeerDiProva() {
    connect(&mServer, &QTcpServer::newConnection, this, [this] { accogli(); });
    apri();
}

bool PeerDiProva::apri() {
    if (!mServer.listen(QHostAddress::LocalHost, static_cast<quint16>(mPorta))) return false;
    mPorta = mServer.serverPort();
    return true;
}

void PeerDiProva::chiudi() {
    mServer.close();
    riaggancia();
}

void PeerDiProva::riaggancia() {
    if (mPresa == nullptr) return;
    QTcpSocket* presa = std::exchange(mPresa, nullptr);
    presa->disconnect(this);
    presa->abort();
    presa->deleteLater();
    mInArrivo.clear();
}

void PeerDiProva::accogli() {
    riaggancia();
    mPresa = mServer.nextPendingConnection();
    mPresa->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    connect(mPresa, &QTcpSocket::readyRead, this, [this, presa = mPresa] { leggi(presa); });
    connect(mPresa, &QTcpSocket::disconnected, this, [this, presa = mPresa] {
        if (mPresa == presa) riaggancia();
    });
}

void PeerDiProva::leggi(QTcpSocket* presa) {
    const QByteArray nuovi = presa->readAll();
    mRicevuti += nuovi;
    mInArrivo += nuovi;
    for (qsizetype fine = mInArrivo.indexOf('\3'); fine >= 0; fine = mInArrivo.indexOf('\3')) {
        const QByteArray intera = mInArrivo.left(fine + 1);
        mInArrivo.remove(0, fine + 1);
        mCornici << intera;
        const QByteArray risponde = risposta ? risposta(intera) : QByteArray("\6");
        if (mPresa != presa) return;
        if (!risponde.isEmpty()) manda(risponde);
    }
}

void PeerDiProva::manda(const QByteArray& byte) {
    if (mPresa == nullptr) return;
    mPresa->write(byte);
    mPresa->flush();
}

void PeerDiProva::mandaASpizzichi(const QByteArray& byte) {
    for (const char c : byte) {
        manda(QByteArray(1, c));
        lasciaArrivare();
    }
}

QStringList PeerDiProva::cornici() const {
    QStringList corpi;
    for (const QByteArray& intera : mCornici) {
        corpi << QString::fromLatin1(intera.mid(1).chopped(1));
    }
    return corpi;
}

QStringList PeerDiProva::guaste() const {
    QStringList trovate;
    for (const QByteArray& intera : mCornici) {
        const QByteArray dentro = intera.mid(1).chopped(1);
        const qsizetype cifre = dentro.size() >= 2 && std::isdigit(dentro[dentro.size() - 2]) ? 2 : 1;
        if (intera[0] != '\2' || dentro.right(cifre) != cifreDiControllo(dentro.chopped(cifre)))
            trovate << QString::fromLatin1(dentro);
    }
    return trovate;
}

void PeerDiProva::dimentica() {
    mRicevuti.clear();
    mInArrivo.clear();
    mCornici.clear();
}

QByteArray PeerDiProva::errore(const QByteArray& codice, const QByteArray& testo) {
    const QByteArray corpo = "ERR" + codice + " " + testo;
    return "\2" + corpo + cifreDiControllo(corpo).rightJustified(2, '0') + "\3";
}

bool diventa(const std::function<bool()>& condizione, int millisecondi) {
    const QDeadlineTimer termine(millisecondi);
    // What changes without an event, a file, is looked at now and then.
    QTimer sveglia;
    sveglia.start(20);
    while (!condizione()) {
        if (termine.hasExpired()) return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

void lasciaArrivare(int giri) {
    // Never destroyed: sockets must not outlive the application object.
    static auto& server = *new QTcpServer;
    static auto& da = *new QTcpSocket;
    static QTcpSocket* a = nullptr;
    if (a == nullptr) {
        server.listen(QHostAddress::LocalHost);
        da.connectToHost(QHostAddress::LocalHost, server.serverPort());
        diventa([] { return server.hasPendingConnections(); });
        a = server.nextPendingConnection();
        da.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    }
    // Calls nest under dialogues: each waits for a byte of its own.
    static qint64 mandati = 0, arrivati = 0;
    // A notification of the link takes a turn of the event loop of its own, and so does a write.
    constexpr int giriPerPasso = 4;
    for (int i = 0; i < giri * giriPerPasso; ++i) {
        const qint64 mio = ++mandati;
        da.write("x");
        diventa([mio] {
            arrivati += a->readAll().size();
            return arrivati >= mio;
        });
    }
    QCoreApplication::processEvents();
}
