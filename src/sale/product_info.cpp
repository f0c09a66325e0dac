#include "sale/product_info.h"

#include "core/errors.h"
#include "core/format.h"
#include "core/globals.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "sale/price_tables.h"
#include "sale/row_editor.h"
#include "sale/vendita.h"

namespace {

// The stock of all the layers of cost that the rows stand for; the first row is the current one again.
float giacenzaTotale(Recordset& righe) {
    double totale = 0;
    for (; !righe.eof(); righe.moveNext()) {
        totale += righe.reale("GIACENZA");
    }
    righe.moveFirst();
    return static_cast<float>(totale);
}

// The cost that the margin is taken from; 0 when none is known.
Currency costoProdotto(const Vendita& v, int idProdotto) {
    const QString prodotto = QString::number(idProdotto);
    const QString sql =
        gPCType != 0 ? "SELECT PrezzoAcquisto AS PC FROM Prodotti WHERE RID = " + prodotto
                     : "SELECT AVG(TAGLIO) AS PC FROM DettagliProdotto WHERE FK_PRODOTTO = " + prodotto +
                           " AND FK_MAGAZZINO = " + QString::number(v.magazzinoOrigine);
    Currency costo;
    {
        const Lettura lettura(sql, moduloFrmMain + QString(".showMargineProdotto"));
        if (lettura.trovata()) costo = getValoreCurrency(lettura->campo("PC"));
    }
    return costo > Currency() ? costo : getPrezzoNettoAcquisto(idProdotto, 1, -1);
}

}  // namespace

bool giacenzaDiMagazzino() {
    return gGiacenzaMagazzino != 0 && gIDMagazzino >= 1;
}

void showInfrmazioniStatic(Vendita& v, int idProdotto) {
    protetto(moduloFrmMain, "showInfrmazioniStatic", [&] {
        QString sql =
            "SELECT GIACENZA, PLISTINO, DATALISTINO, SETGIACENZA, UBICAZIONE FROM Prodotti WHERE RID = ";
        if (giacenzaDiMagazzino()) {
            sql =
                "SELECT DP.QUANTITA AS GIACENZA, P.PLISTINO, P.DATALISTINO, P.UBICAZIONE, P.SETGIACENZA FROM "
                "Prodotti P "
                "LEFT JOIN DettagliProdotto DP ON (P.RID = DP.FK_PRODOTTO AND DP.FK_MAGAZZINO = " +
                QString::number(gIDMagazzino) +
                ") "
                "WHERE P.RID = ";
        }
        const Lettura lettura(sql + QString::number(idProdotto),
                              moduloFrmMain + QString(".showInfrmazioniStatic"));
        if (!lettura.trovata()) return;
        v.lblGiacenza.testo(formattaImporto(giacenzaTotale(*lettura), 2));
        v.lblGiacenza.tag(lettura->vero("SETGIACENZA") ? "1" : "0");
        v.lblPrezzoListinoPanel.testo(formattaImporto(lettura->importo("PLISTINO"), gDecimaliDopo));
        v.lblUbicazione.testo(lettura->testo("UBICAZIONE"));
        v.lblDataListinoPanel.testo(Format(lettura->campo("DATALISTINO").toDate(), u"DD/MM/YYYY"));
    });
}

void leggiGiacenza(Vendita& v) {
    const int prodotto = v.txtCodProdotto.chiave();
    if (prodotto > 0 && v.lblGiacenza.testo() == giacenzaNonLetta) showInfrmazioniStatic(v, prodotto);
}

void showMargineProdotto(Vendita& v, int idProdotto, Currency prezzoNetto) {
    protetto(moduloFrmMain, "showMargineProdotto", [&] {
        for (Campo* campo : {&v.lblMargineEuro, &v.lblMarginePerc, &v.lblPrezzoCosto}) {
            campo->testo("N/D");
        }
        const Currency costo = costoProdotto(v, idProdotto);
        if (costo > Currency()) {
            const Currency margine = prezzoNetto - costo;
            v.lblMargineEuro.testo(formattaImporto(margine, gDecimaliDopo));
            v.lblMarginePerc.testo(
                formattaImporto(margine.toDouble() * 100 / costo.toDouble(), gDecimaliDopo));
            v.lblPrezzoCosto.testo(formattaImporto(costo, 2));
        }
        if (getValoreCurrency(v.lblPrezzoAcquisto.testo()) <= Currency()) {
            v.lblPrezzoAcquisto.testo(v.lblPrezzoCosto.testo());
        }
    });
}

Currency getTaglioProdotto(int idProdotto, int idMagazzino) {
    const QString inizio =
        "SELECT TOP 1 TAGLIO FROM DettagliProdotto WHERE FK_PRODOTTO = " + QString::number(idProdotto) +
        " AND FK_MAGAZZINO = " + QString::number(idMagazzino) + " ";
    for (const char* condizione : {"AND QUANTITA > 0 ", ""}) {
        const Lettura lettura(inizio + condizione + "ORDER BY RID",
                              moduloFrmMain + QString(".getTaglioProdotto"));
        if (lettura.trovata() && lettura->importo("TAGLIO") >= Currency()) return lettura->importo("TAGLIO");
    }
    return Currency::daIntero(-1);
}
