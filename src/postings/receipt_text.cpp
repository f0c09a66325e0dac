#include "postings/receipt_text.h"

#include "core/value_helpers.h"
#include "data/gateway.h"

namespace {

// Between two commands.
constexpr QChar fineComando(u'\u00A5');

QString prezzo(Currency valore) {
    return getSqlNumber(formattaImporto(valore, 2));
}

}  // namespace

void TestoScontrino::aggiungiRiga(const FlexVB& griglia, int riga) {
    const Currency unitario =
        griglia.currency(riga, Colonna::IvaProd) + griglia.currency(riga, Colonna::PrezzoNetto);
    const double quantita = static_cast<double>(griglia.single(riga, Colonna::Quantita));
    mTotale += Currency::daDouble(unitario.toDouble() * quantita);
    mTesto += "REP";
    for (const QString& campo :
         {griglia.cella(riga, Colonna::Codice), griglia.cella(riga, Colonna::Descrizione),
          getSqlNumber(griglia.cella(riga, Colonna::Quantita)), prezzo(unitario), QString("1"),
          getSqlNumber(griglia.cella(riga, Colonna::Iva))}) {
        mTesto += campo + gAdo.getSQLSeparator();
    }
    mTesto += fineComando;
}

QString TestoScontrino::chiudi() const {
    return mTesto + "TOT" + prezzo(mTotale) + gAdo.getSQLSeparator();
}
