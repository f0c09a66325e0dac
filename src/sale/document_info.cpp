#include "sale/document_info.h"

#include "core/errors.h"
#include "core/globals.h"
#include "data/gateway.h"
#include "sale/row_editor.h"
#include "sale/vendita.h"

namespace {

QString sorgente() {
    return moduloFrmMain + QString(".setInfoDocumento");
}

// A warehouse key; -1 for Null.
int magazzino(const Recordset& r, const char* campo) {
    return r.campo(campo).isNull() ? -1 : r.intero(campo);
}

void leggiDocumento(Vendita& v, const Recordset& r) {
    v.idTipoDocumento = r.intero("RID");
    v.mUsaPrezziIva = r.intero("USAPREZZIIVA") == 1;
    setViewMode(v, v.mUsaPrezziIva);
    v.descTipoDocumento = r.testo("DESCRIZIONE");
    v.codTipoDocumento = r.testo("CODICE");
    v.reportDocumento = r.testo("REPORT");
    v.numeratore = r.intero("NCONTATORE");
    v.mCausaleDoc = r.campo("FK_CAUSALE").isNull() ? -1 : r.intero("FK_CAUSALE");
    v.generaPN = r.intero("GENERAPN") > 0;
    v.generaScad = r.intero("GENERASCAD") > 0;
    v.scadenzeNegative = r.intero("SCADENZENEGATIVE") > 0;
    v.operazione = r.intero("OPERAZIONE") > 0;
    v.origine = r.intero("ORIGINE");
    v.magazzinoOrigine = magazzino(r, "FK_MAGAZZINOORIG");
    v.mGestioneTaglio = r.intero("TAGLIO") > 0;
    v.mAccompagnatorio = r.intero("ACCOMPAGNATORIO") > 0;
    v.destinazione = r.intero("DESTINAZIONE");
    v.magazzinoDestinazione = magazzino(r, "FK_MAGAZZINODEST");
}

}  // namespace

void setInfoDocumento(Vendita& v, int idTipo) {
    protetto(moduloFrmMain, "setInfoDocumento", [&] {
        const Lettura lettura(
            "SELECT TD.RID, TD.CODICE, TD.DESCRIZIONE, TD.FK_CAUSALE, TD.NCONTATORE, TD.REPORT, C.TAGLIO, "
            "TD.ACCOMPAGNATORIO, TD.USAPREZZIIVA, "
            "C.OPERAZIONE, C.ORIGINE, C.FK_MAGAZZINOORIG, C.DESTINAZIONE, C.FK_MAGAZZINODEST, C.GENERAPN, "
            "C.GENERASCAD, C.SCADENZENEGATIVE, TD.REPORT "
            "FROM TipoDocumenti TD LEFT JOIN Causali C ON TD.FK_CAUSALE = C.RID "
            "WHERE TD.RID = " +
                QString::number(idTipo),
            sorgente());
        if (lettura.trovata()) leggiDocumento(v, *lettura);
    });
    // A document that is printed at the counter may be changed until it has been.
    const QVariant nonStampare = gAdo.getValueBySQL(
        "SELECT NonStampareVB FROM TipoDocumenti WHERE RID = " + QString::number(idTipo), sorgente());
    if (v.idTipoDocumento == idTipo) v.documentoConStampa = !nonStampare.isNull() && nonStampare.toInt() == 0;
}

void setInfoPagamento(Vendita& v, int idCausale) {
    protetto(moduloFrmMain, "setInfoDocumento", [&] {
        const Lettura lettura("SELECT DESCRIZIONE FROM Causali WHERE RID = " + QString::number(idCausale),
                              sorgente());
        if (!lettura.trovata()) return;
        v.lblDescPagamento.testo(lettura->testo("DESCRIZIONE"));
        v.lblDescPagamento.tag(QString::number(idCausale));
    });
}

void setNuovoPagamento(Vendita& v, int idCausale) {
    v.idCausalePagamento = idCausale;
    setInfoPagamento(v, idCausale);
}

void setViewMode(Vendita& v, bool usaIva) {
    if (!usaIva) return;
    v.pctIVA.visibile(true);
    v.cmdAddRow.visibile(true);
}
