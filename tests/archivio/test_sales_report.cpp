#include <gtest/gtest.h>

#include "archivio/sales_report.h"
#include "archivio/trial_archive.h"
#include "data/sqlite_connection.h"

namespace {

QString stampa(const ArchivioInCartella& archivio, int ultime) {
    QString testo;
    QTextStream esito(&testo);
    EXPECT_TRUE(stampaVendite(archivio.percorso(), ultime, esito));
    return testo;
}

}  // namespace

TEST(SalesReport, ArchiveWithoutSalesSaysSo) {
    const ArchivioInCartella archivio;
    EXPECT_EQ(stampa(archivio, 10), "Nessuna vendita salvata.\n");
}

TEST(SalesReport, LatestSaleComesFirst) {
    const ArchivioInCartella archivio;
    archivio.aggiungiVendite();
    EXPECT_TRUE(stampa(archivio, 10).startsWith("VB Vendita al banco n. 0002/1 del 21/11/2026, cassa 255\n"));
}

TEST(SalesReport, OnlyAsManyAsAskedFor) {
    const ArchivioInCartella archivio;
    archivio.aggiungiVendite();
    EXPECT_EQ(stampa(archivio, 2).count("Vendita al banco n. "), 2);
}

TEST(SalesReport, SalesOfOneHeaderAreToldApart) {
    const ArchivioInCartella archivio;
    archivio.aggiungiVendite();
    const QString testo = stampa(archivio, 10);
    EXPECT_TRUE(testo.contains("n. 0001/1 ") && testo.contains("n. 0001/2 ")) << testo.toStdString();
}

TEST(SalesReport, SaleHasItsOwnTotalBesideTheDocuments) {
    const ArchivioInCartella archivio;
    archivio.aggiungiVendite();
    const QString prima = stampa(archivio, 10).section("n. 0001/1", 1);
    EXPECT_TRUE(prima.contains("Totale vendita: 22,48\n")) << prima.toStdString();
    EXPECT_TRUE(prima.contains("Totale documento: 26,47 (imponibile 21,70, imposta 4,77)\n"))
        << prima.toStdString();
}

TEST(SalesReport, JournalOfTheSaleIsShown) {
    const ArchivioInCartella archivio;
    archivio.aggiungiVendite();
    EXPECT_TRUE(
        stampa(archivio, 10).contains("Merci conto vendite          dare       0,00 avere      21,70\n"));
}

TEST(SalesReport, SalesStillInTheLogOfAnOpenTillAreSeen) {
    const ArchivioInCartella archivio;
    ErroreServer errore;
    const auto cassa = SqliteConnection::apri(archivio.percorso(), errore);
    ASSERT_TRUE(cassa) << errore.descrizione.toStdString();
    archivio.aggiungiVendite();
    ASSERT_TRUE(archivio.file().contains("prova.db-wal"));
    EXPECT_TRUE(stampa(archivio, 1).contains("n. 0002/1 "));
}

TEST(SalesReport, GarbageIsAnError) {
    const ArchivioInCartella archivio;
    scriviFile(archivio.percorso(), "niente");
    QString testo;
    QTextStream esito(&testo);
    EXPECT_FALSE(stampaVendite(archivio.percorso(), 1, esito));
    EXPECT_TRUE(testo.startsWith("ERRORE: ")) << testo.toStdString();
}
