#pragma once

#include <QString>
#include <QTextStream>

struct OpzioniCreazione {
    bool demo = false;         // the demo shop instead of an empty archive
    quint64 seme = 1;          // of the demo shop: same seed, same bytes
    bool sovrascrivi = false;  // an existing archive may be replaced
};

// Makes an archive. It is written beside its place and moved there when complete, so that a failure
// leaves what was there before. True on success; `esito` takes what there is to say in either case.
bool creaArchivio(const QString& percorso, const OpzioniCreazione& opzioni, QTextStream& esito);
