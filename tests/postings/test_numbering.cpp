#include "core/globals.h"
#include "data/gateway.h"
#include "postings/books.h"
#include "postings/numbering.h"
#include "postings/save_sale.h"
#include "sale/document_info.h"
#include "sale/last_numbers.h"
#include "sale/sale_document.h"

namespace {

class Numbering : public testing::Test {
  protected:
    Numbering() { n.prodotto({.codice = "A", .listino1 = 10}); }
    // A sale of one A, saved, and a new one begun.
    void vendita(ContoDiProva& c) {
        vendi(c, "A");
        c.tasto(Qt::Key_F5);
        c.tasto(Qt::Key_F2);
    }
    QString contatori() {
        return n.righe("SELECT FK_NUMERATORE || '/' || ANNO || '=' || NUMERO FROM Contatori ORDER BY ANNO")
            .join(',');
    }
    QString vendite() {
        return n
            .righe(
                "SELECT PROGRESSIVO || '/' || EXTRAPROG FROM (SELECT DISTINCT M.RID, PROGRESSIVO, EXTRAPROG "
                "FROM Movimenti M JOIN DettagliMovimento D ON D.FK_MOVIMENTO = M.RID) V ORDER BY RID, "
                "EXTRAPROG")
            .join(',');
    }
    // A saved sale of one row, as any program may have written it.
    void venditaDi(int tipo, int cassa, int progressivo, int extraProg) {
        n.sql(QString("INSERT INTO Movimenti (PROGRESSIVO, ANNO, DATA, FK_TIPODOCUMENTO, ID_CASSA) VALUES "
                      "(%1,2026,'2026-03-16 00:00:00',%2,%3)")
                  .arg(progressivo)
                  .arg(tipo)
                  .arg(cassa));
        n.sql(QString("INSERT INTO DettagliMovimento (FK_MOVIMENTO, EXTRAPROG, FK_PRODOTTO) SELECT MAX(RID), "
                      "%1, 1 FROM Movimenti")
                  .arg(extraProg));
    }
    void tipoFattura() {
        n.sql(
            "INSERT INTO TipoDocumenti (RID, CODICE, DESCRIZIONE, FK_CAUSALE, NCONTATORE, USAPREZZIIVA, "
            "ACCOMPAGNATORIO, MOSTRAVB) VALUES (5,'FT','Fattura',1,1,0,0,1)");
    }
    // "number/sub-number" of the last sale of the day.
    static QString ultima(const Vendita& v) {
        const NumeroVendita numero = getProgByData(v, QDate(2026, 3, 16));
        return QString("%1/%2").arg(numero.progressivo).arg(numero.extraProg);
    }
    Negozio n;
};

}  // namespace

TEST_F(Numbering, FirstNumberOfAYearMakesItsCounter) {
    EXPECT_EQ(getNewNumeratoreAnnuale(3, "2027"), 1);
    EXPECT_EQ(n.riga("SELECT FK_NUMERATORE, ANNO, NUMERO, NOTE FROM Contatori"), "3|2027|1|n/d");
}

TEST_F(Numbering, CounterGoesOnByOne) {
    EXPECT_EQ(getNewNumeratoreAnnuale(3, "2027"), 1);
    EXPECT_EQ(getNewNumeratoreAnnuale(3, "2027"), 2);
    EXPECT_EQ(getNewNumeratoreAnnuale(3, "2027"), 3);
    EXPECT_EQ(contatori(), "3/2027=3");
}

TEST_F(Numbering, YearsAndCountersAreApart) {
    getNewNumeratoreAnnuale(3, "2027");
    getNewNumeratoreAnnuale(3, "2027");
    EXPECT_EQ(getNewNumeratoreAnnuale(3, "2028"), 1);
    EXPECT_EQ(getNewNumeratoreAnnuale(4, "2027"), 1);
}

TEST_F(Numbering, NumberThatCannotBeReadIsZero) {
    gNomeModulo = "bBottegonClientVB";
    n.operatore.attendiAvviso("cAdoSqlServer.getNewRecordset -> bBottegonClientVB.getNewNumeratoreAnnuale");
    sondaIstruzioni() = [](const QString& sql) -> std::optional<ErroreServer> {
        if (sql.contains("FROM Contatori"))
            return ErroreServer{ErroreServer::Classe::Altro, 1, "guasto", "prova"};
        return std::nullopt;
    };
    EXPECT_EQ(getNewNumeratoreAnnuale(3, "2027"), 0);
}

TEST_F(Numbering, RolledBackNumberReturnsToTheCounter) {
    getNewNumeratoreAnnuale(3, "2027");
    ASSERT_TRUE(gAdo.beginTrasaction("prova"));
    EXPECT_EQ(getNewNumeratoreAnnuale(3, "2027"), 2);
    gAdo.rollbackTrasaction("prova");
    EXPECT_EQ(contatori(), "3/2027=1");
    EXPECT_EQ(getNewNumeratoreAnnuale(3, "2027"), 2);
}

TEST_F(Numbering, RolledBackFirstNumberLeavesNoCounter) {
    ASSERT_TRUE(gAdo.beginTrasaction("prova"));
    EXPECT_EQ(getNewNumeratoreAnnuale(3, "2027"), 1);
    gAdo.rollbackTrasaction("prova");
    EXPECT_EQ(n.conta("Contatori"), 0);
}

TEST_F(Numbering, SubNumberOfNoProgressiveIsOneWithoutAQuery) {
    const Vendita& v = n.apriConto().vendita();
    AllaIstruzione prima(1, [] { return std::optional<ErroreServer>(); });
    EXPECT_EQ(getNewSottoProgressivo(v, 0), 1);
    EXPECT_EQ(getNewSottoProgressivo(v, -1), 1);
    EXPECT_FALSE(prima.accaduto);
}

TEST_F(Numbering, SubNumberOfAFreshHeaderIsOne) {
    EXPECT_EQ(getNewSottoProgressivo(n.apriConto().vendita(), 77), 1);
}

TEST_F(Numbering, SubNumberFollowsTheHighest) {
    ContoDiProva& c = n.apriConto();
    vendita(c);
    vendita(c);
    EXPECT_EQ(getNewSottoProgressivo(c.vendita(), 1), 3);
}

TEST_F(Numbering, SalesOfADayShareOneHeader) {
    ContoDiProva& c = n.apriConto();
    vendita(c);
    vendita(c);
    vendita(c);
    EXPECT_EQ(n.conta("Movimenti"), 1);
    EXPECT_EQ(vendite(), "1/1,1/2,1/3");
    EXPECT_EQ(contatori(), "1/2026=1");
}

TEST_F(Numbering, SharedHeaderTotalsAllItsSales) {
    ContoDiProva& c = n.apriConto();
    vendita(c);
    vendita(c);
    vendita(c);
    EXPECT_EQ(n.riga("SELECT TOTIMPONIBILE, TOTIMPOSTA, TOTDOCUMENTO FROM Movimenti"), "30|6.6|36.6");
}

TEST_F(Numbering, NewSaleOfTheDayStandsUnderItsHeader) {
    ContoDiProva& c = n.apriConto();
    vendita(c);
    const Vendita& v = c.vendita();
    EXPECT_EQ(v.txtProg.testo(), "0001");
    EXPECT_EQ(v.txtSottoProg.testo(), "(Auto)");
    EXPECT_EQ(v.lblRID.testo(), n.valore("SELECT RID FROM Movimenti"));
    EXPECT_EQ(v.flxVB.righe(), 1);
}

TEST_F(Numbering, DayAfterHasAHeaderOfItsOwn) {
    ContoDiProva& c = n.apriConto();
    vendita(c);
    n.orologio.istante = n.orologio.istante.addDays(1);
    c.tasto(Qt::Key_F2);
    vendita(c);
    EXPECT_EQ(vendite(), "1/1,2/1");
}

TEST_F(Numbering, NewYearStartsAtOne) {
    n.orologio.istante = QDateTime(QDate(2026, 12, 31), QTime(23, 0));
    ContoDiProva& c = n.apriConto();
    vendita(c);
    n.orologio.istante = QDateTime(QDate(2027, 1, 1), QTime(0, 5));
    c.tasto(Qt::Key_F2);
    vendita(c);
    EXPECT_EQ(contatori(), "1/2026=1,1/2027=1");
    EXPECT_EQ(vendite(), "1/1,1/1");
}

TEST_F(Numbering, DesksDoNotShareAHeader) {
    ContoDiProva& c = n.apriConto();
    vendita(c);
    gIDCassa = 2;
    c.tasto(Qt::Key_F2);
    vendita(c);
    EXPECT_EQ(vendite(), "1/1,2/1");
}

TEST_F(Numbering, PricesWithTaxGiveEverySaleItsNumber) {
    n.sql("UPDATE TipoDocumenti SET USAPREZZIIVA = 1");
    ContoDiProva& c = n.apriConto();
    vendita(c);
    vendita(c);
    EXPECT_EQ(vendite(), "1/1,2/1");
    EXPECT_EQ(contatori(), "1/2026=2");
}

TEST_F(Numbering, SaleBegunBeforeMidnightKeepsItsDay) {
    n.orologio.istante = QDateTime(QDate(2026, 3, 16), QTime(23, 59));
    ContoDiProva& c = n.apriConto();
    vendi(c, "A");
    n.orologio.istante = QDateTime(QDate(2026, 3, 17), QTime(0, 1));
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(n.valore("SELECT DATA FROM Movimenti"), "2026-03-16 00:00:00");
    c.tasto(Qt::Key_F2);
    EXPECT_EQ(c.vendita().txtData.testo(), "17/03/2026");
    EXPECT_EQ(c.vendita().txtProg.testo(), "(Auto)");
}

// ---- The journal

TEST_F(Numbering, FirstJournalNumberOfAYearIsOne) {
    EXPECT_EQ(getNewProgressivoPrimaNota(QDate(2026, 3, 16)), 1);
}

TEST_F(Numbering, JournalNumberFollowsTheHighestOfItsYear) {
    n.sql(
        "INSERT INTO PrimaNota (PROGRESSIVO, DATA) VALUES (7,'2026-12-31 00:00:00'),(3,'2026-01-01 "
        "00:00:00'),(90,'2025-12-31 00:00:00'),(NULL,'2026-05-01 00:00:00')");
    EXPECT_EQ(getNewProgressivoPrimaNota(QDate(2026, 1, 1)), 8);
    EXPECT_EQ(getNewProgressivoPrimaNota(QDate(2025, 6, 1)), 91);
    EXPECT_EQ(getNewProgressivoPrimaNota(QDate(2027, 1, 1)), 1);
}

// ---- The sub-number

// It is looked for under today's year, not under the sale's.
TEST_F(Numbering, SubNumberOfASaleOfLastYearStartsAgain) {
    ContoDiProva& c = n.apriConto();
    vendita(c);
    vendita(c);
    ASSERT_EQ(vendite(), "1/1,1/2");
    n.orologio.istante = QDateTime(QDate(2027, 1, 1), QTime(0, 5));
    EXPECT_EQ(getNewSottoProgressivo(c.vendita(), 1), 1);
}

TEST_F(Numbering, SubNumbersOfOtherDocumentTypesDoNotCount) {
    ContoDiProva& c = n.apriConto();
    vendita(c);
    tipoFattura();
    n.sql("UPDATE Movimenti SET FK_TIPODOCUMENTO = 5");
    EXPECT_EQ(getNewSottoProgressivo(c.vendita(), 1), 1);
}

TEST_F(Numbering, SubNumbersOfAllDesksCount) {
    ContoDiProva& c = n.apriConto();
    vendita(c);
    n.sql("UPDATE Movimenti SET ID_CASSA = 9");
    EXPECT_EQ(getNewSottoProgressivo(c.vendita(), 1), 2);
}

TEST_F(Numbering, SubNumberOfADeletedSaleInTheMiddleIsNotGivenAgain) {
    ContoDiProva& c = n.apriConto();
    vendita(c);
    vendita(c);
    vendita(c);
    n.sql("DELETE FROM DettagliMovimento WHERE EXTRAPROG = 2");
    EXPECT_EQ(getNewSottoProgressivo(c.vendita(), 1), 4);
}

// ---- The day's header

TEST_F(Numbering, PrintedHeaderOfTheDayGoesOnAllTheSame) {
    ContoDiProva& c = n.apriConto();
    vendita(c);
    n.sql("UPDATE Movimenti SET DATASTAMPA = '2026-03-16 00:00:00'");
    Vendita& v = c.vendita();
    EXPECT_EQ(getProgByDataForNewVendita(v, QDate(2026, 3, 16), 1), 1);
}

TEST_F(Numbering, HeaderOfTheDayIsFoundWithItsEntries) {
    ContoDiProva& c = n.apriConto();
    vendita(c);
    Vendita& v = c.vendita();
    v.lblRID.testo("-1");
    v.idPrimaNota = v.idPNPagamento = -1;
    EXPECT_EQ(getProgByDataForNewVendita(v, QDate(2026, 3, 16), 1), 1);
    EXPECT_EQ(v.lblRID.testo(), n.valore("SELECT RID FROM Movimenti"));
    EXPECT_EQ(QString::number(v.idPrimaNota), n.valore("SELECT FK_PRIMANOTA FROM Movimenti"));
    EXPECT_EQ(QString::number(v.idPNPagamento), n.valore("SELECT FK_PNPAGAMENTO FROM Movimenti"));
}

TEST_F(Numbering, HeaderOfAnotherDayCustomerTypeOrDeskIsNotContinued) {
    ContoDiProva& c = n.apriConto();
    vendita(c);
    Vendita& v = c.vendita();
    EXPECT_EQ(getProgByDataForNewVendita(v, QDate(2026, 3, 15), 1), -1);
    EXPECT_EQ(getProgByDataForNewVendita(v, QDate(2026, 3, 16), 2), -1);
    gIDCassa = 9;
    EXPECT_EQ(getProgByDataForNewVendita(v, QDate(2026, 3, 16), 1), -1);
    gIDCassa = 255;
    v.idTipoDocumento = 5;
    EXPECT_EQ(getProgByDataForNewVendita(v, QDate(2026, 3, 16), 1), -1);
}

TEST_F(Numbering, NewSaleLooksAtTodayThoughAPastDayWasSavedLast) {
    ContoDiProva& c = n.apriConto();
    vendi(c, "A");
    c.vendita().txtData.testo("10/03/2026");
    c.tasto(Qt::Key_F5);
    c.tasto(Qt::Key_F2);
    EXPECT_EQ(c.vendita().txtProg.testo(), "(Auto)");
    EXPECT_EQ(c.vendita().txtData.testo(), "16/03/2026");
}

// ---- The last sale of a day

TEST_F(Numbering, LastSaleOfADayIsOneOfThisDesk) {
    const Vendita& v = n.apriConto().vendita();
    venditaDi(1, 255, 1, 1);
    venditaDi(1, 9, 2, 4);
    EXPECT_EQ(ultima(v), "1/1");
    gIDCassa = 9;
    EXPECT_EQ(ultima(v), "2/4");
    gIDCassa = 8;
    EXPECT_EQ(ultima(v), "-1/-1");
}

TEST_F(Numbering, LastSaleOfADayIsOneOfTheDocumentTypeOnTheScreen) {
    tipoFattura();
    Vendita& v = n.apriConto().vendita();
    venditaDi(1, 255, 1, 1);
    venditaDi(5, 255, 2, 4);
    EXPECT_EQ(ultima(v), "1/1");
    v.idTipoDocumento = 5;
    EXPECT_EQ(ultima(v), "2/4");
}

// By the sub-number alone, whatever the numbers of the headers.
TEST_F(Numbering, LastSaleOfADayWithTwoHeadersHasTheHighestSubNumber) {
    const Vendita& v = n.apriConto().vendita();
    venditaDi(1, 255, 1, 3);
    venditaDi(1, 255, 2, 1);
    EXPECT_EQ(ultima(v), "1/3");
}

TEST_F(Numbering, LastSubNumberOfANumberIsThatOfAnyDocumentTypeOfThisDesk) {
    tipoFattura();
    venditaDi(1, 255, 1, 2);
    venditaDi(5, 255, 1, 7);
    venditaDi(1, 9, 1, 8);
    EXPECT_EQ(getSottoProgByProg(1, 2026), 7);
    EXPECT_EQ(getSottoProgByProg(1, 2025), -1);
    EXPECT_EQ(getSottoProgByProg(2, 2026), -1);
}

// ---- Counters

// Nobody asks whether the number was given.
TEST_F(Numbering, CounterBelowNothingGivesADocumentTheNumberZero) {
    n.sql("INSERT INTO Contatori (FK_NUMERATORE, ANNO, NUMERO) VALUES (1,'2026',-1)");
    ContoDiProva& c = n.apriConto();
    vendi(c, "A");
    EXPECT_TRUE(salvaVendita(c.vendita(), false, -1));
    EXPECT_EQ(vendite(), "0/1");
    EXPECT_EQ(c.vendita().txtProg.testo(), "0000");
    EXPECT_EQ(n.valore("SELECT CODICEPARTITA FROM PrimaNota"), "VB/0");
    EXPECT_EQ(contatori(), "1/2026=0");
}

TEST_F(Numbering, DocumentTypesOfOneCounterShareItsSequence) {
    tipoFattura();
    ContoDiProva& c = n.apriConto();
    vendita(c);
    setInfoDocumento(c.vendita(), 5);
    setForNewMovimento(c.vendita());
    vendi(c, "A");
    ASSERT_TRUE(salvaVendita(c.vendita(), true, 5));
    EXPECT_EQ(n.righe("SELECT FK_TIPODOCUMENTO, PROGRESSIVO FROM Movimenti ORDER BY RID"),
              (QStringList{"1|1", "5|2"}));
    EXPECT_EQ(vendite(), "1/1,2/1");
    EXPECT_EQ(n.righe("SELECT CODICEPARTITA FROM PrimaNota ORDER BY RID"),
              (QStringList{"VB/1", "VB/1", "FT/2", "FT/2"}));
    EXPECT_EQ(n.righe("SELECT FK_PRIMANOTA, FK_PNPAGAMENTO FROM Movimenti ORDER BY RID"),
              (QStringList{"1|2", "3|4"}));
    EXPECT_EQ(contatori(), "1/2026=2");
    EXPECT_EQ(n.verifica(), QStringList());
}

TEST_F(Numbering, NumberBeyondFourDigitsIsShownWhole) {
    n.sql("INSERT INTO Contatori (FK_NUMERATORE, ANNO, NUMERO) VALUES (1,'2026',12344)");
    ContoDiProva& c = n.apriConto();
    vendi(c, "A");
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(c.vendita().txtProg.testo(), "12345");
    EXPECT_EQ(n.valore("SELECT CODICEPARTITA FROM PrimaNota"), "VB/12345");
}
