#include "postings/post_accounts.h"

#include "core/format.h"
#include "core/globals.h"
#include "data/gateway.h"
#include "postings/journal.h"
#include "postings/payment_schedule.h"
#include "sale/vendita.h"

namespace {

RegistrazionePN registrazione(const Vendita& v, const DocumentoContabile& d) {
    RegistrazionePN r;
    r.idAnagrafe = v.cliente();
    r.descrizione = v.descTipoDocumento + " N° " + Format(d.progressivo, u"0000") + " del " +
                    Format(d.data, u"DD/MM/YYYY");
    r.importo = d.totale;
    r.data = r.dataValuta = d.data;
    r.imposta = d.imposta;
    r.idPagamento = v.idPagamento;
    r.codicePartita = v.codTipoDocumento + "/" + QString::number(d.progressivo);
    return r;
}

// Posts an entry; a new one's key goes to the header's column and to `idRegistrazione`. Below 0: roll back.
int registra(const RegistrazionePN& r, const DocumentoContabile& d, const char* colonna,
             int& idRegistrazione) {
    const int id = salvaPrimaNota(r);
    if (id < 1 || id == idRegistrazione) return id;
    if (!gAdo.executeSQL("UPDATE Movimenti SET " + QString(colonna) + " = " + QString::number(id) +
                             " WHERE RID = " + QString::number(d.idMovimento),
                         gNomeModulo + ".salvaVendita"))
        return -1;
    idRegistrazione = id;
    return id;
}

int registraDocumento(Vendita& v, const DocumentoContabile& d) {
    if (!siRegistra(v, d.trasferimento)) return 0;
    RegistrazionePN r = registrazione(v, d);
    r.idPrimaNota = v.idPrimaNota;
    r.idCausale = v.mCausaleDoc;
    return registra(r, d, "FK_PrimaNota", v.idPrimaNota);
}

bool registraIncasso(Vendita& v, const DocumentoContabile& d) {
    if (!siIncassa(v, d.trasferimento, d.conversione)) return true;
    RegistrazionePN r = registrazione(v, d);
    r.descrizione.prepend("Incasso ");
    r.idPrimaNota = v.idPNPagamento;
    r.idCausale = v.idCausalePagamento;
    return registra(r, d, "FK_PNPagamento", v.idPNPagamento) >= 0;
}

// Due dates stand against the document's entry; the counter's own customer has none.
bool scadenzia(Vendita& v, const DocumentoContabile& d, int registrazioneDocumento) {
    if (registrazioneDocumento < 1 || v.cliente() == gClientePredefinito) return true;
    if (!d.conversione && v.chkPagato.valore() == 1) v.idPagamento = gPagamentoVB;
    return !v.generaScad || generaScadenzePagamento(registrazioneDocumento, v.idPagamento, d.totale, d.data,
                                                    v.scadenzeNegative);
}

}  // namespace

bool siRegistra(const Vendita& v, bool trasferimento) {
    return v.generaPN && !trasferimento && v.cliente() > 0;
}

bool siIncassa(const Vendita& v, bool trasferimento, bool conversione) {
    const bool pagata = v.chkPagato.valore() == 1 || v.cliente() == gClientePredefinito;
    return !trasferimento && pagata && (!conversione || v.idPagamento == gPagamentoVB);
}

bool registraContabilita(Vendita& v, const DocumentoContabile& documento) {
    const int registrazioneDocumento = registraDocumento(v, documento);
    return registrazioneDocumento >= 0 && registraIncasso(v, documento) &&
           scadenzia(v, documento, registrazioneDocumento);
}
