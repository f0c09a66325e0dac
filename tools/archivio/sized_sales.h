#pragma once

#include <QDate>

struct ContestoDemo;

// Sales of three years with so many rows in all, the last ones on the day before `oggi`.
void scriviVendite(ContestoDemo& c, int righe, QDate oggi);
