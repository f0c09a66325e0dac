#pragma once

#include <set>

#include <QJsonArray>
#include <QJsonObject>

#include "sale/uncertain_save.h"

// What is not known to be in the books, as values that can be written down: the keys of rows, and a save of
// which only a look at the archive tells whether it is there.
QJsonArray jsonDi(const std::set<int>& chiavi);
std::set<int> chiaviDa(const QJsonValue& valore);
QJsonObject jsonDi(const SalvataggioIncerto& salvataggio);
SalvataggioIncerto salvataggioDa(const QJsonObject& oggetto);
