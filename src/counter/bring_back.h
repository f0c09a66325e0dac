#pragma once

class GiornaleVendite;
class OperatorPort;

// Offers to bring back the sales that the last run left behind, each on its account. Those that cannot come
// back, since their account did not stay open, are told to the operator and offered again at the next start.
void riprendiVendite(GiornaleVendite& giornale, OperatorPort& operatore);
