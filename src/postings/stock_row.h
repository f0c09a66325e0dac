#pragma once

#include <optional>

#include <QString>

#include "core/currency.h"

// A row of DettagliProdotto: the stock of a product in a warehouse, or of one cost layer of it.
struct RigaGiacenza {
    int idProdotto;
    int idMagazzino;
    std::optional<Currency> taglio;  // nothing: the one row of the warehouse, whatever its cost

    QString condizione() const;
    // Its quantity; a row that does not exist is made, at cost `taglio` or 0. Nothing when a statement
    // failed.
    std::optional<float> quantita() const;
    // Puts the quantity there, and the cost too when it is given.
    bool scrivi(float quantita, std::optional<Currency> costo = std::nullopt) const;
};

// Prodotti.GIACENZA; nothing when the query failed.
std::optional<float> leggiGiacenza(int idProdotto);
bool scriviGiacenza(int idProdotto, float giacenza);
