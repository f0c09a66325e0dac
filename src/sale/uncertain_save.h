#pragma once

#include <map>
#include <set>

#include <QStringList>

// What the rows of a sale wrote to the books when it was saved.
struct RigheSalvate {
    std::set<int> note;             // keys of those that were in the books before
    std::set<int> cancellate;       // of these, the ones that are gone now
    std::map<int, QString> mutate;  // and what the changed ones hold now
    QStringList nuove;              // what the new rows hold, sorted

    bool operator==(const RigheSalvate&) const = default;
};

// A save of which nobody knows whether it is in the books: the answer to its commit was lost. Told in such a
// way that the books can be asked.
struct SalvataggioIncerto {
    int idMovimento = 0;  // key of the Movimenti row
    int extraProg = 0;
    QString testata;  // number, payment, customer and day of the header
    RigheSalvate righe;
};
