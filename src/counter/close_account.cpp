#include "counter/close_account.h"

#include <algorithm>

#include "core/errors.h"
#include "core/globals.h"
#include "core/operator_port.h"
#include "counter/accounts.h"
#include "counter/next_sale.h"
#include "counter/save_question.h"
#include "register/interface_link.h"

namespace {

const char* const testoInAttesa =
    "Il registratore di cassa non ha finito di stampare: %1 in attesa.\nChiudere comunque?";

QString quantiScontrini(qsizetype quanti) {
    return quanti == 1 ? "1 scontrino" : QString::number(quanti) + " scontrini";
}

bool ultimo() {
    return std::count(gConti.begin(), gConti.end(), nullptr) == contiMassimi - 1;
}

}  // namespace

bool chiudiConto(Conto& conto, Chiusura chiusura) {
    const Vendita& v = conto.vendita();
    const bool daSalvare = v.venditaModificata;
    if (chiediSalvataggio(conto)) return false;
    const bool salvata = daSalvare && !v.venditaModificata;
    if (chiusura == Chiusura::FineSessione || fineConfermata(conto)) {
        conto.scarica();
        return true;
    }
    if (salvata) mostraVenditaSalvata(conto);
    return false;
}

bool fineConfermata(Conto& conto) {
    const qsizetype inAttesa = gFrmRegCassa().scontrini.inAttesa();
    if (inAttesa == 0 || !ultimo()) return true;
    return conto.operatore().domanda(QString(testoInAttesa).arg(quantiScontrini(inAttesa)),
                                     OperatorPort::Pulsanti::NoSi,
                                     OperatorPort::Icona::Esclamazione) == OperatorPort::Risposta::Si;
}

void annotaSenzaScontrino() {
    const RunTimeError avviso(RunTimeError::ErroreApplicazione, "Vendita senza scontrino alla chiusura");
    for (const RegistroScontrini::Voce& voce : gFrmRegCassa().scontrini.voci()) {
        gErr.annotaErrore(avviso, gNomeModulo, "chiudiApplicazione", voce.vendita + ": " + descrizione(voce));
    }
}
