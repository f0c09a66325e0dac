#include <cmath>
#include <functional>

#include "core/globals.h"
#include "data/gateway.h"
#include "doubles/kit_di_prova.h"
#include "postings/delete_sale.h"
#include "postings/expected_books.h"
#include "sale/document_info.h"
#include "sale/recall.h"
#include "sale/sale_document.h"

// A stored sale stands on two screens, of one desk or of two. What the second of them says of it, once the
// first has changed it.

namespace {

const char* const cambiata =
    "La vendita non è più nell'archivio come la si vede: un'altra cassa l'ha cambiata o cancellata.\n"
    "Richiamarla e ripetere l'operazione.";

const char* const giaIncassata =
    "Il documento è già stato incassato da un'altra cassa, dopo che la vendita è stata richiamata.\n"
    "Richiamarla e ripetere l'operazione.";

enum class Chi { AltroConto, AltraCassa };

// Two A and three B, and one A more under the same header, on a screen that has recalled the first of them.
struct ChangedMeanwhile : testing::Test {
    Bottega n;
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();
    int rid = -1;

    void SetUp() override {
        vendi(c, "A", "2");
        vendi(c, "B", "3");
        ASSERT_TRUE(salvaERilegge(v));
        rid = v.rid();
        nuovaVendita(v);
        vendi(c, "A");
        ASSERT_TRUE(salvaERilegge(v));
        richiama(v, 1);
    }
    void richiama(Vendita& vendita, int extra) { showVendita(vendita, rid, -1, extra, -1); }
    static void nuovaVendita(Vendita& vendita) {
        pulisciCorpo(vendita);
        vendita.txtSottoProg.testo("(Auto)");
    }
    static void cambia(ContoDiProva& conto, int riga, const QString& quantita) {
        conto.clicRiga(riga);
        conto.clic(conto.vendita().txtQta);
        conto.digita(quantita);
        conto.tasto(Qt::Key_F6);
    }
    void toglie(ContoDiProva& conto, int riga, const QString& descrizione) {
        n.operatore.attendiDomanda("Eliminare il prodotto [" + descrizione + "]?",
                                   OperatorPort::Risposta::Si);
        conto.clicRiga(riga);
        conto.tasto(Qt::Key_F9);
    }
    // Somebody else does that with the recalled sale.
    void altrove(Chi chi, const std::function<bool(ContoDiProva&)>& lavoro) {
        const auto sulSuoSchermo = [&] {
            ContoDiProva& altro = n.apriConto(1);
            richiama(altro.vendita(), 1);
            return lavoro(altro);
        };
        if (chi == Chi::AltroConto) {
            EXPECT_TRUE(sulSuoSchermo());
            return;
        }
        gAdo.chiudiConnessioniCalde();
        EXPECT_EQ(inUnFiglio([&] {
                      gIDCassa = 2;
                      return sulSuoSchermo() ? 0 : 1;
                  }),
                  0);
    }
    void altroveCambia(Chi chi, int riga, const QString& quantita) {
        altrove(chi, [&](ContoDiProva& altro) {
            cambia(altro, riga, quantita);
            return salvaERilegge(altro.vendita());
        });
    }
    void rifiutata(const std::function<void()>& lavoro, const char* perche = cambiata) {
        const QStringList libriPrima = libri(n);
        const QStringList schermoPrima = schermata(v);
        n.operatore.attendiMessaggio(perche, OperatorPort::Icona::Esclamazione);
        lavoro();
        EXPECT_TRUE(n.operatore.esaurito());
        EXPECT_EQ(libri(n), libriPrima);
        EXPECT_EQ(schermata(v), schermoPrima);
        EXPECT_FALSE(gAdo.inTransazione());
        EXPECT_EQ(n.operatore.clessidre, 0);
    }
    void salvataggioRifiutato() {
        rifiutata([&] { EXPECT_FALSE(salvaERilegge(v)); });
    }
    void cancellazioneRifiutata() {
        rifiutata([&] { EXPECT_FALSE(cancellaVendita(v, rid, false)); });
    }
    // The pieces of A that are left of the ten, and the layers that they lie in.
    void restanoDiA(int pezzi) {
        EXPECT_EQ(n.valore("SELECT GIACENZA FROM Prodotti WHERE RID = 1").toInt(), pezzi);
        EXPECT_EQ(n.valore("SELECT SUM(QUANTITA) FROM DettagliProdotto WHERE FK_PRODOTTO = 1").toInt(),
                  pezzi);
        EXPECT_EQ(n.verifica(), QStringList());
    }
};

class ChangedBySomebody : public ChangedMeanwhile, public testing::WithParamInterface<Chi> {};

}  // namespace

// ---- Refused

TEST_P(ChangedBySomebody, AChangeAfterAChangeIsRefusedAndDoneAfterARecall) {
    altroveCambia(GetParam(), 1, "5");
    cambia(c, 1, "3");
    salvataggioRifiutato();
    richiama(v, 1);
    cambia(c, 1, "3");
    ASSERT_TRUE(salvaERilegge(v));
    restanoDiA(6);
}

TEST_P(ChangedBySomebody, ADeletionAfterAChangeIsRefused) {
    altroveCambia(GetParam(), 1, "5");
    cancellazioneRifiutata();
    richiama(v, 1);
    ASSERT_TRUE(cancellaVendita(v, rid, false));
    restanoDiA(9);
}

TEST_P(ChangedBySomebody, ARowIsNotTakenAwayAfterAChange) {
    altroveCambia(GetParam(), 1, "5");
    toglie(c, 1, "A");
    salvataggioRifiutato();
    restanoDiA(4);
}

TEST_P(ChangedBySomebody, AChangeAfterADeletionIsRefused) {
    altrove(GetParam(), [&](ContoDiProva& altro) { return cancellaVendita(altro.vendita(), rid, false); });
    cambia(c, 1, "3");
    salvataggioRifiutato();
    restanoDiA(9);
}

TEST_P(ChangedBySomebody, ADeletionAfterADeletionIsRefused) {
    altrove(GetParam(), [&](ContoDiProva& altro) { return cancellaVendita(altro.vendita(), rid, false); });
    cancellazioneRifiutata();
    restanoDiA(9);
}

TEST_P(ChangedBySomebody, ADeletionAfterARowWasTakenAwayIsRefused) {
    altrove(GetParam(), [&](ContoDiProva& altro) {
        toglie(altro, 1, "A");
        return salvaERilegge(altro.vendita());
    });
    cancellazioneRifiutata();
    restanoDiA(9);
}

// The quantity is the same again: there is nothing to undo but what the screen knows.
TEST_P(ChangedBySomebody, AChangeThereAndBackIsNone) {
    altroveCambia(GetParam(), 1, "5");
    altroveCambia(GetParam(), 1, "2");
    cambia(c, 1, "3");
    ASSERT_TRUE(salvaERilegge(v));
    restanoDiA(6);
}

TEST_P(ChangedBySomebody, TwoChangesOfDifferentRowsStand) {
    altroveCambia(GetParam(), 2, "7");
    cambia(c, 1, "3");
    ASSERT_TRUE(salvaERilegge(v));
    restanoDiA(6);
    EXPECT_EQ(n.righe("SELECT QUANTITA FROM DettagliMovimento ORDER BY RID"), (QStringList{"3", "7", "1"}));
    EXPECT_EQ(n.valore("SELECT TOTDOCUMENTO FROM Movimenti"), "87.3");
}

TEST_P(ChangedBySomebody, AChangedSaleOfTheHeaderLeavesTheOthers) {
    altroveCambia(GetParam(), 1, "5");
    richiama(v, 2);
    cambia(c, 1, "2");
    ASSERT_TRUE(salvaERilegge(v));
    restanoDiA(3);
}

INSTANTIATE_TEST_SUITE_P(By, ChangedBySomebody, testing::Values(Chi::AltroConto, Chi::AltraCassa),
                         [](const auto& caso) {
                             return caso.param == Chi::AltroConto ? "AnotherAccount" : "AnotherDesk";
                         });

TEST_F(ChangedMeanwhile, AnotherLayerIsAChange) {
    n.sql("UPDATE DettagliProdotto SET QUANTITA = QUANTITA + 2 WHERE TAGLIO = 6");
    n.sql("UPDATE DettagliProdotto SET QUANTITA = QUANTITA - 2 WHERE TAGLIO = 7");
    n.sql("UPDATE DettagliMovimento SET TAGLIO = 7 WHERE RID = 1");
    cambia(c, 1, "3");
    salvataggioRifiutato();
    restanoDiA(7);
}

TEST_F(ChangedMeanwhile, AnotherProductIsAChange) {
    n.sql("UPDATE DettagliMovimento SET FK_PRODOTTO = 3 WHERE RID = 2");
    cancellazioneRifiutata();
}

// ---- The journal

namespace {

// ROSSI's sale of two A on credit, and a further one of hers under the same header on two screens.
struct PaidMeanwhile : ChangedMeanwhile {
    void SetUp() override {
        n.intesta(v, 0, 1);
        vendi(c, "A", "2");
        ASSERT_TRUE(salvaERilegge(v));
        rid = v.rid();
    }
    void paga(ContoDiProva& conto) {
        conto.vendita().chkPagato.valore(1);
        cambia(conto, 1, "3");
    }
    static void ancoraUna(ContoDiProva& conto) {
        nuovaVendita(conto.vendita());
        vendi(conto, "B");
        conto.vendita().chkPagato.valore(1);
    }
    QStringList incassi() { return n.righe("SELECT IMPORTO FROM PrimaNota WHERE FK_CAUSALE = 2"); }
};

}  // namespace

TEST_F(PaidMeanwhile, ASaleIsNotCollectedTwice) {
    ContoDiProva& altro = n.apriConto(1);
    richiama(altro.vendita(), 1);
    paga(altro);
    ASSERT_TRUE(salvaERilegge(altro.vendita()));
    v.chkPagato.valore(1);
    vendi(c, "C");
    rifiutata([&] { EXPECT_FALSE(salvaERilegge(v)); }, giaIncassata);
    rifiutata([&] { EXPECT_FALSE(cancellaVendita(v, rid, false)); }, giaIncassata);
    EXPECT_EQ(incassi(), QStringList{"36.6"});
    EXPECT_EQ(n.verifica(), QStringList());
}

TEST_F(PaidMeanwhile, AFurtherSaleJoinsTheCollectionThatWasMadeMeanwhile) {
    ContoDiProva& altro = n.apriConto(1);
    richiama(altro.vendita(), 1);
    ancoraUna(altro);
    ancoraUna(c);
    ASSERT_TRUE(salvaERilegge(altro.vendita()));
    ASSERT_TRUE(salvaERilegge(v));
    EXPECT_EQ(incassi(), QStringList{"35.4"});
    EXPECT_EQ(n.valore("SELECT COUNT(DISTINCT EXTRAPROG) FROM DettagliMovimento"), "3");
    EXPECT_EQ(n.verifica(), QStringList());
}

// Both tills would take the money.
TEST_F(PaidMeanwhile, ATickOfASaleThatWasCollectedMeanwhileSaysWhy) {
    ContoDiProva& altro = n.apriConto(1);
    richiama(altro.vendita(), 1);
    ancoraUna(altro);
    ASSERT_TRUE(salvaERilegge(altro.vendita()));
    v.chkPagato.valore(1);
    vendi(c, "C");
    rifiutata([&] { EXPECT_FALSE(salvaERilegge(v)); }, giaIncassata);
}

TEST_F(PaidMeanwhile, ASaleOnCreditTakesTheCollectionOfAFurtherOneForItsOwn) {
    ContoDiProva& altro = n.apriConto(1);
    richiama(altro.vendita(), 1);
    ancoraUna(altro);
    ASSERT_TRUE(salvaERilegge(altro.vendita()));
    cambia(c, 1, "3");
    ASSERT_TRUE(salvaERilegge(v));
    EXPECT_EQ(n.righe("SELECT IMPORTO FROM PrimaNota ORDER BY RID"), (QStringList{"42.1", "29.9"}));
    EXPECT_EQ(n.riga("SELECT FK_PRIMANOTA, FK_PNPAGAMENTO FROM Movimenti"), "1|2");
    EXPECT_EQ(v.idPNPagamento, 2);
}

TEST_F(PaidMeanwhile, ADeletionTakesTheCollectionOfTheDocumentAlong) {
    ContoDiProva& altro = n.apriConto(1);
    richiama(altro.vendita(), 1);
    ancoraUna(altro);
    ASSERT_TRUE(salvaERilegge(altro.vendita()));
    ASSERT_TRUE(cancellaVendita(altro.vendita(), rid, false));
    ASSERT_TRUE(cancellaVendita(v, rid, false));
    EXPECT_EQ(n.conta("Movimenti") + n.conta("PrimaNota") + n.conta("PrimaNotaDettagli"), 0);
}

// The document had no entry when it came to the screen.
TEST_F(PaidMeanwhile, AnEntryThatWasMadeMeanwhileIsRewritten) {
    v.idPrimaNota = -1;
    cambia(c, 1, "3");
    ASSERT_TRUE(salvaERilegge(v));
    EXPECT_EQ(n.righe("SELECT IMPORTO FROM PrimaNota"), QStringList{"36.6"});
    EXPECT_EQ(n.verifica(), QStringList());
}

TEST_F(PaidMeanwhile, AnotherEntryThanTheScreensIsRefused) {
    v.idPrimaNota = 7;
    cambia(c, 1, "3");
    salvataggioRifiutato();
    cancellazioneRifiutata();
}

// What stands in its place may be there without a link.
TEST_F(PaidMeanwhile, AnEntryThatIsNoLongerLinkedIsRefused) {
    n.sql("UPDATE Movimenti SET FK_PRIMANOTA = NULL");
    cambia(c, 1, "3");
    salvataggioRifiutato();
}

// ---- Not refused: the same value in other digits

namespace {

// Sets quantity and stock of row 1, recalls the sale, and saves it with another price; then deletes it: all
// of the goods lie where they came from, whatever digits the screen left out.
void siRisalvaESiCancella(ChangedMeanwhile& s, const QString& quantita) {
    SCOPED_TRACE(quantita.toStdString());
    s.n.sql("UPDATE DettagliMovimento SET QUANTITA = " + quantita + " WHERE RID = 1");
    s.n.sql("UPDATE Prodotti SET GIACENZA = 9 - (" + quantita + ") WHERE RID = 1");
    s.n.sql("UPDATE DettagliProdotto SET QUANTITA = 3 - (" + quantita + ") WHERE TAGLIO = 6");
    s.richiama(s.v, 1);
    s.c.clicRiga(1);
    s.c.clic(s.v.txtPrezzoNetto);
    s.c.digita("9,5");
    s.c.tasto(Qt::Key_F6);
    ASSERT_EQ(s.v.flxVB.gestione(1), RigaModificata);
    EXPECT_TRUE(salvaERilegge(s.v));
    EXPECT_TRUE(cancellaVendita(s.v, s.rid, false));
    // A quantity is kept to seven digits.
    const double ammesso = std::abs(quantita.toDouble()) * 1e-6 + 1e-6;
    EXPECT_NEAR(s.n.valore("SELECT GIACENZA FROM Prodotti WHERE RID = 1").toDouble(), 9, ammesso);
    EXPECT_NEAR(s.n.valore("SELECT QUANTITA FROM DettagliProdotto WHERE TAGLIO = 6").toDouble(), 3, ammesso);
    EXPECT_EQ(s.n.valore("SELECT QUANTITA FROM DettagliProdotto WHERE TAGLIO = 7"), "6");
}

struct SameQuantity : ChangedMeanwhile, testing::WithParamInterface<const char*> {};

}  // namespace

TEST_P(SameQuantity, IsNoChange) {
    siRisalvaESiCancella(*this, GetParam());
}
INSTANTIATE_TEST_SUITE_P(Of, SameQuantity,
                         testing::Values("0.125", "0.1", "0.3", "1.234", "33.333", "-2.5", "-1.004",
                                         "1234.567", "99999.999", "1234567.891", "16777217", "0.3333333333"));

TEST_F(ChangedMeanwhile, AnotherPriceIsReckonedWithAllDecimalsOfTheQuantity) {
    n.sql("UPDATE DettagliMovimento SET QUANTITA = 1.234 WHERE RID = 1");
    richiama(v, 1);
    c.clicRiga(1);
    c.clic(v.txtPrezzoNetto);
    c.digita("9,5");
    c.tasto(Qt::Key_F6);
    ASSERT_TRUE(salvaERilegge(v));
    EXPECT_EQ(
        n.riga("SELECT ROUND(QUANTITA, 3) + 0.0, TOTALERIGA + 0.0 FROM DettagliMovimento WHERE RID = 1"),
        "1.234|14.3");
}

TEST_F(ChangedMeanwhile, AQuantityBehindARemovedRowKeepsItsDecimals) {
    n.sql("UPDATE DettagliMovimento SET QUANTITA = 2.125, TOTALERIGA = 7.77 WHERE RID = 2");
    richiama(v, 1);
    const QString giacenza = n.valore("SELECT GIACENZA FROM Prodotti WHERE RID = 2");
    const QString strati = n.riga("SELECT SUM(QUANTITA) FROM DettagliProdotto WHERE FK_PRODOTTO = 2");
    toglie(c, 1, "A");
    ASSERT_EQ(v.flxVB.gestione(2), RigaModificata);
    ASSERT_TRUE(salvaERilegge(v));
    EXPECT_EQ(n.riga("SELECT QUANTITA + 0.0, TOTALERIGA + 0.0 FROM DettagliMovimento WHERE RID = 2"),
              "2.125|7.77");
    EXPECT_EQ(n.valore("SELECT GIACENZA FROM Prodotti WHERE RID = 2"), giacenza);
    EXPECT_EQ(n.riga("SELECT SUM(QUANTITA) FROM DettagliProdotto WHERE FK_PRODOTTO = 2"), strati);
}

TEST_F(ChangedMeanwhile, AReturnIsSavedAgain) {
    nuovaVendita(v);
    c.digita("A");
    c.invio();
    v.chkReso.valore(1);
    c.clic(v.txtQta);
    c.digita("1,5");
    c.tasto(Qt::Key_F6);
    ASSERT_TRUE(salvaERilegge(v));
    ASSERT_EQ(v.flxVB.cella(1, Colonna::OldQuantita), "-1,5");
    cambia(c, 1, "2,5");
    ASSERT_TRUE(salvaERilegge(v));
    EXPECT_EQ(n.valore("SELECT GIACENZA FROM Prodotti WHERE RID = 1"), "9.5");
}

TEST_F(ChangedMeanwhile, AKitAndItsComponentsAreSavedAgain) {
    distinta(n, "%KIT", {{1, 2, 3}, {2, 1, 0, 2}});
    nuovaVendita(v);
    vendi(c, "%KIT");
    ASSERT_TRUE(salvaERilegge(v));
    cambia(c, 1, "2");
    ASSERT_TRUE(salvaERilegge(v));
    restanoDiA(3);
    EXPECT_TRUE(cancellaVendita(v, rid, false));
    restanoDiA(7);
}

// One whose layer was never known is stored with a cost of 0.
TEST_F(ChangedMeanwhile, AProductWithoutStockIsSavedAgain) {
    cambia(c, 2, "5");
    ASSERT_TRUE(salvaERilegge(v));
    cambia(c, 2, "6");
    ASSERT_TRUE(salvaERilegge(v));
    EXPECT_EQ(n.valore("SELECT QUANTITA FROM DettagliMovimento WHERE RID = 2"), "6");
    EXPECT_EQ(n.valore("SELECT GIACENZA FROM Prodotti WHERE RID = 2"), "0");
    EXPECT_EQ(n.conta("DettagliProdotto", "FK_PRODOTTO = 2"), 0);
    restanoDiA(7);
}

TEST_F(ChangedMeanwhile, AProductThatIsTakenIntoStockMeanwhileIsSavedAgain) {
    n.sql("UPDATE Prodotti SET SETGIACENZA = 1, GIACENZA = 10 WHERE RID = 2");
    cambia(c, 2, "5");
    EXPECT_TRUE(salvaERilegge(v));
    EXPECT_EQ(n.valore("SELECT GIACENZA FROM Prodotti WHERE RID = 2"), "8");
}

// A cell shows a layer with the decimals of a price; the goods go by all of them.
TEST_F(ChangedMeanwhile, ALayerOfFourDecimalsIsKeptByAChange) {
    n.sql("UPDATE DettagliProdotto SET TAGLIO = 6.3355 WHERE TAGLIO = 6");
    n.sql("UPDATE DettagliMovimento SET TAGLIO = 6.3355 WHERE TAGLIO = 6");
    richiama(v, 1);
    cambia(c, 1, "3");
    ASSERT_TRUE(salvaERilegge(v));
    EXPECT_EQ(leggiLibri(n).strati, (QStringList{"1|1|6.3355|0", "1|1|7|6"}));
    cambia(c, 1, "1");
    ASSERT_TRUE(salvaERilegge(v));
    EXPECT_EQ(leggiLibri(n).strati, (QStringList{"1|1|6.3355|2", "1|1|7|6"}));
    EXPECT_EQ(n.valore("SELECT TAGLIO FROM DettagliMovimento WHERE RID = 1"), "6.3355");
}

TEST_F(ChangedMeanwhile, TheAverageOfALaterPurchaseIsNoChange) {
    gPrezzoMedio = 1;
    n.sql("DELETE FROM DettagliProdotto WHERE TAGLIO = 7");
    n.sql("UPDATE DettagliProdotto SET TAGLIO = 6.66, QUANTITA = 7");
    cambia(c, 1, "3");
    EXPECT_TRUE(salvaERilegge(v));
    restanoDiA(6);
}

// Another program gave the transfer a counterparty, so that it can be recalled.
TEST_F(ChangedMeanwhile, ATransferIsSavedAgain) {
    gTipoDocVb = 6;
    setInfoDocumento(v, 6);
    setForNewMovimento(v);
    nuovaVendita(v);
    vendi(c, "A", "2");
    ASSERT_TRUE(c.vendita().magazzinoDestinazione == 2);
    n.operatore.attendiMessaggio("Movimento inesistente ");
    ASSERT_TRUE(salvaERilegge(v));
    n.sql("UPDATE Movimenti SET FK_CONTROPARTITA = 1");
    rid = n.valore("SELECT MAX(RID) FROM Movimenti").toInt();
    richiama(v, 1);
    cambia(c, 1, "3");
    n.operatore.attendiMessaggio("Movimento inesistente ");
    EXPECT_TRUE(salvaERilegge(v));
    EXPECT_EQ(n.valore("SELECT SUM(QUANTITA) FROM DettagliProdotto WHERE FK_MAGAZZINO = 2"), "3");
}
