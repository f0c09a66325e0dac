#include "postings/payment_schedule.h"

#include <optional>
#include <vector>

#include "core/errors.h"
#include "core/globals.h"
#include "core/value_helpers.h"
#include "data/gateway.h"

namespace {

QString sorgente() {
    return gNomeModulo + ".generaScadenzePagamento";
}

struct Rata {
    int giorni;
    double percentuale;
};

// The terms of a payment; without any row of instalments nothing is known of them.
struct Termini {
    double acconto = 0;  // percentage
    bool rimessaDiretta = false;
    bool fineMese = false;
    int numeroRate = 0;
    std::vector<Rata> rate;
};

std::optional<Termini> leggiTermini(int idPagamento) {
    const Lettura lettura(
        "SELECT P.RID, P.ACCONTO, P.RIMESSADIRETTA, P.FINEMESE, P.NRATE,  DP.NGIORNI, DP.PERCENTUALE FROM "
        "Pagamenti P INNER JOIN DettagliPagamenti DP ON DP.FK_PAGAMENTO = P.RID WHERE P.RID = " +
            QString::number(idPagamento),
        sorgente());
    if (!lettura) return std::nullopt;
    Termini termini;
    for (; !lettura->eof(); lettura->moveNext()) {
        termini.acconto = lettura->reale("ACCONTO");
        termini.rimessaDiretta = lettura->reale("RIMESSADIRETTA") > 0;
        termini.fineMese = lettura->reale("FINEMESE") > 0;
        termini.numeroRate = lettura->intero("NRATE");
        termini.rate.push_back({lettura->intero("NGIORNI"), lettura->reale("PERCENTUALE")});
    }
    return termini;
}

QDate scadenza(const Termini& termini, QDate data, int giorni) {
    if (!termini.fineMese) return data.addDays(giorni);
    // Direct remittance falls due at the end of the document's own month, whatever the days.
    return getDataFineMese(data, termini.rimessaDiretta ? 0 : giorni);
}

bool scriviScadenza(int idPrimaNota, QDate data, const QString& importo) {
    return gAdo.executeSQL("INSERT INTO Scadenze (FK_PrimaNota, DATA, IMPORTO) VALUES(" +
                               QString::number(idPrimaNota) + ", " + gAdo.getSQLDate(data) + ", " + importo +
                               ")",
                           sorgente());
}

bool scriviAcconto(const Termini& termini, int idPrimaNota, Currency importo, QDate data, bool negative) {
    if (termini.acconto <= 0) return true;
    const double acconto = termini.acconto / 100 * importo.toDouble();
    return scriviScadenza(idPrimaNota, data, getSqlNumber(QVariant(negative ? -acconto : acconto)));
}

// Terms that tell more instalments than there are rows of them.
const char* const testoRateMancanti =
    ".\nIl pagamento prevede più rate di quelle che vi sono registrate: completarlo nell'archivio dei "
    "pagamenti.";

bool scriviRate(const Termini& termini, int idPrimaNota, Currency importo, QDate data, bool negative) {
    for (int i = 0; i < termini.numeroRate; ++i) {
        if (i >= static_cast<int>(termini.rate.size()))
            throw RunTimeError(RunTimeError::IndiceNonValido,
                               RunTimeError(RunTimeError::IndiceNonValido).descrizione() + testoRateMancanti);
        const Rata& rata = termini.rate[static_cast<size_t>(i)];
        const Currency quota = Currency::daDouble(importo.toDouble() * (rata.percentuale / 100));
        if (!scriviScadenza(idPrimaNota, scadenza(termini, data, rata.giorni),
                            getSqlNumber(negative ? -quota : quota)))
            return false;
    }
    return true;
}

bool rigenera(int idPrimaNota, int idPagamento, Currency importo, QDate data, bool negative) {
    const auto termini = leggiTermini(idPagamento);
    if (!termini) return false;
    return gAdo.executeSQL("DELETE FROM Scadenze WHERE FK_PRIMANOTA= " + QString::number(idPrimaNota),
                           sorgente()) &&
           scriviAcconto(*termini, idPrimaNota, importo, data, negative) &&
           scriviRate(*termini, idPrimaNota, importo, data, negative);
}

}  // namespace

bool generaScadenzePagamento(int idPrimaNota, int idPagamento, Currency importo, QDate data, bool negative) {
    return protetto(
        gNomeModulo, "generaScadenzePagamento",
        [&] { return rigenera(idPrimaNota, idPagamento, importo, data, negative); }, false);
}
