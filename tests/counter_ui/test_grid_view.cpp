#include <gtest/gtest.h>

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

#include "counter/ui/grid_painter.h"
#include "counter/ui/grid_view.h"
#include "counter/ui/style.h"
#include "sale/flxvb.h"

namespace {

class GridView : public testing::Test {
  protected:
    GridView() {
        applicaStile(*qApp, {});
        for (int r = 1; r <= 40; ++r) {
            righe.aggiungi();
            righe.scrivi(r, Colonna::Descrizione, "Prodotto " + QString::number(r));
        }
        griglia.mostraColonne(0);
        griglia.resize(900, 400);
        griglia.show();
    }
    QRect cella(int riga) const {
        return griglia.visualRect(righe.index(riga - 1, static_cast<int>(Colonna::Descrizione)));
    }
    void clic(int riga) { QTest::mouseClick(griglia.viewport(), Qt::LeftButton, {}, cella(riga).center()); }
    QRgb colore(int riga) {
        const QPoint punto(cella(riga).right() - 3, cella(riga).center().y());
        return griglia.viewport()->grab().toImage().pixel(punto);
    }

    QRect spazio(int riga, Colonna colonna) const {
        return griglia.visualRect(righe.index(riga - 1, static_cast<int>(colonna)));
    }
    QImage immagine(int riga, Colonna colonna) {
        return griglia.viewport()->grab(spazio(riga, colonna)).toImage();
    }
    QRgb fondo(int riga, Colonna colonna) { return immagine(riga, colonna).pixel(2, 2); }
    QRgb angolo(int riga) {
        const QImage cella = immagine(riga, Colonna::Importo);
        return cella.pixel(cella.width() - 3, 2);
    }

    FlexVB righe;
    GrigliaVendita griglia{righe, nullptr};
    QSignalSpy cambiata{&griglia, &GrigliaVendita::rigaCambiata};
    QSignalSpy premuta{&griglia, &GrigliaVendita::rigaPremuta};
};

TEST_F(GridView, AClickTellsTheNewRowAndThenTheClick) {
    clic(3);
    ASSERT_EQ(cambiata.size(), 1);
    EXPECT_EQ(cambiata[0][0].toInt(), 3);
    ASSERT_EQ(premuta.size(), 1);
    EXPECT_EQ(premuta[0][0].toInt(), 3);
}

TEST_F(GridView, AClickOnTheCurrentRowIsAClickAlone) {
    clic(3);
    cambiata.clear();
    clic(3);
    EXPECT_EQ(cambiata.size(), 0);
    EXPECT_EQ(premuta.size(), 2);
}

TEST_F(GridView, ARowMadeCurrentByARuleTellsNothing) {
    righe.corrente(5);
    righe.seleziona(5);
    griglia.mostraRiga(5);
    EXPECT_EQ(griglia.currentIndex().row(), 4);
    EXPECT_EQ(cambiata.size(), 0);
}

TEST_F(GridView, TheFocusAloneChoosesNoRow) {
    griglia.setFocus();
    EXPECT_FALSE(griglia.currentIndex().isValid());
    EXPECT_EQ(cambiata.size(), 0);
}

TEST_F(GridView, AHiddenRowIsNotShown) {
    righe.nascondi(4, true);
    EXPECT_TRUE(griglia.isRowHidden(3));
    righe.nascondi(4, false);
    EXPECT_FALSE(griglia.isRowHidden(3));
}

TEST_F(GridView, ARowOutOfSightBecomesTheTopOne) {
    griglia.mostraRiga(20);
    EXPECT_EQ(griglia.rowAt(1), 19);
}

TEST_F(GridView, ARowInSightDoesNotMoveTheGrid) {
    griglia.mostraRiga(3);
    EXPECT_EQ(griglia.rowAt(1), 0);
}

TEST_F(GridView, TheSelectedRowIsLightBlue) {
    righe.corrente(2);
    righe.seleziona(2);
    EXPECT_EQ(colore(2), 0xFFC0C0FFu);
    righe.seleziona(3);
    EXPECT_NE(colore(2), 0xFFC0C0FFu);
}

TEST_F(GridView, APriceOfZeroShowsLoudly) {
    righe.scrivi(1, Colonna::Importo, "0,00");
    righe.scrivi(2, Colonna::Importo, "1,00");
    EXPECT_EQ(fondo(1, Colonna::Importo), tinte::pericolo);
    EXPECT_NE(fondo(2, Colonna::Importo), tinte::pericolo);
}

TEST_F(GridView, APriceChangedByHandHasAMarkedCorner) {
    righe.scrivi(1, Colonna::PrezzoListino, "8,00");
    righe.scrivi(1, Colonna::Importo, "8,00");
    EXPECT_NE(angolo(1), tinte::avviso);
    righe.listinoLetto(1, "10,00");
    EXPECT_EQ(angolo(1), tinte::avviso);
}

TEST_F(GridView, ALockedPriceHasAPadlock) {
    const QImage prima = immagine(1, Colonna::Importo);
    righe.scrivi(1, Colonna::BloccaPrezzo, "1");
    EXPECT_NE(immagine(1, Colonna::Importo), prima);
}

TEST_F(GridView, AClickOnAKitsIconTellsSo) {
    QSignalSpy icona(&griglia, &GrigliaVendita::iconaPremuta);
    QTest::mouseClick(griglia.viewport(), Qt::LeftButton, {}, spazio(2, Colonna::Icona).center());
    ASSERT_EQ(icona.size(), 1);
    EXPECT_EQ(icona[0][0].toInt(), 2);
    clic(3);
    EXPECT_EQ(icona.size(), 1);
}

TEST_F(GridView, OnlyTheShownColumnsHaveAWidth) {
    for (int c = 0; c < numeroColonne; ++c) {
        EXPECT_EQ(griglia.isColumnHidden(c), !FlexVB::mostrata(static_cast<Colonna>(c), 0)) << c;
    }
}

TEST_F(GridView, TheVatColumnsWidthGoesToTheDescription) {
    const int descrizione = griglia.columnWidth(static_cast<int>(Colonna::Descrizione));
    const int iva = griglia.columnWidth(static_cast<int>(Colonna::Iva));
    griglia.mostraColonne(1);
    EXPECT_TRUE(griglia.isColumnHidden(static_cast<int>(Colonna::Iva)));
    EXPECT_EQ(griglia.columnWidth(static_cast<int>(Colonna::Descrizione)), descrizione + iva);
}

TEST_F(GridView, TextThatFitsStandsOnOneLineInItsOwnLetters) {
    const auto [mostrate, carattere] = testoInCella("Chiodi", griglia.font(), 260);
    EXPECT_EQ(mostrate, QStringList("Chiodi"));
    EXPECT_EQ(carattere, griglia.font());
}

TEST_F(GridView, LongTextIsWholeOnTwoLinesThatFitTheRow) {
    const QString testo = "LAMPADINA LED E27 10W LUCE CALDA 2700K DIMMERABILE";
    const auto [mostrate, carattere] = testoInCella(testo, griglia.font(), 260);
    ASSERT_EQ(mostrate.size(), 2);
    EXPECT_EQ(mostrate.join(""), testo);
    EXPECT_LE(2 * QFontMetrics(carattere).height(), cella(1).height());
    for (const QString& riga : mostrate) {
        EXPECT_LE(QFontMetrics(carattere).horizontalAdvance(riga.trimmed()), 260);
    }
}

TEST_F(GridView, TextALittleTooLongTakesSmallerLettersOnOneLine) {
    const QString testo = "VITI TRUCIOLARI 4X40 ZINCATE";
    const int larghezza = QFontMetrics(griglia.font()).horizontalAdvance(testo) - 4;
    const auto [mostrate, carattere] = testoInCella(testo, griglia.font(), larghezza);
    EXPECT_EQ(mostrate, QStringList(testo));
    EXPECT_LE(QFontMetrics(carattere).horizontalAdvance(testo), larghezza);
}

TEST_F(GridView, TextOfMoreThanTwoLinesSaysThatItGoesOn) {
    const auto [mostrate, carattere] = testoInCella(QString("parola ").repeated(30), griglia.font(), 260);
    ASSERT_EQ(mostrate.size(), 2);
    EXPECT_TRUE(mostrate.last().endsWith(QChar(0x2026)));
}

TEST_F(GridView, LongFigureStandsWholeInSmallerDigits) {
    const auto [mostrate, carattere] = cifraInCella("-1.234.567,89", griglia.font(), 90);
    EXPECT_EQ(mostrate, QStringList("-1.234.567,89"));
    EXPECT_LE(QFontMetrics(carattere).horizontalAdvance(mostrate.first()), 90);
}

TEST_F(GridView, FigureThatIsTooLongEvenSoShowsThatItsBeginningIsMissing) {
    const auto [mostrate, carattere] = cifraInCella("-1.234.567,89", griglia.font(), 30);
    EXPECT_TRUE(mostrate.first().startsWith(QChar(0x2026)));
    EXPECT_LE(QFontMetrics(carattere).horizontalAdvance(mostrate.first()), 30);
}

TEST_F(GridView, PaintingStopsUntilTheOutermostCallGivesItBack) {
    griglia.ridisegno(false);
    griglia.ridisegno(false);
    griglia.ridisegno(true);
    EXPECT_FALSE(griglia.updatesEnabled());
    griglia.ridisegno(true);
    EXPECT_TRUE(griglia.updatesEnabled());
}

TEST_F(GridView, RowsAreTallEnoughForAFinger) {
    EXPECT_GE(griglia.rowHeight(0), 30);
}

}  // namespace
