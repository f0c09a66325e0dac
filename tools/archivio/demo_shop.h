#pragma once

#include <vector>

#include <QString>
#include <QtGlobal>

class Scrittore;
struct ContestoDemo;

// The demo shop: hardware and housewares, with 2,000 products. Everything in it is invented. The same seed
// makes the same archive, byte by byte.
void riempiDemo(Scrittore& scrittore, quint64 seme);
// The shop of a context, of the size that it says: everything but sales.
void scriviNegozio(ContestoDemo& c);

// Keys of the demo shop that no seed changes, for demonstrations and tests.
struct DemoNegozio {
    static constexpr int totaleProdotti = 2000;
    static constexpr int totaleClienti = 60;

    // Magazzini
    static constexpr int magazzinoNegozio = 1;
    static constexpr int magazzinoDeposito = 2;

    // Anagrafiche (their NUMERO is the same number)
    static constexpr int clienteBanco = 1;      // walk-in customer, no band, price list 1
    static constexpr int clienteImpresa = 2;    // builder: band, price list 2, credit limit of 1.000, checked
    static constexpr int clientePrivato = 3;    // 10 % of discount
    static constexpr int clienteArtigiano = 4;  // plumber: band, price list 3, prices of his own
    static constexpr int clienteComune = 5;     // to be watched
    static constexpr int clienteCartoleria = 6;  // an apostrophe in the name, price list 4

    // Causali
    static constexpr int causaleVendita = 1;
    static constexpr int causaleContanti = 2;
    static constexpr int causaleBancomat = 3;
    static constexpr int causaleFattura = 6;

    // TipoDocumenti
    static constexpr int tipoVenditaBanco = 1;
    static constexpr int tipoFattura = 2;
    static constexpr int tipoFatturaIvata = 3;  // prices with VAT, a number of its own for every sale
    static constexpr int tipoBolla = 4;         // accompanies the goods
    static constexpr int numeratoreVenditaBanco = 1;
    static constexpr int numeratoreFattura = 2;

    static constexpr int pagamentoContanti = 1;
    static constexpr int contoCassa = 1;
    static constexpr int contoVendite = 5;
    static constexpr int contoIvaVendite = 6;
    static constexpr int contoClienti = 3;
    static constexpr int contoFornitori = 4;
    static constexpr int categoriaPrezziNetti = 7;
};

// The everyday products that open the table Prodotti: RID 1, 2, 3, ... in this order, with a stock of
// their own in the shop and no discount.
struct ProdottoFisso {
    const char* codice;
    const char* descrizione;
    const char* categoria;
    const char* marca;
    const char* unita;
    int iva;       // percent
    int listino1;  // cents, VAT excluded
    int acquisto;  // cents
    int giacenza;
};
const std::vector<ProdottoFisso>& prodottiFissi();

// The EAN-13 code of the everyday product at this place, from 1 as RID.
QString demoBarcode(int posizione);
