#pragma once

#include <map>
#include <optional>
#include <set>

#include "core/currency.h"

class FlexVB;
struct Vendita;

// A row of DettagliMovimento as the books hold it at this moment.
struct RigaNeiLibri {
    int idProdotto = 0;
    float quantita = 0;
    Currency taglio;
};

// A stored sale as a desk's turn to write finds it. Another desk, or another account of this one, may have
// changed it since it was put on the screen: its stock would then move by a difference that is no more.
struct VenditaNeiLibri {
    bool presente = false;  // its header is there
    int idPrimaNota = -1;   // below 1: none
    int idPNPagamento = -1;
    int idPagamento = -1;
    std::map<int, RigaNeiLibri> righe;  // by key; of those that were asked for, the ones that are there
};

// Inside a transaction: the header and those of its rows. Nothing when they could not be read.
std::optional<VenditaNeiLibri> leggiVenditaNeiLibri(int idMovimento, const std::set<int>& righe);

// Keys of the stored rows on the screen: all, or only those that a save changes or deletes.
std::set<int> righeRegistrate(const FlexVB& griglia);
std::set<int> righeDaToccare(const FlexVB& griglia);

// The rows that were asked for are there as the screen has them. A layer that the screen shows rounded is
// put there in full, since the stock is kept by all its decimals. False: another has changed or deleted the
// sale, which the operator is told after the transaction.
bool righeComeSulloSchermo(FlexVB& griglia, const VenditaNeiLibri& vendita, const std::set<int>& righe);
// The entries of the journal are those that the screen knows. Those that it knows nothing of, since a sale
// under the same header has made them meanwhile, become its own and are rewritten, not made twice. False: as
// above; or the sale was collected meanwhile, and would be once more.
bool riprendiRegistrazioni(Vendita& v, const VenditaNeiLibri& vendita);
