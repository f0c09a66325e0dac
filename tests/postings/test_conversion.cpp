#include "core/globals.h"
#include "postings/delete_sale.h"
#include "postings/expected_books.h"
#include "postings/save_sale.h"
#include "sale/document_info.h"
#include "sale/sale_document.h"

// A counter sale that becomes an invoice: its rows are saved under the other type, then the source goes.

namespace {

struct Conversion : ContoInBottega {
    int origine = -1;
    int registrazione = -1;
    int incasso = -1;

    void salvaComeFattura() {
        origine = v.rid();
        registrazione = v.idPrimaNota;
        incasso = v.idPNPagamento;
        setInfoDocumento(v, 5);
        setForNewMovimento(v);
        ASSERT_TRUE(salvaVendita(v, true, 5));
    }
    void togliOrigine() {
        v.idPrimaNota = registrazione;
        v.idPNPagamento = incasso;
        ASSERT_TRUE(cancellaVendita(v, origine, false));
    }
    void toglie(int riga, const QString& descrizione) {
        c.clicRiga(riga);
        n.operatore.attendiDomanda("Eliminare il prodotto [" + descrizione + "]?",
                                   OperatorPort::Risposta::Si);
        c.tasto(Qt::Key_F9);
    }
};

}  // namespace

// Its goods come back when the source goes, not before.
TEST_F(Conversion, LeavesARowMarkedForDeletionToTheSource) {
    vendi(c, "A", "2");
    vendiESalva("B", "3");
    toglie(1, "A");
    salvaComeFattura();
    EXPECT_EQ(leggiLibri(n).strati, (QStringList{"1|1|6|2", "1|1|7|6"}));
    EXPECT_EQ(n.righe("SELECT FK_MOVIMENTO, CODPRODOTTO FROM DettagliMovimento ORDER BY RID"),
              (QStringList{"1|A", "1|B", "2|B"}));
}

TEST_F(Conversion, OfASaleWithARowMarkedForDeletionLeavesOneDocument) {
    vendi(c, "A", "2");
    vendiESalva("B", "3");
    toglie(1, "A");
    salvaComeFattura();
    togliOrigine();
    confrontaLibri(
        n,
        {
            .movimenti = {"2|1|2026|2026-03-16|5|1||1|1|255|0|15|1.5|16.5|3|4|0|"},
            .dettagli = {"3|2|1|1|2|B|Biscotti|3|5|0|0|0|0|5|15|2|10|0.5|1.5|16.5|1|0|||2026-03-16 10:30:00"},
            .prodotti = {"A|10||0"},
            .strati = {"1|1|6|4", "1|1|7|6"},
            .primaNota = {"3|3|2026-03-16|2026-03-16|1|1|Fattura N° 0001 del 16/03/2026|||16.5|FT/1|1|",
                          "4|4|2026-03-16|2026-03-16|2|1|Incasso Fattura N° 0001 del "
                          "16/03/2026|||16.5|FT/1|1|"},
            .righePrimaNota = {"3|1|16.5|0", "3|3|0|15", "3|4|0|1.5", "4|2|16.5|0", "4|1|0|16.5"},
            .contatori = {"1|2026|1|n/d", "2|2026|1|n/d"},
        });
    EXPECT_EQ(n.verifica(), QStringList());
}
