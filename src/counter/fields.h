#pragma once

#include <optional>
#include <vector>

#include <QChar>

class Campo;
class Conto;
struct Vendita;

// What happens in and between the fields of the screen, whoever shows them.

// A key in a field: its rules run; answers the character that goes on to the box, nothing when swallowed.
// Enter is '\r', Backspace '\b'.
std::optional<QChar> tastoInCampo(Conto& conto, Campo& campo, QChar tasto);

// The focus goes to another field, or to none: the one that is left is formatted and its rule runs, which
// may send the focus on; then the new one is taken.
void fuocoPassa(Conto& conto, Campo* nuovo);
// Ends the field that is being typed in, before a command or a scan acts: as if it had been left. Doing
// so again without a change does nothing. False when its rule failed, which has been reported.
bool terminaCampo(Conto& conto);

// The operator set or cleared a tick box.
void spuntaCambiata(Conto& conto, Campo& spunta, int valore);

// The fields in the order that Tab and Enter walk them; hidden and disabled ones are passed over.
std::vector<Campo*> ordineTab(Vendita& v);
