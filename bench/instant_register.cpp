#include "instant_register.h"

#include <QCoreApplication>

#include "core/globals.h"

namespace {

// Sockets want an application object; the first one stays.
void assicuraApplicazione() {
    static int argomenti = 1;
    static char nome[] = "bottegon-bench";
    static char* parole[] = {nome, nullptr};
    if (QCoreApplication::instance() == nullptr) new QCoreApplication(argomenti, parole);
}

}  // namespace

RegistratoreIstantaneo::RegistratoreIstantaneo() {
    assicuraApplicazione();
    mServer.listen(QHostAddress::LocalHost);
    QObject::connect(&mServer, &QTcpServer::newConnection, &mServer, [this] {
        QTcpSocket* presa = mServer.nextPendingConnection();
        presa->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        QObject::connect(presa, &QTcpSocket::readyRead, presa, [presa] {
            const qsizetype cornici = presa->readAll().count('\x03');
            presa->write(QByteArray(cornici, '\x06'));
            presa->flush();
        });
    });
    gRegCassa = "Prova";
    gTCPPort = mServer.serverPort();
    impostaFrmRegCassa(&mCollegamento);
    mCollegamento.connetti();
    while (!mCollegamento.statoConnessione()) {
        QCoreApplication::processEvents();
    }
}

RegistratoreIstantaneo::~RegistratoreIstantaneo() {
    impostaFrmRegCassa(nullptr);
    gRegCassa.clear();
}

void RegistratoreIstantaneo::stampaTutto() {
    while (mCollegamento.stato() != StatoRegCassa::Pronto) {
        QCoreApplication::processEvents();
    }
}
