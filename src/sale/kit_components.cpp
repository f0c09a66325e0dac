#include "sale/kit_components.h"

#include "core/globals.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "data/prepare_sql.h"
#include "sale/line_pricing.h"
#include "sale/price_tables.h"
#include "sale/row_editor.h"
#include "sale/totals.h"
#include "sale/vendita.h"

namespace {

QString sqlComponenti(const QString& codice) {
    return "SELECT DBD.FK_PRODOTTO, DBD.CODPRODOTTO, M.CODICE AS CODMARCA, DBD.DESCPRODOTTO, DBD.QUANTITA, "
           "DBD.PREZZO AS PREZZOLISTINO, "
           "DBD.FK_IVA, DBD.VALOREIVA, I.CODICE AS CODIVA, I.DESCRIZIONE AS DESCIVA, DBD.FK_UM, UM.CODICE AS "
           "CODUM "
           "FROM ((((DistintaBaseDettagli DBD INNER JOIN DistintaBase DB ON DBD.FK_DISTINTABASE = DB.RID) "
           "INNER JOIN Iva I ON DBD.FK_IVA = I.RID) "
           "INNER JOIN Prodotti P ON DBD.FK_PRODOTTO = P.RID) "
           "LEFT JOIN Marche M ON P.FK_MARCA = M.RID) "
           "LEFT JOIN UnitaMisura UM ON DBD.FK_UM = UM.RID "
           "WHERE DB.CODICE = " +
           testoSQL(codice) + " ORDER BY DBD.POS";
}

DatiRiga identita(const Vendita& v, const Recordset& c) {
    DatiRiga d;
    d.idProdotto = c.intero("FK_PRODOTTO");
    d.marca = c.testo("CODMARCA");
    d.codice = c.testo("CODPRODOTTO");
    d.descrizione = c.testo("DESCPRODOTTO");
    d.idIva = c.testo("FK_IVA");
    d.codIva = c.testo("CODIVA");
    d.descIva = c.testo("DESCIVA");
    d.iva = c.single("VALOREIVA");
    d.idUm = c.testo("FK_UM");
    d.um = c.testo("CODUM");
    d.sconto1 = v.txtSconto1.testo();
    d.sconto2 = v.txtSconto2.testo();
    d.sconto3 = v.txtSconto3.testo();
    d.taglio = "-1";
    d.elencoSpeciale = "0";
    d.bloccaPrezzo = "0";
    return d;
}

double fattore(const QString& sconto) {
    return 1 - static_cast<double>(getValoreSingle(sconto)) / 100;
}

double fattoreSconti(const DatiRiga& d) {
    return fattore(d.sconto2) * fattore(d.sconto1) * fattore(d.sconto3);
}

FiglioDistinta calcola(Vendita& v, const Recordset& c, float quantitaTesta, Distinta& distinta) {
    FiglioDistinta figlio{identita(v, c), {}, {}};
    DatiRiga& d = figlio.dati;
    const Currency unitaria = c.importo("QUANTITA");
    d.prezzoListino = prezzoComponente(v, c.importo("PREZZOLISTINO"), d.idProdotto);
    d.prezzoNetto = calcolaPrezzoNetto(v, d.prezzoListino, d.iva);
    d.scNetto = v.lblScNetto.testo();
    d.ivaProdotto = v.lblIvaProdotto.testo();
    d.quantita = static_cast<float>(unitaria.toDouble() * static_cast<double>(quantitaTesta));
    figlio.celle = celleRiga(v, d, true);
    distinta.listino += Currency::daDouble(d.prezzoListino.toDouble() * unitaria.toDouble());
    distinta.netto += Currency::daDouble(d.prezzoNetto.toDouble() * unitaria.toDouble());
    figlio.importo =
        Currency::daDouble((1 + static_cast<double>(d.iva) / 100) * d.prezzoNetto.toDouble() *
                           unitaria.toDouble() * static_cast<double>(quantitaTesta) * fattoreSconti(d));
    return figlio;
}

// `inCorso`: the kits around this one. A kit that contains itself is not opened again.
bool raccogli(Vendita& v, const QString& codice, float quantita, QStringList inCorso, Distinta& distinta) {
    inCorso << codice.toUpper();
    const Lettura lettura(sqlComponenti(codice), moduloFrmMain + QString(".getProdFigli"));
    if (!lettura) return false;
    for (; !lettura->eof(); lettura->moveNext()) {
        distinta.figli.push_back(calcola(v, *lettura, quantita, distinta));
        const DatiRiga& figlio = distinta.figli.back().dati;
        if (!testaDistinta(figlio.codice) || inCorso.contains(figlio.codice.toUpper())) continue;
        Distinta interna;
        if (!raccogli(v, figlio.codice, figlio.quantita, inCorso, interna)) return false;
        distinta.figli.insert(distinta.figli.end(), interna.figli.begin(), interna.figli.end());
    }
    return true;
}

}  // namespace

Currency prezzoComponente(const Vendita& v, Currency prezzo, int idProdotto) {
    if (prezzo > Currency()) return prezzo;
    bool daListino = false;
    return getValoreCurrency(
        formattaImporto(getPrezzoVendita(v.cliente(), idProdotto, daListino, false), gDecimaliDopo));
}

std::optional<Distinta> leggiDistinta(Vendita& v, const QString& codice, float quantita) {
    Distinta distinta;
    const bool letta = raccogli(v, codice, quantita, {}, distinta);
    // The line's labels are the head's again.
    calcolaPrezzoNetto(v, getValoreCurrency(v.txtPrezzoListino.testo()),
                       getValoreSingle(v.lblValoraIva.testo()));
    if (!letta) return std::nullopt;
    return distinta;
}
