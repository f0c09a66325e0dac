#include "core/errors.h"

#include <cstdlib>
#include <new>
#include <utility>

#include <QFile>
#include <QStringList>

#include "core/clock.h"
#include "core/format.h"

cError gErr;

namespace {

// A block is seven lines whatever a value holds.
QString inUnaRiga(QString valore) {
    return valore.replace("\r\n", " ").replace(u'\r', u' ').replace(u'\n', u' ');
}

QString bloccoDiLog(const OperatorPort::Errore& errore) {
    const QStringList righe{
        QString(80, u'*'),
        "Data   " + Format(orologio().adesso(), u"DD/MM/YYYY Hh:Nn:Ss"),
        "Err.N. " + QString::number(errore.numero),
        "Descr. " + inUnaRiga(errore.descrizione),
        "Source " + inUnaRiga(errore.origine),
        "Modulo " + inUnaRiga(errore.modulo),
        "Avanz. " + inUnaRiga(errore.avanzate),
    };
    return righe.join(u'\n') + u'\n';
}

// The log may hold what customers bought: it is its owner's alone. Several programs write to one log, so
// a block is one unbuffered write at the end of the file.
bool accoda(const QString& percorso, const QByteArray& blocco) {
    QFile log(percorso);
    return log.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered,
                    QFileDevice::ReadOwner | QFileDevice::WriteOwner) &&
           log.write(blocco) == blocco.size();
}

OperatorPort::Errore comeSegnalazione(const RunTimeError& errore, const QString& modulo,
                                      const QString& procedura, const QString& avanzate) {
    return {errore.numero(), errore.descrizione(), modulo + u'.' + procedura, avanzate, errore.origine()};
}

}  // namespace

void cError::imposta(QString cartella, OperatorPort* operatore) {
    mCartella = std::move(cartella);
    mOperatore = operatore;
}

void cError::notifyError(const RunTimeError& errore, const QString& modulo, const QString& procedura,
                         const QString& avanzate) {
    segnala(comeSegnalazione(errore, modulo, procedura, avanzate), mTrattenuti);
}

void cError::notificaSubito(const RunTimeError& errore, const QString& modulo, const QString& procedura,
                            const QString& avanzate) {
    segnala(comeSegnalazione(errore, modulo, procedura, avanzate), false);
}

void cError::annotaErrore(const RunTimeError& errore, const QString& modulo, const QString& procedura,
                          const QString& avanzate) {
    const Errore segnalazione = comeSegnalazione(errore, modulo, procedura, avanzate);
    if (mEvtErrore) return mEvtErrore(segnalazione);
    registra(segnalazione);
}

void cError::segnala(Errore errore, bool trattieni) {
    if (mEvtErrore) return mEvtErrore(errore);
    if (!registra(errore)) {
        if (!errore.avanzate.isEmpty()) errore.avanzate += u'\n';
        errore.avanzate += "Il file Err.log non può essere scritto.";
    }
    if (trattieni) {
        mInAttesa.push_back([this, errore] { mostra(errore); });
    } else {
        mostra(errore);
    }
}

bool cError::registra(const Errore& errore) const {
    return !mCartella.isEmpty() && accoda(mCartella + "/Err.log", bloccoDiLog(errore).toUtf8());
}

void cError::mostra(const Errore& errore) {
    if (mOperatore != nullptr && !mOperatore->avviso(errore)) fineProcesso();
}

// A dialogue runs events, and these may hold and release dialogues of their own.
void cError::rilasciaDialoghi() {
    mTrattenuti = false;
    for (const auto& dialogo : std::exchange(mInAttesa, {}))
        dialogo();
}

void cError::mostraMessaggio(const QString& testo, OperatorPort::Icona icona) {
    const auto mostraOra = [this, testo, icona] {
        if (mOperatore != nullptr) mOperatore->messaggio(testo, icona);
    };
    if (mTrattenuti) {
        mInAttesa.push_back(mostraOra);
    } else {
        mostraOra();
    }
}

void cError::ritiraUltimoDialogo() {
    if (!mInAttesa.empty()) mInAttesa.pop_back();
}

void cError::fineProcesso() {
    if (!mFine) std::_Exit(1);
    mFine();
}

void segnalaErrore(const RunTimeError& errore, const QString& modulo, const QString& procedura,
                   const QString& avanzate) {
    gErr.notifyError(errore, modulo, procedura, avanzate);
}

RunTimeError erroreInCorso() {
    try {
        throw;
    } catch (const RunTimeError& errore) {
        return errore;
    } catch (const std::bad_alloc&) {
        return RunTimeError(RunTimeError::MemoriaEsaurita);
    } catch (const std::exception& errore) {
        return RunTimeError(RunTimeError::ErroreApplicazione, errore.what());
    }
}
