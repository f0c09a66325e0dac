#include "postings/lost_deletion.h"

#include "core/globals.h"
#include "data/gateway.h"
#include "postings/stored_row.h"
#include "postings/stored_sale.h"
#include "sale/vendita.h"

namespace {

using Icona = OperatorPort::Icona;

const char* const testoCancellata =
    "La vendita è stata cancellata%1.\n"
    "Il collegamento con il server si era interrotto; la vendita non è più nell'archivio.";
const char* const testoNonCancellata =
    "La vendita non è stata cancellata: il collegamento con il server si è interrotto.\n"
    "La vendita è ancora nell'archivio e si può cancellare di nuovo.";
const char* const testoIncerta =
    "Non si sa se la vendita è stata cancellata: il server non risponde o è occupato.\n"
    "Quando la si cancella o la si salva di nuovo si controlla prima se è ancora nell'archivio.";

QString sorgente() {
    return gNomeModulo + ".cancellaVendita";
}

// After a conversion the screen tells the number of the new document, not of the one that goes.
QString numero(const Vendita& v, int idMovimento) {
    if (v.rid() != idMovimento) return {};
    return ": N° " + v.numero();
}

void racconta(Vendita& v, int idMovimento, EsitoCommit esito) {
    OperatorPort& operatore = v.schermo.operatore();
    if (esito == EsitoCommit::Registrato) {
        operatore.messaggio(QString(testoCancellata).arg(numero(v, idMovimento)), Icona::Informazione);
    } else {
        operatore.messaggio(esito == EsitoCommit::Ignoto ? testoIncerta : testoNonCancellata, Icona::Critica);
    }
}

}  // namespace

EsitoCommit cercaCancellazione(OperatorPort& operatore, const std::set<int>& righe) {
    return cercaDopoCommitPerso(operatore, sorgente(), [&] { return righeSparite(righe, sorgente()); });
}

bool dopoCancellazionePersa(Vendita& v, int idMovimento) {
    std::set<int> righe = righeRegistrate(v.flxVB);
    const EsitoCommit esito = cercaCancellazione(v.schermo.operatore(), righe);
    if (esito == EsitoCommit::Ignoto) v.cancellazioneIncerta = std::move(righe);
    racconta(v, idMovimento, esito);
    return esito == EsitoCommit::Registrato;
}

EsitoCommit chiarisciCancellazione(Vendita& v) {
    if (v.cancellazioneIncerta.empty()) return EsitoCommit::NonRegistrato;
    const EsitoCommit esito = cercaCancellazione(v.schermo.operatore(), v.cancellazioneIncerta);
    if (esito != EsitoCommit::Ignoto) v.cancellazioneIncerta.clear();
    if (esito != EsitoCommit::NonRegistrato) racconta(v, v.rid(), esito);
    return esito;
}
