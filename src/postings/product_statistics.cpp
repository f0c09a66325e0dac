#include "postings/product_statistics.h"

#include "core/errors.h"
#include "core/globals.h"
#include "data/gateway.h"

namespace {

QString sorgente() {
    return gNomeModulo + ".aggiornaStatisticaCarico";
}

bool aggiorna(int idProdotto, Currency prezzo, QDate data) {
    const QString prodotto = " WHERE RID = " + QString::number(idProdotto);
    {
        const Lettura lettura("SELECT DATAULTIMOSCARICO FROM Prodotti" + prodotto, sorgente());
        if (!lettura) return false;
        if (!lettura.trovata() || lettura->campo(0).isNull()) return true;
        if (lettura->campo(0).toDate() >= data) return true;
    }
    return gAdo.executeSQL("UPDATE Prodotti SET DATAULTIMOSCARICO = " + gAdo.getSQLDate(data) +
                               ", PREZZOULTIMOSCARICO = " + getSqlNumber(prezzo) + prodotto,
                           sorgente());
}

}  // namespace

bool aggiornaStatisticaCarico(int idProdotto, Currency prezzo, QDate data) {
    return protetto(
        gNomeModulo, "aggiornaStatisticaCarico", [&] { return aggiorna(idProdotto, prezzo, data); }, false);
}
