#include "data/schema_builder.h"

namespace schema {
namespace {

// What operators type and what they read.
Tabella tabellaCodici(const QString& nome, std::vector<Colonna> altre = {},
                      std::vector<QStringList> indici = {}) {
    std::vector<Colonna> colonne{obbligatoria(testo("CODICE", 50)), testo("DESCRIZIONE", 255)};
    colonne.insert(colonne.end(), altre.begin(), altre.end());
    indici.insert(indici.begin(), {QStringList{"CODICE"}, QStringList{"DESCRIZIONE"}});
    return tabella(nome, std::move(colonne), indici);
}

}  // namespace

std::vector<Tabella> tabelleCodici() {
    return {
        tabellaCodici("Iva", {reale("VALORE")}),
        tabellaCodici("UnitaMisura"),
        tabellaCodici("Marche"),
        tabellaCodici("Gruppi"),
        tabellaCodici("CategorieMerceologiche"),
        tabellaCodici("Magazzini"),
        tabellaCodici("Venditori", {testo("CODICEEXTRA", 50)}, {{"CODICEEXTRA"}}),
        tabellaCodici("AspettoEsteriore"),
        tabellaCodici("CausaliTrasporto"),
        tabellaCodici("Spedizioni"),
        tabellaCodici("FasceClienti"),
        tabellaCodici("CategorieSconti"),
        tabellaCodici("Banche", {testo("ABI", 10), testo("CAB", 10), testo("AGENZIA", 100)}),
        tabellaCodici("ScontiImmediati", {reale("VALORE")}),
        tabellaCodici("PianoConti"),
        tabellaCodici("CentriCosto"),
        tabellaCodici("Pagamenti",
                      {reale("ACCONTO"), flag("RIMESSADIRETTA"), flag("FINEMESE"), intero("NRATE")}),
        tabella("DettagliPagamenti",
                {obbligatoria(rif("FK_PAGAMENTO", "Pagamenti")), intero("NGIORNI"), reale("PERCENTUALE")}),
    };
}

}  // namespace schema
