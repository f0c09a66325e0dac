#include "sale/product_row.h"

#include "core/errors.h"
#include "core/numbers.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "sale/alternatives.h"
#include "sale/entry_policies.h"
#include "sale/product_fields.h"
#include "sale/product_info.h"
#include "sale/product_query.h"
#include "sale/quantity.h"
#include "sale/returns.h"
#include "sale/row_editor.h"
#include "sale/row_writer.h"
#include "sale/vendita.h"

namespace {

// The row whose code was changed: the current one; a kit's component cannot be edited, so then it is the one
// in the editor. 0 when no row is there.
int rigaDelCodice(const Vendita& v) {
    const FlexVB& g = v.flxVB;
    const int nellEditor = valIntero(v.lblPos.testo());
    if (nellEditor < 1 || nellEditor > g.ultima()) return 0;
    const int corrente = g.corrente();
    const bool sua = corrente >= 1 && corrente <= g.ultima() && g.viva(corrente) &&
                     g.cella(corrente, Colonna::IdDistintaBase).isEmpty();
    return sua ? corrente : nellEditor;
}

// Another code typed over the row in the editor takes that row's place; its quantity stays. Answers that row,
// which is where the new one goes; 0 for the end.
int liberaEditor(Vendita& v, int ridTrovato) {
    const int caricato = v.txtCodProdotto.chiave();
    const int riga = rigaDelCodice(v);
    const bool sostituisce = caricato > 0 && caricato != ridTrovato && riga > 0;
    const QString quantita = v.txtQta.testo();
    const int reso = v.chkReso.valore();
    pulisciCampiRiga(v, false);
    if (!sostituisce) return 0;
    v.txtQta.testoETag(quantita);
    setResoStatus(v, reso);
    return riga;
}

// The row whose code was changed goes only now that the other product stands, wherever the rows that came in
// have moved it.
void toglieSostituita(Vendita& v, int sostituita, int nuova, int righePrima) {
    if (sostituita < 1) return;
    const int spostata = nuova <= sostituita ? v.flxVB.righe() - righePrima : 0;
    delRowToGrid(v, sostituita + spostata, false);
}

// What the screen tells about the product of the row.
void mostraPannelli(Vendita& v) {
    const int prodotto = v.txtCodProdotto.chiave();
    showAlternativi(v, prodotto);
    showMargineProdotto(v, prodotto, getValoreCurrency(v.txtPrezzoNetto.testo()));
}

bool entraInGriglia(Vendita& v, int rigaInserimento, int& riga, bool& presente) {
    const bool scontoFisso = v.mScontoFisso;
    const int righePrima = v.flxVB.righe();
    riga = addNewElement(v, rigaInserimento, presente);
    if (riga < 1) {
        pulisciCampiRiga(v, false);
        v.schermo.fuoco(v.txtCodProdotto);
        return false;
    }
    v.mScontoFisso = scontoFisso;  // recalling the row has cleared it
    v.lblPos.testo(QString::number(riga));
    v.txtQta.testoETag(formattaImporto(v.flxVB.single(riga, Colonna::Quantita), 2));
    toglieSostituita(v, rigaInserimento, riga, righePrima);
    mostraPannelli(v);
    if (presente && rigaInserimento == 0) ripetiProdotto(v, riga);
    if (!presente && rigaInserimento > 0) controllaQuantitaRipresa(v);
    v.mRigaDaCodice = true;
    return true;
}

bool entraProdotto(Vendita& v, const Recordset& p, int idRichiesto, int& riga, bool& presente) {
    bool reso = false;
    if (!ammessoDallaScorta(v, p, reso)) return false;
    const int rigaInserimento = liberaEditor(v, p.intero("RID"));
    riempiEditor(v, p, idRichiesto);
    if (!entraInGriglia(v, rigaInserimento, riga, presente)) return false;
    if (reso) {
        setResoStatus(v, 1);
        setReso(v, 1);
    }
    bloccaPrezzi(v);
    return true;
}

bool cercaEdEntra(Vendita& v, int idProdotto, const QString& codice, int& riga, bool like, bool& presente) {
    QString sql = sqlProdotto(idProdotto, codice, like);
    const Lettura lettura(sql, moduloFrmMain + QString(".getProdotto"));
    if (!lettura) return false;
    if (lettura->eof()) {
        mostraNonTrovato(v);
        return false;
    }
    unaRigaAProdotto(*lettura, "RID");
    if (!scegliTraTanti(v, *lettura)) return false;
    if (vuoleSostituto(v, *lettura))
        return getProdotto(v, lettura->intero("FK_SOSTITUITO"), {}, riga, false, presente);
    return entraProdotto(v, *lettura, codice.isEmpty() ? idProdotto : -1, riga, presente);
}

}  // namespace

bool getProdotto(Vendita& v, int idProdotto, const QString& codice, int& riga, bool like, bool& presente) {
    riga = 0;
    presente = false;
    const bool entrato = protetto(
        moduloFrmMain, "getProdotto",
        [&] { return cercaEdEntra(v, idProdotto, codice, riga, like, presente); }, false);
    if (!entrato) {
        riga = 0;
        presente = false;
    }
    return entrato;
}
