#include "sale/sale_document.h"

#include "core/clock.h"
#include "core/errors.h"
#include "core/format.h"
#include "core/globals.h"
#include "core/numbers.h"
#include "core/operator_port.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "sale/customer.h"
#include "sale/grid.h"
#include "sale/last_numbers.h"
#include "sale/recall.h"
#include "sale/row_editor.h"
#include "sale/vendita.h"

namespace {

const char* const numeroDaAssegnare = "(Auto)";

// Nothing is unsaved, and everything may be changed.
void azzeraModifiche(Vendita& v) {
    v.venditaModificata = false;
    v.modificaConsentita = true;
    applicaModificaConsentita(v);
}

// A sale under a header of its own.
void iniziaDocumento(Vendita& v) {
    pulisciTestata(v);
    v.txtNumDoc.abilitato(false);
    v.txtSottoProg.testo(numeroDaAssegnare);
    v.txtCodCliente.tag(QString::number(gClientePredefinito));
    v.chkPagato.valore(1);
    v.chkPagato.abilitato(false);
    v.chkPrezziIva.valore(0);
    v.cmdComando[13].abilitato(false);
    v.txtData.bloccato(false);
    v.txtCodCliente.bloccato(false);
    txtCodCliente_Invio(v);
    pulisciCampiRiga(v, false);
    v.chkPrezziIva.abilitato(v.indice == 0);
    if (v.indice == 0) v.schermo.fuoco(v.txtCodProdotto);
}

// A further sale under the header that today's earlier sales of this desk share; false when there is none.
bool continuaDocumentoDelGiorno(Vendita& v) {
    const int progressivo = getProgByDataForNewVendita(v, orologio().oggi(), gClientePredefinito);
    if (progressivo <= 0) return false;
    showVendita(v, 0, progressivo, -1, -1);
    pulisciCorpo(v);
    v.txtSottoProg.testo(numeroDaAssegnare);
    v.schermo.fuoco(v.txtCodProdotto);
    return true;
}

void chiediOperatore(Vendita& v) {
    if (gVenditoriObbligatori == 0) return;
    if (gVenditoriBlocco == 1 && gVenditaSalvata) {
        gIDVenditore = -1;
        gDescVenditore.clear();
        v.lblVenditore.tag("-1");
        v.lblVenditore.testo({});
    }
    if (gIDVenditore > 0) return;
    v.schermo.premiOperatore();
    if (gIDVenditore <= 0) v.schermo.scarica();
}

}  // namespace

void pulisciTestata(Vendita& v) {
    v.lblRID.testo("-1");
    v.txtData.testo(Format(orologio().oggi(), u"DD/MM/YYYY"));
    for (Campo* campo : {&v.txtProg, &v.txtNumDoc, &v.txtSottoProg}) {
        campo->testo(numeroDaAssegnare);
    }
    for (Campo* campo : {&v.txtCodCliente, &v.lblDescCliente, &v.lblDataStampa, &v.lblFasciaScoCli,
                         &v.lblCatSconto, &v.lblSaldo, &v.lblFido}) {
        campo->testoETag({});
    }
    v.pctSegnala.tag("0");
    v.salvataggioIncerto.reset();
    v.cancellazioneIncerta.clear();
    v.pctSalvata.visibile(false);
    v.giornoDocumento = orologio().oggi();
    v.mScontoCliente = 0;
    v.mPagamentoCliente = -1;
    v.idPagamento = -1;
    v.idPrimaNota = -1;
    v.idPNPagamento = -1;
    pulisciCorpo(v);
}

void pulisciCorpo(Vendita& v) {
    v.schermo.fermaTimer(SchermoVendita::Timer::Fido);
    v.schermo.fermaTimer(SchermoVendita::Timer::Segnala);
    v.pctFido.visibile(false);
    v.pctSegnala.visibile(false);
    pulisciCampiRiga(v, false);
    const QString zero = formattaImporto(0.0, 2);
    v.lblMainDisplay.testoETag(zero);
    v.lblTotLordo.testo(zero);
    v.lblTotNetto.testo(zero);
    v.lblTOtQta.testo(zero);
    v.lblTotRighe.testo("0");
    v.pctSave.visibile(false);
    v.pctPrint.testo({});
    v.pctPrint.visibile(v.documentoConStampa);
    svuotaGriglia(v);
    v.mRigaInserimento = -1;
    v.cmdComando[16].testo({});
    v.cmdComando[16].tag("0");
}

void nuovoDocumento(Vendita& v) {
    protetto(moduloFrmMain, "nuovoDocumento", [&] {
        const QString ultimo = v.lblMainDisplay.testo();
        const bool tillDelGiorno = v.indice == 0 && !v.mUsaPrezziIva;
        if (!tillDelGiorno || !continuaDocumentoDelGiorno(v)) iniziaDocumento(v);
        v.inChiusura = false;
        azzeraModifiche(v);
        v.lblLastMainDisplay.testo(ultimo);
        chiediOperatore(v);
    });
}

void sgombraSchermata(Vendita& v) {
    iniziaDocumento(v);
    azzeraModifiche(v);
}

bool setForNewMovimento(Vendita& v) {
    v.lblRID.testo("-1");
    v.idPrimaNota = -1;
    v.idPNPagamento = -1;
    // What was paid at the counter stays so, whatever the customer's terms.
    if (v.chkPagato.valore() == 1 && v.cliente() != gClientePredefinito) {
        v.idPagamento = -1;
    } else if (v.idPagamento < 1) {
        v.idPagamento = v.mPagamentoCliente;
    }
    for (int r = 1; r <= v.flxVB.ultima(); ++r) {
        if (v.flxVB.viva(r)) v.flxVB.scrivi(r, Colonna::Gestione, QString::number(RigaNuova));
    }
    mostraStatoVendita(v);
    return true;
}

void checkPolicyDeleteUpadte(Vendita& v) {
    bool chiusa = true;
    if (v.pctPrint.visibile()) chiusa = !v.lblDataStampa.testo().isEmpty();
    if (Val(v.txtProg.testo()) < 1 || Val(v.txtSottoProg.testo()) < 1) chiusa = false;
    if (gLockVBEdit == 1) v.modificaConsentita = !chiusa;
    applicaModificaConsentita(v);
}

int contaRigheDaSalvare(const Vendita& v) {
    int righe = 0;
    for (int r = 1; r <= v.flxVB.ultima(); ++r) {
        if (v.flxVB.gestione(r) != RigaInvariata) ++righe;
    }
    return righe;
}

bool controlloDataMovimento(Vendita& v) {
    const QString inizio = "Attenzione, la Data della Vendita corrente è diversa dalla Data attuale.\n";
    if (gVenditeGiorniDiversi != 1) return true;
    const QDateTime adesso = gAdo.getDataOraServer(moduloFrmMain + QString(".controlloDataMovimento"));
    if (v.txtData.testo() == Format(adesso, u"DD/MM/YYYY")) return true;
    if (gBloccaVenditeGiorniDiversi) {
        v.schermo.operatore().messaggio(inizio + "Impossibile continuare!", OperatorPort::Icona::Critica);
        return false;
    }
    return !gAvvisaVenditeGiorniDiversi || v.schermo.operatore().chiedeSi(inizio + "Si desidera continuare?");
}
