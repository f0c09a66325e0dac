#pragma once

struct Vendita;

// The VAT code of the row in the editor.

// Looks the code up, or the key in the tag when the box is empty, in Iva. A code that is not found changes
// nothing.
void getIVA(Vendita& v);
// Another code: the row is priced again.
void txtIVA_LostFocus(Vendita& v);
