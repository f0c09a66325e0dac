#include <QLabel>

#include "counter_screen.h"

// A sale from the first scan to the books, through the real window and the real archive.

namespace {

class WholeSale : public CounterScreen {
  protected:
    WholeSale() {
        negozio.prodotto({.codice = "PRIMO", .listino1 = 10, .barcode = "8009000000012"});
        negozio.prodotto({.codice = "SECONDO", .listino1 = 2.5, .barcode = "8009000000029", .idIva = 2});
        negozio.prodotto({.codice = "TERZO", .listino1 = 0.99, .barcode = "8009000000036"});
        negozio.prodotto({.codice = "QUARTO", .listino1 = 100, .barcode = "8009000000043", .idIva = 3});
        apri();
    }

    void scansiona(const QString& codice) const {
        digita("$" + codice);
        tasto(Qt::Key_Return);
    }

    // Five scans, of which one repeats a product, and one row taken away again.
    void vendi() {
        for (const char* codice :
             {"8009000000012", "8009000000029", "8009000000036", "8009000000012", "8009000000043"}) {
            scansiona(codice);
        }
        negozio.operatore.attendiDomanda("Eliminare il prodotto [QUARTO]?", OperatorPort::Risposta::Si);
        tasto(Qt::Key_F9);
        tasto(Qt::Key_F5);
    }

    QString libri(const QString& query) { return negozio.valore(query); }
};

// 2 x 12,20 + 2,75 + round(0,99 x 1,22) = 24,40 + 2,75 + 1,21.
TEST_F(WholeSale, ItsTotalStandsInTheHeader) {
    vendi();
    EXPECT_EQ(libri("SELECT TOTDOCUMENTO FROM Movimenti"), "28.36");
}

TEST_F(WholeSale, ItsVatStandsInTheHeader) {
    vendi();
    // 2 x 2,20 + 0,25 + 0,2178, each row with its own VAT.
    EXPECT_EQ(libri("SELECT TOTIMPOSTA FROM Movimenti"), "4.8678");
}

TEST_F(WholeSale, ItsRowsAreThoseOnTheScreen) {
    vendi();
    EXPECT_EQ(negozio.righe("SELECT CODPRODOTTO, QUANTITA, POS FROM DettagliMovimento ORDER BY POS"),
              (QStringList{"PRIMO|2|1", "SECONDO|1|2", "TERZO|1|3"}));
}

TEST_F(WholeSale, TheCounterGaveOneNumber) {
    vendi();
    EXPECT_EQ(libri("SELECT NUMERO || ' ' || NOTE FROM Contatori WHERE FK_NUMERATORE = 1 AND ANNO = '2026'"),
              "1 n/d");
    EXPECT_EQ(libri("SELECT PROGRESSIVO FROM Movimenti"), "1");
}

TEST_F(WholeSale, TheScreenShowsItSaved) {
    vendi();
    EXPECT_EQ(vendita().txtProg.testo(), "0001");
    EXPECT_EQ(vendita().txtSottoProg.testo(), "0001");
    EXPECT_EQ(widget<QLabel>(vendita().lblUltimaVendita).text(), "28,36");
    EXPECT_FALSE(widget(vendita().pctSave).isVisible());
}

TEST_F(WholeSale, TheNextOneContinuesTheDaysHeader) {
    vendi();
    aspettaCheSenta();
    tasto(Qt::Key_F2);
    scansiona("8009000000043");
    tasto(Qt::Key_F5);
    EXPECT_EQ(negozio.conta("Movimenti"), 1);
    EXPECT_EQ(libri("SELECT EXTRAPROG FROM DettagliMovimento WHERE CODPRODOTTO = 'QUARTO'"), "2");
    EXPECT_EQ(libri("SELECT TOTDOCUMENTO FROM Movimenti"), "132.36");
    EXPECT_EQ(vendita().txtSottoProg.testo(), "0002");
}

TEST_F(WholeSale, SavingTwiceBooksItOnce) {
    vendi();
    tasto(Qt::Key_F5);
    EXPECT_EQ(negozio.conta("Movimenti"), 1);
    EXPECT_EQ(negozio.conta("DettagliMovimento"), 3);
    EXPECT_EQ(libri("SELECT TOTDOCUMENTO FROM Movimenti"), "28.36");
}

TEST_F(WholeSale, ClosingTheWindowAsksFirst) {
    scansiona("8009000000012");
    negozio.operatore.attendiDomanda("Attenzione Salvare la vendita corrente?",
                                     OperatorPort::Risposta::Annulla);
    EXPECT_FALSE(finestra->close());
    EXPECT_EQ(vendita().flxVB.ultima(), 1);
}

TEST_F(WholeSale, ClosingTheWindowWithYesSavesAndEnds) {
    scansiona("8009000000012");
    negozio.operatore.attendiDomanda("Attenzione Salvare la vendita corrente?", OperatorPort::Risposta::Si);
    EXPECT_TRUE(finestra->close());
    EXPECT_TRUE(negozio.terminato);
    EXPECT_EQ(negozio.conta("Movimenti"), 1);
}

}  // namespace
