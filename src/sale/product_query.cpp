#include "sale/product_query.h"

#include <map>

#include "core/globals.h"
#include "data/prepare_sql.h"
#include "data/recordset.h"
#include "sale/product_info.h"

namespace {

int colonna(const Recordset& righe, const QString& nome) {
    int c = 0;
    while (righe.colonne().at(c).compare(nome, Qt::CaseInsensitive) != 0)
        ++c;
    return c;
}

}  // namespace

void unaRigaAProdotto(Recordset& righe, const QString& chiave) {
    if (righe.righe() < 2) return;
    const int campi = righe.campi();
    const int giacenza = colonna(righe, "GIACENZA");
    std::vector<QVariant> celle;
    std::map<int, size_t> prime;  // where the row of a product begins
    for (; !righe.eof(); righe.moveNext()) {
        const auto [prima, nuova] = prime.emplace(righe.intero(chiave), celle.size());
        if (!nuova) {
            QVariant& somma = celle[prima->second + static_cast<size_t>(giacenza)];
            somma = somma.toDouble() + righe.campo(giacenza).toDouble();
            continue;
        }
        for (int c = 0; c < campi; ++c)
            celle.push_back(righe.campo(c));
    }
    righe = Recordset(righe.colonne(), std::move(celle));
}

QString sqlProdotto(int idProdotto, const QString& codice, bool like) {
    const bool magazzino = giacenzaDiMagazzino();
    QString sql =
        "SELECT P.RID, P.CODICE, P.BARCODE, P.DESCRIZIONE AS PRODOTTO, P.FK_SOSTITUITO, PS.CODICE AS "
        "CODPRODSOSTITUITO, "
        "PS.DESCRIZIONE AS DESCPRODSOSTITUITO, "
        "P.PLISTINO, P.SCONTO, P.DATALISTINO, C.DESCRIZIONE AS CATEGORIA, P.FK_UNITAMISURA, UM.CODICE AS "
        "CODUM, "
        "P.UBICAZIONE, M.CODICE AS CODMARCA, ";
    sql += magazzino ? "M.DESCRIZIONE AS MARCA, DP.QUANTITA AS GIACENZA, "
                     : "M.DESCRIZIONE AS MARCA, P.GIACENZA, ";
    sql +=
        "P.FK_IVA, I.CODICE AS CODIVA, I.DESCRIZIONE AS DESCIVA, I.VALORE AS VALOREIVA, P.SETGIACENZA, "
        "CS.DESCRIZIONE as DescCatSconto, P.ELENCOSPECIALE, P.BLOCCAPREZZO ";
    sql += magazzino ? "FROM ((((((" : "FROM (((((";
    sql +=
        "Prodotti P LEFT JOIN CategorieMerceologiche C ON P.FK_CATEGORIA = C.RID) "
        "LEFT JOIN Marche M ON P.FK_MARCA = M.RID) "
        "LEFT JOIN Iva I ON P.FK_Iva = I.RID) "
        "LEFT JOIN Prodotti PS ON P.FK_SOSTITUITO = PS.RID) "
        "LEFT JOIN UnitaMisura UM ON P.FK_UNITAMISURA = UM.RID) ";
    sql += magazzino ? "LEFT JOIN CategorieSconti CS ON P.FK_CatScoVen = CS.RID) "
                       "LEFT JOIN DettagliProdotto DP ON (P.RID = DP.FK_PRODOTTO AND DP.FK_MAGAZZINO = " +
                           QString::number(gIDMagazzino) + ") "
                     : QString("LEFT JOIN CategorieSconti CS ON P.FK_CatScoVen = CS.RID ");
    sql += "WHERE P.DISABILITATO = 0 ";
    if (codice.isEmpty()) return sql + " AND P.RID = " + QString::number(idProdotto);
    const QString esatto = testoSQL(codice);
    if (!like)
        return sql + " AND (P.BARCODE = " + esatto + " OR P.CODICE = " + esatto +
               " OR P.EXTRACODICE = " + esatto + ") ";
    const QString dentro = testoSQL("%" + codice + "%");
    return sql + " AND (P.BARCODE = " + esatto + " OR P.CODICE LIKE " + dentro + " OR P.EXTRACODICE LIKE " +
           dentro + ") ";
}
