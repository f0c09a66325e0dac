#pragma once

class Conto;

// The tender dialogue before a save, with the total on the display. A total that was changed there is a
// discount on the whole sale; before the rows of a sale that is in the books are touched so, the operator is
// asked, and No puts the old total back. A total of 0,00 cannot be changed there: the operator is told, and
// the tender comes up again.
void apriMonitorResto(Conto& conto);
