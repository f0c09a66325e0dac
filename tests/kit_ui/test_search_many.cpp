#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "data/schema_archive.h"
#include "kit/ui/frmRicerca.h"
#include "kit/ui/search_grid.h"
#include "kit_ui/modal.h"

namespace {

// 100,000 products, P000001 "articolo 000001" and so on, and a few with signs in their names. The search has
// 9 of them on a page.
class SearchOfAHundredThousand : public testing::Test {
  protected:
    SearchOfAHundredThousand() {
        archivio.sql(
            "WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE I < 99996) "
            "INSERT INTO Prodotti (CODICE, DESCRIZIONE, DISABILITATO) "
            "SELECT printf('P%06d', I), printf('articolo %06d', I), 0 FROM N");
        for (const char* valori : {"'S1', 'dell''orto'", "'S2', 'dell''orto, grande'",
                                   "'S3', '50% di sconto'", "'S4', 'vite_corta'"}) {
            archivio.sql(QString("INSERT INTO Prodotti (CODICE, DESCRIZIONE, DISABILITATO) VALUES (%1, 0)")
                             .arg(valori));
        }
    }

    void apri(const std::function<void()>& gesto, bool discendente = false) {
        frmRicerca ricerca(archivio.operatore, nullptr);
        quandoModale([&](QWidget* finestra) {
            form = finestra;
            ASSERT_TRUE(QTest::qWaitForWindowActive(form));
            gesto();
            if (form->isVisible()) tasto(Qt::Key_Escape);
        });
        ricerca.startMe({.sql = "SELECT TOP 9 RID, CODICE, DESCRIZIONE FROM Prodotti "
                                "WHERE DISABILITATO = 0 AND FK_SOSTITUITO IS NULL",
                         .campoChiave = "DESCRIZIONE",
                         .discendente = discendente});
        EXPECT_TRUE(archivio.operatore.avvisi.empty());
    }
    void cerca(const QString& testo) const {
        QTest::keyClicks(QApplication::focusWidget(), testo);
        tasto(Qt::Key_Return);
    }
    void tasto(Qt::Key quale, Qt::KeyboardModifiers modificatori = {}) const {
        QTest::keyClick(QApplication::focusWidget(), quale, modificatori);
    }
    // The codes of the page, parted by blanks.
    QString pagina() const {
        const QAbstractItemModel& modello = *form->findChild<GrigliaRicerca*>("flxRicerca")->model();
        QStringList codici;
        for (int r = 0; r < modello.rowCount(); ++r) {
            codici << modello.index(r, 2).data().toString();
        }
        return codici.join(' ');
    }
    bool notizia() const { return form->findChild<QLabel*>("pctNessuna")->isVisible(); }
    // The codes of so many articles from that one on.
    static QString articoli(int primo, int quanti = 9) {
        QStringList codici;
        for (int i = 0; i < quanti; ++i) {
            codici << QString("P%1").arg(primo + i, 6, 10, QLatin1Char('0'));
        }
        return codici.join(' ');
    }

    LibriDiProva archivio;
    QWidget* form = nullptr;
};

TEST_F(SearchOfAHundredThousand, ThePagesFollowEachOtherForthAndBackWithoutAGap) {
    apri([&] {
        EXPECT_EQ(pagina(), "S3 " + articoli(1, 8));
        tasto(Qt::Key_PageDown);
        EXPECT_EQ(pagina(), articoli(9));
        tasto(Qt::Key_PageDown);
        EXPECT_EQ(pagina(), articoli(18));
        tasto(Qt::Key_PageUp);
        EXPECT_EQ(pagina(), articoli(9));
        EXPECT_FALSE(notizia());
    });
}

TEST_F(SearchOfAHundredThousand, BehindTheEndTheNoticeComesAndTheLastPageStays) {
    apri([&] {
        cerca("articolo 09999");
        EXPECT_EQ(pagina(), articoli(99990, 7));
        tasto(Qt::Key_PageDown);
        EXPECT_TRUE(notizia());
        EXPECT_EQ(pagina(), articoli(99990, 7));
    });
}

TEST_F(SearchOfAHundredThousand, DescendingItOpensAtTheEnd) {
    apri(
        [&] {
            EXPECT_TRUE(pagina().startsWith("S4 S2 S1 P099996 P099995 "));
            tasto(Qt::Key_PageDown);
            EXPECT_TRUE(pagina().startsWith("P099990 P099989 "));
        },
        true);
}

TEST_F(SearchOfAHundredThousand, TypingNarrowsToThePageThatBeginsSo) {
    apri([&] {
        QTest::keyClicks(QApplication::focusWidget(), "articolo 05432");
        EXPECT_TRUE(QTest::qWaitFor([&] { return pagina() == articoli(54320); }, 3000))
            << qPrintable(pagina());
        tasto(Qt::Key_PageDown);
        EXPECT_EQ(pagina(), articoli(54329, 1));
    });
}

TEST_F(SearchOfAHundredThousand, TheCodeColumnNarrowsByItsField) {
    apri([&] {
        tasto(Qt::Key_1, Qt::ControlModifier);
        cerca("p07777");
        EXPECT_EQ(pagina(), articoli(77770));
    });
}

TEST_F(SearchOfAHundredThousand, TheWildcardFindsAnywhere) {
    apri([&] {
        tasto(Qt::Key_F4);
        cerca("lo 099996");
        EXPECT_EQ(pagina(), articoli(99996, 1));
    });
}

TEST_F(SearchOfAHundredThousand, AnApostropheIsALetterLikeAnyOther) {
    apri([&] {
        cerca("dell'o");
        EXPECT_EQ(pagina(), "S1 S2");
    });
}

TEST_F(SearchOfAHundredThousand, APercentSignStandsForAnyText) {
    apri([&] {
        cerca("%099996");
        EXPECT_EQ(pagina(), articoli(99996, 1));
    });
}

TEST_F(SearchOfAHundredThousand, AnUnderscoreStandsForOneCharacter) {
    apri([&] {
        cerca("articolo 0_0001");
        EXPECT_EQ(pagina(), "P000001 P010001 P020001 P030001 P040001 P050001 P060001 P070001 P080001");
    });
}

}  // namespace
