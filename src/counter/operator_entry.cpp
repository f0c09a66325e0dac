#include "counter/operator_entry.h"

#include <QScopedValueRollback>

#include "core/errors.h"
#include "core/globals.h"
#include "counter/accounts.h"
#include "counter/fields.h"
#include "data/gateway.h"
#include "data/prepare_sql.h"
#include "sale/row_editor.h"

namespace {

const char* const procedura = "selectVenditore";
// A name of this length is cut, and the header keeps its shape.
constexpr qsizetype nomeLungo = 22;

}  // namespace

void mostraVenditore(Vendita& v) {
    v.lblVenditore.tag(QString::number(gIDVenditore));
    v.lblVenditore.testo(gDescVenditore.size() < nomeLungo ? gDescVenditore
                                                           : gDescVenditore.left(nomeLungo - 1) + "…");
}

EsitoVenditore cercaVenditore(Conto& conto, const QString& codice) {
    return protetto(
        moduloFrmMain, procedura,
        [&] {
            const QString testo = testoSQL(codice);
            const Lettura riga("SELECT RID, DESCRIZIONE FROM Venditori WHERE CODICE = " + testo +
                                   " OR CODICEEXTRA = " + testo,
                               moduloFrmMain + QString(".") + procedura);
            if (!riga) return EsitoVenditore::Annullato;
            if (riga->eof()) return EsitoVenditore::NonTrovato;
            gIDVenditore = riga->intero("RID");
            gDescVenditore = riga->testo("DESCRIZIONE");
            mostraVenditore(conto.vendita());
            return EsitoVenditore::Trovato;
        },
        EsitoVenditore::Annullato);
}

EsitoVenditore selectVenditore(Conto& conto, const RichiestaVenditore& richiesta, QString& codice) {
    {
        const QScopedValueRollback aperta(gModaleAperta, true);
        codice = conto.codiceVenditore(richiesta);
    }
    return codice.isEmpty() ? EsitoVenditore::Annullato : cercaVenditore(conto, codice);
}

void chiediVenditore(Conto& conto, RichiestaVenditore richiesta) {
    QString codice;
    while (selectVenditore(conto, richiesta, codice) == EsitoVenditore::NonTrovato) {
        richiesta = {codice, true};
    }
}

void cmdOperatore_Click(Conto& conto) {
    if (!conto.vendita().cmdOperatore.abilitato()) return;
    protetto(moduloFrmMain, "cmdOperatore_Click", [&] {
        terminaCampo(conto);
        chiediVenditore(conto);
    });
}
