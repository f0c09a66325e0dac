#include "postings/journal.h"

#include "core/errors.h"
#include "core/globals.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "data/prepare_sql.h"
#include "postings/numbering.h"

namespace {

constexpr int lunghezzaDescrizione = 255;
constexpr int lunghezzaPartita = 20;

QString sorgente() {
    return gNomeModulo + ".salvaPrimaNota";
}

// The columns that a creation and a rewrite share, in the order of the table.
std::vector<std::pair<const char*, QString>> valori(const RegistrazionePN& r) {
    return {
        {"Data", gAdo.getSQLDate(r.data)},
        {"DataValuta", gAdo.getSQLDate(r.dataValuta)},
        {"FK_Causale", getIDOrNullStr(r.idCausale)},
        {"FK_Anagrafe", getIDOrNullStr(r.idAnagrafe)},
        {"Descrizione", testoSQL(r.descrizione.left(lunghezzaDescrizione))},
        {"Riferimenti", testoSQL(r.riferimenti.left(lunghezzaDescrizione))},
        {"NumDocumento", testoSQL(r.numDocumento)},
        {"Importo", getSqlNumber(r.importo)},
        {"CodicePartita", testoSQL(r.codicePartita.left(lunghezzaPartita))},
        {"Fk_Pagamento", getIDOrNullStr(r.idPagamento)},
    };
}

// The new entry's key; below 1 on failure.
int crea(const RegistrazionePN& r) {
    const int progressivo = getNewProgressivoPrimaNota(r.data);
    if (progressivo == -1) return -1;
    QStringList colonne{"Progressivo"};
    QStringList contenuti{QString::number(progressivo)};
    for (const auto& [colonna, valore] : valori(r)) {
        colonne << colonna;
        contenuti << valore;
    }
    return gAdo.getIDByInsert(
        "INSERT INTO PrimaNota (" + colonne.join(", ") + ") VALUES ( " + contenuti.join(", ") + ") ",
        sorgente(), "RID", "PrimaNota");
}

bool riscrivi(const RegistrazionePN& r) {
    QStringList assegnazioni;
    for (const auto& [colonna, valore] : valori(r))
        assegnazioni << colonna + QString(" = ") + valore;
    return gAdo.executeSQL(
        "UPDATE PrimaNota SET " + assegnazioni.join(", ") + " WHERE RID = " + QString::number(r.idPrimaNota),
        sorgente());
}

bool riuscito(const QString& esito) {
    if (esito == righeScritte) return true;
    if (!esito.isEmpty()) gErr.mostraMessaggio(esito, OperatorPort::Icona::Critica);
    return false;
}

// The causal is looked at first: an entry that refers to none would be refused in the server's words.
int scriviRegistrazione(RegistrazionePN r) {
    ContiCausale conti;
    if (!riuscito(leggiConti(r.idCausale, conti))) return -1;
    if (r.idPrimaNota >= 1 && !riscrivi(r)) return -1;
    if (r.idPrimaNota < 1) r.idPrimaNota = crea(r);
    if (r.idPrimaNota < 1) return -1;
    return riuscito(saveDettagliPrimaNota(r, conti)) ? r.idPrimaNota : -1;
}

}  // namespace

int salvaPrimaNota(const RegistrazionePN& registrazione) {
    return protetto(
        gNomeModulo, "salvaPrimaNota", [&] { return scriviRegistrazione(registrazione); }, 0);
}
