#include "sale/alternatives.h"

#include <algorithm>
#include <array>

#include "core/errors.h"
#include "core/globals.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "sale/product_entry.h"
#include "sale/product_info.h"
#include "sale/product_query.h"
#include "sale/row_editor.h"
#include "sale/vendita.h"

namespace {

constexpr std::array titoli{"Altern.", "Codice", "Giac."};

// The pairs in which `questo` is the product asked for and `altro` the one that stands in for it.
QString sqlAlternativi(const QString& altro, const QString& questo, int idProdotto) {
    const bool magazzino = giacenzaDiMagazzino();
    QString sql = "SELECT PA." + altro + ", ";
    sql += magazzino ? "P.CODICE, DP.QUANTITA AS GIACENZA, M.CODICE AS CODMARCA  "
                     : "P.CODICE, P.GIACENZA, M.CODICE AS CODMARCA  ";
    sql += magazzino ? "FROM (((ProdottiAlternativi PA " : "FROM ((ProdottiAlternativi PA ";
    sql += "INNER JOIN Prodotti P ON PA." + altro + " = P.RID) ";
    sql += "LEFT JOIN Marche M ON P.FK_MARCA = M.RID) ";
    if (magazzino) {
        sql += "LEFT JOIN DettagliProdotto DP ON (P.RID = DP.FK_PRODOTTO AND DP.FK_MAGAZZINO = " +
               QString::number(gIDMagazzino) + ")) ";
    }
    return sql + "WHERE PA." + questo + " = " + QString::number(idProdotto);
}

void aggiungiAlternativi(Vendita& v, const QString& altro, const QString& questo, int idProdotto) {
    const Lettura lettura(sqlAlternativi(altro, questo, idProdotto),
                          moduloFrmMain + QString(".showAlternativi"));
    if (!lettura) return;
    if (giacenzaDiMagazzino()) unaRigaAProdotto(*lettura, altro);
    for (; !lettura->eof(); lettura->moveNext()) {
        const int id = lettura->intero(altro);
        if (verifyAlternativoExist(v, id)) continue;
        v.lswAlternativi.aggiungi({id, lettura->testo("CODMARCA"), lettura->testo("CODICE"),
                                   formattaImporto(getValoreSingle(lettura->campo("GIACENZA")), 2)});
    }
}

}  // namespace

void ElencoAlternativi::svuota() {
    if (mVoci.empty()) return;
    beginResetModel();
    mVoci.clear();
    endResetModel();
}

void ElencoAlternativi::aggiungi(Voce voce) {
    const int posto = rowCount();
    beginInsertRows({}, posto, posto);
    mVoci.push_back(std::move(voce));
    endInsertRows();
}

int ElencoAlternativi::rowCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : static_cast<int>(mVoci.size());
}

int ElencoAlternativi::columnCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : static_cast<int>(titoli.size());
}

QVariant ElencoAlternativi::data(const QModelIndex& indice, int ruolo) const {
    if (!indice.isValid() || indice.row() >= rowCount() || ruolo != Qt::DisplayRole) return {};
    const Voce& voce = mVoci[static_cast<size_t>(indice.row())];
    return std::array{voce.marca, voce.codice, voce.giacenza}[static_cast<size_t>(indice.column())];
}

QVariant ElencoAlternativi::headerData(int sezione, Qt::Orientation verso, int ruolo) const {
    if (verso != Qt::Horizontal || ruolo != Qt::DisplayRole || sezione < 0 || sezione >= columnCount())
        return {};
    return titoli[static_cast<size_t>(sezione)];
}

void showAlternativi(Vendita& v, int idProdotto) {
    protetto(moduloFrmMain, "showAlternativi", [&] {
        v.lswAlternativi.svuota();
        aggiungiAlternativi(v, "FK_PRODOTTO2", "FK_PRODOTTO1", idProdotto);
        aggiungiAlternativi(v, "FK_PRODOTTO1", "FK_PRODOTTO2", idProdotto);
    });
}

bool verifyAlternativoExist(const Vendita& v, int idProdotto) {
    const auto& voci = v.lswAlternativi.voci();
    return std::any_of(voci.begin(), voci.end(),
                       [&](const ElencoAlternativi::Voce& voce) { return voce.idProdotto == idProdotto; });
}

void lswAlternativi_DblClick(Vendita& v, int posizione) {
    const auto& voci = v.lswAlternativi.voci();
    if (!v.modificaConsentita || posizione < 0 || posizione >= static_cast<int>(voci.size())) return;
    setArticoloGrid(v, QString::number(voci[static_cast<size_t>(posizione)].idProdotto) + "|");
}
