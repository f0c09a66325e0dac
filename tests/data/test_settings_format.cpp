#include <gtest/gtest.h>

#include <QRandomGenerator>
#include <QStringList>

#include "data/settings_format.h"

namespace {

using Voci = QSettings::SettingsMap;

QString valore(const char* riga) {
    const auto lettura = analizzaImpostazioni(QByteArray("[Server]\n") + riga + "\n");
    EXPECT_EQ(lettura.righeScartate, 0);
    return lettura.voci.value("Server/Path", "<manca>").toString();
}

QString andataERitorno(const QString& testo) {
    const QByteArray contenuto = componiImpostazioni({{"Server/Path", testo}});
    return analizzaImpostazioni(contenuto).voci.value("Server/Path", "<manca>").toString();
}

// Every character that some reader of such files takes for a mark, and some that are hard for any reader.
const QStringList pezzi = {";",
                           ",",
                           "\\",
                           "\"",
                           "'",
                           "=",
                           "[",
                           "]",
                           "#",
                           "%",
                           "%41",
                           "%U0041",
                           "\n",
                           "\r",
                           "\r\n",
                           "\t",
                           " ",
                           "/",
                           "@",
                           "\\n",
                           "\\x41",
                           "x41",
                           "à",
                           "è",
                           QString::fromUtf8("😀"),
                           QString(QChar(0xD83D)),
                           QString(QChar(0xDE00)),
                           QString(QChar(0)),
                           QString(QChar(1)),
                           QString(QChar(0x7F)),
                           QString(QChar(0x85)),
                           QString(QChar(0xA0)),
                           QString(QChar(0x2028)),
                           QString(QChar(0xFEFF)),
                           QString(QChar(0xFFFF)),
                           "a",
                           "F",
                           "0",
                           "¤"};

QString aCaso(QRandomGenerator& caso, int lunghezza) {
    QString testo;
    for (int i = 0; i < lunghezza; ++i) {
        testo += pezzi[caso.bounded(static_cast<int>(pezzi.size()))];
    }
    return testo;
}

}  // namespace

TEST(SettingsFormat, AnyValueComesBackAsItWas) {
    QRandomGenerator caso(20130131);
    for (int giro = 0; giro < 20000; ++giro) {
        const QString testo = aCaso(caso, caso.bounded(12));
        ASSERT_EQ(andataERitorno(testo), testo)
            << componiImpostazioni({{"Server/Path", testo}}).toStdString();
    }
}

TEST(SettingsFormat, AnyKeyAndSectionComeBackAsTheyWere) {
    QRandomGenerator caso(4310);
    for (int giro = 0; giro < 5000; ++giro) {
        const QString sezione = "s" + aCaso(caso, caso.bounded(6)).remove('/');
        const QString chiave = aCaso(caso, 1 + caso.bounded(6));
        const Voci voci = {{sezione + '/' + chiave, "1"}};
        ASSERT_EQ(analizzaImpostazioni(componiImpostazioni(voci)).voci, voci)
            << componiImpostazioni(voci).toStdString();
    }
}

TEST(SettingsFormat, AConnectionStringStandsInTheFileAsItWasTyped) {
    const QString stringa = R"(Driver={MariaDB};Server=10.0.0.1;Pwd="a\b,c";Option=3)";
    EXPECT_TRUE(
        componiImpostazioni({{"Server/MySql", stringa}}).contains(("MySql=" + stringa + "\n").toUtf8()));
}

TEST(SettingsFormat, KeysWithoutASectionComeBeforeTheFirstHeader) {
    const QByteArray contenuto = componiImpostazioni({{"Client/ID", "255"}, {"ver", "1.0.0"}});
    EXPECT_EQ(contenuto, "ver=1.0.0\n\n[Client]\nID=255\n");
}

TEST(SettingsFormat, ASectionCalledGeneralIsNotTheTopLevel) {
    const Voci voci = {{"General/a", "1"}, {"a", "2"}};
    EXPECT_EQ(analizzaImpostazioni(componiImpostazioni(voci)).voci, voci);
}

TEST(SettingsFormat, AHandWrittenValueKeepsSemicolonsCommasAndBackslashes) {
    EXPECT_EQ(valore(R"(Path = C:\shop\Bottegon.mdb;a=1, b )"), R"(C:\shop\Bottegon.mdb;a=1, b)");
}

TEST(SettingsFormat, QuotesRoundAHandWrittenValueAreNotPartOfIt) {
    EXPECT_EQ(valore(R"(Path="Server=x;Uid=y")"), "Server=x;Uid=y");
    EXPECT_EQ(valore(R"(Path="C:\data\shop.mdb")"), R"(C:\data\shop.mdb)");
}

TEST(SettingsFormat, QuotesInsideAHandWrittenValueStay) {
    EXPECT_EQ(valore(R"(Path="a" e "b")"), R"("a" e "b")");
    EXPECT_EQ(valore(R"(Path="C:\x y"\z)"), R"("C:\x y"\z)");
}

TEST(SettingsFormat, AQuotedValueOfAnotherProgramIsDecoded) {
    EXPECT_EQ(valore(R"(Path="a;b\\c\n\"d\"\xe0")"), "a;b\\c\n\"d\"à");
}

TEST(SettingsFormat, CommentsBlankLinesAndWindowsLineEndsAreTolerated) {
    const auto lettura = analizzaImpostazioni("; nota\r\n# nota\r\n\r\n[ Client ]\r\n ID = 3\r\n");
    EXPECT_EQ(lettura.voci, (Voci{{"Client/ID", "3"}}));
    EXPECT_EQ(lettura.righeScartate, 0);
}

TEST(SettingsFormat, AByteOrderMarkIsNoPartOfTheFirstLine) {
    EXPECT_EQ(analizzaImpostazioni("\xEF\xBB\xBFver=1\n").voci, (Voci{{"ver", "1"}}));
}

TEST(SettingsFormat, AFileOfAnOldEditorIsReadAsLatin1) {
    EXPECT_EQ(analizzaImpostazioni("[Server]\nPath=/citt\xE0/x\n").voci, (Voci{{"Server/Path", "/città/x"}}));
}

TEST(SettingsFormat, TheLastOfTwoEqualKeysCounts) {
    EXPECT_EQ(analizzaImpostazioni("a=1\na=2\n").voci, (Voci{{"a", "2"}}));
}

TEST(SettingsFormat, AnEmptyValueIsAValue) {
    EXPECT_EQ(valore("Path="), "");
}

TEST(SettingsFormat, ATruncatedLineIsCountedAndTheOthersAreTaken) {
    for (const char* coda : {"Pa", "Path=\"/home/sh", "[Serv", "=x"}) {
        const auto lettura = analizzaImpostazioni(QByteArray("[Client]\nID=3\n") + coda);
        EXPECT_TRUE(lettura.leggibile) << coda;
        EXPECT_EQ(lettura.righeScartate, 1) << coda;
        EXPECT_EQ(lettura.voci, (Voci{{"Client/ID", "3"}})) << coda;
    }
}

TEST(SettingsFormat, WhatIsNoTextIsNotRead) {
    for (const QByteArray& contenuto : {QByteArray("a=1\n\0\0\0", 7), QByteArray("SQLite format 3\0", 16),
                                        QByteArray("\x7f"
                                                   "ELF\x02\x01"),
                                        QByteArray("a=\x1b[0m\n")}) {
        const auto lettura = analizzaImpostazioni(contenuto);
        EXPECT_FALSE(lettura.leggibile) << contenuto.toStdString();
        EXPECT_TRUE(lettura.voci.isEmpty());
    }
}

TEST(SettingsFormat, AFileOfTenMegabytesIsNotRead) {
    EXPECT_FALSE(analizzaImpostazioni(QByteArray("a=1\n").repeated(2'500'000)).leggibile);
}

TEST(SettingsFormat, RandomBytesNeverHarm) {
    QRandomGenerator caso(7);
    for (int giro = 0; giro < 5000; ++giro) {
        QByteArray contenuto;
        for (int i = 0; i < 60; ++i) {
            contenuto += static_cast<char>(caso.bounded(256));
        }
        const auto lettura = analizzaImpostazioni(contenuto);
        ASSERT_TRUE(lettura.leggibile || lettura.voci.isEmpty());
        const Voci voci = analizzaImpostazioni(componiImpostazioni(lettura.voci)).voci;
        ASSERT_EQ(voci, lettura.voci);
    }
}
