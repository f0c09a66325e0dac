#include "data/schema_builder.h"

namespace schema {
namespace {

std::vector<Colonna> testata() {
    return {
        obbligatoria(intero("PROGRESSIVO")),
        obbligatoria(intero("ANNO")),
        obbligatoria(dataOra("DATA")),
        obbligatoria(rif("FK_TIPODOCUMENTO", "TipoDocumenti")),
        rif("FK_ORIGINE", "Magazzini"),
        rif("FK_DESTINAZIONE", "Magazzini"),
        rif("FK_CONTROPARTITA", "Anagrafiche"),
        rif("FK_PAGAMENTO", "Pagamenti"),
        intero("ID_CASSA"),
        flag("USAPREZZIIVA"),
        importo("TOTIMPONIBILE"),
        importo("TOTIMPOSTA"),
        importo("TOTDOCUMENTO"),
        rif("FK_PRIMANOTA", "PrimaNota"),
        rif("FK_PNPAGAMENTO", "PrimaNota"),
        dataOra("DATASTAMPA"),
        testo("RIFERIMENTI", 255),
        testo("CODPARTITA", 20),
    };
}

// A field left empty in the transport dialogue is stored as key 0, so only the bank is a checked key.
std::vector<Colonna> trasporto() {
    return {
        intero("FK_ASPETTOCONS"),   intero("FK_CAUSALETRASPORTO"),
        intero("FK_SPEDIZIONE"),    rif("FK_BANCA", "Banche"),
        intero("COLLICONS"),        reale("PESOCONS"),
        dataOra("DATACONS"),        ora("ORACONS"),
        testo("VIACONS", 255),      testo("CIVICOCONS", 20),
        testo("CAPCONS", 10),       testo("CITTACONS", 100),
        testo("PROVINCIACONS", 10), testo("TELEFONOCONS", 50),
        testo("FAXCONS", 50),
    };
}

// The special list, and the withholding tax (two rates in percent and its amount).
std::vector<Colonna> elencoSpecialeERitenuta() {
    return {
        intero("PROGELENCOSPECIALE"),
        testo("DESTELENCOSPECIALE", 255),
        testo("AUTELENCOSPECIALE", 255),
        testo("DOCUMELENCOSPECIALE", 255),
        reale("RDA1"),
        reale("RDA2"),
        importo("TOTRDA"),
    };
}

Tabella movimenti() {
    std::vector<Colonna> colonne = testata();
    for (const std::vector<Colonna>& parte : {trasporto(), elencoSpecialeERitenuta()}) {
        colonne.insert(colonne.end(), parte.begin(), parte.end());
    }
    return tabella("Movimenti", std::move(colonne),
                   {
                       {"DATA", "FK_TIPODOCUMENTO", "FK_CONTROPARTITA", "ID_CASSA"},
                       {"ANNO", "PROGRESSIVO", "FK_TIPODOCUMENTO"},
                       {"YEAR(DATA)", "FK_TIPODOCUMENTO", "ID_CASSA", "PROGRESSIVO"},
                       {"FK_CONTROPARTITA", "FK_TIPODOCUMENTO", "ID_CASSA", "DATASTAMPA"},
                       {"PROGRESSIVO"},
                   });
}

// A component points to its kit's head by IK_DETTAGLIOMOVIMENTO. The server does not check that key: rows
// are deleted one by one, the head first.
Tabella dettagliMovimento() {
    return tabella("DettagliMovimento",
                   {
                       obbligatoria(rif("FK_MOVIMENTO", "Movimenti")),
                       intero("EXTRAPROG"),
                       intero("POS"),
                       rif("FK_PRODOTTO", "Prodotti"),
                       testo("CODPRODOTTO", 50),
                       testo("DESCPRODOTTO", 255),
                       reale("QUANTITA"),
                       importo("PREZZO"),
                       reale("SCONTO"),
                       reale("SCONTO2"),
                       reale("SCONTO3"),
                       importo("SCONTONETTO"),
                       importo("PREZZONETTO"),
                       importo("TOTPREZZONETTO"),
                       rif("FK_IVA", "Iva"),
                       reale("VALOREIVA"),
                       importo("IVA"),
                       importo("TOTALEIVA"),
                       importo("TOTALERIGA"),
                       rif("FK_UM", "UnitaMisura"),
                       importo("TAGLIO"),
                       intero("IK_DETTAGLIOMOVIMENTO"),
                       rif("FK_VENDITORE", "Venditori"),
                       dataOra("ORA"),
                   },
                   {{"FK_MOVIMENTO", "EXTRAPROG", "POS"}, {"IK_DETTAGLIOMOVIMENTO"}});
}

}  // namespace

std::vector<Tabella> tabelleVendite() {
    return {
        movimenti(),
        dettagliMovimento(),
        tabella("Scadenze", {rif("FK_PRIMANOTA", "PrimaNota"), rif("FK_MOVIMENTO", "Movimenti"),
                             dataOra("DATA"), importo("IMPORTO")}),
    };
}

}  // namespace schema
