#include <gtest/gtest.h>

#include "archivio/csv_reader.h"

namespace {

std::vector<RigaCsv> righe(const QByteArray& testo, qsizetype pezzo = 1000) {
    std::vector<RigaCsv> lette;
    LettoreCsv lettore([&](const RigaCsv& riga) { lette.push_back(riga); });
    for (qsizetype i = 0; i < testo.size(); i += pezzo)
        lettore.leggi(testo.mid(i, pezzo));
    return lette;
}

}  // namespace

TEST(CsvReader, BareAndQuotedFieldsAreToldApart) {
    const auto lette = righe("12\x1f\"12\"\n");
    ASSERT_EQ(lette.size(), 1U);
    EXPECT_FALSE(lette[0].at(0).traVirgolette);
    EXPECT_TRUE(lette[0].at(1).traVirgolette);
}

TEST(CsvReader, NothingIsNull) {
    EXPECT_TRUE(righe("1\x1f\x1f\"\"\n")[0].at(1).nullo());
}

TEST(CsvReader, EmptyTextIsNotNull) {
    EXPECT_FALSE(righe("1\x1f\x1f\"\"\n")[0].at(2).nullo());
}

TEST(CsvReader, TextKeepsLineBreaksSeparatorsAndQuotes) {
    EXPECT_EQ(righe("\"a\nb\r\x1f\"\"c\"\"\"\n")[0].at(0).testo, "a\nb\r\x1f\"c\"");
}

TEST(CsvReader, PiecesMayEndAnywhere) {
    const QByteArray testo = "1\x1f\"è \"\"x\"\"\"\n2\x1f\"\"\n";
    for (qsizetype pezzo = 1; pezzo < testo.size(); ++pezzo) {
        const auto lette = righe(testo, pezzo);
        ASSERT_EQ(lette.size(), 2U) << pezzo;
        EXPECT_EQ(lette[0].at(1).testo, "è \"x\"") << pezzo;
    }
}

TEST(CsvReader, OutputCutInsideARowIsNotFinished) {
    LettoreCsv lettore([](const RigaCsv&) {});
    lettore.leggi("1\x1f\"abc");
    EXPECT_FALSE(lettore.finito());
}

TEST(CsvReader, OutputWithItsLastLineFeedIsFinished) {
    LettoreCsv lettore([](const RigaCsv&) {});
    lettore.leggi("1\x1f\"abc\"\n");
    EXPECT_TRUE(lettore.finito());
}
