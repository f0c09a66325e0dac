#pragma once

class Conto;

// The tender dialogue before a save, with the total on the display. A total that was changed there is a
// discount on the whole sale; before the rows of a sale that is in the books are touched so, the operator is
// asked, and No puts the old total back.
void apriMonitorResto(Conto& conto);
