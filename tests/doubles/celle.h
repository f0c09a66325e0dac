#pragma once

#include <QStringList>

#include "data/recordset.h"
#include "data/stored_date.h"

// A value as tests compare it, the same from every server: numbers in their shortest form, dates as
// "YYYY-MM-DD HH:MM:SS", a Null as an empty text.
inline QString testoCella(const QVariant& valore) {
    return valore.typeId() == QMetaType::QDateTime ? dataArchivio(valore.toDateTime()) : valore.toString();
}

// The cells of the current row, parted by "|".
inline QString testoRiga(const Recordset& righe) {
    QStringList celle;
    for (int i = 0; i < righe.campi(); ++i) {
        celle << testoCella(righe.campo(i));
    }
    return celle.join('|');
}

// A value as a literal that every server reads; texts with quotes doubled.
inline QString letterale(const QVariant& valore) {
    if (valore.isNull()) return "NULL";
    const int tipo = valore.typeId();
    if (tipo == QMetaType::QString || tipo == QMetaType::QDateTime)
        return "'" + testoCella(valore).replace("'", "''") + "'";
    return testoCella(valore);
}
