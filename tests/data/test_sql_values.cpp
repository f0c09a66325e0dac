#include <QDateTime>

#include "core/currency.h"
#include "data/recordset.h"
#include "data/sql_values.h"

namespace {

QVariant decimale(const QString& testo) {
    return valoreArchivio(testo, TipoColonna::Decimale);
}

Currency importo(const QVariant& valore) {
    return Recordset({"X"}, {valore}).importo("X");
}

}  // namespace

TEST(ServerValues, ExactNumbersOfFewDigitsAreNumbers) {
    EXPECT_EQ(decimale("12.5000"), QVariant(12.5));
    EXPECT_EQ(decimale("12.5000").typeId(), QMetaType::Double);
    EXPECT_EQ(decimale("-0.0001").toDouble(), -0.0001);
    EXPECT_EQ(decimale("12345678901.2345").typeId(), QMetaType::Double);
}

TEST(ServerValues, ExactNumbersOfManyDigitsKeepThem) {
    EXPECT_EQ(decimale("123456789012345.6789"), QVariant("123456789012345.6789"));
    EXPECT_EQ(decimale("-999999999999.99990"), QVariant("-999999999999.9999"));
    EXPECT_EQ(decimale("-999999999999.99990").typeId(), QMetaType::QString);
}

TEST(ServerValues, WholeExactNumbers) {
    EXPECT_EQ(decimale("9007199254740993"), QVariant(Q_INT64_C(9007199254740993)));
    EXPECT_EQ(decimale("12").typeId(), QMetaType::LongLong);
    EXPECT_EQ(decimale("12345678901234567890123"), QVariant("12345678901234567890123"));
}

TEST(ServerValues, FloatingNumbersAreNumbersHoweverLong) {
    EXPECT_EQ(valoreArchivio("0.30000000000000004", TipoColonna::Reale), QVariant(0.1 + 0.2));
    EXPECT_EQ(valoreArchivio("1e300", TipoColonna::Reale), QVariant(1e300));
}

TEST(ServerValues, WholeNumbersOfEverySizeAreOneKind) {
    for (const QVariant& valore : {QVariant(7), QVariant(7U), QVariant(qlonglong(7)), QVariant(qulonglong(7)),
                                   QVariant::fromValue(short(7)), QVariant::fromValue(char(7)),
                                   QVariant::fromValue(static_cast<unsigned char>(7))}) {
        EXPECT_EQ(valoreArchivio(valore, TipoColonna::Qualunque).typeId(), QMetaType::LongLong);
        EXPECT_EQ(valoreArchivio(valore, TipoColonna::Qualunque).toLongLong(), 7);
    }
}

TEST(ServerValues, BitsAreNumbers) {
    EXPECT_EQ(valoreArchivio(QString(QChar(u'\1')), TipoColonna::Bit), QVariant(qlonglong(1)));
    EXPECT_EQ(valoreArchivio(QString(QChar(u'\0')), TipoColonna::Bit), QVariant(qlonglong(0)));
    EXPECT_EQ(valoreArchivio(true, TipoColonna::Qualunque), QVariant(qlonglong(1)));
}

TEST(ServerValues, DatesHaveNoTimeZone) {
    const QDateTime letta = valoreArchivio(QDate(2026, 3, 29), TipoColonna::Qualunque).toDateTime();
    EXPECT_EQ(letta, QDateTime(QDate(2026, 3, 29), QTime(0, 0), Qt::UTC));
    const QDateTime ora(QDate(2026, 3, 16), QTime(12, 30, 5));
    EXPECT_EQ(valoreArchivio(ora, TipoColonna::Qualunque).toDateTime(),
              QDateTime(QDate(2026, 3, 16), QTime(12, 30, 5), Qt::UTC));
}

TEST(ServerValues, ATimeOfDayStandsOnTheDayOfTheFileArchive) {
    const QDateTime attesa(QDate(1899, 12, 30), QTime(10, 30, 0), Qt::UTC);
    EXPECT_EQ(valoreArchivio("10:30:00", TipoColonna::Ora).toDateTime(), attesa);
    EXPECT_EQ(valoreArchivio(QTime(10, 30), TipoColonna::Qualunque).toDateTime(), attesa);
}

TEST(ServerValues, NullsOfAnyType) {
    EXPECT_TRUE(valoreArchivio(QVariant(QMetaType(QMetaType::Int)), TipoColonna::Qualunque).isNull());
    EXPECT_FALSE(valoreArchivio(QVariant(QMetaType(QMetaType::QString)), TipoColonna::Decimale).isValid());
    EXPECT_FALSE(valoreArchivio(QDateTime(), TipoColonna::Qualunque).isValid());
}

TEST(ServerValues, AmountsOfManyDigitsAreReadExactly) {
    EXPECT_EQ(importo("123456789012345.6789"), Currency::daScalato(Q_INT64_C(1234567890123456789)));
    EXPECT_EQ(importo("-900000000000000.0001"), Currency::daScalato(Q_INT64_C(-9000000000000000001)));
    EXPECT_EQ(importo(12.5), Currency::daScalato(125000));
    EXPECT_EQ(importo(qlonglong(3)), Currency::daIntero(3));
    EXPECT_EQ(importo(QVariant()), Currency());
}
