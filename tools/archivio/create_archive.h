#pragma once

#include <optional>

#include <QString>
#include <QTextStream>

// How large a made-up shop is.
struct MisureNegozio {
    int prodotti = 0;
    int clienti = 0;
    int righe = 0;  // of sales, over the three years up to yesterday
};

struct OpzioniCreazione {
    bool demo = false;                                   // the demo shop instead of an empty archive
    quint64 seme = 1;                                    // of a made-up shop: same seed, same shop
    bool sovrascrivi = false;                            // an existing archive may be replaced
    std::optional<MisureNegozio> misure = std::nullopt;  // a shop of this size instead
};

// Makes an archive, its name as in archive_name.h. A file is written beside its place and moved there when
// complete, so that a failure leaves what was there before; a database is marked as incomplete until then.
// True on success; `esito` takes what there is to say in either case.
bool creaArchivio(const QString& nome, const OpzioniCreazione& opzioni, QTextStream& esito);
