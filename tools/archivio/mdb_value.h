#pragma once

#include <QVariant>

#include "archivio/csv_reader.h"
#include "data/schema.h"

// The value of a field of an Access file for a column of ours: a yes/no of -1 becomes 1, and a number of
// single precision the shortest one that means it. A text that mdb-export has cut raises RunTimeError 13.
QVariant valoreMdb(const CampoCsv& campo, const schema::Colonna& colonna);
