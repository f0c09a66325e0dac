#include "sale/customer.h"

#include "core/clock.h"
#include "core/errors.h"
#include "core/globals.h"
#include "core/numbers.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "data/prepare_sql.h"
#include "sale/notice.h"
#include "sale/recall.h"
#include "sale/row_editor.h"
#include "sale/vendita.h"

namespace {

constexpr int intervalloSpia = 500;  // milliseconds

QString sorgente(const char* procedura) {
    return moduloFrmMain + QString(procedura);
}

void clienteNonTrovato(Vendita& v) {
    v.lblDescCliente.testo("CLIENTE NON TROVATO!");
    lampeggiaAvviso(v, {&v.txtCodCliente, &v.lblDescCliente});
    v.txtCodCliente.testo({});
    v.txtCodCliente.tag("-1");
    v.lblDescCliente.tag({});
    v.lblFasciaScoCli.testo({});
    v.lblCatSconto.testo({});
    v.lblFido.testo(formattaImporto(0.0, 2));
    v.lblFido.tag("0");
    v.pctSegnala.tag("0");
    v.lblSaldo.testoETag(formattaImporto(0.0, 2));
    v.mScontoCliente = 0;
    v.mPagamentoCliente = -1;
}

void riempiCliente(Vendita& v, const Recordset& c) {
    v.txtCodCliente.testo(c.testo("NUMERO"));
    v.txtCodCliente.tag(c.testo("RID"));
    v.lblDescCliente.testo(c.testo("DENOMINAZIONE"));
    v.lblDescCliente.tag(v.txtCodCliente.testo());
    v.lblFasciaScoCli.testo(c.testo("FASCIACLIENTE"));
    v.lblFido.testo(formattaImporto(c.importo("FIDO"), 2));
    v.lblFido.tag(QString::number(getChekByBool(c.campo("CTRLFIDO"))));
    v.pctSegnala.tag(QString::number(getChekByBool(c.campo("SEGNALA"))));
    v.mScontoCliente = c.reale("SCONTO");
    v.mPagamentoCliente = c.chiave("FK_PAGAMENTO");
}

QString condizioneCliente(int id, const QString& codice) {
    if (codice.isEmpty()) return "WHERE A.RID = " + QString::number(id);
    if (isNumeric(codice)) return "WHERE A.NUMERO = " + getSqlNumber(codice);
    return "WHERE A.CODICEEXTRA = " + testoSQL(codice);
}

bool caricaCliente(Vendita& v, int id, const QString& codice) {
    const Lettura lettura(
        "SELECT A.RID, A.NUMERO, A.DENOMINAZIONE, A.FK_PAGAMENTO, A.FIDO, A.CTRLFIDO, A.SEGNALA, A.SCONTO, "
        "FC.DESCRIZIONE as FASCIACLIENTE "
        "FROM Anagrafiche A LEFT JOIN FasceClienti FC ON A.FK_FasciaCliente = FC.RID " +
            condizioneCliente(id, codice),
        sorgente(".getCliente"));
    if (!lettura) return false;
    if (lettura->eof()) {
        clienteNonTrovato(v);
        return false;
    }
    riempiCliente(v, *lettura);
    return true;
}

// The code to look up: what was typed, unless it is what stands there already.
QString codiceDigitato(const Vendita& v, int id) {
    const QString& testo = v.txtCodCliente.testo();
    const QString& accettato = v.lblDescCliente.tag();
    if (!accettato.isEmpty() && !testo.isEmpty() && testo != accettato) return testo;
    if (!testo.isEmpty() && id < 0) return testo;
    return {};
}

// Puts the box back and offers a new account; true when it was opened.
bool apreNuovoConto(Vendita& v, const QString& domanda, const QString& codice) {
    v.txtCodCliente.testo(v.lblDescCliente.tag());
    if (!v.schermo.operatore().chiedeSi(domanda)) return false;
    v.schermo.apriNuovoConto(codice);
    return true;
}

// Rows rung up before the customer was named would go when another document takes their place.
bool lasciaLeRighe(Vendita& v) {
    if (!v.venditaModificata || !v.flxVB.haElementi()) return true;
    return v.schermo.operatore().chiedeSi(
        "Le righe già battute non sono state salvate e andrebbero perse.\n"
        "Mostrare comunque il documento esistente?",
        OperatorPort::Icona::Esclamazione);
}

// An open document of the customer takes the place of the new sale, if the operator wants it.
void offriDocumentoAperto(Vendita& v) {
    if (v.cliente() == gClientePredefinito || v.rid() >= 0) return;
    const int documento = getDocumentoForCliente(v, v.cliente());
    if (documento > 0 && lasciaLeRighe(v)) showVendita(v, documento, -1, 1, -1);
}

// A sale that was never saved goes by the terms of its customer.
void perVenditaNuova(Vendita& v) {
    v.idPagamento = v.mPagamentoCliente;
    // Nothing of it is in the balance; what stood here is the sale before.
    v.lblLastMainDisplay.testo(formattaImporto(0.0, 2));
}

// What is in the books in another's name goes on by the terms of who takes it over.
void perVenditaCheCambiaMano(Vendita& v) {
    v.idPagamento = v.mPagamentoCliente > 0 ? v.mPagamentoCliente : gPagamentoVB;
}

// Loads and shows a customer; `trovato` runs behind that. A sale that changes hands is to be saved; one that
// is being opened has no rows yet.
template <class Trovato>
bool prendiCliente(Vendita& v, int id, const QString& codice, Trovato trovato) {
    const int prima = v.cliente();
    const bool esito = caricaCliente(v, id, codice);
    const bool altro = v.cliente() != prima;
    if (altro && v.flxVB.righe() > 1) setVenditaModificata(v);
    if (esito) {
        v.lblSaldo.testoETag(formattaImporto(getSaldoCliente(v.cliente()), 2));
        if (v.rid() < 0) {
            perVenditaNuova(v);
        } else if (altro) {
            perVenditaCheCambiaMano(v);
        }
        trovato();
    }
    mostraSegnala(v);
    bloccaPrezzi(v);
    return esito;
}

}  // namespace

bool mostraCliente(Vendita& v, int id) {
    return protetto(
        moduloFrmMain, "getCliente", [&] { return prendiCliente(v, id, {}, [] {}); }, false);
}

bool getCliente(Vendita& v, int id, const QString& codice) {
    return protetto(
        moduloFrmMain, "getCliente",
        [&] { return prendiCliente(v, id, codice, [&v] { offriDocumentoAperto(v); }); }, false);
}

void txtCodCliente_Invio(Vendita& v) {
    v.caselle.codCliente.cancelTabStep(true);
    const int id = v.cliente();
    const QString codice = codiceDigitato(v, id);
    if (!codice.isEmpty() && v.indice == 0) {
        if (apreNuovoConto(v,
                           "Non è possibile utilizzare il CONTO1 per clienti diversi da quello predefinito.\n"
                           "Aprire un nuovo conto?",
                           codice)) {
            return;
        }
    } else if (Val(v.txtProg.testo()) > 0) {
        if (apreNuovoConto(v, "Il conto attuale è gia stato salvato.\nAprire un nuovo conto?", {})) return;
    }
    const bool trovato = getCliente(v, id, codice);
    if (trovato) impostaPagatoCliente(v, false);
    v.schermo.fuoco(trovato ? v.txtCodProdotto : v.txtCodCliente);
}

void validaCodiceCliente(Vendita& v) {
    txtCodCliente_Invio(v);
}

int getDocumentoForCliente(Vendita& v, int id) {
    int documento = 0;
    {
        const Lettura lettura("SELECT RID FROM Movimenti WHERE FK_CONTROPARTITA = " + QString::number(id) +
                                  " AND ISNULL(DATASTAMPA) AND "
                                  "FK_TIPODOCUMENTO = " +
                                  QString::number(gTipoDocVb) +
                                  " AND ID_CASSA = " + QString::number(gIDCassa),
                              sorgente(".getDocumentoForCliente"));
        if (!lettura.trovata()) return 0;
        documento = lettura->intero("RID");
    }
    const bool continua = v.schermo.operatore().chiedeSi(
        "Attenzione per il cliente selezionato [" + v.lblDescCliente.testo() +
        "], \nesiste già un documento non ancora stampato.\nContinuare con quello esistente?");
    return continua ? documento : 0;
}

Currency getSaldoCliente(int id) {
    QString sql =
        "SELECT (Sum(dpn.DARE) - Sum(dpn.AVERE)) AS SALDO "
        "FROM (PrimaNota pn INNER JOIN "
        "PrimaNotaDettagli dpn ON pn.RID = dpn.FK_PrimaNota) INNER JOIN "
        "PianoConti pc on pc.RID = dpn.FK_Conto "
        "WHERE pn.FK_Anagrafe = " +
        QString::number(id) +
        " AND "
        "pc.RID = " +
        QString::number(gContoClienti);
    if (gFidoAllaData == 1) sql += " AND pn.DataValuta <= " + gAdo.getSQLDate(orologio().oggi());
    const Lettura lettura(sql, sorgente(".getSaldoCliente"));
    return lettura.trovata() ? getValoreCurrency(lettura->campo("SALDO")) : Currency();
}

void mostraSaldo(Vendita& v) {
    const Currency saldo = getValoreCurrency(v.lblSaldo.tag()) + getValoreCurrency(v.lblMainDisplay.testo()) -
                           getValoreCurrency(v.lblLastMainDisplay.testo());
    v.lblSaldo.testo(formattaImporto(saldo, 2));
    if (v.lblFido.tag() != "1") return;
    if (saldo > getValoreCurrency(v.lblFido.testo())) {
        v.schermo.avviaTimer(SchermoVendita::Timer::Fido, intervalloSpia);
    } else {
        v.schermo.fermaTimer(SchermoVendita::Timer::Fido);
        v.pctFido.visibile(false);
    }
}

void mostraSegnala(Vendita& v) {
    if (v.pctSegnala.tag() != "1") return;
    v.schermo.avviaTimer(SchermoVendita::Timer::Segnala, intervalloSpia);
    v.pctSegnala.visibile(true);
}

void impostaPagatoCliente(Vendita& v, bool mantieni) {
    const bool predefinito = v.cliente() == gClientePredefinito;
    const bool salvata = v.rid() > 0;
    v.cmdComando[13].abilitato(!predefinito);
    v.chkPagato.abilitato(!predefinito && !salvata);
    if (predefinito) {
        if (!mantieni) v.chkPagato.valore(1);
    } else if (!salvata) {
        if (!mantieni) v.chkPagato.valore(gPagatoAltriClienti != 0 ? 1 : 0);
    } else {
        v.chkPagato.valore(v.idPNPagamento > 0 ? 1 : 0);
    }
}
