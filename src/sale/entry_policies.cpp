#include "sale/entry_policies.h"

#include "core/globals.h"
#include "core/operator_port.h"
#include "core/value_helpers.h"
#include "data/recordset.h"
#include "sale/notice.h"
#include "sale/row_editor.h"
#include "sale/vendita.h"

namespace {

const char* const colonneScelta = "Marca¤800¤CODMARCA|Codice¤1800¤CODICE|Descrizione¤4500¤PRODOTTO|";

// Yes/No while the grid is painted again.
bool chiedeConGriglia(Vendita& v, const QString& domanda) {
    v.schermo.ridisegno(true);
    const bool si = v.schermo.operatore().chiedeSi(domanda);
    v.schermo.ridisegno(false);
    return si;
}

// An empty shelf can only be filled; No leaves the code selected for the next one.
bool accettaReso(Vendita& v, const Recordset& p, float giacenza) {
    const bool si =
        chiedeConGriglia(v, "Impossibile scaricare il prodotto [" + p.testo("PRODOTTO") +
                                "].\nLa scorta di [" + formattaImporto(giacenza, 2) +
                                "] è inferiore al limite consentito.\nSi desidera effettuare il reso?");
    if (si) return true;
    v.txtCodProdotto.tag("-1");
    v.caselle.codProdotto.selezionaTutto();
    return false;
}

}  // namespace

void mostraNonTrovato(Vendita& v) {
    v.txtCodProdotto.testo("ARTICOLO");
    v.txtDescProdotto.testo("NON TROVATO!");
    lampeggiaAvviso(v, {&v.txtCodProdotto, &v.txtDescProdotto});
    pulisciCampiRiga(v, false);
}

bool scegliTraTanti(Vendita& v, Recordset& righe) {
    if (righe.righe() == 1) return true;
    v.schermo.operatore().clessidra(false);
    const bool scelto = v.schermo.selezionaElemento(righe, colonneScelta);
    v.schermo.operatore().clessidra(true);
    return scelto;
}

bool vuoleSostituto(Vendita& v, const Recordset& p) {
    if (p.campo("FK_SOSTITUITO").isNull()) return false;
    return chiedeConGriglia(
        v, "Il prodotto [" + p.testo("PRODOTTO") + "] è stato sostituito.\nScegliere quello relativo [" +
               p.testo("CODPRODSOSTITUITO") + " - " + p.testo("DESCPRODSOSTITUITO") + "]?");
}

bool ammessoDallaScorta(Vendita& v, const Recordset& p, bool& reso) {
    reso = false;
    const float giacenza = getValoreSingle(p.campo("GIACENZA"));
    if (gSottoScorta != 1 || !p.vero("SETGIACENZA") || giacenza > 0) return true;
    if (gBloccaSottoScorta) return reso = accettaReso(v, p, giacenza);
    if (!gAvvisaSottoScorta) return true;
    return chiedeConGriglia(
        v, "Attenzione! La giacenza del prodotto [" + p.testo("PRODOTTO") +
               "] è inferiore a [1].\nScegliere [Sì] per continuare oppure [No] per annullare "
               "l'operazione");
}
