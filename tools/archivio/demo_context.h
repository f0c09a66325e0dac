#pragma once

#include <map>

#include <QDate>
#include <QString>

#include "archivio/demo_random.h"
#include "archivio/row_writer.h"

// A product as it stands on a row of a sale.
struct ProdottoVenduto {
    qint64 chiave;
    QString codice;
    QString descrizione;
    int listino1;  // cents, VAT excluded
    int acquisto;  // cents
    int iva;       // percent
    qint64 chiaveIva;
    qint64 chiaveUnita;
    bool prezzoNetto;  // of the category whose prices depend on band and quantity
};

// What the parts of a made-up shop hand to each other: the writer, the dice, the keys of the code tables by
// their CODICE, and the products in the order of their keys.
struct ContestoDemo {
    ContestoDemo(Scrittore& dove, quint64 seme) : scrittore(dove), casuale(seme) {}

    Scrittore& scrittore;
    Casuale casuale;
    int totaleProdotti = 0;  // that the shop will have
    int totaleClienti = 0;
    std::map<QString, qint64> iva;  // by rate, as text
    std::map<QString, qint64> unita;
    std::map<QString, qint64> marche;
    std::map<QString, qint64> categorie;
    std::map<QString, qint64> gruppi;
    std::map<QString, qint64> categorieSconti;
    std::map<QString, qint64> fasce;
    std::map<QString, qint64> pagamenti;
    std::vector<qint64> clienti;
    std::vector<qint64> fornitori;
    std::vector<ProdottoVenduto> venduti;  // with a price and a stock
    // The product that stands at this place, counted on from the first one again behind the last.
    int prodotto(int posizione) const { return 1 + (posizione - 1) % totaleProdotti; }
};

// Euro from cents, as the money columns take it.
inline QVariant euro(qint64 centesimi) {
    return static_cast<double>(centesimi) / 100.0;
}
// The stored form of a date.
inline QString dataDb(QDate data) {
    return data.toString("yyyy-MM-dd") + " 00:00:00";
}
// The 12 digits with their check digit.
QString ean13(const QString& dodiciCifre);

// The shop, part by part; each part needs the ones before it.
void scriviCodici(ContestoDemo& c);
void scriviDocumenti(ContestoDemo& c);
void scriviAnagrafiche(ContestoDemo& c);
void scriviProdotti(ContestoDemo& c);
void scriviDistinte(ContestoDemo& c);
void scriviSconti(ContestoDemo& c);
