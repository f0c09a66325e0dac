#include "postings/lost_commit.h"

#include <QElapsedTimer>
#include <QThread>

#include "data/gateway.h"

namespace {

const char* const testoVerifica = "Il server non risponde: verifica della registrazione in corso...";
// A connection is waited for so long, in seconds, and tried again after so many milliseconds.
constexpr int secondiConnessione = 5;
constexpr int pausaTraTentativi = 200;

bool serverRaggiungibile(const QString& sorgente) {
    if (!gAdo.Connect(sorgente, secondiConnessione, 0, true)) return false;
    gAdo.disconnect();
    return true;
}

EsitoCommit chiedi(const QString& sorgente, const std::function<std::optional<bool>()>& registrato) {
    if (!gAdo.beginTrasaction(sorgente)) return EsitoCommit::Ignoto;
    const std::optional<bool> trovato = registrato();
    gAdo.rollbackTrasaction(sorgente);
    if (!trovato) return EsitoCommit::Ignoto;
    return *trovato ? EsitoCommit::Registrato : EsitoCommit::NonRegistrato;
}

}  // namespace

int& attesaVerificaCommit() {
    static int millisecondi = 15000;
    return millisecondi;
}

EsitoCommit cercaDopoCommitPerso(OperatorPort& operatore, const QString& sorgente,
                                 const std::function<std::optional<bool>()>& registrato) {
    const Clessidra clessidra(operatore);
    // Those that were kept may have gone the same way.
    gAdo.chiudiConnessioniCalde();
    QElapsedTimer inizio;
    inizio.start();
    bool raggiunto = serverRaggiungibile(sorgente);
    while (!raggiunto && inizio.elapsed() < attesaVerificaCommit()) {
        operatore.avvisoAttesa(testoVerifica);
        QThread::msleep(pausaTraTentativi);
        raggiunto = serverRaggiungibile(sorgente);
    }
    operatore.avvisoAttesa({});
    return raggiunto ? chiedi(sorgente, registrato) : EsitoCommit::Ignoto;
}
