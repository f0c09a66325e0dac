#include "counter/captions.h"

#include "sale/vendita.h"

namespace {

const char* const comandi[CampiVendita::numeroComandi] = {
    "&NUOVA VND (F2)",
    "PR&ECED. (SHF <~)",
    "SUCCESS. (SHF ~>)",
    "V&AI A...",
    "CANCELLA (SHF+F7)",
    "N&UOVO CNT (F8)",
    "CANC. &RIGA (F9)",
    "C&HIUDI (F10)",
    "&STAMPA (F12)",
    "SA&LVA VND (F5)",
    "ALTRI PAGAM.",
    "&BOTTEGON",
    "VEN. SOSP. (F11)",
    "CON&VERTI",
    "RICOPIA",
    "NUOVA RIGA (F6)",
    "",
    "IN&CASSO",
    "ELENCO MOV.",
    "",
};

const char* const conti[CampiVendita::numeroConti] = {
    "Conto &1", "Conto &2", "Conto &3", "Conto &4", "&DATA", "&CLIENTE", "PRO&G",
    "&PROD.",   "&Q.TA'",   "P.LIST",   "INFO",     "SC",    "P.FIN",    "&IVA",
};

}  // namespace

void scriviDidascalie(Vendita& v) {
    for (size_t i = 0; i < v.cmdComando.size(); ++i) {
        v.cmdComando[i].testo(comandi[i]);
    }
    for (size_t i = 0; i < v.cmdConto.size(); ++i) {
        v.cmdConto[i].testo(conti[i]);
    }
    v.cmdComando[16].tag("0");
    v.cmdOperatore.testo("&OPERATORE");
}
