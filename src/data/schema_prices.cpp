#include "data/schema_builder.h"

namespace schema {
namespace {

// A range of quantities, both ends included, and what holds in it.
std::vector<Colonna> fascia(const QString& testa, const QString& tabellaTesta, std::vector<Colonna> valori) {
    std::vector<Colonna> colonne{obbligatoria(rif(testa, tabellaTesta)), reale("RANGEMIN"),
                                 reale("RANGEMAX")};
    colonne.insert(colonne.end(), valori.begin(), valori.end());
    return colonne;
}

std::vector<Colonna> treSconti() {
    return {reale("SCONTO1"), reale("SCONTO2"), reale("SCONTO3")};
}

}  // namespace

std::vector<Tabella> tabellePrezzi() {
    return {
        tabella("CatScVendita",
                {rif("FK_CATEGORIA", "CategorieSconti"), rif("FK_FASCIA", "FasceClienti"),
                 rif("FK_MARCA", "Marche")},
                {{"FK_CATEGORIA", "FK_FASCIA", "FK_MARCA"}}),
        tabella("CatScVenditeSconti", fascia("FK_CATSCVENDITE", "CatScVendita", treSconti()),
                {{"FK_CATSCVENDITE", "RANGEMIN"}}),
        tabella("CatScProdVendita",
                {rif("FK_CATEGORIA", "CategorieSconti"), rif("FK_FASCIA", "FasceClienti"),
                 rif("FK_PRODOTTO", "Prodotti")},
                {{"FK_PRODOTTO", "FK_FASCIA", "FK_CATEGORIA"}}),
        tabella("CatScVenditaProd", fascia("FK_CATSCVENDITEPROD", "CatScProdVendita", {importo("PREZZO")}),
                {{"FK_CATSCVENDITEPROD", "RANGEMIN"}}),
        tabella("CatScAcquisto",
                {rif("FK_CATEGORIA", "CategorieSconti"), rif("FK_FORNITORE", "Anagrafiche"),
                 rif("FK_MARCA", "Marche")},
                {{"FK_CATEGORIA", "FK_FORNITORE", "FK_MARCA"}}),
        tabella("CatScAcquistoSconti", fascia("FK_CATSCACQUISTO", "CatScAcquisto", treSconti()),
                {{"FK_CATSCACQUISTO", "RANGEMIN"}}),
        tabella("Listini",
                {obbligatoria(rif("FK_ANAGRAFE", "Anagrafiche")),
                 obbligatoria(rif("FK_PRODOTTO", "Prodotti")), importo("PREZZO")},
                {{"FK_ANAGRAFE", "FK_PRODOTTO"}}),
    };
}

}  // namespace schema
