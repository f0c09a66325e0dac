#pragma once

class Conto;

// Offers to save before the sale is left: true when the caller must stop, because the operator stays or
// because the save failed.
bool chiediSalvataggio(Conto& conto);
