#include "data/schema_builder.h"

namespace schema {
namespace {

Tabella anagrafiche() {
    return tabella("Anagrafiche",
                   {
                       intero("NUMERO"),
                       testo("CODICEEXTRA", 50),
                       testo("TIPO", 1),
                       testo("DENOMINAZIONE", 255),
                       testo("INDIRIZZO", 255),
                       testo("CIVICO", 20),
                       testo("CAP", 10),
                       testo("CITTA", 100),
                       testo("PROVINCIA", 10),
                       testo("TELUFFICIO", 50),
                       testo("CELL", 50),
                       testo("FAX", 50),
                       testo("PIVA", 20),
                       testo("CFISCALE", 20),
                       dataOra("DATANASCITA"),
                       intero("LISTINO"),
                       reale("SCONTO"),
                       rif("FK_PAGAMENTO", "Pagamenti"),
                       rif("FK_FASCIACLIENTE", "FasceClienti"),
                       importo("FIDO"),
                       flag("CTRLFIDO"),
                       flag("SEGNALA"),
                       testo("INDIRIZZODEST", 255),
                       testo("CIVICODEST", 20),
                       testo("CAPDEST", 10),
                       testo("CITTADEST", 100),
                       testo("PROVINCIADEST", 10),
                       testo("DATIAUTORIZZAZIONE", 255),
                       testo("DOCUMENTORICONOSCIMENTO", 255),
                   },
                   {{"NUMERO"}, {"CODICEEXTRA"}, {"DENOMINAZIONE"}});
}

Tabella prodotti() {
    return tabella(
        "Prodotti",
        {
            obbligatoria(testo("CODICE", 50)),
            testo("BARCODE", 50),
            testo("EXTRACODICE", 50),
            testo("DESCRIZIONE", 255),
            flag("DISABILITATO"),
            rif("FK_SOSTITUITO", "Prodotti"),
            rif("FK_MARCA", "Marche"),
            rif("FK_CATEGORIA", "CategorieMerceologiche"),
            rif("FK_GRUPPO", "Gruppi"),
            rif("FK_IVA", "Iva"),
            rif("FK_UNITAMISURA", "UnitaMisura"),
            rif("FK_CATSCOVEN", "CategorieSconti"),
            rif("FK_CATSCOACQ", "CategorieSconti"),
            importo("LISTINO1"),
            importo("LISTINO2"),
            importo("LISTINO3"),
            importo("LISTINO4"),
            reale("SCONTO"),
            importo("PLISTINO"),
            dataOra("DATALISTINO"),
            importo("PREZZOACQUISTO"),
            reale("GIACENZA"),
            flag("SETGIACENZA"),
            testo("UBICAZIONE", 50),
            reale("PESO"),
            intero("COLLI"),
            flag("ELENCOSPECIALE"),
            testo("NUMREGISTRAZIONE", 50),
            flag("BLOCCAPREZZO"),
            dataOra("DATAULTIMOSCARICO"),
            importo("PREZZOULTIMOSCARICO"),
        },
        {{"CODICE"},
         {"BARCODE"},
         {"EXTRACODICE"},
         {"DESCRIZIONE"},
         {"FK_CATEGORIA", "DESCRIZIONE"},
         // A page of the products that are sold, by description or by code, without a look at their rows.
         {"FK_SOSTITUITO", "DISABILITATO", "DESCRIZIONE", "CODICE"},
         {"FK_SOSTITUITO", "DISABILITATO", "CODICE", "DESCRIZIONE"}});
}

// Each row is a layer of cost; the order of RID is the age of the layers.
Tabella dettagliProdotto() {
    return tabella("DettagliProdotto",
                   {obbligatoria(rif("FK_PRODOTTO", "Prodotti")),
                    obbligatoria(rif("FK_MAGAZZINO", "Magazzini")), importo("TAGLIO"), reale("QUANTITA")},
                   {{"FK_PRODOTTO", "FK_MAGAZZINO"}});
}

Tabella dettagliDistinta() {
    return tabella("DistintaBaseDettagli",
                   {
                       obbligatoria(rif("FK_DISTINTABASE", "DistintaBase")),
                       rif("FK_PRODOTTO", "Prodotti"),
                       testo("CODPRODOTTO", 50),
                       testo("DESCPRODOTTO", 255),
                       reale("QUANTITA"),
                       importo("PREZZO"),
                       importo("PREZZONETTO"),
                       rif("FK_IVA", "Iva"),
                       reale("VALOREIVA"),
                       rif("FK_UM", "UnitaMisura"),
                       intero("POS"),
                   },
                   {{"FK_DISTINTABASE", "POS"}});
}

}  // namespace

std::vector<Tabella> tabelleAnagrafiche() {
    return {
        anagrafiche(),
        prodotti(),
        tabella("ProdottiAlternativi", {obbligatoria(rif("FK_PRODOTTO1", "Prodotti")),
                                        obbligatoria(rif("FK_PRODOTTO2", "Prodotti"))}),
        dettagliProdotto(),
        tabella("DistintaBase", {obbligatoria(testo("CODICE", 50))}, {{"CODICE"}}),
        dettagliDistinta(),
    };
}

}  // namespace schema
