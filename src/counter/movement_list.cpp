#include "counter/movement_list.h"

#include <QScopedValueRollback>

#include "core/format.h"
#include "core/globals.h"
#include "core/numbers.h"
#include "core/operator_port.h"
#include "core/value_helpers.h"
#include "counter/accounts.h"
#include "counter/save_question.h"
#include "data/gateway.h"
#include "sale/grid.h"
#include "sale/recall.h"
#include "sale/row_editor.h"

namespace {

constexpr int primaColonnaNumerica = 3;

QString sorgente(const char* procedura) {
    return "frmElencoProdottiMovimento" + QString(procedura);
}

QString sqlRighe(int idMovimento) {
    return "SELECT DM.RID, DM.EXTRAPROG, DM.QUANTITA, DM.PREZZO, DM.PREZZONETTO, DM.TOTALERIGA, DM.SCONTO, "
           "DM.SCONTO2, DM.SCONTO3, DM.CODPRODOTTO, DM.DESCPRODOTTO, UM.CODICE AS CODUM FROM "
           "(((DettagliMovimento DM LEFT JOIN Iva I ON DM.FK_IVA = I.RID) INNER JOIN Prodotti P ON "
           "DM.FK_PRODOTTO = P.RID) LEFT JOIN Marche M ON P.FK_MARCA = M.RID) LEFT JOIN UnitaMisura UM ON "
           "DM.FK_UM = UM.RID WHERE DM.FK_MOVIMENTO = " +
           QString::number(idMovimento) + " ORDER BY DM.EXTRAPROG, DM.POS";
}

QString sconti(const Recordset& d) {
    return formattaImporto(d.single("SCONTO"), 2) + "+" + formattaImporto(d.single("SCONTO2"), 2) + "+" +
           formattaImporto(d.single("SCONTO3"), 2);
}

ElencoMovimento::Riga rigaLetta(const Recordset& d) {
    const int extraProg = d.intero("EXTRAPROG");
    return {"DM_" + d.testo("RID"),
            extraProg,
            {Format(extraProg, u"0000"), d.testo("CODPRODOTTO"), d.testo("DESCPRODOTTO"),
             formattaImporto(d.single("QUANTITA"), 2), d.testo("CODUM"),
             formattaImporto(d.importo("PREZZO"), gDecimaliDopo), sconti(d),
             formattaImporto(d.importo("PREZZONETTO"), gDecimaliDopo),
             formattaImporto(d.importo("TOTALERIGA"), 2)}};
}

int rigaConChiave(const FlexVB& g, int rid) {
    for (int r = 1; r <= g.ultima(); ++r) {
        if (g.chiave(r, Colonna::Rid) == rid) return r;
    }
    return 0;
}

int extraProgDellaRiga(int rid) {
    const QVariant letto =
        gAdo.getValueBySQL("SELECT EXTRAPROG FROM DettagliMovimento WHERE RID = " + QString::number(rid),
                           moduloFrmMain + QString(".showMovimento"));
    return letto.isNull() ? 0 : letto.toInt();
}

}  // namespace

ElencoMovimento::ElencoMovimento(int idMovimento) : mIdMovimento(idMovimento) {
    if (showVendita()) showDettagli();
}

const QStringList& ElencoMovimento::titoli() {
    static const QStringList titoli{"VEND.",     "CODICE", "DESCRIZIONE", "Q.TÀ",   "U.M.",
                                    "P.LISTINO", "SCONTI", "P.NETTO",     "IMPORTO"};
    return titoli;
}

bool ElencoMovimento::aDestra(int colonna) {
    return colonna >= primaColonnaNumerica && titoli()[colonna] != "U.M.";
}

bool ElencoMovimento::showVendita() {
    const Lettura m(
        "SELECT M.PROGRESSIVO, M.DATA, M.FK_CONTROPARTITA, A.NUMERO, A.DENOMINAZIONE, M.TOTDOCUMENTO FROM "
        "Movimenti M INNER JOIN Anagrafiche A ON M.FK_CONTROPARTITA = A.RID WHERE  M.RID = " +
            QString::number(mIdMovimento),
        sorgente(".showVendita"));
    if (!m.trovata()) return false;
    lblData.testo(Format(m->campo("DATA").toDate(), u"DD/MM/YYYY"));
    lblNumero.testo(Format(m->intero("PROGRESSIVO"), u"0000"));
    lblCodCliente.testo(m->testo("NUMERO"));
    lblDescCliente.testo(m->testo("DENOMINAZIONE"));
    lblTotale.testo(formattaImporto(m->importo("TOTDOCUMENTO"), 2));
    return true;
}

void ElencoMovimento::showDettagli() {
    const Lettura righe(sqlRighe(mIdMovimento), sorgente(".showDettagli"));
    if (!righe) return;
    for (; !righe->eof(); righe->moveNext()) {
        mRighe.push_back(rigaLetta(*righe));
    }
}

void showMovimento(Conto& conto) {
    Vendita& v = conto.vendita();
    if (v.rid() <= 0) return;
    ElencoMovimento movimento(v.rid());
    QString chiave;
    {
        const QScopedValueRollback aperta(gModaleAperta, true);
        chiave = conto.scegliRiga(movimento);
    }
    const int rid = valIntero(chiave.mid(QString("DM_").size()));
    if (rid <= 0) return;
    const int extraProg = extraProgDellaRiga(rid);
    if (extraProg <= 0) return;
    if (extraProg != v.extraProg()) {
        if (chiediSalvataggio(conto)) return;
        showVendita(v, v.rid(), v.progressivo(), extraProg, v.giorno().year());
    }
    selFlexRow(v, rigaConChiave(v.flxVB, rid));
}
