#pragma once

#include <vector>

#include <QVariant>

class QSqlQuery;

// What a column of a server holds, as far as its values are to be read in another way than QtSql's.
enum class TipoColonna {
    Qualunque,
    Decimale,  // exact number, arrives as text
    Reale,     // floating number, arrives as text
    Ora,       // time of day
    Bit,
};

// A server's value as the recordset holds it: whole numbers qlonglong, others double, or their exact text
// where a double's 15 digits do not do; texts QString; dates and times QDateTime without a time zone, a
// time of day on 30/12/1899; a Null a null QVariant, and so is a date of zeros.
QVariant valoreArchivio(const QVariant& valore, TipoColonna tipo);

// The current and all further rows of a query, row by row.
std::vector<QVariant> celleDi(QSqlQuery& query, const std::vector<TipoColonna>& tipi);
