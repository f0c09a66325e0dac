#pragma once

#include <QString>

class Conto;
struct Vendita;

// Who sells: gIDVenditore and gDescVenditore, shown in lblVenditore of each screen.

// What asking for the operator came to.
enum class EsitoVenditore {
    Annullato = 0,   // nothing was entered, or the archive did not answer
    NonTrovato = 1,  // nobody has that code
    Trovato = 2,
};

// What the dialogue opens with.
struct RichiestaVenditore {
    QString codice = {};     // stands in the box
    bool rifiutato = false;  // nobody has that code
};

// Shows the dialogue once and looks its code up; whoever is not found leaves the operator as it was.
EsitoVenditore selectVenditore(Conto& conto, const RichiestaVenditore& richiesta, QString& codice);
// The operator with that code (CODICE or CODICEEXTRA of Venditori) sells from now on.
EsitoVenditore cercaVenditore(Conto& conto, const QString& codice);
// Asks until the operator is found or nothing is entered.
void chiediVenditore(Conto& conto, RichiestaVenditore richiesta = {});
void cmdOperatore_Click(Conto& conto);
// Writes the operator into the screen's header.
void mostraVenditore(Vendita& v);
