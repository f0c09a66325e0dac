#include "postings/stock_row.h"

#include "core/globals.h"
#include "core/value_helpers.h"
#include "data/gateway.h"

namespace {

QString sorgente() {
    return gNomeModulo + ".aggiornaGiacenze";
}

}  // namespace

QString RigaGiacenza::condizione() const {
    QString testo = " WHERE FK_PRODOTTO = " + QString::number(idProdotto) +
                    " AND FK_MAGAZZINO = " + QString::number(idMagazzino);
    if (taglio) testo += " AND TAGLIO = " + getSqlNumber(*taglio);
    return testo;
}

std::optional<float> RigaGiacenza::quantita() const {
    {
        const Lettura lettura("SELECT QUANTITA FROM DettagliProdotto" + condizione(), sorgente());
        if (!lettura) return std::nullopt;
        if (lettura.trovata()) return getValoreSingle(lettura->campo("QUANTITA"));
    }
    const bool creata = gAdo.executeSQL(
        "INSERT INTO DettagliProdotto (FK_PRODOTTO, FK_MAGAZZINO, TAGLIO, QUANTITA) VALUES (" +
            QString::number(idProdotto) + ", " + QString::number(idMagazzino) + ", " +
            getSqlNumber(taglio.value_or(Currency())) + ", 0)",
        sorgente());
    return creata ? std::optional(0.0f) : std::nullopt;
}

bool RigaGiacenza::scrivi(float quantita, std::optional<Currency> costo) const {
    QString sql = "UPDATE DettagliProdotto SET QUANTITA = " + getSqlNumber(quantita);
    if (costo) sql += ", TAGLIO = " + getSqlNumber(*costo) + " ";
    return gAdo.executeSQL(sql + condizione(), sorgente());
}

std::optional<float> leggiGiacenza(int idProdotto) {
    const Lettura lettura("SELECT GIACENZA FROM Prodotti WHERE RID = " + QString::number(idProdotto),
                          sorgente());
    if (!lettura) return std::nullopt;
    return lettura.trovata() ? getValoreSingle(lettura->campo("GIACENZA")) : 0.0f;
}

bool scriviGiacenza(int idProdotto, float giacenza) {
    return gAdo.executeSQL("UPDATE Prodotti SET GIACENZA = " + getSqlNumber(giacenza) +
                               " WHERE RID = " + QString::number(idProdotto),
                           sorgente());
}
