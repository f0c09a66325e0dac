#include "app/start_up.h"

#include <cstdlib>

#include "core/clock.h"
#include "core/errors.h"
#include "core/globals.h"
#include "core/program_folder.h"
#include "data/client_settings.h"
#include "data/gateway.h"
#include "data/options_table.h"
#include "data/settings_store.h"

namespace {

const char* const testoConnessione = "Connessione al Server in corso...";
constexpr int timeoutConnessione = 60;  // seconds

void preparaServizi(OperatorPort& operatore) {
    gFileAiuto = cartellaProgramma() + "/../Bottegon.chm";
    gNomeModulo = "bBottegonClientVB";
    gErr.imposta(cartellaScrivibile(), &operatore);
    gErr.impostaFineProcesso(&chiudiApplicazione);
    gAdo.impostaOperatore(&operatore);
    gAdo.impostaStringaConnessione([] { return gStrConnessione; });
    gSQLSep = gAdo.getSQLSeparator();
}

void leggiImpostazioni(OperatorPort& operatore) {
    leggiImpostazioniClient();
    const QStringList avvisi = impostazioni().prendiAvvisi();
    if (!avvisi.isEmpty()) operatore.messaggio(avvisi.join("\n\n"), OperatorPort::Icona::Esclamazione);
}

// The first attempt is silent, and repaired by hand; the second one reports.
bool provaConnessione(const PortiAvvio& porti) {
    porti.mostraInfo(testoConnessione);
    if (gAdo.Connect("N/D", timeoutConnessione, 0, true)) return true;
    porti.nascondiInfo();
    porti.apriOpzioni();
    porti.mostraInfo(testoConnessione);
    leggiImpostazioni(porti.operatore);
    return gAdo.Connect("N/D", timeoutConnessione, 0, false);
}

bool avvia(const PortiAvvio& porti) {
    preparaServizi(porti.operatore);
    leggiImpostazioni(porti.operatore);
    if (!provaConnessione(porti)) return false;
    gAdo.disconnect();
    getAllOpzioni();
    porti.apriPrimoConto();
    porti.setRegCassa();
    return true;
}

}  // namespace

bool Main(const PortiAvvio& porti) {
    const bool riuscito = protetto(
        gNomeModulo, "Main", [&] { return porti.primaIstanza() && avvia(porti); }, false);
    porti.nascondiInfo();
    return riuscito;
}

void chiudiApplicazione() {
    gErr.impostaOperatore(nullptr);
    gAdo.chiudiConnessioniCalde();
    std::_Exit(EXIT_SUCCESS);
}

QString titoloFinestra() {
    return "Orbelune®" + QString::number(orologio().oggi().year()) +
           " Bottegon - Client di vendita al banco    ";
}
