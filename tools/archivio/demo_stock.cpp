#include "archivio/demo_stock.h"

#include "archivio/demo_context.h"
#include "archivio/demo_shop.h"

qint64 Scorte::scrivi(Riga prodotto, const std::vector<Strato>& strati) {
    int giacenza = 0;
    for (const Strato& s : strati)
        giacenza += s.quantita;
    prodotto.push_back({"GIACENZA", giacenza});
    const qint64 chiave = mScrittore.inserisci("Prodotti", prodotto);
    ++mProdotti;
    for (const Strato& s : strati) {
        mScrittore.inserisci("DettagliProdotto", {{"FK_PRODOTTO", chiave},
                                                  {"FK_MAGAZZINO", s.magazzino},
                                                  {"TAGLIO", euro(s.costo)},
                                                  {"QUANTITA", s.quantita}});
    }
    return chiave;
}

std::vector<Scorte::Strato> stratiACaso(Casuale& casuale, int costo) {
    if (casuale.percento(4)) return {{DemoNegozio::magazzinoNegozio, costo, 0}};
    std::vector<Scorte::Strato> strati;
    if (casuale.percento(25)) {
        const int costoVecchio = costo > 10 ? costo * 94 / 100 : costo + 1;
        strati.push_back({DemoNegozio::magazzinoNegozio, costoVecchio, casuale.tra(1, 12)});
    }
    strati.push_back({DemoNegozio::magazzinoNegozio, costo, casuale.tra(3, 80)});
    if (casuale.percento(30)) strati.push_back({DemoNegozio::magazzinoDeposito, costo, casuale.tra(5, 200)});
    return strati;
}
