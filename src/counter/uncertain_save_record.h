#pragma once

#include <QJsonObject>

#include "sale/uncertain_save.h"

// A save of which it is not known whether it is in the books, as an object that can be written down.
QJsonObject jsonDi(const SalvataggioIncerto& salvataggio);
SalvataggioIncerto salvataggioDa(const QJsonObject& oggetto);
