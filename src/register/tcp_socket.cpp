#include "register/tcp_socket.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace {

constexpr int pausaFraTentativi = 50;  // milliseconds
// What the other side may send ahead of being read.
constexpr qint64 letturaMassima = 1 << 20;

}  // namespace

PresaTcp::PresaTcp(int durata) {
    mTermine.setSingleShot(true);
    mTermine.setInterval(durata);
    connect(&mTermine, &QTimer::timeout, this, &PresaTcp::chiudi);
}

PresaTcp::~PresaTcp() {
    chiudi();
}

void PresaTcp::chiudi() {
    mTermine.stop();
    if (mPresa == nullptr) return;
    QTcpSocket* presa = std::exchange(mPresa, nullptr);
    presa->disconnect(this);
    presa->abort();
    presa->deleteLater();
    mInvii.clear();
    mDatiAnnunciati = false;
    mConnessa = false;
}

void PresaTcp::connetti(const QString& host, int porta) {
    chiudi();
    if (porta < 1 || porta > std::numeric_limits<quint16>::max()) return;
    mHost = host;
    mPorta = static_cast<quint16>(porta);
    collega(new QTcpSocket(this));
    mTermine.start();
    bussa();
}

void PresaTcp::collega(QTcpSocket* presa) {
    mPresa = presa;
    presa->setReadBufferSize(letturaMassima);
    connect(presa, &QTcpSocket::connected, this, [this, presa] {
        mConnessa = true;
        mTermine.stop();
        presa->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        notifica(&Notifiche::connessa);
    });
    connect(presa, &QTcpSocket::errorOccurred, this, [this] { tentativoFallito(); });
    connect(presa, &QTcpSocket::disconnected, this, [this] { notifica(&Notifiche::chiusa); });
    connect(presa, &QTcpSocket::readyRead, this, [this] {
        if (!std::exchange(mDatiAnnunciati, true)) notifica(&Notifiche::datiArrivati);
    });
    connect(presa, &QTcpSocket::bytesWritten, this, &PresaTcp::scritti);
}

void PresaTcp::bussa() {
    mPresa->connectToHost(mHost, mPorta);
}

void PresaTcp::tentativoFallito() {
    if (mConnessa) return;
    QTimer::singleShot(pausaFraTentativi, mPresa, [this, presa = mPresa] {
        if (mPresa == presa && presa->state() == QAbstractSocket::UnconnectedState) bussa();
    });
}

void PresaTcp::invia(const QByteArray& dati) {
    if (mPresa == nullptr || mPresa->state() != QAbstractSocket::ConnectedState) return;
    mInvii.push_back(dati.size());
    if (dati.isEmpty()) {
        completati();
    } else {
        mPresa->write(dati);
    }
}

void PresaTcp::scritti(qint64 byte) {
    for (qint64& resto : mInvii) {
        const qint64 suoi = std::min(resto, byte);
        resto -= suoi;
        byte -= suoi;
    }
    completati();
}

void PresaTcp::completati() {
    while (!mInvii.empty() && mInvii.front() == 0) {
        mInvii.pop_front();
        notifica(&Notifiche::invioCompletato);
    }
}

QByteArray PresaTcp::leggi() {
    mDatiAnnunciati = false;
    return mPresa == nullptr ? QByteArray() : mPresa->readAll();
}

void PresaTcp::notifica(std::function<void()> Notifiche::*quale) {
    QMetaObject::invokeMethod(
        mPresa,
        [this, quale, presa = mPresa] {
            if (mPresa == presa && notifiche().*quale) (notifiche().*quale)();
        },
        Qt::QueuedConnection);
}
