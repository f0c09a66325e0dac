#pragma once

#include <map>

#include <QDate>
#include <QString>

#include "archivio/demo_random.h"
#include "archivio/statement.h"

// What the parts of the demo shop hand to each other: the writer, the dice, and the keys of the code tables
// by their CODICE.
struct ContestoDemo {
    ContestoDemo(sqlite3* archivio, quint64 seme) : db(archivio), scrittore(archivio), casuale(seme) {}

    sqlite3* db;
    Scrittore scrittore;
    Casuale casuale;
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
