#include "sale/last_numbers.h"

#include "core/globals.h"
#include "data/gateway.h"
#include "sale/row_editor.h"
#include "sale/vendita.h"

int getProgByDataForNewVendita(Vendita& v, QDate data, int idCliente) {
    const Lettura lettura(
        "SELECT TOP 1 M.RID, M.PROGRESSIVO, DM.EXTRAPROG, M.FK_PRIMANOTA, M.FK_PNPAGAMENTO FROM Movimenti M "
        "INNER JOIN "
        "DettagliMovimento DM ON M.RID = DM.FK_MOVIMENTO WHERE M.DATA = " +
            gAdo.getSQLDate(data) + " AND M.FK_CONTROPARTITA = " + QString::number(idCliente) +
            " AND M.FK_TIPODOCUMENTO = " + QString::number(v.idTipoDocumento) +
            " AND YEAR(M.DATA) = " + QString::number(data.year()) +
            " AND M.ID_CASSA = " + QString::number(gIDCassa) + " ORDER BY DM.EXTRAPROG DESC",
        moduloFrmMain + QString(".getProgByDataForNewVendita"));
    if (!lettura.trovata()) return -1;
    v.lblRID.testo(lettura->testo("RID"));
    v.idPrimaNota = lettura->campo("FK_PRIMANOTA").isNull() ? -1 : lettura->intero("FK_PRIMANOTA");
    v.idPNPagamento = lettura->campo("FK_PNPAGAMENTO").isNull() ? -1 : lettura->intero("FK_PNPAGAMENTO");
    return lettura->intero("PROGRESSIVO");
}
