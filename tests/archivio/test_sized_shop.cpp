#include <gtest/gtest.h>

#include <QTextStream>

#include "archivio/create_archive.h"
#include "archivio/trial_archive.h"
#include "archivio/verify_archive.h"
#include "core/clock.h"

namespace {

OpzioniCreazione misure(int prodotti, int clienti, int righe, quint64 seme = 1) {
    OpzioniCreazione opzioni;
    opzioni.seme = seme;
    opzioni.sovrascrivi = true;
    opzioni.misure = MisureNegozio{prodotti, clienti, righe};
    return opzioni;
}

// A shop with three years of sales, shared by the tests that only read.
const ArchivioInCartella& negozio() {
    static const ArchivioInCartella archivio;
    static const bool creato = [] {
        QString testo;
        QTextStream esito(&testo);
        return creaArchivio(archivio.percorso(), misure(3000, 120, 4001), esito);
    }();
    EXPECT_TRUE(creato);
    return archivio;
}

int conta(const QString& daDove) {
    return negozio().conta("prova.db", daDove);
}

}  // namespace

TEST(SizedShop, HasTheSizesAskedFor) {
    EXPECT_EQ(conta("Prodotti"), 3000);
    EXPECT_EQ(conta("Anagrafiche WHERE TIPO = 'C'"), 120);
    EXPECT_EQ(conta("DettagliMovimento"), 4001);
}

TEST(SizedShop, ItsBooksAreClean) {
    EXPECT_EQ(verificaArchivio(negozio().percorso()).righe(), QStringList{"Verifica: 0 errori, 0 note."});
}

TEST(SizedShop, SalesGoThreeYearsBackAndEndYesterday) {
    const QString oggi = orologio().oggi().toString("yyyy-MM-dd");
    const QString prima = orologio().oggi().addYears(-3).toString("yyyy-MM-dd");
    EXPECT_GE(conta("(SELECT DISTINCT DATA FROM Movimenti)"), 900);
    EXPECT_EQ(conta("Movimenti WHERE DATA >= '" + oggi + "' OR DATA < '" + prima + "'"), 0);
}

TEST(SizedShop, CodesAndBarcodesAreUnique) {
    EXPECT_EQ(conta("(SELECT DISTINCT CODICE FROM Prodotti)"), 3000);
    EXPECT_EQ(
        conta("(SELECT 1 FROM Prodotti WHERE BARCODE IS NOT NULL GROUP BY BARCODE HAVING COUNT(*) > 1)"), 0);
}

// What a shop's books hold must be there: each line counts the rows of one such thing.
class OgniCosaDelNegozio : public testing::TestWithParam<std::string> {};

TEST_P(OgniCosaDelNegozio, IsInTheBooks) {
    EXPECT_GT(conta(QString::fromStdString(GetParam())), 0);
}

INSTANTIATE_TEST_SUITE_P(SizedShop, OgniCosaDelNegozio,
                         testing::Values("Scadenze", "Movimenti WHERE FK_TIPODOCUMENTO = 2",
                                         "Movimenti WHERE FK_PNPAGAMENTO IS NULL",
                                         "DettagliMovimento WHERE SCONTO > 0",
                                         "DettagliMovimento WHERE EXTRAPROG > 1",
                                         "DettagliMovimento WHERE POS > 4",
                                         "Contatori WHERE FK_NUMERATORE = 2"));

TEST(SizedShop, SameSeedGivesTheSameShop) {
    const ArchivioInCartella cartella;
    QString testo;
    QTextStream esito(&testo);
    ASSERT_TRUE(creaArchivio(cartella.percorso("a.db"), misure(200, 30, 500, 9), esito));
    ASSERT_TRUE(creaArchivio(cartella.percorso("b.db"), misure(200, 30, 500, 9), esito));
    EXPECT_TRUE(contenuto(cartella.percorso("a.db")) == contenuto(cartella.percorso("b.db")));
}

TEST(SizedShop, TooSmallAShopIsRefused) {
    const ArchivioInCartella cartella;
    QString testo;
    QTextStream esito(&testo);
    EXPECT_FALSE(creaArchivio(cartella.percorso("a.db"), misure(199, 30, 0), esito));
    EXPECT_TRUE(testo.contains("almeno 200 prodotti")) << testo.toStdString();
}
