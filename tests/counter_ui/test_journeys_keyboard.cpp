#include <QLabel>

#include "core/globals.h"
#include "counter_ui/journey.h"

// Whole pieces of a working day with scanner and keyboard, and no mouse: what the books hold afterwards.

namespace {

class KeyboardOnly : public Percorso {
  protected:
    void tenderDa(const QString& importo) {
        nelDialogo([&] { batti(Qt::Key_F5); },
                   [&] {
                       batti(importo, Qt::Key_Return);
                       batti(Qt::Key_F5);
                   });
    }
    void richiamaSospesa() {
        nelDialogo([&] { batti(Qt::Key_F11); },
                   [&] {
                       batti(Qt::Key_Down);
                       batti(Qt::Key_Return);
                   });
    }
};

}  // namespace

TEST_F(KeyboardOnly, CashSaleWithChange) {
    gMonitor = 1;
    scansionaVite();
    scansionaVite();
    tenderDa("50");
    EXPECT_EQ(negozio.righe("SELECT CODPRODOTTO, QUANTITA + 0.0 FROM DettagliMovimento"),
              QStringList{"VITE|2"});
    EXPECT_EQ(totale(), "24.4");
    EXPECT_EQ(vendita().lblUltimaVendita.testo(), "24,40");
    EXPECT_EQ(vendita().lblUltimoResto.testo(), "25,60");
}

TEST_F(KeyboardOnly, CreditOnAccountTwoIsSuspendedRecalledAndPaid) {
    gMonitor = 1;
    vendeAlConto(2, "7");
    batti(Qt::Key_F5);
    ASSERT_EQ(gConti[1], nullptr);
    EXPECT_EQ(negozio.conta("Movimenti", "DATASTAMPA IS NULL"), 1);
    richiamaSospesa();
    ASSERT_NE(gConti[1], nullptr);
    tenderDa("15");
    EXPECT_EQ(gConti[1], nullptr);
    EXPECT_EQ(negozio.righe("SELECT FK_CONTROPARTITA, TOTDOCUMENTO + 0.0 FROM Movimenti"),
              QStringList{QString::number(rossi) + "|12.2"});
    EXPECT_EQ(negozio.conta("DettagliMovimento"), 1);
    EXPECT_TRUE(negozio.verifica().isEmpty());
}

TEST_F(KeyboardOnly, ReturnedPieceBesideASoldOne) {
    scansionaVite();
    batti("2", Qt::Key_Return);
    batti(Qt::Key_F6);
    scansiona("$8009999999999");
    batti(Qt::Key_F6, Qt::ShiftModifier);
    batti(Qt::Key_F5);
    EXPECT_EQ(negozio.righe("SELECT CODPRODOTTO, QUANTITA + 0.0 FROM DettagliMovimento ORDER BY POS"),
              (QStringList{"VITE|2", "CHIODO|-1"}));
    EXPECT_EQ(totale(), "23.18");
}

TEST_F(KeyboardOnly, RecalledSaleWithOneRowAdded) {
    scansionaVite();
    batti(Qt::Key_F5);
    batti(Qt::Key_F2);
    battiVaiA("1");
    scansiona("$8009999999999");
    batti(Qt::Key_F5);
    EXPECT_EQ(negozio.righe("SELECT CODPRODOTTO, EXTRAPROG FROM DettagliMovimento ORDER BY POS"),
              (QStringList{"VITE|1", "CHIODO|1"}));
    EXPECT_EQ(vendite(), 1);
    EXPECT_EQ(totale(), "13.42");
}

TEST_F(KeyboardOnly, OperatorChangesBetweenTwoRows) {
    scansionaVite();
    nelDialogo([&] { batti(Qt::Key_O, Qt::AltModifier); }, [&] { batti("2", Qt::Key_Return); });
    scansiona("$8009999999999");
    batti(Qt::Key_F5);
    EXPECT_EQ(negozio.righe("SELECT D.CODPRODOTTO || ' ' || V.DESCRIZIONE FROM DettagliMovimento D LEFT JOIN "
                            "Venditori V ON D.FK_VENDITORE = V.RID WHERE D.FK_VENDITORE > 0"),
              QStringList{"CHIODO Giulio"});
    EXPECT_EQ(negozio.conta("DettagliMovimento", "FK_VENDITORE IS NULL"), 1);
}

TEST_F(KeyboardOnly, PrintedSaleRefusesEdits) {
    gLockVBEdit = 1;
    scansionaVite();
    batti(Qt::Key_F5);
    negozio.sql("UPDATE Movimenti SET DATASTAMPA = '2026-03-16 10:31:00'");
    batti(Qt::Key_F2);
    battiVaiA("1");
    ASSERT_EQ(vendita().lblDataStampa.testo(), "16/03/2026");
    const QStringList prima = ::libri(negozio);
    scansiona("$8009999999999");
    batti("5", Qt::Key_Return);
    for (const Qt::Key tasto : {Qt::Key_F9, Qt::Key_F6, Qt::Key_F5})
        batti(tasto);
    batti(Qt::Key_F6, Qt::ShiftModifier);
    batti(Qt::Key_F7, Qt::ShiftModifier);
    EXPECT_EQ(codici(), QStringList{"VITE"});
    EXPECT_EQ(::libri(negozio), prima);
    EXPECT_FALSE(vendita().venditaModificata);
}

TEST_F(KeyboardOnly, FifthCustomerIsToldToWait) {
    scansionaVite();
    vendeAlConto(2, "7");
    vendeAlConto(3, "8");
    vendeAlConto(4, "9");
    nelRiquadro(
        "Nessun conto disponibile!\nChiudere prima un conto e riprovare.", [&] { batti(Qt::Key_F8); },
        [&] { batti(Qt::Key_Return); });
    EXPECT_EQ(finestra->davanti(), &schermo(3));
    EXPECT_EQ(vendite(), 0);
    for (int conto = 0; conto < contiMassimi; ++conto)
        EXPECT_EQ(vendita(conto).flxVB.ultima(), 1) << conto;
    batti(Qt::Key_F5);
    EXPECT_EQ(libri("SELECT FK_CONTROPARTITA FROM Movimenti").toInt(), verdi);
}
