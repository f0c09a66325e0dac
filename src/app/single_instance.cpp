#include "app/single_instance.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>

namespace {

// How long a second start tries to reach the first, in milliseconds.
constexpr int attesaMassima = 1000;
constexpr int pausaTentativi = 20;

QString cartellaCanali() {
    const QString cartella = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    return cartella.isEmpty() ? QDir::tempPath() : cartella;
}

}  // namespace

SingleInstance::SingleInstance(QString cartella) : mCartella(std::move(cartella)) {
    const QByteArray identita =
        (QCoreApplication::applicationFilePath() + '\n' + QDir(mCartella).absolutePath()).toUtf8();
    mChiave = "bottegon-" + QCryptographicHash::hash(identita, QCryptographicHash::Sha256).toHex().left(16);
    mCanale = cartellaCanali() + '/' + mChiave;
}

SingleInstance::~SingleInstance() {
    mServer.close();
    if (mBlocco >= 0) ::close(mBlocco);
}

// A lock that cannot be made at all does not keep the shop from selling.
bool SingleInstance::blocca() {
    QDir().mkpath(mCartella);
    const QByteArray nome = QFile::encodeName(mCartella + "/." + mChiave + ".lock");
    mBlocco = ::open(nome.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (mBlocco < 0) return true;
    return ::flock(mBlocco, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

void SingleInstance::ascolta() {
    // Left over from a first one that was killed; the lock says that nobody listens there.
    QLocalServer::removeServer(mCanale);
    mServer.setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&mServer, &QLocalServer::newConnection, &mServer, [this] {
        while (QLocalSocket* chiamata = mServer.nextPendingConnection()) {
            QObject::connect(chiamata, &QLocalSocket::disconnected, chiamata, &QObject::deleteLater);
            chiamata->disconnectFromServer();
            if (mAlRichiamo) mAlRichiamo();
        }
    });
    mServer.listen(mCanale);
}

// The connection itself is the call, and waits where the first one will find it. The first one may be between
// its lock and its listening.
void SingleInstance::chiama() {
    QElapsedTimer tempo;
    tempo.start();
    while (tempo.elapsed() < attesaMassima) {
        QLocalSocket socket;
        socket.connectToServer(mCanale, QIODevice::ReadOnly);
        if (socket.waitForConnected(attesaMassima)) return;
        QThread::msleep(pausaTentativi);
    }
}

bool SingleInstance::prima(std::function<void()> alRichiamo) {
    mAlRichiamo = std::move(alRichiamo);
    if (!blocca()) {
        chiama();
        return false;
    }
    ascolta();
    return true;
}
