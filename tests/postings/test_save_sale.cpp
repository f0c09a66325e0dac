#include "core/globals.h"
#include "data/gateway.h"
#include "postings/books.h"
#include "postings/save_sale.h"

namespace {

const char* const testoNulla =
    "Attenzione! non vi è nessun elemento da salvare.\nAggiungere almeno un prodotto";

// Product A: 10,00 at 22 %; product B, also by barcode 8001: 5,00 at 10 %.
class SaveSale : public testing::Test {
  protected:
    SaveSale() {
        n.prodotto({.codice = "A", .listino1 = 10});
        n.prodotto({.codice = "B", .listino1 = 5, .barcode = "8001", .descrizione = "Biscotti", .idIva = 2});
    }
    // One A and three B on account 0: 12,20 and 16,50.
    ContoDiProva& venditaDiDue() {
        ContoDiProva& c = n.apriConto();
        vendi(c, "A");
        vendi(c, "8001", "3");
        return c;
    }
    QString riga(const QString& colonne, int pos = 1, int extraProg = 1) {
        return n.riga("SELECT " + colonne + " FROM DettagliMovimento WHERE POS = " + QString::number(pos) +
                      " AND EXTRAPROG = " + QString::number(extraProg));
    }
    QString testata(const QString& colonne) { return n.riga("SELECT " + colonne + " FROM Movimenti"); }
    Negozio n;
};

}  // namespace

TEST_F(SaveSale, HeaderHoldsNumbersCustomerAndTotals) {
    ContoDiProva& c = venditaDiDue();
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(n.conta("Movimenti"), 1);
    EXPECT_EQ(
        testata("PROGRESSIVO,ANNO,DATA,FK_TIPODOCUMENTO,FK_ORIGINE,FK_CONTROPARTITA,FK_PAGAMENTO,ID_CASSA,"
                "USAPREZZIIVA"),
        "1|2026|2026-03-16 00:00:00|1|1|1|1|255|0");
    EXPECT_EQ(testata("TOTIMPONIBILE,TOTIMPOSTA,TOTDOCUMENTO"), "25|3.7|28.7");
}

TEST_F(SaveSale, RowsHoldPricesTaxAndPlace) {
    ContoDiProva& c = venditaDiDue();
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(n.conta("DettagliMovimento"), 2);
    const QString colonne =
        "CODPRODOTTO,DESCPRODOTTO,QUANTITA,PREZZO,SCONTONETTO,PREZZONETTO,TOTPREZZONETTO,IVA,TOTALEIVA,"
        "TOTALERIGA,FK_IVA,VALOREIVA,FK_UM,EXTRAPROG";
    EXPECT_EQ(riga(colonne, 1), "A|A|1|10|0|10|10|2.2|2.2|12.2|1|22|1|1");
    EXPECT_EQ(riga(colonne, 2), "B|Biscotti|3|5|0|5|15|0.5|1.5|16.5|2|10|1|1");
}

TEST_F(SaveSale, RowsHoldTheTimeOfTheSale) {
    ContoDiProva& c = venditaDiDue();
    n.orologio.istante = QDateTime(QDate(2026, 3, 16), QTime(11, 45, 7));
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(riga("ORA"), "2026-03-16 11:45:07");
}

TEST_F(SaveSale, CounterStandsAtTheNumberGiven) {
    venditaDiDue().tasto(Qt::Key_F5);
    EXPECT_EQ(n.riga("SELECT FK_NUMERATORE, ANNO, NUMERO, NOTE FROM Contatori"), "1|2026|1|n/d");
}

TEST_F(SaveSale, ScreenShowsTheSavedSale) {
    ContoDiProva& c = venditaDiDue();
    c.tasto(Qt::Key_F5);
    const Vendita& v = c.vendita();
    EXPECT_EQ(v.txtProg.testo(), "0001");
    EXPECT_EQ(v.txtSottoProg.testo(), "0001");
    EXPECT_EQ(v.lblRID.testo(), n.valore("SELECT RID FROM Movimenti"));
    EXPECT_EQ(v.lblMainDisplay.testo(), "28,70");
    EXPECT_EQ(v.lblUltimaVendita.testo(), "28,70");
    EXPECT_EQ(v.flxVB.ultima(), 2);
    EXPECT_EQ(v.flxVB.gestione(1), RigaInvariata);
    EXPECT_FALSE(v.venditaModificata);
    EXPECT_FALSE(v.pctSave.visibile());
    EXPECT_TRUE(gVenditaSalvata);
}

TEST_F(SaveSale, BooksAreCleanAfterwards) {
    venditaDiDue().tasto(Qt::Key_F5);
    EXPECT_EQ(n.verifica(), QStringList());
}

TEST_F(SaveSale, NoConnectionAndNoHourglassAreLeft) {
    venditaDiDue().tasto(Qt::Key_F5);
    EXPECT_EQ(gAdo.getConnectionCount(), 0);
    EXPECT_EQ(n.operatore.clessidre, 0);
}

TEST_F(SaveSale, ValuesWithMarksAreStoredAsTheyAre) {
    n.prodotto({.codice = "O'B", .listino1 = 1, .descrizione = "¤50 'x' ‡ •A• \\"});
    ContoDiProva& c = n.apriConto();
    vendi(c, "O'B");
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(riga("CODPRODOTTO,DESCPRODOTTO"), "O'B|¤50 'x' ‡ •A• \\");
}

// ---- What keeps a save from beginning

TEST_F(SaveSale, EmptySaleIsSaidAndOpensNoTransaction) {
    ContoDiProva& c = n.apriConto();
    const QStringList prima = libri(n);
    QStringList istruzioni;
    sondaIstruzioni() = [&](const QString& sql) -> std::optional<ErroreServer> {
        istruzioni << sql;
        return std::nullopt;
    };
    n.operatore.attendiMessaggio(testoNulla, OperatorPort::Icona::Informazione);
    c.tasto(Qt::Key_F5);
    sondaIstruzioni() = {};
    EXPECT_EQ(istruzioni, QStringList());
    EXPECT_EQ(libri(n), prima);
}

TEST_F(SaveSale, MissingCustomerAndDateAreAskedFor) {
    ContoDiProva& c = venditaDiDue();
    Vendita& v = c.vendita();
    v.txtCodCliente.tag("-1");
    n.operatore.attendiMessaggio("Attenzione:\n - Campo [Cliente] Obbligatorio.",
                                 OperatorPort::Icona::Esclamazione);
    EXPECT_FALSE(salvaVendita(v, false, -1));
    v.txtData.testo(" ");
    n.operatore.attendiMessaggio(
        "Attenzione:\n - Campo [Cliente] Obbligatorio.\n - Campo [Data] Obbligatorio.",
        OperatorPort::Icona::Esclamazione);
    EXPECT_FALSE(salvaVendita(v, false, -1));
    v.txtCodCliente.tag("1");
    n.operatore.attendiMessaggio("Attenzione:\n - Campo [Data] Obbligatorio.",
                                 OperatorPort::Icona::Esclamazione);
    EXPECT_FALSE(salvaVendita(v, false, -1));
    EXPECT_EQ(n.conta("Movimenti"), 0);
}

class PrintedSale : public SaveSale {
  protected:
    PrintedSale() {
        v.txtCodCliente.tag(QString::number(n.cliente(7, "ROSSI")));
        v.lblDataStampa.testo("15/03/2026");
        v.venditaModificata = true;
    }
    void rispondi(OperatorPort::Risposta risposta) {
        n.operatore.attendiDomanda(
            "Attenzione il documetno selezionato risulta gia stampato in data 15/03/2026.\n"
            "Sicuri di voler continuare con le modifiche?",
            risposta);
    }
    Vendita& v = venditaDiDue().vendita();
};

TEST_F(PrintedSale, IsChangedOnYes) {
    rispondi(OperatorPort::Risposta::Si);
    EXPECT_TRUE(salvaVendita(v, false, -1));
    EXPECT_EQ(n.conta("Movimenti"), 1);
}

TEST_F(PrintedSale, IsLeftAloneOnNoWithoutAFurtherQuestion) {
    rispondi(OperatorPort::Risposta::No);
    EXPECT_FALSE(salvaVendita(v, false, -1));
    EXPECT_EQ(n.conta("Movimenti"), 0);
    EXPECT_FALSE(v.venditaModificata);
}

TEST_F(PrintedSale, OfTheWalkInCustomerAsksNothing) {
    v.txtCodCliente.tag("1");
    EXPECT_TRUE(controllaDataStampa(v));
}

// ---- Payment

TEST_F(SaveSale, PaidSaleOfANamedCustomerTakesTheCountersPayment) {
    n.sql("INSERT INTO Pagamenti (RID, CODICE, DESCRIZIONE, NRATE) VALUES (9,'RB','Ricevuta',1)");
    Vendita& v = venditaDiDue().vendita();
    v.txtCodCliente.tag(QString::number(n.cliente(7, "ROSSI")));
    v.chkPagato.valore(1);
    v.idPagamento = 9;
    ASSERT_TRUE(salvaVendita(v, false, -1));
    EXPECT_EQ(testata("FK_PAGAMENTO"), "1");
}

TEST_F(SaveSale, UnpaidSaleOfANamedCustomerKeepsItsPayment) {
    n.sql("INSERT INTO Pagamenti (RID, CODICE, DESCRIZIONE, NRATE) VALUES (9,'RB','Ricevuta',1)");
    Vendita& v = venditaDiDue().vendita();
    v.txtCodCliente.tag(QString::number(n.cliente(7, "ROSSI")));
    v.chkPagato.valore(0);
    v.idPagamento = 9;
    ASSERT_TRUE(salvaVendita(v, false, -1));
    EXPECT_EQ(testata("FK_PAGAMENTO"), "9");
}

TEST_F(SaveSale, ConvertedSaleIsOfTodayAndOfItsOwnType) {
    n.sql(
        "INSERT INTO TipoDocumenti (RID, CODICE, DESCRIZIONE, FK_CAUSALE, NCONTATORE, USAPREZZIIVA, "
        "ACCOMPAGNATORIO, MOSTRAVB) VALUES (5,'FT','Fattura',1,2,0,0,1)");
    Vendita& v = venditaDiDue().vendita();
    v.txtData.testo("31/12/2025");
    ASSERT_TRUE(salvaVendita(v, true, 5));
    EXPECT_EQ(testata("DATA,ANNO,FK_TIPODOCUMENTO"), "2026-03-16 00:00:00|2026|5");
}

TEST_F(SaveSale, SaleOfAPastDateKeepsItsDateAndYear) {
    Vendita& v = venditaDiDue().vendita();
    v.txtData.testo("31/12/2025");
    ASSERT_TRUE(salvaVendita(v, false, -1));
    EXPECT_EQ(testata("DATA,ANNO"), "2025-12-31 00:00:00|2025");
    EXPECT_EQ(n.valore("SELECT NUMERO FROM Contatori WHERE ANNO = '2025'"), "1");
}

// ---- Saving again

TEST_F(SaveSale, SavingAgainUnchangedChangesNothing) {
    ContoDiProva& c = venditaDiDue();
    c.tasto(Qt::Key_F5);
    const QStringList prima = libri(n);
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(libri(n), prima);
}

TEST_F(SaveSale, ChangedQuantityIsUpdatedInPlace) {
    ContoDiProva& c = venditaDiDue();
    c.tasto(Qt::Key_F5);
    const QString rid = n.valore("SELECT RID FROM DettagliMovimento WHERE POS = 1");
    n.orologio.istante = n.orologio.istante.addSecs(3600);
    c.clicRiga(1);
    c.clic(c.vendita().txtQta);
    c.digita("2");
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(n.conta("Movimenti"), 1);
    EXPECT_EQ(n.conta("DettagliMovimento"), 2);
    EXPECT_EQ(riga("RID,QUANTITA,TOTALERIGA,ORA"), rid + "|2|24.4|2026-03-16 10:30:00");
    EXPECT_EQ(testata("PROGRESSIVO,TOTDOCUMENTO,TOTIMPOSTA"), "1|40.9|5.9");
    EXPECT_EQ(n.valore("SELECT NUMERO FROM Contatori"), "1");
}

TEST_F(SaveSale, DeletedRowLeavesNoGapInThePlaces) {
    n.prodotto({.codice = "C", .listino1 = 1});
    ContoDiProva& c = venditaDiDue();
    vendi(c, "C");
    c.tasto(Qt::Key_F5);
    c.clicRiga(2);
    n.operatore.attendiDomanda("Eliminare il prodotto [Biscotti]?", OperatorPort::Risposta::Si);
    c.tasto(Qt::Key_F9);
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(n.righe("SELECT POS, CODPRODOTTO FROM DettagliMovimento ORDER BY POS"),
              (QStringList{"1|A", "2|C"}));
    EXPECT_EQ(testata("TOTDOCUMENTO"), "13.42");
    EXPECT_EQ(c.vendita().flxVB.ultima(), 2);
}

TEST_F(SaveSale, RowAddedToASavedSaleJoinsIt) {
    ContoDiProva& c = venditaDiDue();
    c.tasto(Qt::Key_F5);
    n.prodotto({.codice = "C", .listino1 = 1});
    vendi(c, "C");
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(n.conta("Movimenti"), 1);
    EXPECT_EQ(riga("CODPRODOTTO,EXTRAPROG", 3), "C|1");
    EXPECT_EQ(testata("TOTDOCUMENTO"), "29.92");
}

TEST_F(SaveSale, DeskAndPriceModeKeepTheirFirstValue) {
    ContoDiProva& c = venditaDiDue();
    c.tasto(Qt::Key_F5);
    gIDCassa = 9;
    c.vendita().chkPrezziIva.valore(1);
    ASSERT_TRUE(salvaVendita(c.vendita(), false, -1));
    EXPECT_EQ(testata("ID_CASSA,USAPREZZIIVA"), "255|0");
}

// A return of the same goods brings the movement's VAT to zero or below, which is a value like any other.
TEST_F(SaveSale, MovementWhoseTaxIsMinusOneIsSaved) {
    n.prodotto({.codice = "R", .listino1 = 10, .idIva = 2});
    ContoDiProva& c = n.apriConto();
    vendi(c, "R");
    Vendita& v = c.vendita();
    v.flxVB.scrivi(1, Colonna::Quantita, "-1,00");
    v.flxVB.scrivi(1, Colonna::TotIvaProd, "-1,00");
    v.flxVB.scrivi(1, Colonna::TotPrNetto, "-10,00");
    v.flxVB.scrivi(1, Colonna::Importo, "-11,00");
    EXPECT_TRUE(salvaVendita(v, false, -1));
    EXPECT_EQ(testata("TOTIMPONIBILE,TOTIMPOSTA,TOTDOCUMENTO"), "-10|-1|-11");
}

// ---- The document accompanies goods

TEST_F(SaveSale, WeightAndPackagesOfAnAccompanyingDocument) {
    n.sql("UPDATE TipoDocumenti SET ACCOMPAGNATORIO = 1");
    n.sql("UPDATE Prodotti SET PESO = 0.25, COLLI = 1 WHERE CODICE = 'A'");
    n.sql("UPDATE Prodotti SET PESO = 2, COLLI = 2 WHERE CODICE = 'B'");
    venditaDiDue().tasto(Qt::Key_F5);
    EXPECT_EQ(testata("PESOCONS,COLLICONS"), "6.25|7");
}

// ---- Accounts

TEST_F(SaveSale, NamedCustomersAccountClosesAfterItsSave) {
    n.apriConto();
    const int rossi = n.cliente(7, "ROSSI");
    ContoDiProva& c = n.apriConto(1);
    c.digita("7");
    c.invio();
    vendi(c, "A");
    c.tasto(Qt::Key_F5);
    EXPECT_TRUE(c.eliminato);
    EXPECT_FALSE(gConti[1]);
    EXPECT_FALSE(n.terminato);
    EXPECT_EQ(testata("FK_CONTROPARTITA"), QString::number(rossi));
}

TEST_F(SaveSale, FailedSaveKeepsTheAccountOpen) {
    n.apriConto();
    ContoDiProva& c = n.apriConto(1);
    vendi(c, "A");
    n.operatore.attendiMessaggio("Attenzione:\n - Campo [Cliente] Obbligatorio.");
    c.tasto(Qt::Key_F5);
    EXPECT_FALSE(c.eliminato);
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
}
