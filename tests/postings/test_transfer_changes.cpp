#include "core/globals.h"
#include "postings/expected_books.h"
#include "postings/save_sale.h"
#include "sale/document_info.h"
#include "sale/recall.h"

// Goods that went from the shop to the store, by a document to which another program gave a counterparty: it
// can be recalled, and so changed and deleted.

namespace {

struct TransferChanges : ContoInBottega {
    // Two A, bought at 6,00, and three B, which are outside stock.
    void SetUp() override {
        gTipoDocVb = 6;
        setInfoDocumento(v, 6);
        vendi(c, "A", "2");
        vendi(c, "B", "3");
        ASSERT_TRUE(salvaVendita(v, false, -1));
        n.sql("UPDATE Movimenti SET FK_CONTROPARTITA = 2");
        showVendita(v, 1, -1, 1, -1);
        ASSERT_EQ(leggiLibri(n).strati, (QStringList{"1|1|6|2", "1|1|7|6", "1|2|6|2"}));
    }
};

}  // namespace

// The goods come back to the shop and stay in the store too, and the total counts them twice. The entry of
// what remains, nothing, is tied to no header, and nobody deletes it.
TEST_F(TransferChanges, DeletedItGivesTheGoodsBackToTheShopAlone) {
    ASSERT_TRUE(cancella());
    confrontaLibri(n, {
                          .prodotti = {"A|12||0"},
                          .strati = {"1|1|6|4", "1|1|7|6", "1|2|6|2"},
                          .primaNota = {"1|1|2026-03-16|2026-03-16|3|2|Vendita al Banco N° 0001 del "
                                        "16/03/2026|||0|VB/1|1|"},
                          .contatori = {"3|2026|1|n/d"},
                      });
}

// A row that is taken out goes back by the layer that a transfer would take from today, not by its own.
TEST_F(TransferChanges, ARowTakenOutGoesBackByTheLayerOfToday) {
    n.sql("UPDATE DettagliProdotto SET QUANTITA = 0 WHERE TAGLIO = 6 AND FK_MAGAZZINO = 1");
    n.sql("UPDATE Prodotti SET GIACENZA = 8 WHERE RID = 1");
    c.clicRiga(1);
    n.operatore.attendiDomanda("Eliminare il prodotto [A]?", OperatorPort::Risposta::Si);
    c.tasto(Qt::Key_F9);
    ASSERT_TRUE(salvaVendita(v, false, -1));
    confrontaLibri(
        n, {
               .movimenti = {"1|1|2026|2026-03-16|6|1|2||1|255|0|0|0|0|||0|"},
               .dettagli = {"2|1|1|1|2|B|Biscotti|3|0|0|0|0|0|0|0|2|10|0|0|0|1|0|||2026-03-16 10:30:00"},
               .prodotti = {"A|8||0"},
               .strati = {"1|1|6|0", "1|1|7|8", "1|2|6|2", "1|2|7|-2"},
               .contatori = {"3|2026|1|n/d"},
           });
    EXPECT_EQ(n.verifica(), QStringList());
}
