#include "sale/last_numbers.h"

#include "core/globals.h"
#include "data/gateway.h"
#include "sale/row_editor.h"
#include "sale/vendita.h"

namespace {

QString sorgente(const char* procedura) {
    return moduloFrmMain + QString(procedura);
}

}  // namespace

int getProgByDataForNewVendita(Vendita& v, QDate data, int idCliente) {
    const Lettura lettura(
        "SELECT TOP 1 M.RID, M.PROGRESSIVO, DM.EXTRAPROG, M.FK_PRIMANOTA, M.FK_PNPAGAMENTO FROM Movimenti M "
        "INNER JOIN "
        "DettagliMovimento DM ON M.RID = DM.FK_MOVIMENTO WHERE M.DATA = " +
            gAdo.getSQLDate(data) + " AND M.FK_CONTROPARTITA = " + QString::number(idCliente) +
            " AND M.FK_TIPODOCUMENTO = " + QString::number(v.idTipoDocumento) +
            " AND YEAR(M.DATA) = " + QString::number(data.year()) +
            " AND M.ID_CASSA = " + QString::number(gIDCassa) + " ORDER BY DM.EXTRAPROG DESC",
        sorgente(".getProgByDataForNewVendita"));
    if (!lettura.trovata()) return -1;
    v.lblRID.testo(lettura->testo("RID"));
    v.idPrimaNota = lettura->campo("FK_PRIMANOTA").isNull() ? -1 : lettura->intero("FK_PRIMANOTA");
    v.idPNPagamento = lettura->campo("FK_PNPAGAMENTO").isNull() ? -1 : lettura->intero("FK_PNPAGAMENTO");
    return lettura->intero("PROGRESSIVO");
}

NumeroVendita getProgByData(const Vendita& v, QDate data) {
    const Lettura lettura(
        "SELECT TOP 1 M.PROGRESSIVO, DM.EXTRAPROG FROM DettagliMovimento DM INNER JOIN Movimenti M ON "
        "DM.FK_MOVIMENTO = M.RID WHERE M.FK_TIPODOCUMENTO = " +
            QString::number(v.idTipoDocumento) + " AND YEAR(M.DATA) = " + QString::number(data.year()) +
            " AND DATA = " + gAdo.getSQLDate(data) + " AND M.ID_CASSA = " + QString::number(gIDCassa) +
            " ORDER BY DM.EXTRAPROG DESC ",
        sorgente(".getProgByData"));
    if (!lettura.trovata()) return {};
    return {lettura->intero("PROGRESSIVO"), lettura->intero("EXTRAPROG")};
}

int getSottoProgByProg(int progressivo, int anno) {
    const Lettura lettura(
        "SELECT TOP 1 DM.EXTRAPROG FROM DettagliMovimento DM INNER JOIN Movimenti M ON "
        "DM.FK_MOVIMENTO = M.RID WHERE M.PROGRESSIVO = " +
            QString::number(progressivo) + " AND M.ANNO = " + QString::number(anno) +
            " AND M.ID_CASSA = " + QString::number(gIDCassa) + " ORDER BY DM.EXTRAPROG DESC ",
        sorgente(".getSottoProgByProg"));
    return lettura.trovata() ? lettura->intero("EXTRAPROG") : -1;
}
