#include "data/schema_builder.h"

namespace schema {
namespace {

// The four accounts of the posting may be 0 as well as Null when not in use, so nothing checks them here.
Tabella causali() {
    return tabella("Causali",
                   {
                       obbligatoria(testo("CODICE", 50)),
                       testo("DESCRIZIONE", 255),
                       flag("OPERAZIONE"),
                       intero("ORIGINE"),
                       intero("DESTINAZIONE"),
                       rif("FK_MAGAZZINOORIG", "Magazzini"),
                       rif("FK_MAGAZZINODEST", "Magazzini"),
                       flag("TAGLIO"),
                       flag("GENERAPN"),
                       flag("GENERASCAD"),
                       flag("SCADENZENEGATIVE"),
                       flag("MOSTRAVB"),
                       intero("FK_CONTODARE1"),
                       intero("FK_CONTODARE2"),
                       intero("FK_CONTOAVERE1"),
                       intero("FK_CONTOAVERE2"),
                   },
                   {{"CODICE"}, {"DESCRIZIONE"}});
}

Tabella tipoDocumenti() {
    return tabella("TipoDocumenti",
                   {
                       obbligatoria(testo("CODICE", 50)),
                       testo("DESCRIZIONE", 255),
                       testo("DESCSTAMPA", 255),
                       rif("FK_CAUSALE", "Causali"),
                       intero("NCONTATORE"),
                       testo("REPORT", 255),
                       flag("ACCOMPAGNATORIO"),
                       flag("USAPREZZIIVA"),
                       flag("MOSTRAVB"),
                       flag("STAMPAELENCOSPECIALE"),
                       flag("NONSTAMPAREVB"),
                   },
                   {{"CODICE"}, {"DESCRIZIONE"}});
}

// The last number given of each counter and year. A counter is only a number: nothing refers to it and it
// refers to nothing.
Tabella contatori() {
    Tabella t = tabella("Contatori", {obbligatoria(intero("FK_NUMERATORE")), obbligatoria(testo("ANNO", 4)),
                                      intero("NUMERO"), testo("NOTE", 255)});
    unico(t, {"FK_NUMERATORE", "ANNO"});
    return t;
}

Tabella primaNota() {
    return tabella("PrimaNota",
                   {
                       intero("PROGRESSIVO"),
                       obbligatoria(dataOra("DATA")),
                       dataOra("DATAVALUTA"),
                       rif("FK_CAUSALE", "Causali"),
                       rif("FK_ANAGRAFE", "Anagrafiche"),
                       testo("DESCRIZIONE", 255),
                       testo("RIFERIMENTI", 255),
                       testo("NUMDOCUMENTO", 50),
                       importo("IMPORTO"),
                       testo("CODICEPARTITA", 20),
                       rif("FK_PAGAMENTO", "Pagamenti"),
                       rif("FK_CENTROCOSTO", "CentriCosto"),
                   },
                   {{"YEAR(DATA)", "PROGRESSIVO"}, {"FK_CAUSALE", "DATA"}, {"DATAVALUTA"}, {"PROGRESSIVO"}});
}

}  // namespace

std::vector<Tabella> tabelleDocumenti() {
    return {
        causali(),
        tipoDocumenti(),
        contatori(),
        primaNota(),
        tabella("PrimaNotaDettagli", {obbligatoria(rif("FK_PRIMANOTA", "PrimaNota")),
                                      rif("FK_CONTO", "PianoConti"), importo("DARE"), importo("AVERE")}),
    };
}

}  // namespace schema
