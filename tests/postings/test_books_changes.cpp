#include "core/globals.h"
#include "postings/delete_sale.h"
#include "postings/expected_books.h"
#include "postings/save_sale.h"
#include "sale/customer.h"
#include "sale/document_info.h"
#include "sale/recall.h"
#include "sale/sale_document.h"

// Saved sales that are changed, joined by a second one, or deleted, with every row of every book written
// down beforehand.

namespace {

struct BooksChanges : ContoInBottega {
    // Two A and three B, 24,40 and 16,50, saved at 10:30; it is an hour later then.
    void vendiESalva() {
        vendi(c, "A", "2");
        vendi(c, "B", "3");
        ASSERT_TRUE(salvaERilegge(v));
        n.orologio.istante = n.orologio.istante.addSecs(3600);
    }
    void cambiaQuantita(int riga, const QString& quantita) {
        c.clicRiga(riga);
        c.clic(v.txtQta);
        c.digita(quantita);
        c.tasto(Qt::Key_F6);
    }
    // A further sale of the day under the same header: one A.
    void secondaVendita() {
        nuovaVendita();
        ContoInBottega::vendiESalva("A");
    }
    static QStringList righeDueAETreB() {
        return {"1|1|1|1|1|A|A|2|10|0|0|0|0|10|20|1|22|2.2|4.4|24.4|1|6|||2026-03-16 10:30:00",
                "2|1|1|2|2|B|Biscotti|3|5|0|0|0|0|5|15|2|10|0.5|1.5|16.5|1|0|||2026-03-16 10:30:00"};
    }
};

}  // namespace

// A is changed from 2 to 5, B deleted, C added. The layer of A is kept though it holds less.
TEST_F(BooksChanges, AddedChangedAndDeletedRows) {
    vendiESalva();
    cambiaQuantita(1, "5");
    c.clicRiga(2);
    n.operatore.attendiDomanda("Eliminare il prodotto [Biscotti]?", OperatorPort::Risposta::Si);
    c.tasto(Qt::Key_F9);
    vendi(c, "C", "4");
    ASSERT_TRUE(salvaERilegge(v));
    confrontaLibri(
        n,
        {
            .movimenti = {"1|1|2026|2026-03-16|1|1||1|1|255|0|59|11.36|70.36|1|2|0|"},
            .dettagli =
                {"1|1|1|1|1|A|A|5|10|0|0|0|0|10|50|1|22|2.2|11|61|1|6|||2026-03-16 10:30:00",
                 "3|1|1|2|3|C|Caffè|4|2.5|10|0|0|0.25|2.25|9|3|4|0.09|0.36|9.36|1|0|||2026-03-16 11:30:00"},
            .prodotti = {"A|5||0"},
            .strati = {"1|1|6|-1", "1|1|7|6"},
            .primaNota =
                {"1|1|2026-03-16|2026-03-16|1|1|Vendita al banco N° 0001 del 16/03/2026|||70.36|VB/1|1|",
                 "2|2|2026-03-16|2026-03-16|2|1|Incasso Vendita al banco N° 0001 del "
                 "16/03/2026|||70.36|VB/1|1|"},
            .righePrimaNota = {"1|1|70.36|0", "1|3|0|59", "1|4|0|11.36", "2|2|70.36|0", "2|1|0|70.36"},
            .contatori = {"1|2026|1|n/d"},
        });
    EXPECT_EQ(n.verifica(), QStringList());
}

TEST_F(BooksChanges, ScheduleIsMadeAnewForTheNewTotal) {
    n.intesta(v, 0, 9);
    vendiESalva();
    cambiaQuantita(1, "1");
    ASSERT_TRUE(salvaERilegge(v));
    confrontaLibri(
        n, {
               .movimenti = {"1|1|2026|2026-03-16|1|1||2|9|255|0|25|3.7|28.7|1||0|"},
               .dettagli = {"1|1|1|1|1|A|A|1|10|0|0|0|0|10|10|1|22|2.2|2.2|12.2|1|6|||2026-03-16 10:30:00",
                            righeDueAETreB()[1]},
               .prodotti = {"A|9||0"},
               .strati = {"1|1|6|3", "1|1|7|6"},
               .primaNota = {"1|1|2026-03-16|2026-03-16|1|2|Vendita al banco N° 0001 del "
                             "16/03/2026|||28.7|VB/1|9|"},
               .righePrimaNota = {"1|1|28.7|0", "1|3|0|25", "1|4|0|3.7"},
               .scadenze = {"1||2026-04-15|14.35", "1||2026-05-15|14.35"},
               .contatori = {"1|2026|1|n/d"},
           });
}

namespace {

// ROSSI has an account; her terms are others by the time that her sale is recalled.
struct BooksOfACredit : BooksChanges {
    ContoDiProva& delCliente() {
        ContoDiProva& altro = n.apriConto(1);
        altro.digita("7");
        altro.invio();
        return altro;
    }
    void acquista(ContoDiProva& conto, const QString& quantita) {
        vendi(conto, "A", quantita);
        conto.tasto(Qt::Key_F5);
    }
    void SetUp() override {
        n.termini(10);
        acquista(delCliente(), "2");
        n.termini(9);
    }
    ContoDiProva& richiamata(int extra = 1) {
        EXPECT_TRUE(apriContoConVendita(1));
        ContoDiProva& altro = static_cast<ContoDiProva&>(*gConti[1]);
        showVendita(altro.vendita(), 1, -1, extra, -1);
        return altro;
    }
    QStringList pagamenti() {
        return n.righe(
            "SELECT M.FK_PAGAMENTO, P.FK_PAGAMENTO FROM Movimenti M LEFT JOIN PrimaNota P ON "
            "M.FK_PRIMANOTA = P.RID ORDER BY M.RID");
    }
};

}  // namespace

TEST_F(BooksOfACredit, RecalledSaleKeepsTheTermsItWasSavedWith) {
    ContoDiProva& altro = richiamata();
    altro.clicRiga(1);
    altro.clic(altro.vendita().txtQta);
    altro.digita("1");
    altro.tasto(Qt::Key_F5);
    EXPECT_EQ(pagamenti(), QStringList{"10|10"});
    EXPECT_EQ(leggiLibri(n).scadenze,
              (QStringList{"1||2026-03-16|2.44", "1||2026-04-15|4.88", "1||2026-05-15|4.88"}));
    EXPECT_EQ(n.verifica(), QStringList());
}

TEST_F(BooksOfACredit, AfterADeletionTheRestIsDueByTheTermsOfTheDocument) {
    ContoDiProva& altro = richiamata();
    pulisciCorpo(altro.vendita());
    altro.vendita().txtSottoProg.testo("(Auto)");
    acquista(altro, "1");
    ContoDiProva& seconda = richiamata(2);
    n.operatore.attendiDomanda("Eliminare il movimento con progressivo 0001/0002?",
                               OperatorPort::Risposta::Si);
    seconda.tasto(Qt::Key_F7, Qt::ShiftModifier);
    EXPECT_EQ(pagamenti(), QStringList{"10|10"});
    EXPECT_EQ(leggiLibri(n).scadenze,
              (QStringList{"1||2026-03-16|4.88", "1||2026-04-15|9.76", "1||2026-05-15|9.76"}));
}

// Another program's document may have none.
TEST_F(BooksOfACredit, ADocumentWithoutAPaymentTakesTheCounters) {
    n.sql("UPDATE Movimenti SET FK_PAGAMENTO = NULL");
    acquista(richiamata(), "1");
    EXPECT_EQ(pagamenti(), QStringList{"1|1"});
    EXPECT_EQ(n.conta("Scadenze"), 0);
}

// The customer's own, since the document is a new one.
TEST_F(BooksOfACredit, AConversionOfARecalledSaleGoesByTheTermsOfTheCustomer) {
    Vendita& altra = richiamata().vendita();
    setInfoDocumento(altra, 5);
    setForNewMovimento(altra);
    ASSERT_TRUE(salvaVendita(altra, true, 5));
    EXPECT_EQ(pagamenti(), (QStringList{"10|10", "9|9"}));
}

TEST_F(BooksOfACredit, ASaleThatChangesHandsGoesByTheTermsOfWhoTakesIt) {
    const int altro = n.cliente(21, "VERDI");
    Vendita& altra = richiamata().vendita();
    n.operatore.attendiDomanda("Il conto attuale è gia stato salvato.\nAprire un nuovo conto?",
                               OperatorPort::Risposta::No);
    altra.txtCodCliente.testo("21");
    txtCodCliente_Invio(altra);
    ASSERT_EQ(altra.cliente(), altro);
    ASSERT_TRUE(altra.venditaModificata);
    ASSERT_TRUE(salvaVendita(altra, false, -1));
    EXPECT_EQ(pagamenti(), QStringList{"1|1"});
    EXPECT_EQ(n.conta("Scadenze"), 0);
}

TEST_F(BooksOfACredit, AConversionOfASaleThatWasTickedAsPaidAndNeverSavedIsPaid) {
    ContoDiProva& altro = n.apriConto(1);
    n.intesta(altro.vendita(), 1, 9);
    vendi(altro, "A");
    setInfoDocumento(altro.vendita(), 5);
    setForNewMovimento(altro.vendita());
    ASSERT_TRUE(salvaVendita(altro.vendita(), true, 5));
    EXPECT_EQ(pagamenti().last(), "1|1");
    EXPECT_GT(n.valore("SELECT MAX(FK_PNPAGAMENTO) FROM Movimenti").toInt(), 0);
}

TEST_F(BooksOfACredit, AConversionOfAPaidSaleIsPaid) {
    ContoDiProva& altro = richiamata();
    altro.vendita().chkPagato.valore(1);
    acquista(altro, "1");
    Vendita& altra = richiamata().vendita();
    setInfoDocumento(altra, 5);
    setForNewMovimento(altra);
    ASSERT_TRUE(salvaVendita(altra, true, 5));
    EXPECT_EQ(pagamenti(), (QStringList{"1|1", "1|1"}));
    EXPECT_GT(n.valore("SELECT FK_PNPAGAMENTO FROM Movimenti WHERE RID = 2").toInt(), 0);
}

// What stood on the screen before it went by others.
TEST_F(BooksOfACredit, RecalledSaleTakesNothingFromTheSaleBefore) {
    n.intesta(v, 0, 9);
    showVendita(v, 1, -1, 1, -1);
    acquista(c, "1");
    EXPECT_EQ(pagamenti(), QStringList{"10|10"});
}

TEST_F(BooksChanges, SecondSaleOfTheDayJoinsHeaderAndEntries) {
    vendiESalva();
    secondaVendita();
    confrontaLibri(
        n, {
               .movimenti = {"1|1|2026|2026-03-16|1|1||1|1|255|0|45|8.1|53.1|1|2|0|"},
               .dettagli = righeDueAETreB()
                           << "3|1|2|1|1|A|A|1|10|0|0|0|0|10|10|1|22|2.2|2.2|12.2|1|6|||2026-03-16 11:30:00",
               .prodotti = {"A|7||0"},
               .strati = {"1|1|6|1", "1|1|7|6"},
               .primaNota =
                   {"1|1|2026-03-16|2026-03-16|1|1|Vendita al banco N° 0001 del 16/03/2026|||53.1|VB/1|1|",
                    "2|2|2026-03-16|2026-03-16|2|1|Incasso Vendita al banco N° 0001 del "
                    "16/03/2026|||53.1|VB/1|1|"},
               .righePrimaNota = {"1|1|53.1|0", "1|3|0|45", "1|4|0|8.1", "2|2|53.1|0", "2|1|0|53.1"},
               .contatori = {"1|2026|1|n/d"},
           });
}

// The header's totals are not written by a deletion: they still tell both sales.
TEST_F(BooksChanges, OneOfTwoSalesDeleted) {
    vendiESalva();
    secondaVendita();
    ASSERT_TRUE(cancellaVendita(v, v.rid(), false));
    confrontaLibri(
        n, {
               .movimenti = {"1|1|2026|2026-03-16|1|1||1|1|255|0|45|8.1|53.1|1|2|0|"},
               .dettagli = righeDueAETreB(),
               .prodotti = {"A|8||0"},
               .strati = {"1|1|6|2", "1|1|7|6"},
               .primaNota =
                   {"1|1|2026-03-16|2026-03-16|1|1|Vendita al Banco N° 0001 del 16/03/2026|||40.9|VB/1|1|",
                    "2|2|2026-03-16|2026-03-16|2|1|Incasso Vendita al Banco N° 0001 del "
                    "16/03/2026|||40.9|VB/1|1|"},
               .righePrimaNota = {"1|1|40.9|0", "1|3|0|35", "1|4|0|5.9", "2|2|40.9|0", "2|1|0|40.9"},
               .contatori = {"1|2026|1|n/d"},
           });
    EXPECT_EQ(n.verifica(), QStringList());
}

TEST_F(BooksChanges, FirstOfTwoSalesDeleted) {
    vendiESalva();
    secondaVendita();
    showVendita(v, 1, -1, 1, -1);
    ASSERT_TRUE(cancellaVendita(v, v.rid(), false));
    confrontaLibri(
        n, {
               .movimenti = {"1|1|2026|2026-03-16|1|1||1|1|255|0|45|8.1|53.1|1|2|0|"},
               .dettagli = {"3|1|2|1|1|A|A|1|10|0|0|0|0|10|10|1|22|2.2|2.2|12.2|1|6|||2026-03-16 11:30:00"},
               .prodotti = {"A|9||0"},
               .strati = {"1|1|6|3", "1|1|7|6"},
               .primaNota =
                   {"1|1|2026-03-16|2026-03-16|1|1|Vendita al Banco N° 0001 del 16/03/2026|||12.2|VB/1|1|",
                    "2|2|2026-03-16|2026-03-16|2|1|Incasso Vendita al Banco N° 0001 del "
                    "16/03/2026|||12.2|VB/1|1|"},
               .righePrimaNota = {"1|1|12.2|0", "1|3|0|10", "1|4|0|2.2", "2|2|12.2|0", "2|1|0|12.2"},
               .contatori = {"1|2026|1|n/d"},
           });
}

TEST_F(BooksChanges, OnlySaleDeletedLeavesTheCounterAlone) {
    vendiESalva();
    ASSERT_TRUE(cancellaVendita(v, v.rid(), false));
    confrontaLibri(n, {
                          .prodotti = {"A|10||0"},
                          .strati = {"1|1|6|4", "1|1|7|6"},
                          .contatori = {"1|2026|1|n/d"},
                      });
    EXPECT_EQ(n.verifica(), QStringList());
}

TEST_F(BooksChanges, OnlySaleOnCreditDeletedTakesItsScheduleAlong) {
    n.intesta(v, 0, 10);
    vendiESalva();
    ASSERT_EQ(n.conta("Scadenze"), 3);
    ASSERT_TRUE(cancellaVendita(v, v.rid(), false));
    confrontaLibri(n, {
                          .prodotti = {"A|10||0"},
                          .strati = {"1|1|6|4", "1|1|7|6"},
                          .contatori = {"1|2026|1|n/d"},
                      });
}

TEST_F(BooksChanges, OneOfTwoSalesOnCreditDeletedLeavesTheScheduleOfTheOther) {
    n.intesta(v, 0, 10);
    vendiESalva();
    secondaVendita();
    ASSERT_TRUE(cancellaVendita(v, v.rid(), false));
    EXPECT_EQ(leggiLibri(n).scadenze,
              (QStringList{"1||2026-03-16|8.18", "1||2026-04-15|16.36", "1||2026-05-15|16.36"}));
}

// The goods of a document that loads a warehouse come in at the row's price, a layer of their own.
struct BooksOfALoad : BooksChanges {
    BooksOfALoad() { n.vendePerCarico(v); }
    void caricaCinqueA() {
        n.intesta(v, 0, 9);
        vendi(c, "A", "5");
        ASSERT_TRUE(salvaERilegge(v));
    }
};

TEST_F(BooksOfALoad, GoodsComeInAtTheirPrice) {
    caricaCinqueA();
    confrontaLibri(
        n, {
               .movimenti = {"1|1|2026|2026-03-16|7||1|2|9|255|0|50|11|61|||0|"},
               .dettagli = {"1|1|1|1|1|A|A|5|10|0|0|0|0|10|50|1|22|2.2|11|61|1|10|||2026-03-16 10:30:00"},
               .prodotti = {"A|15||0"},
               .strati = {"1|1|6|4", "1|1|7|6", "1|1|10|5"},
               .contatori = {"4|2026|1|n/d"},
           });
    EXPECT_EQ(n.verifica(), QStringList());
}

// The old layer gives back what it got, the new one takes the whole; the product's own figure counts the
// goods a second time.
TEST_F(BooksOfALoad, ChangedCostMovesTheGoodsToALayerOfTheirOwn) {
    caricaCinqueA();
    c.clicRiga(1);
    c.clic(v.txtPrezzoListino);
    c.digita("8");
    c.tasto(Qt::Key_F6);
    ASSERT_TRUE(salvaERilegge(v));
    const LibriAttesi libri = leggiLibri(n);
    EXPECT_EQ(libri.strati, (QStringList{"1|1|6|4", "1|1|7|6", "1|1|10|0", "1|1|8|5"}));
    EXPECT_EQ(libri.prodotti, QStringList{"A|20||0"});
    EXPECT_EQ(n.valore("SELECT TAGLIO FROM DettagliMovimento"), "8");
    EXPECT_EQ(n.verifica(), QStringList());
}

// The screen shows such a cost with two decimals: that is no other layer, now or when the row is changed.
TEST_F(BooksOfALoad, ACostOfThreeDecimalsMakesOneLayer) {
    n.sql("UPDATE Prodotti SET SCONTO = 33.35 WHERE RID = 1");
    caricaCinqueA();
    EXPECT_EQ(leggiLibri(n).strati, (QStringList{"1|1|6|4", "1|1|7|6", "1|1|6.665|5"}));
    cambiaQuantita(1, "7");
    ASSERT_TRUE(salvaERilegge(v));
    EXPECT_EQ(leggiLibri(n).strati, (QStringList{"1|1|6|4", "1|1|7|6", "1|1|6.665|7"}));
    EXPECT_EQ(n.valore("SELECT GIACENZA FROM Prodotti WHERE RID = 1"), "17");
}

// Only an origin warehouse gets its goods back.
TEST_F(BooksOfALoad, DeletingItMovesNoStock) {
    caricaCinqueA();
    ASSERT_TRUE(cancellaVendita(v, v.rid(), false));
    const LibriAttesi libri = leggiLibri(n);
    EXPECT_EQ(libri.movimenti, QStringList());
    EXPECT_EQ(libri.dettagli, QStringList());
    EXPECT_EQ(libri.strati, (QStringList{"1|1|6|4", "1|1|7|6", "1|1|10|5"}));
    EXPECT_EQ(libri.prodotti, QStringList{"A|15||0"});
}

// ---- Stock that cannot be told

// The whole save is refused, whatever its other rows; the message comes when the books are as before.
TEST_F(BooksChanges, ProductThatWasNeverInTheWarehouseRefusesTheSave) {
    n.prodotto({.codice = "N", .listino1 = 1, .descrizione = "Nuovo", .gestioneGiacenza = true});
    vendi(c, "A", "2");
    vendi(c, "N");
    const QStringList libriPrima = libri(n);
    const QStringList schermoPrima = schermata(v);
    n.operatore.attendiMessaggio(
        "Impossibile determinare il taglio.\nManca il riferimento al prezzo di costo del prodotto.\n\n"
        "Informazioni: \n - Prodotto [N - Nuovo]",
        OperatorPort::Icona::Critica);
    EXPECT_FALSE(salvaVendita(v, false, -1));
    EXPECT_EQ(libri(n), libriPrima);
    EXPECT_EQ(schermata(v), schermoPrima);
}

TEST_F(BooksChanges, RowTakenAwayBeforeItWasEverSavedMovesNothing) {
    n.sql(
        "UPDATE Prodotti SET PESO = 0.25, COLLI = 1, DATAULTIMOSCARICO = '2026-01-02 00:00:00', "
        "PREZZOULTIMOSCARICO = 9");
    vendi(c, "A", "2");
    vendi(c, "B", "3");
    c.clicRiga(1);
    n.operatore.attendiDomanda("Eliminare il prodotto [A]?", OperatorPort::Risposta::Si);
    c.tasto(Qt::Key_F9);
    v.mAccompagnatorio = true;
    ASSERT_TRUE(salvaVendita(v, false, -1));
    const LibriAttesi letti = leggiLibri(n);
    EXPECT_EQ(letti.strati, (QStringList{"1|1|6|4", "1|1|7|6"}));
    EXPECT_EQ(letti.prodotti, QStringList{"A|10|2026-01-02|9"});
    EXPECT_EQ(n.righe("SELECT POS, CODPRODOTTO FROM DettagliMovimento"), QStringList{"1|B"});
    EXPECT_EQ(n.riga("SELECT PESOCONS, COLLICONS FROM Movimenti"), "0.75|3");
}

// Nor does it need a cost to go by.
TEST_F(BooksChanges, RowOfUnknownCostTakenAwayBeforeItWasEverSavedIsNoHindrance) {
    n.prodotto({.codice = "N", .listino1 = 1, .descrizione = "Nuovo", .gestioneGiacenza = true});
    vendi(c, "A");
    vendi(c, "N");
    c.clicRiga(2);
    n.operatore.attendiDomanda("Eliminare il prodotto [Nuovo]?", OperatorPort::Risposta::Si);
    c.tasto(Qt::Key_F9);
    ASSERT_TRUE(salvaERilegge(v));
    EXPECT_EQ(n.conta("DettagliMovimento"), 1);
}

// ---- Statistics and transport data

TEST_F(BooksChanges, LastSaleOfAProductMovesOnlyForward) {
    n.sql(
        "UPDATE Prodotti SET DATAULTIMOSCARICO = '2026-03-15 00:00:00', PREZZOULTIMOSCARICO = 9 WHERE RID = "
        "1");
    n.sql(
        "UPDATE Prodotti SET DATAULTIMOSCARICO = '2026-03-16 00:00:00', PREZZOULTIMOSCARICO = 4 WHERE RID = "
        "2");
    vendi(c, "C");
    vendiESalva();
    EXPECT_EQ(n.righe("SELECT CODICE, DATAULTIMOSCARICO, PREZZOULTIMOSCARICO FROM Prodotti ORDER BY RID"),
              (QStringList{"A|2026-03-16 00:00:00|10", "B|2026-03-16 00:00:00|4", "C||0"}));
}

TEST_F(BooksChanges, DeletedRowStillWeighs) {
    n.sql("UPDATE Prodotti SET PESO = 0.25, COLLI = 1 WHERE RID = 1");
    n.sql("UPDATE Prodotti SET PESO = 2, COLLI = 2 WHERE RID = 2");
    vendiESalva();
    c.clicRiga(2);
    n.operatore.attendiDomanda("Eliminare il prodotto [Biscotti]?", OperatorPort::Risposta::Si);
    c.tasto(Qt::Key_F9);
    v.mAccompagnatorio = true;
    ASSERT_TRUE(salvaVendita(v, false, -1));
    EXPECT_EQ(n.riga("SELECT PESOCONS, COLLICONS FROM Movimenti"), "6.5|8");
}

// 0,5 is 0, and 0,5 more is 0 again; a whole one makes 1, and with another half 1,5 it is 2.
TEST_F(BooksChanges, PackagesAreRoundedWithEachRow) {
    for (const char* codice : {"D", "E"})
        n.prodotto({.codice = codice, .listino1 = 1});
    n.sql("UPDATE Prodotti SET PESO = 0.25, COLLI = 1");
    v.mAccompagnatorio = true;
    for (const char* codice : {"A", "B", "C"})
        vendi(c, codice, "0,5");
    vendi(c, "D");
    vendi(c, "E", "0,5");
    ASSERT_TRUE(salvaVendita(v, false, -1));
    EXPECT_EQ(n.riga("SELECT PESOCONS, COLLICONS FROM Movimenti"), "0.75|2");
}

TEST_F(BooksChanges, MorePackagesThanSixteenBitsRefuseTheSave) {
    gNomeModulo = "bBottegonClientVB";
    n.sql("UPDATE Prodotti SET COLLI = 20000 WHERE RID = 1");
    v.mAccompagnatorio = true;
    vendi(c, "A", "2");
    const QStringList libriPrima = libri(n);
    const QStringList schermoPrima = schermata(v);
    n.operatore.attendiAvviso("bBottegonClientVB.saveDettagli");
    EXPECT_FALSE(salvaVendita(v, false, -1));
    EXPECT_EQ(libri(n), libriPrima);
    EXPECT_EQ(schermata(v), schermoPrima);
}

TEST_F(BooksChanges, NetPriceIsStoredUnrounded) {
    n.prodotto({.codice = "D", .listino1 = 2.5, .sconto = 3});
    vendi(c, "D");
    ASSERT_TRUE(salvaERilegge(v));
    EXPECT_EQ(n.riga("SELECT PREZZONETTO, SCONTO FROM DettagliMovimento"), "2.425|3");
}
