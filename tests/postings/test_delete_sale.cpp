#include <QRegularExpression>

#include "core/globals.h"
#include "doubles/kit_di_prova.h"
#include "postings/delete_sale.h"
#include "postings/expected_books.h"
#include "postings/save_sale.h"
#include "sale/recall.h"
#include "sale/sale_document.h"

namespace {

struct DeleteSale : ContoInBottega {
    QStringList strati() { return leggiLibri(n).strati; }
};

}  // namespace

// ---- The question

TEST_F(DeleteSale, IsAskedForByItsNumbers) {
    vendiESalva("A", "2");
    n.operatore.attendiDomanda("Eliminare il movimento con progressivo 0001/0001?",
                               OperatorPort::Risposta::Si);
    EXPECT_TRUE(cancellaVendita(v, v.rid(), true));
    EXPECT_EQ(n.conta("Movimenti"), 0);
}

TEST_F(DeleteSale, NoLeavesTheBooksAndOpensNoTransaction) {
    vendiESalva("A", "2");
    const QStringList prima = libri(n);
    n.operatore.attendiDomanda("Eliminare il movimento con progressivo 0001/0001?",
                               OperatorPort::Risposta::No);
    AllaIstruzione prove(1, [] { return std::optional<ErroreServer>(); });
    EXPECT_FALSE(cancellaVendita(v, v.rid(), true));
    EXPECT_FALSE(prove.accaduto);
    EXPECT_EQ(libri(n), prima);
}

TEST_F(DeleteSale, WithoutAQuestionTheScreenStaysAsItStands) {
    vendi(c, "A", "2");
    vendiESalva("B", "1");
    QStringList prima = schermata(v);
    ASSERT_TRUE(cancella());
    prima.replaceInStrings(QRegularExpression("^lblTotConto=.*"), "lblTotConto=0,00");
    EXPECT_EQ(schermata(v), prima);
}

TEST_F(DeleteSale, NothingHappensWithoutAKey) {
    vendi(c, "A");
    AllaIstruzione prove(1, [] { return std::optional<ErroreServer>(); });
    EXPECT_FALSE(cancellaVendita(v, 0, true));
    EXPECT_FALSE(cancellaVendita(v, -1, false));
    EXPECT_FALSE(prove.accaduto);
    EXPECT_EQ(v.flxVB.ultima(), 1);
}

TEST_F(DeleteSale, HourglassAndConnectionsAreGivenBack) {
    vendiESalva("A", "2");
    ASSERT_TRUE(cancella());
    EXPECT_EQ(n.operatore.clessidre, 0);
}

// ---- Stock

TEST_F(DeleteSale, GoodsGoBackToTheLayerTheyCameFrom) {
    vendiESalva("A", "4");
    nuovaVendita();
    vendiESalva("A", "1");
    ASSERT_EQ(strati(), (QStringList{"1|1|6|0", "1|1|7|5"}));
    showVendita(v, 1, -1, 1, -1);
    ASSERT_TRUE(cancella());
    EXPECT_EQ(strati(), (QStringList{"1|1|6|4", "1|1|7|5"}));
    showVendita(v, 1, -1, 2, -1);
    ASSERT_TRUE(cancella());
    EXPECT_EQ(strati(), (QStringList{"1|1|6|4", "1|1|7|6"}));
    EXPECT_EQ(n.valore("SELECT GIACENZA FROM Prodotti WHERE RID = 1"), "10");
}

TEST_F(DeleteSale, LayerIsFoundAgainByAllItsDecimals) {
    n.sql("UPDATE DettagliProdotto SET TAGLIO = 6.3355 WHERE TAGLIO = 6");
    vendiESalva("A", "2");
    ASSERT_EQ(strati(), (QStringList{"1|1|6.3355|2", "1|1|7|6"}));
    ASSERT_TRUE(cancella());
    EXPECT_EQ(strati(), (QStringList{"1|1|6.3355|4", "1|1|7|6"}));
}

TEST_F(DeleteSale, QuantityThatComesBackIsTheSavedOne) {
    vendiESalva("A", "2");
    c.clicRiga(1);
    c.clic(v.txtQta);
    c.digita("5");
    c.tasto(Qt::Key_F6);
    ASSERT_TRUE(cancella());
    EXPECT_EQ(strati(), (QStringList{"1|1|6|4", "1|1|7|6"}));
}

TEST_F(DeleteSale, RowThatWasNeverSavedMovesNothing) {
    vendiESalva("B", "1");
    vendi(c, "A", "2");
    ASSERT_TRUE(cancella());
    EXPECT_EQ(strati(), (QStringList{"1|1|6|4", "1|1|7|6"}));
    EXPECT_EQ(n.conta("DettagliMovimento"), 0);
}

TEST_F(DeleteSale, RowMarkedForDeletionGoesToo) {
    vendi(c, "A", "2");
    vendiESalva("B", "3");
    c.clicRiga(1);
    n.operatore.attendiDomanda("Eliminare il prodotto [A]?", OperatorPort::Risposta::Si);
    c.tasto(Qt::Key_F9);
    ASSERT_TRUE(cancella());
    EXPECT_EQ(n.conta("DettagliMovimento"), 0);
    EXPECT_EQ(strati(), (QStringList{"1|1|6|4", "1|1|7|6"}));
}

TEST_F(DeleteSale, ReturnTakesItsGoodsOutAgain) {
    c.digita("A");
    c.invio();
    v.chkReso.valore(1);
    c.clic(v.txtQta);
    c.digita("3");
    c.tasto(Qt::Key_F6);
    vendiESalva("B", "9");
    ASSERT_EQ(strati(), (QStringList{"1|1|6|7", "1|1|7|6"}));
    ASSERT_TRUE(cancella());
    EXPECT_EQ(strati(), (QStringList{"1|1|6|4", "1|1|7|6"}));
}

TEST_F(DeleteSale, KitGivesItsComponentsBack) {
    distinta(n, "%KIT", {{1, 2, 3}, {2, 1, 0, 2}});
    vendiESalva("%KIT", "");
    ASSERT_EQ(strati(), (QStringList{"1|1|6|2", "1|1|7|6"}));
    ASSERT_TRUE(cancella());
    EXPECT_EQ(strati(), (QStringList{"1|1|6|4", "1|1|7|6"}));
    EXPECT_EQ(n.conta("DettagliMovimento"), 0);
}

// ---- Journal

// It is posted anew whatever the causal says of saving; a new entry is not tied to the header.
TEST_F(DeleteSale, OfACausalWithoutJournalMakesAnEntryThatNothingPointsTo) {
    n.sql("UPDATE Causali SET GENERAPN = 0 WHERE RID = 1");
    v.generaPN = false;
    vendiESalva("A", "2");
    nuovaVendita();
    vendiESalva("A", "1");
    ASSERT_EQ(n.righe("SELECT RID, FK_CAUSALE FROM PrimaNota"), QStringList{"1|2"});
    ASSERT_TRUE(cancella());
    EXPECT_EQ(
        n.righe("SELECT RID, FK_CAUSALE, DESCRIZIONE, IMPORTO, CODICEPARTITA FROM PrimaNota ORDER BY RID"),
        (QStringList{"1|2|Incasso Vendita al Banco N° 0001 del 16/03/2026|24.4|VB/1",
                     "2|1|Vendita al Banco N° 0001 del 16/03/2026|24.4|VB/1"}));
    EXPECT_EQ(n.riga("SELECT FK_PRIMANOTA, FK_PNPAGAMENTO FROM Movimenti"), "|1");
}

TEST_F(DeleteSale, OfTheOnlySaleOfSuchACausalLeavesThatEntryAtZero) {
    n.sql("UPDATE Causali SET GENERAPN = 0 WHERE RID = 1");
    v.generaPN = false;
    vendiESalva("A", "2");
    ASSERT_TRUE(cancella());
    EXPECT_EQ(n.conta("Movimenti"), 0);
    EXPECT_EQ(n.righe("SELECT FK_CAUSALE, IMPORTO FROM PrimaNota"), QStringList{"1|0"});
    EXPECT_EQ(n.righe("SELECT FK_CONTO, DARE, AVERE FROM PrimaNotaDettagli ORDER BY RID"),
              (QStringList{"1|0|0", "3|0|0", "4|0|0"}));
    EXPECT_EQ(n.verifica(), QStringList());
}

TEST_F(DeleteSale, CollectionGoesBackToTheOptionsCausal) {
    n.causaleCarte();
    v.idCausalePagamento = 8;
    vendiESalva("A", "2");
    nuovaVendita();
    vendiESalva("A", "1");
    ASSERT_EQ(n.valore("SELECT FK_CAUSALE FROM PrimaNota WHERE RID = 2"), "8");
    ASSERT_TRUE(cancella());
    EXPECT_EQ(n.valore("SELECT FK_CAUSALE FROM PrimaNota WHERE RID = 2"), "2");
}

// A desk with a causal of its own collects under it; its deletions still go to the shop's.
TEST_F(DeleteSale, CollectionOfADeskWithItsOwnCausalGoesBackToTheShops) {
    n.causaleCarte();
    n.sql("DELETE FROM Opzioni WHERE NOME = 'CausalePagVb'");
    n.sql("INSERT INTO Opzioni (NOME, VALORE) VALUES ('CausalePagVb','2')");
    gCausalePagOverride = gCausalePagVb = v.idCausalePagamento = 8;
    vendiESalva("A", "2");
    nuovaVendita();
    vendiESalva("A", "1");
    ASSERT_EQ(n.valore("SELECT FK_CAUSALE FROM PrimaNota WHERE RID = 2"), "8");
    ASSERT_TRUE(cancella());
    EXPECT_EQ(n.valore("SELECT FK_CAUSALE FROM PrimaNota WHERE RID = 2"), "2");
}

// The collection of a named customer stays as it was posted, and goes with the header only.
TEST_F(DeleteSale, CollectionOfANamedCustomerIsNotRewritten) {
    n.intesta(v, 1, 9);
    vendiESalva("A", "2");
    nuovaVendita();
    vendiESalva("A", "1");
    ASSERT_TRUE(cancella());
    EXPECT_EQ(n.righe("SELECT RID, IMPORTO, DESCRIZIONE FROM PrimaNota ORDER BY RID"),
              (QStringList{"1|24.4|Vendita al Banco N° 0001 del 16/03/2026",
                           "2|36.6|Incasso Vendita al banco N° 0001 del 16/03/2026"}));
    showVendita(v, 1, -1, 1, -1);
    ASSERT_TRUE(cancella());
    EXPECT_EQ(n.conta("PrimaNota"), 0);
    EXPECT_EQ(n.conta("PrimaNotaDettagli"), 0);
}

TEST_F(DeleteSale, WithoutACollectionDeletesOneEntryAndNoOther) {
    n.sql(
        "INSERT INTO PrimaNota (RID, PROGRESSIVO, DATA, DESCRIZIONE, IMPORTO) VALUES "
        "(40,1,'2026-03-01 00:00:00','Affitto',500)");
    n.sql("INSERT INTO PrimaNotaDettagli (FK_PRIMANOTA, FK_CONTO, DARE) VALUES (40,2,500)");
    n.intesta(v, 0, 9);
    vendiESalva("A", "2");
    ASSERT_EQ(n.conta("PrimaNota"), 2);
    ASSERT_TRUE(cancella());
    EXPECT_EQ(n.righe("SELECT DESCRIZIONE, IMPORTO FROM PrimaNota"), QStringList{"Affitto|500"});
    EXPECT_EQ(n.conta("PrimaNotaDettagli"), 1);
}

// ---- The header

TEST_F(DeleteSale, TellsWhetherTheHeaderWent) {
    vendiESalva("A", "2");
    EXPECT_EQ(ctrlVenditaAfterDelete(v, v.rid()), EsitoTestata::Rimasta);
    EXPECT_EQ(n.conta("Movimenti"), 1);
    n.sql("DELETE FROM DettagliMovimento");
    EXPECT_EQ(ctrlVenditaAfterDelete(v, v.rid()), EsitoTestata::Cancellata);
    EXPECT_EQ(n.conta("Movimenti"), 0);
    EXPECT_EQ(n.conta("PrimaNota"), 0);
}

TEST_F(DeleteSale, NumberIsNotGivenAgain) {
    vendiESalva("A", "2");
    ASSERT_TRUE(cancella());
    nuovoDocumento(v);
    EXPECT_EQ(v.txtProg.testo(), "(Auto)");
    vendiESalva("A", "1");
    EXPECT_EQ(n.valore("SELECT PROGRESSIVO FROM Movimenti"), "2");
    EXPECT_EQ(n.riga("SELECT NUMERO, NOTE FROM Contatori"), "2|n/d");
}

// ---- Failures

TEST_F(DeleteSale, StatementThatFailsLeavesBooksAndRows) {
    vendi(c, "A", "2");
    vendiESalva("B", "3");
    const QStringList libriPrima = libri(n);
    const QStringList schermoPrima = schermata(v);
    int prove = 0;
    for (int numero = 1; numero < 200; ++numero) {
        const RegistroAvvisi avvisi;
        AllaIstruzione guasto(numero, [] {
            return std::optional(ErroreServer{ErroreServer::Classe::Altro, 1, "guasto", "prova"});
        });
        const bool esito = cancella();
        sondaIstruzioni() = {};
        if (esito || guasto.confermata || !guasto.accaduto) break;
        ++prove;
        SCOPED_TRACE(guasto.istruzione.toStdString());
        EXPECT_EQ(libri(n), libriPrima);
        EXPECT_EQ(schermata(v), schermoPrima);
        EXPECT_EQ(n.operatore.clessidre, 0);
        if (HasFailure()) return;
    }
    EXPECT_GE(prove, 20);
}

// What is left would owe negative tax: the deletion is refused, and the operator told.
TEST_F(DeleteSale, ThatWouldLeaveNegativeTaxIsRefused) {
    c.digita("A");
    c.invio();
    v.chkReso.valore(1);
    c.clic(v.txtQta);
    c.digita("1");
    c.tasto(Qt::Key_F6);
    ASSERT_TRUE(salvaERilegge(v));
    nuovaVendita();
    vendiESalva("A", "2");
    const QStringList libriPrima = libri(n);
    const QStringList schermoPrima = schermata(v);
    n.operatore.attendiMessaggio(
        "Impossibile eliminare la vendita: l'IVA di ciò che resterebbe nel documento è negativa (-2,20).");
    EXPECT_FALSE(cancella());
    EXPECT_EQ(libri(n), libriPrima);
    EXPECT_EQ(schermata(v), schermoPrima);
}
