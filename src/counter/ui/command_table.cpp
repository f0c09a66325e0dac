#include "counter/ui/command_table.h"

#include <array>

#include "counter/ui/style.h"
#include "sale/vendita.h"

namespace {

constexpr bool presto = true;
constexpr bool pronto = false;

const std::array<VoceComando, CampiVendita::numeroComandi>& comandi() {
    static const std::array<VoceComando, CampiVendita::numeroComandi> tabella{{
        {"Nuova vendita", "Comincia una nuova vendita", pronto},
        {"Vendita precedente", "Mostra la vendita precedente", pronto},
        {"Vendita successiva", "Mostra la vendita successiva", pronto},
        {"Vai a una vendita", "Apre una vendita per numero o per data", pronto},
        {"Cancella la vendita", "Cancella la vendita salvata", pronto, ruoli::distruttivo},
        {"Nuovo conto", "Apre un altro conto e cerca il cliente", pronto},
        {"Cancella la riga", "Toglie la riga selezionata", pronto, ruoli::distruttivo},
        {"Chiudi il conto", "Chiude questo conto", pronto},
        {"Stampa", "stampa il documento della vendita", presto},
        {"Salva la vendita", "Salva la vendita e invia lo scontrino", pronto, ruoli::principale},
        {"Altri pagamenti", "Cambia la causale di pagamento della vendita", pronto, nullptr, {}, "SHF+F1"},
        {"Apri Bottegon", "apre il programma gestionale", presto},
        {"Vendite sospese", "Elenca le vendite salvate e non stampate", pronto},
        {"Converti la vendita", "trasforma la vendita in un altro documento", presto},
        {"Ricopia la vendita", "Ricopia la vendita in un nuovo conto", pronto, nullptr, {}, "SHF+F8"},
        {"Nuova riga", "Conferma la riga e ne comincia un'altra", pronto},
        {"Sconto immediato", "Applica uno sconto a tutte le righe", pronto, nullptr, "SCONTO", "SHF+F11"},
        {"Incasso", "registra un incasso dal cliente", presto},
        {"Elenco dei movimenti", "elenca i movimenti di questa cassa", presto},
        {"Movimenti del cliente", "Fai click per visualizzare i Movimenti del cliente selezionato", presto,
         nullptr, "MOV. CLI."},
    }};
    return tabella;
}

const std::array<VoceComando, CampiVendita::numeroConti>& conti() {
    static const std::array<VoceComando, CampiVendita::numeroConti> tabella{{
        {"Conto 1", "Passa al conto 1, la cassa del giorno", pronto},
        {"Conto 2", "Passa al conto 2", pronto},
        {"Conto 3", "Passa al conto 3", pronto},
        {"Conto 4", "Passa al conto 4", pronto},
        {"Vai alla data", "Passa alla data della vendita", pronto},
        {"Cerca il cliente", "Cerca un cliente (F3 nel codice)", pronto},
        {"Righe del movimento", "Elenca le righe di tutte le vendite di questo numero", pronto},
        {"Cerca il prodotto", "Cerca un prodotto (F3 nel codice)", pronto},
        {"Vai alla quantità", "Passa alla quantità", pronto},
        {"Vai al prezzo di listino", "Passa al prezzo di listino", pronto, nullptr, {}, "SHF+F2"},
        {"Informazioni sul prodotto", "mostra tutto del prodotto", presto},
        {"Vai agli sconti", "Passa agli sconti", pronto, nullptr, {}, "SHF+F9"},
        {"Vai al prezzo", "Passa al prezzo della riga", pronto, nullptr, {}, "F7"},
        {"Cerca il codice IVA", "Cerca un codice IVA", pronto},
    }};
    return tabella;
}

}  // namespace

const VoceComando& voceComando(int indice) {
    return comandi().at(static_cast<size_t>(indice));
}
const VoceComando& voceConto(int indice) {
    return conti().at(static_cast<size_t>(indice));
}
