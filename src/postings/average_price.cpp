#include "postings/average_price.h"

#include <optional>

#include "core/errors.h"
#include "core/globals.h"
#include "core/operator_port.h"
#include "core/value_helpers.h"
#include "data/gateway.h"

namespace {

constexpr int pausaSchermo = 15;

QString sorgente() {
    return gNomeModulo + ".getPrezzoMedioProdotto";
}

QString tabelle() {
    return "FROM ((((Causali c INNER JOIN TipoDocumenti td ON c.RID = td.FK_Causale) INNER JOIN Movimenti m "
           "ON td.RID = m.FK_TipoDocumento) INNER JOIN DettagliMovimento dm ON  m.RID = dm.FK_Movimento) "
           "INNER JOIN Prodotti p ON p.RID = dm.FK_Prodotto ) ";
}

// The documents that load goods into the warehouse.
QString carichi(int idProdotto, int idMagazzino) {
    return "c.Destinazione = 3 AND (c.Origine = 3 OR c.Origine = 2) AND p.RID = " +
           QString::number(idProdotto) + " AND m.FK_Destinazione = " + QString::number(idMagazzino);
}

QString finestra(int rigaEsclusa) {
    const QString mesi = QString::number(gMesiPrezzoMedio);
    const QString senza = rigaEsclusa > 0 ? "dm.RID <> " + QString::number(rigaEsclusa) + " AND " : QString();
    const QString sep = gAdo.getSQLSeparator();
    return "•A•HAVING m.Data >= DateAdd(" + sep + "m" + sep + ",-" + mesi +
           ",Date()) AND •/A••M•WHERE m.Data >= DATE_ADD(CURRENT_DATE(), INTERVAL -" + mesi +
           " MONTH) AND •/M•" + senza;
}

// Quantity and value of the loads in the window.
struct Carichi {
    double quantita = 0;
    double valore = 0;

    Currency media() const { return quantita == 0 ? Currency() : Currency::daDouble(valore / quantita); }
};

std::optional<Carichi> leggiCarichi(int idProdotto, int idMagazzino, int rigaEsclusa) {
    const Lettura lettura(
        "SELECT Sum(Abs(dm.Quantita)) AS TotQta, Sum(Abs(dm.Quantita) * Abs(dm.PrezzoNetto)) AS "
        "TotPrezzoNetto " +
            tabelle() + finestra(rigaEsclusa) + carichi(idProdotto, idMagazzino),
        sorgente());
    if (!lettura.trovata() || lettura->campo("TotQta").isNull()) return std::nullopt;
    return Carichi{lettura->reale("TotQta"), lettura->reale("TotPrezzoNetto")};
}

Currency ultimoCarico(int idProdotto, int idMagazzino) {
    const Lettura lettura("SELECT TOP 1 dm.PrezzoNetto AS TotPrezzoNetto " + tabelle() + "WHERE " +
                              carichi(idProdotto, idMagazzino) + " ORDER BY dm.RID DESC",
                          sorgente());
    return lettura.trovata() ? getValoreCurrency(lettura->campo("TotPrezzoNetto")) : costoIgnoto;
}

Currency prezzoAcquisto(int idProdotto) {
    const Lettura lettura("SELECT PrezzoAcquisto FROM Prodotti WHERE RID = " + QString::number(idProdotto),
                          sorgente());
    return lettura.trovata() ? getValoreCurrency(lettura->campo("PrezzoAcquisto")) : costoIgnoto;
}

Currency prezzoMedio(int idProdotto, int idMagazzino, float quantita, Currency prezzo, int rigaEsclusa) {
    Currency risultato = costoIgnoto;
    if (auto carichi = leggiCarichi(idProdotto, idMagazzino, rigaEsclusa)) {
        if (quantita > -1 && prezzo > costoIgnoto) {
            carichi->quantita += static_cast<double>(quantita);
            carichi->valore += static_cast<double>(quantita) * prezzo.toDouble();
        }
        risultato = carichi->media();
    }
    if (risultato <= Currency()) {
        if (rigaEsclusa < 0) {
            risultato = ultimoCarico(idProdotto, idMagazzino);
        } else if (prezzo > Currency()) {
            risultato = prezzo;
        }
    }
    return risultato > Currency() ? risultato : prezzoAcquisto(idProdotto);
}

}  // namespace

Currency getPrezzoMedioProdotto(int idProdotto, int idMagazzino, float quantita, Currency prezzo,
                                int rigaEsclusa, OperatorPort& operatore) {
    const Currency risultato = protetto(
        gNomeModulo, "getPrezzoMedioProdotto",
        [&] { return prezzoMedio(idProdotto, idMagazzino, quantita, prezzo, rigaEsclusa); }, costoIgnoto);
    operatore.pausa(pausaSchermo);
    return risultato;
}
