#include "sale/row_editor.h"

#include <cmath>

#include "core/globals.h"
#include "core/numbers.h"
#include "core/value_helpers.h"
#include "sale/row_cells.h"
#include "sale/vendita.h"

const char* const moduloFrmMain = "frmMain";
const char* const giacenzaNonLetta = "0";

namespace {

void pulisciQuantitaEPrezzi(Vendita& v) {
    const QString zero = formattaImporto(0.0, 2);
    const QString zeroListino = formattaImporto(0.0, gDecimaliDopo);
    v.txtQta.testoETag(formattaImporto(1.0, 2));
    v.txtPrezzoListino.testoETag(zeroListino);
    v.txtPrezzoNetto.testoETag(zeroListino);
    v.lblPrezzoListino.testo(zeroListino);
    v.lblPrezzoListino.tag("0");
    v.lblPrezzoNetto.testo(zeroListino);
    for (Campo* campo : {&v.txtPrezzoListinoLordo, &v.txtPrezzoFinito, &v.TxtPrezzoRiga, &v.txtSconto1,
                         &v.txtSconto2, &v.txtSconto3}) {
        campo->testoETag(zero);
    }
    for (Campo* campo :
         {&v.lblPrezzoListinoLordo, &v.lblSconto1, &v.lblSconto2, &v.lblSconto3, &v.lblPrezzoAcquisto}) {
        campo->testo(zero);
    }
    for (Campo* campo :
         {&v.lblScNetto, &v.lblTotPrezzoNetto, &v.lblIvaProdotto, &v.lblTotIVA, &v.lblTotRiga}) {
        campo->testo(formattaImporto(0.0, 6));
    }
}

void pulisciProdotto(Vendita& v) {
    for (Campo* campo :
         {&v.txtDescProdotto, &v.lblMarca, &v.lblUM, &v.txtIVA, &v.lblIVA, &v.lblCodIva, &v.lblDescIva,
          &v.lblUbicazione, &v.lblDataListinoPanel, &v.lblCatSconto, &v.lblPrezzoCosto, &v.lblMargineEuro,
          &v.lblMarginePerc, &v.lblOperatoreScreen, &v.lblOra}) {
        campo->testo({});
    }
    v.lblMarca.tag("-1");
    v.lblUM.tag("-1");
    v.txtIVA.tag("-1");
    v.lblIDIva.testo("-1");
    v.lblValoraIva.testo("0");
    v.lblGiacenza.testo(giacenzaNonLetta);
    v.lblGiacenza.tag("0");
    v.lblPrezzoListinoPanel.testo(formattaImporto(0.0, gDecimaliDopo));
}

}  // namespace

void pulisciCampiRiga(Vendita& v, bool mantieniCodice) {
    v.lblPos.testo("-1");
    v.lblTaglio.testo("-1");
    v.txtCodProdotto.tag("-1");
    if (!mantieniCodice) {
        v.txtCodProdotto.testo({});
        v.lblCodProdotto.testo({});
    }
    pulisciProdotto(v);
    pulisciQuantitaEPrezzi(v);
    setResoStatus(v, 0);
    v.lswAlternativi.svuota();
    v.mRigaDaCodice = false;
    v.mSottocostoOk = false;
    v.mScontoFisso = false;
    applicaModificaConsentita(v);
}

void mostraStatoVendita(Vendita& v) {
    const bool salvata = v.rid() > 0;
    const bool chiusa = salvata && !v.modificaConsentita;
    const bool daStampare = salvata && v.lblDataStampa.testo().isEmpty();
    const bool sospesa =
        daStampare && !chiusa && v.cliente() != gClientePredefinito && v.idTipoDocumento == gTipoDocVb;
    v.pctChiusa.visibile(chiusa);
    v.pctSospesa.visibile(sospesa);
    // Suspended says that it is to be printed.
    v.pctPrint.testo(!salvata || sospesa ? "" : daStampare ? "Da stampare" : "Stampata il");
}

void applicaModificaConsentita(Vendita& v) {
    for (size_t comando : {4, 6, 9}) {
        v.cmdComando[comando].abilitato(v.modificaConsentita);
    }
    v.cmdConto[7].abilitato(v.modificaConsentita);
    for (Campo* campo : {&v.txtCodProdotto, &v.txtDescProdotto, &v.txtQta, &v.txtPrezzoNetto, &v.txtSconto1,
                         &v.txtSconto2, &v.txtSconto3, &v.TxtPrezzoRiga, &v.txtPrezzoFinito,
                         &v.txtPrezzoListino, &v.txtPrezzoListinoLordo}) {
        campo->bloccato(!v.modificaConsentita);
    }
    bloccaPrezzi(v);
    mostraStatoVendita(v);
}

void bloccaPrezzi(Vendita& v) {
    v.cmdComando[16].abilitato(true);
    const bool clienteBloccato = gLockVBPrezzo == 1 && v.cliente() == gClientePredefinito;
    if (!clienteBloccato && v.lblPrezzoListino.chiave() != 1) return;
    for (Campo* campo : {&v.txtSconto1, &v.txtSconto2, &v.txtSconto3, &v.txtPrezzoFinito, &v.txtPrezzoListino,
                         &v.txtPrezzoNetto, &v.txtPrezzoListinoLordo, &v.TxtPrezzoRiga}) {
        campo->bloccato(true);
    }
    v.cmdComando[16].abilitato(false);
}

void impostaCampiPrezzo(Vendita& v) {
    const bool lordo = gPrezzoListinoLordo != 0;
    v.txtPrezzoListino.visibile(!lordo);
    v.txtPrezzoListinoLordo.visibile(lordo);
    static const char* const didascalie[] = {"P.NET", "P.FIN", "P.TOT"};
    if (gPrezzoType < 0 || gPrezzoType > 2) return;
    v.txtPrezzoNetto.visibile(gPrezzoType == 0);
    v.txtPrezzoFinito.visibile(gPrezzoType == 1);
    v.TxtPrezzoRiga.visibile(gPrezzoType == 2);
    v.cmdConto[12].testo(didascalie[gPrezzoType]);
}

bool valoreCambiato(Campo& campo) {
    if (campo.testo() == campo.tag()) return false;
    const auto nuovo = seDouble(campo.testo());
    if (!nuovo || nuovo != seDouble(campo.tag())) return true;
    campo.testo(campo.tag());
    return false;
}

void setVenditaModificata(Vendita& v) {
    v.venditaModificata = true;
    v.pctSave.testo("Vendita non salvata");
    v.pctSave.visibile(true);
    v.pctSalvata.visibile(false);
}

int rigaInEditor(const Vendita& v) {
    const int riga = valIntero(v.lblPos.testo());
    return riga >= 1 && riga <= v.flxVB.ultima() && v.flxVB.viva(riga) ? riga : 0;
}

void setResoStatus(Vendita& v, int valore) {
    v.chkReso.valore(valore);
}

float quantitaEditor(const Vendita& v) {
    const float scritta = getValoreSingle(v.txtQta.testo());
    const float quantita = v.chkReso.valore() == 1 ? -std::fabs(scritta) : scritta;
    const int riga = rigaInEditor(v);
    const bool dellaRiga = riga > 0 && v.flxVB.cella(riga, Colonna::Quantita) == formattaImporto(quantita, 2);
    return dellaRiga ? quantitaRiga(v.flxVB, riga) : quantita;
}
