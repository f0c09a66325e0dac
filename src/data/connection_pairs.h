#pragma once

#include <vector>

#include <QString>
#include <QStringView>

// The pairs of a connection string, and the keys that servers' makers have given to one and the same thing.
namespace coppie {

enum class Voce {
    Sconosciuta,
    Server,
    Porta,
    Socket,
    Database,
    Utente,
    Password,
    Driver,
    Cifratura,
    Certificati,
    Secondi,
    SecondiIstruzione,
    Tollerata,  // says nothing that matters here
};

// What a key means; case, blanks, "_" and "-" in it play no part.
Voce voceDi(QStringView chiave);

enum class Difetto { Nessuno, SenzaUguale, VirgoletteAperte, TestoDopoVirgolette, SuDueRighe };

struct Coppia {
    QString chiave;  // as written, trimmed
    Voce voce = Voce::Sconosciuta;
    QString valore;  // without quotes and blanks around
    Difetto difetto = Difetto::Nessuno;
    // Where it stands in the text; the value with its quotes.
    qsizetype inizio = 0;
    qsizetype inizioValore = 0;
    qsizetype fine = 0;
};

// Every piece between semicolons; empty pieces are left out. A value may stand in "..", '..' or {..} with
// its closing mark doubled inside; unquoted it ends at a semicolon or before a line that starts with a known
// key.
std::vector<Coppia> leggi(const QString& testo);

}  // namespace coppie
