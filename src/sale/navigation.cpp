#include "sale/navigation.h"

#include <QDate>

#include "core/errors.h"
#include "core/globals.h"
#include "core/numbers.h"
#include "data/gateway.h"
#include "sale/recall.h"
#include "sale/row_editor.h"
#include "sale/sale_document.h"
#include "sale/vendita.h"

namespace {

QString sqlVicine(const Vendita& v) {
    return "SELECT TOP 1 M.RID, M.PROGRESSIVO, DM.EXTRAPROG FROM Movimenti M INNER JOIN DettagliMovimento DM "
           "ON M.RID = DM.FK_MOVIMENTO WHERE YEAR(M.DATA) = " +
           QString::number(v.giorno().year()) +
           " AND M.FK_TIPODOCUMENTO = " + QString::number(v.idTipoDocumento) +
           " AND M.ID_CASSA = " + QString::number(gIDCassa);
}

QString condizioneAvanti(int progressivo, int extraProg) {
    if (progressivo <= 0) return {};
    const QString prog = QString::number(progressivo);
    if (extraProg <= 0) return " AND M.PROGRESSIVO > " + prog;
    return " AND ((M.PROGRESSIVO >= " + prog + " AND DM.EXTRAPROG > " + QString::number(extraProg) +
           ") OR (M.PROGRESSIVO > " + prog + ")) ";
}

QString condizioneIndietro(int progressivo, int extraProg) {
    if (progressivo <= 0) return {};
    const QString prog = QString::number(progressivo);
    if (extraProg <= 1) return " AND M.PROGRESSIVO < " + prog;
    return " AND M.PROGRESSIVO = " + prog + " AND DM.EXTRAPROG < " + QString::number(extraProg);
}

// What came of the look for a neighbour; of a failed one the gateway has told why.
enum class Vicina { Mostrata, Nessuna, Fallita };

Vicina mostraLaPrima(Vendita& v, const QString& sql, const char* procedura) {
    int rid = 0;
    int progressivo = 0;
    int extraProg = 0;
    {
        const Lettura lettura(sql, moduloFrmMain + QString(procedura));
        if (!lettura) return Vicina::Fallita;
        if (lettura->eof()) return Vicina::Nessuna;
        rid = lettura->intero("RID");
        progressivo = lettura->intero("PROGRESSIVO");
        extraProg = lettura->intero("EXTRAPROG");
    }
    showVendita(v, rid, progressivo, extraProg, v.giorno().year());
    return Vicina::Mostrata;
}

}  // namespace

void validaFrecce(Vendita& v, Direzione direzione) {
    protetto(moduloFrmMain, "validaFrecce", [&] {
        const int progressivo = v.progressivo();
        const int extraProg = v.extraProg();
        if (direzione == Direzione::Indietro) {
            mostraLaPrima(v,
                          sqlVicine(v) + condizioneIndietro(progressivo, extraProg) +
                              " ORDER BY M.PROGRESSIVO DESC, DM.EXTRAPROG DESC",
                          ".venditaPrecedente");
            return;
        }
        const Vicina esito = mostraLaPrima(
            v,
            sqlVicine(v) + condizioneAvanti(progressivo, extraProg) + " ORDER BY M.PROGRESSIVO, DM.EXTRAPROG",
            ".venditaSuccessiva");
        if (esito == Vicina::Nessuna) nuovoDocumento(v);
    });
}
