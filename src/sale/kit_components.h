#pragma once

#include <optional>
#include <vector>

#include "sale/row_cells.h"
#include "sale/row_writer.h"

// The components of a kit as the archive has them, worked out for the sale at the screen. From DistintaBase
// and DistintaBaseDettagli.

struct FiglioDistinta {
    DatiRiga dati;
    CelleRiga celle;
    Currency importo;  // what it adds to its head's amount, VAT included
};

struct Distinta {
    std::vector<FiglioDistinta> figli;  // in their order; those of a kit inside the kit behind it
    Currency listino;                   // of one kit, VAT excluded
    Currency netto;
};

// The list price of a component: its own in the kit, or what the customer pays for the product alone.
Currency prezzoComponente(const Vendita& v, Currency prezzo, int idProdotto);

// `quantita`: how many kits. The editor's discounts apply to each component; a component without a price of
// its own costs what the customer pays for it. Nothing when the archive cannot be read, which has been
// reported. Beyond the range of an amount: RunTimeError 6.
std::optional<Distinta> leggiDistinta(Vendita& v, const QString& codice, float quantita);
