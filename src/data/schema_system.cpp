#include "data/schema_builder.h"

namespace schema {
namespace {

// The rows of a statement of account while it is printed; each workstation's are told by COMPUTER.
Tabella estratto() {
    return tabella("TMP_ESTRATTO",
                   {
                       testo("COMPUTER", 255),
                       intero("PROG"),
                       dataOra("DATA"),
                       dataOra("DATAVALUTA"),
                       testo("CODCAUSALE", 50),
                       testo("CAUSALE", 255),
                       intero("NUMCONTROPARTITA"),
                       testo("CONTROPARTITA", 255),
                       testo("CONTO", 255),
                       importo("IMPORTO"),
                       testo("DESCRIZIONE", 255),
                       testo("RIFERIMENTO", 255),
                       testo("CENTROCOSTO", 255),
                       testo("CODICEPARTITA", 20),
                   },
                   {{"COMPUTER"}});
}

Tabella opzioni() {
    Tabella t = tabella("Opzioni", {obbligatoria(testo("NOME", 100)), note("VALORE")});
    unico(t, {"NOME"});
    return t;
}

}  // namespace

std::vector<Tabella> tabelleSistema() {
    return {
        opzioni(),
        tabella("FunzionalitaReport", {testo("FUNZIONALITA", 100), testo("REPORT", 255)}, {{"FUNZIONALITA"}}),
        tabellaConChiave("ElencoTabelle", {chiave("ID"), testo("RIFFORM", 100), testo("NOME", 255)},
                         {{"RIFFORM"}}),
        tabella("GRUPPOUTENTI", {flag("AMMINISTRATORE")}),
        tabella("GRUPPOPERMESSI", {rif("FK_GRUPPOUTENTI", "GRUPPOUTENTI"), rif("FK_TABELLE", "ElencoTabelle"),
                                   flag("VISUALIZZA"), flag("SCRIVI"), flag("ELIMINA"), flag("STAMPA")}),
        estratto(),
    };
}

}  // namespace schema
