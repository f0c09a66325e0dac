#pragma once

#include <map>
#include <set>
#include <utility>
#include <vector>

#include <QStringList>

// What a save writes to a row of the books: each column with its value as SQL.
using RigaScritta = std::vector<std::pair<QString, QString>>;

// What the rows of a sale wrote to DettagliMovimento when it was saved, by their keys.
struct RigheSalvate {
    std::set<int> cancellate;
    std::map<int, RigaScritta> mutate;
    std::map<int, RigaScritta> nuove;
};

// A save of which nobody knows whether it is in the books: the answer to its commit was lost. Told in such a
// way that the books can be asked.
struct SalvataggioIncerto {
    // An unforeseen error ends a save with a commit of what it had written by then.
    enum class Parte { Tutto, TestataERighe, SolaTestata };

    int idMovimento = 0;  // key of the Movimenti row
    int extraProg = 0;
    RigaScritta testata;  // of the Movimenti row
    RigheSalvate righe;
    QStringList schermo;  // the sale as it stood on the screen behind the save
    int scontrino = 0;    // the save's number in the list of sales without a receipt; 0: none
    Parte parte = Parte::Tutto;

    bool conRighe() const { return parte != Parte::SolaTestata; }
};
