#include "scenari/operatore_stampato.h"

QString inUnaRiga(QString testo) {
    return testo.replace('\\', "\\\\").replace('\n', "\\n");
}

namespace {

QString nome(OperatorPort::Risposta risposta) {
    switch (risposta) {
        case OperatorPort::Risposta::Si:
            return "SI";
        case OperatorPort::Risposta::No:
            return "NO";
        default:
            return "ANNULLA";
    }
}

}  // namespace

QStringList OperatoreStampato::maiPoste() const {
    QStringList domande;
    for (const Preparata& preparata : mRisposte) {
        domande << preparata.domanda;
    }
    return domande;
}

void OperatoreStampato::messaggio(const QString& testo, Icona, const QString&) {
    mRighe << "  messaggio: " + inUnaRiga(testo);
}

OperatorPort::Risposta OperatoreStampato::domanda(const QString& testo, Pulsanti pulsanti, Icona) {
    const QString riga = inUnaRiga(testo);
    if (mRisposte.empty() || mRisposte.front().domanda != riga) {
        sbagliata = true;
        mRighe << "  DOMANDA INATTESA: " + riga;
        return pulsanti == Pulsanti::SiNoAnnulla ? Risposta::Annulla : Risposta::No;
    }
    const Risposta risposta = mRisposte.front().risposta;
    mRisposte.pop_front();
    mRighe << "  domanda: " + riga + " -> " + nome(risposta);
    return risposta;
}

bool OperatoreStampato::avviso(const Errore& errore) {
    mRighe << QString("  errore %1 in %2: %3")
                  .arg(errore.numero)
                  .arg(errore.modulo, inUnaRiga(errore.descrizione));
    return true;
}
