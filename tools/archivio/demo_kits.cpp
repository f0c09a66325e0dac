#include "archivio/demo_context.h"
#include "archivio/demo_shop.h"

namespace {

// A part of a kit: an everyday product by its place. A price of 0 means the customer's own at the sale.
struct Componente {
    int posizione;
    double quantita;
    int prezzo;  // cents, VAT excluded
};

struct Distinta {
    const char* codice;
    std::vector<Componente> componenti;
};

void scriviComponente(ContestoDemo& c, qint64 distinta, const Componente& parte, int pos) {
    const ProdottoFisso& p = prodottiFissi()[static_cast<size_t>(parte.posizione - 1)];
    c.scrittore.inserisci("DistintaBaseDettagli", {{"FK_DISTINTABASE", distinta},
                                                   {"FK_PRODOTTO", parte.posizione},
                                                   {"CODPRODOTTO", QString(p.codice)},
                                                   {"DESCPRODOTTO", QString(p.descrizione)},
                                                   {"QUANTITA", parte.quantita},
                                                   {"PREZZO", euro(parte.prezzo)},
                                                   {"PREZZONETTO", euro(parte.prezzo)},
                                                   {"FK_IVA", c.iva.at(QString::number(p.iva))},
                                                   {"VALOREIVA", p.iva},
                                                   {"FK_UM", c.unita.at(p.unita)},
                                                   {"POS", pos}});
}

// Pairs of articles that stand in for each other.
void scriviAlternativi(ContestoDemo& c) {
    const int primo = static_cast<int>(prodottiFissi().size()) + 20;
    for (int i = 0; i < 25; ++i) {
        const int uno = primo + i * 70;
        c.scrittore.inserisci("ProdottiAlternativi",
                              {{"FK_PRODOTTO1", c.prodotto(uno)}, {"FK_PRODOTTO2", c.prodotto(uno + 1)}});
    }
}

}  // namespace

void scriviDistinte(ContestoDemo& c) {
    const Distinta distinte[] = {
        {"%BAGNO", {{6, 1, 0}, {7, 3, 100}, {1, 1, 0}}},
        {"%PITTURA", {{5, 2, 1100}, {12, 1, 0}, {2, 1, 1190}}},
        {"%CUCINA", {{3, 2, 2600}, {4, 4, 0}, {6, 1, 3900}, {7, 5, 0}}},
        {"%ORTO", {{8, 1, 900}, {9, 4, 0}}},
    };
    for (const Distinta& d : distinte) {
        const qint64 chiave = c.scrittore.inserisci("DistintaBase", {{"CODICE", QString(d.codice)}});
        int pos = 0;
        for (const Componente& parte : d.componenti)
            scriviComponente(c, chiave, parte, ++pos);
    }
    scriviAlternativi(c);
}
