#pragma once

#include <optional>
#include <vector>

#include <QString>

struct Documento;
struct Vendita;

// A server refuses a row that refers to something that is no more: a customer, a product, ... In its own
// words that is of no use at a counter.

// What a row of the books points to, in the shop's words.
struct Riferimento {
    const char* tabella;
    int chiave;  // below 1: none
    QString nome;
    bool dellaVendita = true;  // another can be chosen on the screen; false: only the archive can be mended
    bool opzioneMaiScelta = false;  // the option that it comes from was never set
};

// Inside the failed transaction, before the screen is put back: when it failed for that, what the save
// referred to. The server's words and the statement are then left to the log.
std::optional<std::vector<Riferimento>> riferimentiRifiutati(const Vendita& v, const Documento& d);
// After the rollback: tells which of these are gone, and of the causals' accounts.
void spiegaRiferimentiMancanti(std::vector<Riferimento> riferimenti);

// The same of a deletion, which posts anew what remains: whatever the causal of the document says of posting,
// and its collection by `causaleIncasso`, below 1 when that is left alone.
std::optional<std::vector<Riferimento>> riferimentiRifiutatiCancellando(const Vendita& v, int causaleIncasso);
void spiegaRiferimentiMancantiCancellando(std::vector<Riferimento> riferimenti);
