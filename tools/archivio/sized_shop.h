#pragma once

#include <QDate>

#include "archivio/create_archive.h"

class Scrittore;

// The least that the made-up shop's kits, discounts and prices rest on.
constexpr int prodottiMinimi = 200;
constexpr int clientiMinimi = 30;

// A shop of the given size with three years of sales up to yesterday: documents, rows, journal, payment
// schedule and counters, all as the till would have written them. Too small a size raises RunTimeError 9999.
void riempiNegozio(Scrittore& scrittore, const MisureNegozio& misure, quint64 seme);
