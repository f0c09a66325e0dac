#pragma once

#include "exact_pricing.h"

// The row editor and its row as the fields are left one after the other, computed a second time. Prices
// without VAT are in force, Enter at the row's end only commits, and no row is a return.
class EditorEsatto {
  public:
    // A product is priced from its list price, and committed.
    explicit EditorEsatto(const RigaEditor& riga);

    // A field is left with another number in it.
    void lasciaPrezzoFinito(Decimale scritto);
    void lasciaPrezzoNetto(Decimale scritto);
    void lasciaPrezzoRiga(Decimale scritto);
    void lasciaListinoLordo(Decimale scritto);

    // Texts of fields.
    QString listino() const { return mListino; }
    QString sconto(int i) const { return mostrato(arrotondato(r.sconti[i], r.sconti[i].decimali)); }
    QString netto() const { return mNetto; }
    QString finito() const { return mFinito; }
    QString riga() const { return mRiga; }
    // Cells of the row.
    QString listinoInGriglia() const {
        return mostrato(arrotondato(valuta(letto(mListino)), r.decimaliDopo));
    }
    QString importo() const;

  private:
    Binario iva() const { return singolo(r.iva) / Binario{100, 0}; }
    void avanti();
    void conferma();
    void lasciaListino();

    RigaEditor r;
    QString mListino;
    QString mListinoAccettato;
    QString mRiferimento;
    QString mNetto;
    QString mFinito;
    QString mRiga;
};
