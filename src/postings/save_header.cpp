#include "postings/save_header.h"

#include "core/format.h"
#include "core/globals.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "postings/numbering.h"
#include "postings/stored_row.h"
#include "postings/stored_sale.h"
#include "sale/vendita.h"

namespace {

QString sorgente() {
    return gNomeModulo + ".salvaVendita";
}

QString controparte(const Vendita& v, const Documento& d) {
    return d.trasferimento ? QString("Null") : getIDOrNullStr(v.cliente());
}

RigaScritta colonneTestata(const Vendita& v, const Documento& d) {
    return {{"PROGRESSIVO", QString::number(d.progressivo)},
            {"ANNO", QString::number(d.data.year())},
            {"DATA", gAdo.getSQLDate(d.data)},
            {"FK_TIPODOCUMENTO", QString::number(d.tipo)},
            {"FK_ORIGINE", getIDOrNullStr(v.magazzinoOrigine)},
            {"FK_DESTINAZIONE", getIDOrNullStr(v.magazzinoDestinazione)},
            {"FK_CONTROPARTITA", controparte(v, d)},
            {"FK_PAGAMENTO", QString::number(v.idPagamento)}};
}

bool modificaTestata(const Documento& d, const RigaScritta& colonne) {
    QStringList assegnazioni;
    for (const auto& [colonna, valore] : colonne)
        assegnazioni << colonna + " = " + valore;
    return gAdo.executeSQL(
        "UPDATE Movimenti SET " + assegnazioni.join(", ") + " WHERE RID = " + QString::number(d.idMovimento),
        sorgente());
}

}  // namespace

bool inserisciTestata(Vendita& v, Documento& d) {
    d.progressivo = getNewNumeratoreAnnuale(v.numeratore, QString::number(d.data.year()));
    RigaScritta scritte = colonneTestata(v, d);
    scritte.emplace_back("ID_CASSA", QString::number(gIDCassa));
    scritte.emplace_back("USAPREZZIIVA", QString::number(v.chkPrezziIva.valore()));
    QStringList colonne;
    QStringList valori;
    for (const auto& [colonna, valore] : scritte) {
        colonne << colonna;
        valori << valore;
    }
    d.idMovimento = gAdo.getIDByInsert(
        "INSERT INTO Movimenti (" + colonne.join(", ") + ") VALUES (" + valori.join(", ") + ") ", sorgente(),
        "RID", "Movimenti");
    if (d.idMovimento < 1) return false;
    d.testata = std::move(scritte);
    v.txtProg.testo(Format(d.progressivo, u"0000"));
    return true;
}

// The desk and the price mode stay as they were at the first save.
bool modificaTestata(const Vendita& v, Documento& d) {
    d.idMovimento = v.rid();
    d.progressivo = v.progressivo();
    const RigaScritta scritte = colonneTestata(v, d);
    if (!modificaTestata(d, scritte)) return false;
    d.testataSparita = !rigaTrovata();
    d.testata = scritte;
    return !d.testataSparita;
}

// A further sale under the header takes the entries that stand there by now: another account may have made
// them since this one began.
bool riprendiDaiLibri(Vendita& v) {
    const std::set<int> toccate = righeDaToccare(v.flxVB);
    const auto vendita = leggiVenditaNeiLibri(v.rid(), toccate);
    if (!vendita) return false;
    // The change of the header tells that it is gone.
    if (!vendita->presente) return true;
    // Who has recalled the sale goes on by the payment that it was saved with.
    if (v.idPagamento < 1) v.idPagamento = vendita->idPagamento;
    if (v.extraProg() > 0) {
        if (!riprendiRegistrazioni(v, *vendita)) return false;
    } else {
        v.idPrimaNota = vendita->idPrimaNota;
        v.idPNPagamento = vendita->idPNPagamento;
    }
    return righeComeSulloSchermo(v.flxVB, *vendita, toccate);
}

bool scriviTotali(Documento& d, Currency totale, Currency imposta) {
    const RigaScritta totali{{"TOTIMPONIBILE", getSqlNumber(totale - imposta)},
                             {"TOTIMPOSTA", getSqlNumber(imposta)},
                             {"TOTDOCUMENTO", getSqlNumber(totale)}};
    if (!modificaTestata(d, totali)) return false;
    d.testata.insert(d.testata.end(), totali.begin(), totali.end());
    return true;
}
