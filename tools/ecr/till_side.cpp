#include "ecr/till_side.h"

#include <QDeadlineTimer>
#include <QHostAddress>

namespace {

constexpr char stx = 2;
constexpr char etx = 3;

}  // namespace

bool LatoCassa::connetti(int porta) {
    mPresa.abort();
    mResto.clear();
    mPresa.connectToHost(QHostAddress(QHostAddress::LocalHost), static_cast<quint16>(porta));
    if (!mPresa.waitForConnected(mAttesa)) return false;
    mPresa.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    return true;
}

void LatoCassa::manda(const QByteArray& byte) {
    mPresa.write(byte);
    mPresa.waitForBytesWritten(mAttesa);
}

QByteArray LatoCassa::prendi() {
    if (mResto.isEmpty()) return {};
    qsizetype lunghezza = 1;
    if (mResto.front() == stx) {
        lunghezza = mResto.indexOf(etx) + 1;
        if (lunghezza == 0) return {};
    }
    const QByteArray intera = mResto.left(lunghezza);
    mResto.remove(0, lunghezza);
    return intera;
}

QByteArray LatoCassa::risposta() {
    const QDeadlineTimer termine(mAttesa);
    mInPezzi = false;
    for (;;) {
        const QByteArray venuti = mPresa.readAll();
        mInPezzi = mInPezzi || (!mResto.isEmpty() && !venuti.isEmpty());
        mResto += venuti;
        const QByteArray intera = prendi();
        if (!intera.isEmpty()) return intera;
        if (!mPresa.waitForReadyRead(static_cast<int>(termine.remainingTime())) &&
            mPresa.bytesAvailable() == 0)
            return {};
    }
}

QByteArray LatoCassa::inatteso(int millisecondi) {
    const QDeadlineTimer termine(millisecondi);
    while (mPresa.waitForReadyRead(static_cast<int>(termine.remainingTime()))) {
        mResto += mPresa.readAll();
    }
    return std::exchange(mResto, {});
}
