#pragma once

class Conto;

// From one sale to the next on the same screen.

// The sale on the screen has just been saved: it is read back from the books and stays in sight, and the
// screen says so.
void mostraVenditaSalvata(Conto& conto);

// A product is about to be entered. After a save it begins a new sale, where the workstation wants that
// (setting NuovaVenditaDopoSalva); on the first product of a new day a new document is offered.
// A code typed while a row is in the editor may be that row's: it begins nothing.
void primaDelProdotto(Conto& conto, bool digitato = false);
