#include <gtest/gtest.h>

#include "ecr/receipt.h"

namespace {

using Esito = Stampante::Esito;

Stampante stampata(const QStringList& comandi) {
    Stampante stampante(7);
    for (const QString& comando : comandi) {
        EXPECT_NE(stampante.esegui(comando).esito, Esito::Errore) << comando.toStdString();
    }
    return stampante;
}

}  // namespace

TEST(Printer, CommandsOfTheTillBecomeAReceipt) {
    const Stampante s = stampata({"RST", "REPABC1¤PENNA BLU¤2¤1.5¤1¤22¤", "TOT3¤"});
    EXPECT_EQ(s.scontrino().numero, 7);
    ASSERT_EQ(s.scontrino().righe.size(), 1u);
    EXPECT_EQ(s.scontrino().righe[0].importo(), Currency::daIntero(3));
    EXPECT_EQ(s.scontrino().totale, Currency::daIntero(3));
}

TEST(Printer, ResetBeginsANewReceipt) {
    const Stampante s = stampata({"RST", "REPX¤X¤1¤9¤1¤22¤", "RST", "REPA¤A¤1¤2¤1¤22¤", "TOT2¤"});
    EXPECT_EQ(s.scontrino().righe.size(), 1u);
}

TEST(Printer, TotalWithoutRowsIsRefused) {
    EXPECT_EQ(Stampante().esegui("TOT0¤").esito, Esito::Errore);
}

TEST(Printer, TotalMayLoseHalfACentAPiece) {
    Stampante s;
    s.esegui("REPB¤Colla¤1.5¤1.99¤1¤22¤");
    EXPECT_EQ(s.esegui("TOT2.99¤").esito, Esito::Stampato);
}

TEST(Printer, TotalThatIsNotTheSumIsRefused) {
    Stampante s;
    s.esegui("REPB¤Colla¤1¤1.99¤1¤22¤");
    EXPECT_EQ(s.esegui("TOT2.5¤").esito, Esito::Errore);
}

TEST(Printer, RowWithOtherFieldsIsRefused) {
    EXPECT_EQ(Stampante().esegui("REPA¤B¤1¤1¤1¤").esito, Esito::Errore);
    EXPECT_EQ(Stampante().esegui("REPA¤B¤Null¤1¤1¤22¤").esito, Esito::Errore);
    EXPECT_EQ(Stampante().esegui("REPA¤B¤inf¤1¤1¤22¤").esito, Esito::Errore);
}

TEST(Printer, UnknownCommandIsRefused) {
    EXPECT_EQ(Stampante().esegui("XYZ").esito, Esito::Errore);
    EXPECT_EQ(Stampante().esegui("").esito, Esito::Errore);
}

TEST(Printer, StripHasTheThousandthsOfAQuantity) {
    Scontrino s;
    s.righe.push_back({"C", "Cavo", 1.125, Currency::daIntero(2), "22"});
    s.righe.push_back({"D", "Corda", 0.5, Currency::daIntero(2), "22"});
    EXPECT_TRUE(striscia(s).contains("  1,125 x 2,00"));
    EXPECT_TRUE(striscia(s).contains("  0,50 x 2,00"));
}

TEST(Printer, StripHasRowsWithTaxTotalNumberAndDate) {
    Scontrino s;
    s.righe.push_back({"A", "Vite 4x40", 3, Currency::daScalato(12200), "22"});
    s.totale = Currency::daScalato(36600);
    s.numero = 12;
    s.ora = QDateTime(QDate(2026, 3, 16), QTime(10, 30));
    const QStringList righe = striscia(s);
    EXPECT_TRUE(righe.contains("  3,00 x 1,22"));
    EXPECT_TRUE(righe.contains("Vite 4x40                 22%       3,66"));
    EXPECT_TRUE(righe.contains("TOTALE EURO                         3,66"));
    EXPECT_TRUE(righe.contains("16/03/2026 10:30                 N. 0012"));
}
