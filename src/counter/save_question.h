#pragma once

class Conto;

// Offers to save before a sale is left; true when the caller must stop. A sale without changes, or one that
// may not be changed, asks nothing.
bool chiediSalvataggio(Conto& conto);
// Saves, and keeps total and change as those of the last sale; false when it was not saved.
bool salvaEMostraUltima(Conto& conto);
