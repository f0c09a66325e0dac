#include "ecr/simulator.h"

#include <algorithm>
#include <limits>

#include <QHostAddress>
#include <QTimer>

#include "register/ansi_text.h"

namespace {

constexpr int codiceControllo = 1;
constexpr int codiceComando = 2;
// Between two answers, so that the till does not find both at once; milliseconds.
constexpr qint64 distacco = 30;

QByteArray sbagliato() {
    return corniceErrore(codiceControllo, "Checksum sbagliato");
}

}  // namespace

Simulatore::Simulatore(int primoNumero) : mStampante(primoNumero), mUltimoInvio(-distacco) {
    mOrologio.start();
    connect(&mServer, &QTcpServer::newConnection, this, &Simulatore::accogli);
}

Simulatore::~Simulatore() {
    // Sockets that close from here on have nobody to tell.
    for (QTcpSocket* presa : mServer.findChildren<QTcpSocket*>()) {
        presa->disconnect(this);
    }
}

bool Simulatore::ascolta(int porta) {
    return porta >= 0 && porta <= std::numeric_limits<quint16>::max() &&
           mServer.listen(QHostAddress::LocalHost, static_cast<quint16>(porta));
}

void Simulatore::guasto(Guasto guasto, bool unaVolta) {
    mGuasto = guasto;
    mUnaVolta = unaVolta;
    emit guastoCambiato();
}

// One till at a time: the latest one.
void Simulatore::accogli() {
    while (QTcpSocket* presa = mServer.nextPendingConnection()) {
        if (mPresa != nullptr) mPresa->abort();
        mPresa = presa;
        mLettore = {};
        mUltimoInvio = -distacco;
        connect(presa, &QTcpSocket::readyRead, this, [this, presa] { leggi(presa); });
        connect(presa, &QTcpSocket::disconnected, this, [this, presa] {
            presa->deleteLater();
            if (mPresa != presa) return;
            mPresa = nullptr;
            emit collegato(false);
        });
        emit collegato(true);
    }
}

void Simulatore::leggi(QTcpSocket* presa) {
    const auto cornici = mLettore.leggi(presa->readAll());
    for (const LettoreCornici::Cornice& cornice : cornici) {
        manda(presa, rispondi(cornice));
        if (mPresa != presa) return;
    }
}

RispostaEcr Simulatore::rispondi(const LettoreCornici::Cornice& cornice) {
    const QString testo = daAnsi(cornice.corpo);
    emit comando(testo + (cornice.valida ? "" : "   (checksum sbagliato)"));
    const Guasto inForza = mGuasto;
    if (mUnaVolta) guasto(Guasto::Nessuno, false);
    if (!cornice.valida) return {{sbagliato()}};
    return esegui(testo, rispostaConGuasto(inForza));
}

RispostaEcr Simulatore::esegui(const QString& testo, RispostaEcr risposta) {
    if (!risposta.eseguita) return risposta;
    const Stampante::Risultato risultato = mStampante.esegui(testo);
    switch (risultato.esito) {
        case Stampante::Esito::Errore:
            return {{corniceErrore(codiceComando, risultato.errore)}};
        case Stampante::Esito::Stampato:
            emit stampato(mStampante.scontrino());
            break;
        case Stampante::Esito::Spento:
            QMetaObject::invokeMethod(this, &Simulatore::spento, Qt::QueuedConnection);
            break;
        case Stampante::Esito::Fatto:
            break;
    }
    return risposta;
}

void Simulatore::manda(QTcpSocket* presa, const RispostaEcr& risposta) {
    if (risposta.muori) emit morto();
    if (risposta.chiudi || risposta.muori) return presa->abort();
    // A piece never overtakes one that waits.
    qint64 prima = std::max(mOrologio.elapsed(), mUltimoInvio + distacco);
    for (const QByteArray& pezzo : risposta.pezzi) {
        mUltimoInvio = prima + risposta.pausa;
        prima = mUltimoInvio;
        mandaAlle(mUltimoInvio, presa, pezzo);
    }
}

void Simulatore::mandaAlle(qint64 ora, QTcpSocket* presa, const QByteArray& pezzo) {
    const auto scrivi = [presa, pezzo] {
        presa->write(pezzo);
        presa->flush();
    };
    const qint64 attesa = ora - mOrologio.elapsed();
    if (attesa <= 0) return scrivi();
    QTimer::singleShot(static_cast<int>(attesa), Qt::PreciseTimer, presa, scrivi);
}
