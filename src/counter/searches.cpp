#include "counter/searches.h"

#include <QScopedValueRollback>

#include "core/globals.h"
#include "core/numbers.h"
#include "counter/accounts.h"
#include "counter/commands.h"
#include "counter/next_sale.h"
#include "data/gateway.h"
#include "data/lookups.h"
#include "data/prepare_sql.h"
#include "kit/search_request.h"
#include "sale/customer.h"
#include "sale/price_tables.h"
#include "sale/product_entry.h"
#include "sale/vat_entry.h"

namespace {

// Opens the search; the screen's activation when it closes is none of the operator's.
QString apri(Conto& conto, const RichiestaRicerca& richiesta) {
    const QScopedValueRollback aperta(gModaleAperta, true);
    return conto.ricerca(richiesta);
}

RichiestaRicerca prodottiSemplici() {
    return {.sql =
                "SELECT TOP 9 RID, CODICE, DESCRIZIONE FROM Prodotti "
                "WHERE DISABILITATO = 0 AND FK_SOSTITUITO IS NULL",
            .campoChiave = "DESCRIZIONE",
            .multi = true};
}

QString sqlProdottiConPrezzi() {
    if (gIDMagazzino < 1) {
        return "SELECT TOP 8 RID, CODICE, DESCRIZIONE, GIACENZA, LISTINO1 FROM Prodotti "
               "WHERE DISABILITATO = 0 AND FK_SOSTITUITO IS NULL";
    }
    return "SELECT TOP 8 P.RID, P.CODICE, P.DESCRIZIONE, DP.QUANTITA AS GIACENZA, P.LISTINO1 "
           "FROM Prodotti P LEFT JOIN DettagliProdotto DP ON P.RID = DP.FK_PRODOTTO "
           "WHERE P.DISABILITATO = 0 AND P.FK_SOSTITUITO IS NULL AND DP.FK_MAGAZZINO = " +
           QString::number(gIDMagazzino);
}

RichiestaRicerca prodottiConPrezzi(int idCliente) {
    return {.sql = sqlProdottiConPrezzi(),
            .campoChiave = "DESCRIZIONE",
            .multi = true,
            .colonne = "<CODICE¤1500|<DESCRIZIONE¤5000|>GIAC.¤1000|>PR.NETTO¤1500|>PR.FIN.¤1500",
            .prezzi = [idCliente](int idProdotto) {
                PrezziRicerca prezzi;
                getDatiProdotto(idCliente, idProdotto, gIDMagazzino, prezzi.netto, prezzi.finale,
                                prezzi.giacenza);
                return prezzi;
            }};
}

// As if the customer's number had been typed, so that account 1 asks before it takes a named one. The key of
// the customer in the box stays until Enter has accepted the new one. A customer without a number goes by
// key, where Enter asks nothing.
void scriviCliente(Vendita& v, int idCliente) {
    QString numero;
    QString nome;
    int rid = idCliente;
    validaAnagrafica(numero, nome, rid);
    if (numero.isEmpty()) {
        if (v.rid() > 0) return;
        v.txtCodCliente.tag(QString::number(idCliente));
    }
    v.txtCodCliente.testo(numero);
    txtCodCliente_Invio(v);
}

QString sqlVenditeSospese() {
    const QString barra = getSQLSeparator() + "/" + getSQLSeparator();
    return "SELECT TOP 9 M.RID, •A•(Format(M.PROGRESSIVO‡ \"00000\") & " + barra +
           " & TD.CODICE)•/A••M•CONCAT(CAST(M.PROGRESSIVO ¿ CHAR)‡ " + barra +
           "‡ TD.CODICE)•/M• AS Numero, A.DENOMINAZIONE AS CONTROPARTITA, M.Data, "
           "TD.DESCRIZIONE AS Documento "
           "FROM (Movimenti M  INNER JOIN TipoDocumenti TD ON M.FK_TIPODOCUMENTO = TD.RID) "
           "LEFT JOIN Anagrafiche A ON M.FK_CONTROPARTITA = A.RID "
           "WHERE M.FK_CONTROPARTITA <> " +
           QString::number(gClientePredefinito) +
           " AND ISNULL(M.DATASTAMPA) AND M.FK_TIPODOCUMENTO = " + QString::number(gTipoDocVb) +
           " AND ID_CASSA = " + QString::number(gIDCassa);
}

}  // namespace

void cercaCliente(Conto& conto) {
    Vendita& v = conto.vendita();
    if (!v.txtCodCliente.abilitato()) return;
    const QString scelto = apri(
        conto, {.sql = "SELECT TOP 8 RID, NUMERO, DENOMINAZIONE, INDIRIZZO, CIVICO, CITTA FROM Anagrafiche "
                       "WHERE TIPO = " +
                       testoSQL("C"),
                .campoChiave = "DENOMINAZIONE",
                .colonne = "<CODICE¤950|<NOMINATIVO¤3700|<INDIRIZZO¤3200|>N.¤600|<CITTA'¤3500"});
    if (valIntero(scelto) > 0) scriviCliente(v, valIntero(scelto));
}

void cercaProdotto(Conto& conto) {
    Vendita& v = conto.vendita();
    primaDelProdotto(conto);
    if (!v.modificaConsentita) return;
    const QString scelti =
        apri(conto, gRicercaProdAdv == 1 ? prodottiConPrezzi(v.cliente()) : prodottiSemplici());
    if (scelti.isEmpty()) return conto.fuoco(v.txtCodProdotto);
    setArticoloGrid(v, scelti);
}

void cercaIva(Conto& conto) {
    Vendita& v = conto.vendita();
    const QString scelta = apri(conto, {.sql = "SELECT TOP 9 RID, CODICE, DESCRIZIONE FROM Iva",
                                        .campoChiave = "CODICE",
                                        .colonnaChiave = 1});
    if (valIntero(scelta) < 1) return;
    v.txtIVA.testo({});
    v.txtIVA.tag(QString::number(valIntero(scelta)));
    txtIVA_LostFocus(v);
}

void openNewContoForCliente(Conto& conto, bool premi) {
    const Vendita* nuovo = conto.apriNuovoConto({});
    if (nuovo == nullptr || !premi) return;
    if (Conto* aperto = gConti[static_cast<size_t>(nuovo->indice)].get())
        cmdConto_Click(*aperto, contoCliente);
}

void visualizzaDocDaStampare(Conto& conto) {
    const QString scelta = apri(conto, {.sql = sqlVenditeSospese(),
                                        .campoChiave = "A.DENOMINAZIONE",
                                        .colonne = "<NUMERO¤1800|<CLIENTE¤4000|<DATA¤1400|<DOCUMENTO¤2800"});
    if (valIntero(scelta) < 1) return;
    if (apriContoConVendita(valIntero(scelta))) return;
    conto.operatore().messaggio(
        "Nessun conto disponibile per aprire il documento selezionato!\nChiudere prima un conto e riprovare.",
        OperatorPort::Icona::Critica);
}
