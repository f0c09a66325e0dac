#pragma once

struct Vendita;

// Takes the sale on the screen out of the books, in one transaction: its rows go and their stock comes
// back, the journal and the schedule are posted anew for what other sales left under the header, and with
// the last row the header and its entries go too. With `chiedi` the operator is asked first. True after the
// commit; the screen is left to the caller. A failure leaves books and screen as they were.
bool cancellaVendita(Vendita& v, int idMovimento, bool chiedi);

// What became of the header after its rows went.
enum class EsitoTestata { Rimasta = 0, Cancellata = 1, Fallita = -1 };
EsitoTestata ctrlVenditaAfterDelete(const Vendita& v, int idMovimento);
