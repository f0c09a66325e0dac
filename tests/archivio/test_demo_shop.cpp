#include <gtest/gtest.h>

#include <QSet>
#include <QTextStream>

#include "archivio/create_archive.h"
#include "archivio/demo_shop.h"
#include "archivio/trial_archive.h"

namespace {

// The demo shop as it comes, shared by the tests that only read.
const ArchivioInCartella& negozio() {
    static const ArchivioInCartella archivio;
    return archivio;
}

int conta(const QByteArray& daDove) {
    return negozio().valore("SELECT COUNT(*) FROM " + daDove).toInt();
}

// The sum of all 13 digits, the even places counted three times, ends in 0.
bool eanValido(const QString& codice) {
    int somma = 0;
    for (int i = 0; i < codice.size(); ++i) {
        if (codice[i] < u'0' || codice[i] > u'9') return false;
        somma += (codice[i].unicode() - u'0') * (i % 2 == 1 ? 3 : 1);
    }
    return codice.size() == 13 && somma % 10 == 0;
}

QByteArray demoConSeme(quint64 seme) {
    const QTemporaryDir cartella;
    QString testo;
    QTextStream esito(&testo);
    EXPECT_TRUE(creaArchivio(cartella.filePath("a.db"), {true, seme, false}, esito)) << testo.toStdString();
    return contenuto(cartella.filePath("a.db"));
}

}  // namespace

TEST(DemoShop, HasTwoThousandProducts) {
    EXPECT_EQ(conta("Prodotti"), 2000);
}

TEST(DemoShop, EveryBarcodeIsAValidEan) {
    const QStringList codici =
        negozio().valore("SELECT BARCODE FROM Prodotti WHERE BARCODE IS NOT NULL").split('\n');
    EXPECT_GT(codici.size(), 1950);
    for (const QString& codice : codici)
        EXPECT_TRUE(eanValido(codice)) << codice.toStdString();
}

TEST(DemoShop, NoBarcodeIsGivenTwice) {
    EXPECT_EQ(
        conta("(SELECT 1 FROM Prodotti WHERE BARCODE IS NOT NULL GROUP BY BARCODE HAVING COUNT(*) > 1)"), 0);
}

TEST(DemoShop, NoCodeIsGivenTwice) {
    EXPECT_EQ(conta("(SELECT 1 FROM Prodotti GROUP BY CODICE HAVING COUNT(*) > 1)"), 0);
}

TEST(DemoShop, SameSeedGivesTheSameBytes) {
    EXPECT_TRUE(demoConSeme(7) == demoConSeme(7));
}

TEST(DemoShop, AnotherSeedGivesAnotherShop) {
    EXPECT_FALSE(demoConSeme(7) == demoConSeme(8));
}

TEST(DemoShop, EverydayProductsKeepTheirBarcodes) {
    const QStringList codici =
        negozio().valore("SELECT BARCODE FROM Prodotti ORDER BY RID LIMIT 12").split('\n');
    ASSERT_EQ(codici.size(), static_cast<qsizetype>(prodottiFissi().size()));
    for (int i = 0; i < codici.size(); ++i)
        EXPECT_EQ(codici[i], demoBarcode(i + 1));
}

TEST(DemoShop, FirstBarcodeIsThisOne) {
    EXPECT_EQ(demoBarcode(1), "8009000000012");
}

TEST(DemoShop, StockIsTheSumOfItsLayers) {
    EXPECT_EQ(conta("Prodotti P WHERE GIACENZA <> (SELECT TOTAL(QUANTITA) FROM DettagliProdotto D WHERE "
                    "D.FK_PRODOTTO "
                    "= P.RID)"),
              0);
}

TEST(DemoShop, EveryTrackedProductHasACostInTheShop) {
    EXPECT_EQ(conta("Prodotti P WHERE SETGIACENZA = 1 AND NOT EXISTS (SELECT 1 FROM DettagliProdotto D WHERE "
                    "D.FK_PRODOTTO = P.RID AND D.FK_MAGAZZINO = 1 AND D.TAGLIO > 0)"),
              0);
}

TEST(DemoShop, CostIsBelowThePrice) {
    EXPECT_EQ(conta("Prodotti WHERE SETGIACENZA = 1 AND PREZZOACQUISTO >= LISTINO1"), 0);
}

// What a demonstration wants to show must be there: each line counts the rows of one such thing.
class OgniParticolarita : public testing::TestWithParam<std::string> {};

TEST_P(OgniParticolarita, IsInTheShop) {
    EXPECT_GT(conta(QByteArray::fromStdString(GetParam())), 0);
}

INSTANTIATE_TEST_SUITE_P(
    DemoShop, OgniParticolarita,
    testing::Values(
        "Prodotti WHERE FK_SOSTITUITO IS NOT NULL", "Prodotti WHERE DISABILITATO = 1",
        "Prodotti WHERE BLOCCAPREZZO = 1", "Prodotti WHERE ELENCOSPECIALE = 1", "Prodotti WHERE SCONTO > 0",
        "Prodotti WHERE SETGIACENZA = 1 AND GIACENZA = 0", "Prodotti WHERE LISTINO3 = 0 AND LISTINO1 > 0",
        "Prodotti WHERE SETGIACENZA = 0 AND LISTINO1 > 0",
        "Prodotti WHERE FK_CATSCOVEN = (SELECT VALORE FROM Opzioni WHERE NOME = 'CatPrezziNetti')",
        "Prodotti P JOIN Opzioni O ON O.NOME = 'RigaLibera' AND substr(P.CODICE, 1, 1) = O.VALORE",
        "Prodotti P JOIN DistintaBase D ON D.CODICE = P.CODICE", "DistintaBaseDettagli WHERE PREZZO = 0",
        "DistintaBaseDettagli WHERE PREZZO > 0", "ProdottiAlternativi",
        "DettagliProdotto WHERE FK_MAGAZZINO = 2",
        "(SELECT 1 FROM DettagliProdotto WHERE FK_MAGAZZINO = 1 GROUP BY FK_PRODOTTO HAVING COUNT(*) = 2)",
        "CatScVendita WHERE FK_MARCA IS NULL", "CatScVendita WHERE FK_MARCA IS NOT NULL",
        "CatScVenditaProd WHERE PREZZO > 0", "CatScAcquistoSconti", "Listini WHERE PREZZO > 0",
        "Anagrafiche WHERE SEGNALA = 1", "Anagrafiche WHERE CTRLFIDO = 1 AND FIDO > 0",
        "Anagrafiche WHERE TIPO = 'F'", "Anagrafiche WHERE LISTINO = 4",
        "TipoDocumenti WHERE USAPREZZIIVA = 1", "TipoDocumenti WHERE ACCOMPAGNATORIO = 1",
        "Pagamenti WHERE NRATE = 3", "Pagamenti WHERE ACCONTO > 0", "GRUPPOUTENTI WHERE AMMINISTRATORE = 1",
        "FunzionalitaReport WHERE FUNZIONALITA = 'EstrattoConto'"));

// The options that hold a key point to a row that is there.
class OgniOpzioneChiave : public testing::TestWithParam<std::pair<std::string, std::string>> {};

TEST_P(OgniOpzioneChiave, PointsToARow) {
    const auto& [nome, tabella] = GetParam();
    const std::string riga =
        tabella + " WHERE RID = (SELECT VALORE + 0 FROM Opzioni WHERE NOME = '" + nome + "')";
    EXPECT_EQ(conta(QByteArray::fromStdString(riga)), 1) << nome;
}

INSTANTIATE_TEST_SUITE_P(
    DemoShop, OgniOpzioneChiave,
    testing::Values(std::pair{"ClientePredefinito", "Anagrafiche"}, std::pair{"TipoDocVb", "TipoDocumenti"},
                    std::pair{"CausalePagVb", "Causali"}, std::pair{"PagamentoVB", "Pagamenti"},
                    std::pair{"ContoClienti", "PianoConti"}, std::pair{"ContoFornitori", "PianoConti"},
                    std::pair{"CatPrezziNetti", "CategorieSconti"}));

TEST(DemoShop, CounterSaleTakesGoodsFromTheShopToTheCustomer) {
    EXPECT_EQ(
        negozio().valore(
            "SELECT ORIGINE || DESTINAZIONE || OPERAZIONE || GENERAPN || GENERASCAD || FK_MAGAZZINOORIG "
            "FROM Causali WHERE CODICE = 'VB'"),
        "311111");
}

TEST(DemoShop, InstalmentsAddUpToTheWhole) {
    EXPECT_EQ(
        conta("(SELECT 1 FROM Pagamenti P JOIN DettagliPagamenti D ON D.FK_PAGAMENTO = P.RID GROUP BY P.RID "
              "HAVING ABS(P.ACCONTO + SUM(D.PERCENTUALE) - 100) > 0.001 OR COUNT(*) <> P.NRATE)"),
        0);
}
