#include "sale/recall.h"

#include <QStringBuilder>

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
    v.idPrimaNota = m.chiave("FK_PRIMANOTA");
    v.idPNPagamento = m.chiave("FK_PNPAGAMENTO");
    v.txtCodCliente.testo({});
    v.txtCodCliente.tag(m.testo("FK_CONTROPARTITA"));
    txtCodCliente_Invio(v);
    v.lblDescCliente.testo(m.testo("DENOMINAZIONE"));
    v.txtProg.testo(Format(m.intero("PROGRESSIVO"), u"0000"));
    v.lblDataStampa.testo(Format(m.campo("DATASTAMPA").toDate(), u"DD/MM/YYYY"));
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

// The fields of a row in the order of its query: read by position, since a long sale has thousands.
struct Letto {
    enum Campo : int {
        Rid,
        Quantita,
        Prezzo,
        ScontoNetto,
        PrezzoNetto,
        TotPrezzoNetto,
        Iva,
        TotaleIva,
        TotaleRiga,
        Sconto,
        Sconto2,
        Sconto3,
        Taglio,
        IkDettaglioMovimento,
        FkProdotto,
        CodProdotto,
        CodMarca,
        DescProdotto,
        FkUm,
        CodUm,
        FkIva,
        DescIva,
        CodIva,
        ValIva,
        Ora,
        FkVenditore,
        DescVenditore,
        ElencoSpeciale,
        BloccaPrezzo,
    };
};

void riempiProdotto(TestiRiga& c, const Recordset& d) {
    c[Colonna::Rid] = d.testo(Letto::Rid);
    c[Colonna::Key] = "DM_" + c[Colonna::Rid];
    c[Colonna::Marca] = d.testo(Letto::CodMarca);
    c[Colonna::Codice] = d.testo(Letto::CodProdotto);
    c[Colonna::IdProdotto] = d.testo(Letto::FkProdotto);
    c[Colonna::Descrizione] = d.testo(Letto::DescProdotto);
    c[Colonna::IdIva] = d.testo(Letto::FkIva);
    c[Colonna::CodIva] = d.testo(Letto::CodIva);
    c[Colonna::DescIva] = d.testo(Letto::DescIva);
    c[Colonna::Iva] = formattaImporto(d.campo(Letto::ValIva), 2);
    c[Colonna::IdUm] = d.testo(Letto::FkUm);
    c[Colonna::Um] = d.testo(Letto::CodUm);
    c[Colonna::ElencoSpeciale] = QString::number(getChekByBool(d.campo(Letto::ElencoSpeciale)));
    c[Colonna::BloccaPrezzo] = QString::number(getChekByBool(d.campo(Letto::BloccaPrezzo)));
}

// A row without a stored total shows what its net price and VAT come to.
Currency importoMostrato(const Recordset& d) {
    const Currency totale = d.importo(Letto::TotaleRiga);
    const double quantita = d.reale(Letto::Quantita);
    if (totale > Currency() || quantita == 0.0) return totale;
    return Currency::daDouble((d.importo(Letto::PrezzoNetto) + d.importo(Letto::Iva)).toDouble() * quantita);
}

void riempiSconti(TestiRiga& c, const Recordset& d) {
    c[Colonna::Sconto1] = formattaImporto(d.single(Letto::Sconto), 2);
    c[Colonna::Sconto2] = formattaImporto(d.single(Letto::Sconto2), 2);
    c[Colonna::Sconto3] = formattaImporto(d.single(Letto::Sconto3), 2);
    c[Colonna::ScontoTesto] = c[Colonna::Sconto1] % u'+' % c[Colonna::Sconto2] % u'+' % c[Colonna::Sconto3];
    c[Colonna::ScNetto] = plain(d.campo(Letto::ScontoNetto));
}

void riempiImporti(TestiRiga& c, const Recordset& d) {
    const float quantita = d.single(Letto::Quantita);
    const Currency netto = d.importo(Letto::PrezzoNetto);
    c[Colonna::Quantita] = formattaImporto(quantita, 2);
    c[Colonna::OldQuantita] = testoNumero(quantita);
    c[Colonna::PrezzoListino] = formattaImporto(d.importo(Letto::Prezzo), gDecimaliDopo);
    c[Colonna::PrezzoNetto] = formattaImporto(netto, gDecimaliDopo);
    c[Colonna::PrezzoNettoEsteso] = netto.testo();
    c[Colonna::Importo] = formattaImporto(importoMostrato(d), 2);
    c[Colonna::Taglio] = plain(d.campo(Letto::Taglio));
    c[Colonna::TotPrNetto] = plain(d.campo(Letto::TotPrezzoNetto));
    c[Colonna::IvaProd] = plain(d.campo(Letto::Iva));
    c[Colonna::TotIvaProd] = formattaImporto(d.importo(Letto::TotaleIva), gDecimaliDopo);
}

// A kit's head carries no money of its own: it shows what its components come to.
void riempiTotaliFigli(TestiRiga& c) {
    if (!testaDistinta(c[Colonna::Codice]) || !c[Colonna::IdDistintaBase].isEmpty()) return;
    Currency lordo;
    Currency netto;
    Currency ivato;
    getTotaliFigli(valIntero(c[Colonna::Rid]), lordo, netto, ivato);
    c[Colonna::PrezzoListino] = formattaImporto(lordo, gDecimaliDopo);
    c[Colonna::PrezzoNetto] = formattaImporto(netto, gDecimaliDopo);
    c[Colonna::Importo] = formattaImporto(ivato, 2);
}

void aggiungiRiga(Vendita& v, const Recordset& d) {
    TestiRiga c;
    riempiProdotto(c, d);
    riempiSconti(c, d);
    riempiImporti(c, d);
    c[Colonna::Gestione] = QString::number(RigaInvariata);
    if (d.intero(Letto::IkDettaglioMovimento) > 0)
        c[Colonna::IdDistintaBase] = d.testo(Letto::IkDettaglioMovimento);
    c[Colonna::IdVenditore] = d.testo(Letto::FkVenditore);
    c[Colonna::DescVenditore] = d.testo(Letto::DescVenditore);
    c[Colonna::Ora] = Format(d.campo(Letto::Ora).toDateTime(), u"DD/MM/YYYY Hh:Nn:Ss");
    riempiTotaliFigli(c);
    checkRowReso(v, v.flxVB.aggiungi(std::move(c)));
}

// False when it is not in the books, or could not be read.
bool leggiVendita(Vendita& v, int idMovimento, int progressivo, int extraProg, int anno) {
    {
        const Lettura lettura(sqlTestata(v, idMovimento, progressivo, anno), sorgente(".showVendita"));
        if (!lettura) return false;
        if (lettura->eof()) {
            v.schermo.operatore().messaggio("Movimento inesistente ", OperatorPort::Icona::Informazione);
            return false;
        }
        riempiTestata(v, *lettura, extraProg);
    }
    return showDettagli(v);
}

void caricaVendita(Vendita& v, int idMovimento, int progressivo, int extraProg, int anno) {
    pulisciTestata(v);
    if (!leggiVendita(v, idMovimento, progressivo, extraProg, anno)) return sgombraSchermata(v);
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
