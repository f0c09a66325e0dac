#include "data/schema.h"

#include "data/schema_builder.h"

namespace schema {
namespace {

std::vector<Tabella> raccogli() {
    std::vector<Tabella> tutte;
    for (auto* gruppo : {tabelleCodici, tabelleAnagrafiche, tabellePrezzi, tabelleDocumenti, tabelleVendite,
                         tabelleSistema}) {
        const std::vector<Tabella> tabelle = gruppo();
        tutte.insert(tutte.end(), tabelle.begin(), tabelle.end());
    }
    return tutte;
}

}  // namespace

const std::vector<Tabella>& tabelle() {
    static const std::vector<Tabella> tutte = raccogli();
    return tutte;
}

}  // namespace schema
