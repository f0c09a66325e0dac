#include "sale/recall.h"

#include <cmath>

#include "core/clock.h"
#include "core/errors.h"
#include "core/format.h"
#include "core/globals.h"
#include "core/numbers.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "data/lookups.h"
#include "sale/customer.h"
#include "sale/grid.h"
#include "sale/row_editor.h"
#include "sale/row_writer.h"
#include "sale/sale_document.h"
#include "sale/totals.h"
#include "sale/vendita.h"

namespace {

QString sorgente(const char* procedura) {
    return moduloFrmMain + QString(procedura);
}

QString plain(const QVariant& valore) {
    return valore.isNull() ? QString() : testoNumero(valore.toDouble());
}

int chiaveOMenoUno(const QVariant& valore) {
    return valore.isNull() ? -1 : valore.toInt();
}

QString sqlTestata(const Vendita& v, int idMovimento, int progressivo, int anno) {
    const QString sql =
        "SELECT M.RID, M.PROGRESSIVO, M.DATA, M.FK_CONTROPARTITA, M.FK_PRIMANOTA, M.FK_PNPAGAMENTO, "
        "A.NUMERO, "
        "A.DENOMINAZIONE, M.DATASTAMPA, M.USAPREZZIIVA FROM Movimenti M INNER JOIN Anagrafiche A ON "
        "M.FK_CONTROPARTITA = A.RID WHERE ";
    if (idMovimento >= 1) return sql + " M.RID = " + QString::number(idMovimento);
    return sql + " M.PROGRESSIVO = " + QString::number(progressivo) +
           " AND M.FK_TIPODOCUMENTO = " + QString::number(v.idTipoDocumento) +
           " AND YEAR(M.DATA) = " + QString::number(anno);
}

// The customer comes before the number: the customer's own rules ask about a sale that has one already.
void riempiTestata(Vendita& v, const Recordset& m, int extraProg) {
    v.lblRID.testo(m.testo("RID"));
    v.idPrimaNota = chiaveOMenoUno(m.campo("FK_PRIMANOTA"));
    v.idPNPagamento = chiaveOMenoUno(m.campo("FK_PNPAGAMENTO"));
    v.txtCodCliente.testo({});
    v.txtCodCliente.tag(m.testo("FK_CONTROPARTITA"));
    txtCodCliente_Invio(v);
    v.lblDescCliente.testo(m.testo("DENOMINAZIONE"));
    v.txtProg.testo(Format(m.intero("PROGRESSIVO"), u"0000"));
    v.lblDataStampa.testo(Format(m.campo("DATASTAMPA").toDate(), u"DD/MM/YYYY"));
    v.pctPrint.testo(v.lblDataStampa.testo().isEmpty() ? "Da stampare" : "Stampata il");
    v.txtSottoProg.testo(Format(extraProg, u"0000"));
    v.txtData.testo(Format(m.campo("DATA").toDate(), u"DD/MM/YYYY"));
    v.chkPagato.valore(v.idPNPagamento > 0 ? 1 : 0);
    v.chkPrezziIva.valore(m.intero("USAPREZZIIVA") == 1 ? 1 : 0);
}

void mostraUltimaRiga(Vendita& v) {
    const int ultima = v.flxVB.ultima();
    if (ultima < 1) return;
    selFlexRow(v, ultima);
    mostraOraRiga(v, ultima);
}

void riempiProdotto(FlexVB& g, int r, const Recordset& d) {
    g.scrivi(r, Colonna::Key, "DM_" + d.testo("RID"));
    g.scrivi(r, Colonna::Marca, d.testo("CODMARCA"));
    g.scrivi(r, Colonna::Codice, d.testo("CODPRODOTTO"));
    g.scrivi(r, Colonna::IdProdotto, d.testo("FK_PRODOTTO"));
    g.scrivi(r, Colonna::Descrizione, d.testo("DESCPRODOTTO"));
    g.scrivi(r, Colonna::IdIva, d.testo("FK_IVA"));
    g.scrivi(r, Colonna::CodIva, d.testo("CODIVA"));
    g.scrivi(r, Colonna::DescIva, d.testo("DESCIVA"));
    g.scrivi(r, Colonna::Iva, formattaImporto(d.campo("VALIVA"), 2));
    g.scrivi(r, Colonna::IdUm, d.testo("FK_UM"));
    g.scrivi(r, Colonna::Um, d.testo("CODUM"));
    g.scrivi(r, Colonna::ElencoSpeciale, QString::number(getChekByBool(d.campo("ELENCOSPECIALE"))));
    g.scrivi(r, Colonna::BloccaPrezzo, QString::number(getChekByBool(d.campo("BLOCCAPREZZO"))));
}

// A row without a stored total shows what its net price and VAT come to.
Currency importoMostrato(const Recordset& d) {
    const Currency totale = d.importo("TOTALERIGA");
    const double quantita = d.reale("QUANTITA");
    if (totale > Currency() || quantita == 0.0) return totale;
    return Currency::daDouble((d.importo("PREZZONETTO") + d.importo("IVA")).toDouble() * quantita);
}

void riempiImporti(FlexVB& g, int r, const Recordset& d) {
    g.scrivi(r, Colonna::Quantita, formattaImporto(d.single("QUANTITA"), 2));
    g.scrivi(r, Colonna::OldQuantita, testoNumero(d.single("QUANTITA")));
    g.scrivi(r, Colonna::PrezzoListino, formattaImporto(d.importo("PREZZO"), gDecimaliDopo));
    g.scrivi(r, Colonna::Sconto1, formattaImporto(d.single("SCONTO"), 2));
    g.scrivi(r, Colonna::Sconto2, formattaImporto(d.single("SCONTO2"), 2));
    g.scrivi(r, Colonna::Sconto3, formattaImporto(d.single("SCONTO3"), 2));
    g.scrivi(r, Colonna::ScontoTesto,
             g.cella(r, Colonna::Sconto1) + "+" + g.cella(r, Colonna::Sconto2) + "+" +
                 g.cella(r, Colonna::Sconto3));
    g.scrivi(r, Colonna::PrezzoNetto, formattaImporto(d.importo("PREZZONETTO"), gDecimaliDopo));
    g.scrivi(r, Colonna::PrezzoNettoEsteso, d.importo("PREZZONETTO").testo());
    g.scrivi(r, Colonna::Importo, formattaImporto(importoMostrato(d), 2));
    g.scrivi(r, Colonna::Taglio, plain(d.campo("TAGLIO")));
    g.scrivi(r, Colonna::ScNetto, plain(d.campo("SCONTONETTO")));
    g.scrivi(r, Colonna::TotPrNetto, plain(d.campo("TOTPREZZONETTO")));
    g.scrivi(r, Colonna::IvaProd, plain(d.campo("IVA")));
    g.scrivi(r, Colonna::TotIvaProd, formattaImporto(d.importo("TOTALEIVA"), gDecimaliDopo));
}

// A kit's head carries no money of its own: it shows what its components come to.
void mostraTotaliFigli(FlexVB& g, int r) {
    if (!testaDistinta(g.cella(r, Colonna::Codice)) || !g.cella(r, Colonna::IdDistintaBase).isEmpty()) return;
    Currency lordo;
    Currency netto;
    Currency ivato;
    getTotaliFigli(g.chiave(r, Colonna::Rid), lordo, netto, ivato);
    g.scrivi(r, Colonna::PrezzoListino, formattaImporto(lordo, gDecimaliDopo));
    g.scrivi(r, Colonna::PrezzoNetto, formattaImporto(netto, gDecimaliDopo));
    g.scrivi(r, Colonna::Importo, formattaImporto(ivato, 2));
}

void aggiungiRiga(Vendita& v, const Recordset& d) {
    FlexVB& g = v.flxVB;
    const int r = g.aggiungi();
    riempiProdotto(g, r, d);
    riempiImporti(g, r, d);
    g.scrivi(r, Colonna::Gestione, QString::number(RigaInvariata));
    g.scrivi(r, Colonna::Rid, d.testo("RID"));
    if (d.intero("IK_DETTAGLIOMOVIMENTO") > 0)
        g.scrivi(r, Colonna::IdDistintaBase, d.testo("IK_DETTAGLIOMOVIMENTO"));
    g.scrivi(r, Colonna::IdVenditore, d.testo("FK_VENDITORE"));
    g.scrivi(r, Colonna::DescVenditore, d.testo("DESCVENDITORE"));
    g.scrivi(r, Colonna::Ora, Format(d.campo("ORA").toDateTime(), u"DD/MM/YYYY Hh:Nn:Ss"));
    mostraTotaliFigli(g, r);
    checkRowReso(v, r);
}

QString sqlDettagli(int idMovimento, int extraProg) {
    return "SELECT DM.RID, DM.QUANTITA, DM.PREZZO, DM.SCONTONETTO, DM.PREZZONETTO, DM.TOTPREZZONETTO, "
           "DM.IVA, "
           "DM.TOTALEIVA, DM.TOTALERIGA, DM.SCONTO, DM.SCONTO2, DM.SCONTO3, DM.TAGLIO, "
           "DM.IK_DETTAGLIOMOVIMENTO,DM.FK_PRODOTTO, DM.CODPRODOTTO, M.CODICE AS CODMARCA, DM.DESCPRODOTTO, "
           "DM.FK_UM, "
           "UM.CODICE AS CODUM, DM.FK_IVA, I.DESCRIZIONE AS DESCIVA, I.CODICE AS CODIVA, I.VALORE AS VALIVA, "
           "DM.ORA, "
           "DM.FK_VENDITORE, V.DESCRIZIONE AS DESCVENDITORE, P.ELENCOSPECIALE, P.BLOCCAPREZZO FROM "
           "((((DettagliMovimento DM LEFT JOIN Iva I ON DM.FK_IVA = I.RID) INNER JOIN Prodotti P ON "
           "DM.FK_PRODOTTO = "
           "P.RID) LEFT JOIN Marche M ON P.FK_MARCA = M.RID) LEFT JOIN UnitaMisura UM ON DM.FK_UM = UM.RID) "
           "LEFT JOIN "
           "Venditori V ON DM.FK_VENDITORE = V.RID WHERE DM.FK_MOVIMENTO = " +
           QString::number(idMovimento) + " AND DM.EXTRAPROG = " + QString::number(extraProg) +
           " ORDER BY DM.POS";
}

void caricaVendita(Vendita& v, int idMovimento, int progressivo, int extraProg, int anno) {
    pulisciTestata(v);
    {
        const Lettura lettura(sqlTestata(v, idMovimento, progressivo, anno), sorgente(".showVendita"));
        if (!lettura) return;
        if (lettura->eof()) {
            v.schermo.operatore().messaggio("Movimento inesistente ", OperatorPort::Icona::Informazione);
            v.txtProg.testo("(Auto)");
            return;
        }
        riempiTestata(v, *lettura, extraProg);
    }
    if (!showDettagli(v)) return pulisciTestata(v);
    v.venditaModificata = false;
    v.pctSave.visibile(false);
    v.txtData.bloccato(true);
    v.txtCodCliente.bloccato(true);
    mostraUltimaRiga(v);
    checkPolicyDeleteUpadte(v);
}

}  // namespace

void showVendita(Vendita& v, int idMovimento, int progressivo, int extraProg, int anno) {
    if (idMovimento < 1 && progressivo < 1) return;
    protetto(moduloFrmMain, "showVendita", [&] {
        const RidisegnoFermo fermo(v.schermo);
        caricaVendita(v, idMovimento, progressivo, extraProg, anno < 0 ? orologio().oggi().year() : anno);
    });
}

bool showDettagli(Vendita& v) {
    const int idMovimento = v.rid();
    {
        const Lettura lettura(sqlDettagli(idMovimento, v.extraProg()), sorgente(".showDettagli"));
        if (!lettura) return false;
        for (; !lettura->eof(); lettura->moveNext()) {
            aggiungiRiga(v, *lettura);
        }
    }
    if (getTotaleConto(v, idMovimento)) calcolaTotali(v, true);
    return true;
}
