#pragma once

struct Vendita;

// What the document type and the payment reason say about a sale.

// Reads TipoDocumenti and its Causali row into the sale. A missing type changes nothing.
void setInfoDocumento(Vendita& v, int idTipo);
// Shows a payment reason, a Causali row; a missing one changes nothing.
void setInfoPagamento(Vendita& v, int idCausale);
// Stores the reason as the sale's and shows it.
void setNuovoPagamento(Vendita& v, int idCausale);
// Layout for prices with VAT; false changes nothing.
void setViewMode(Vendita& v, bool usaIva);
