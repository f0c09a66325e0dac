#include <QLabel>

#include "core/globals.h"
#include "counter_ui/journey.h"

// The same pieces of a working day with a finger alone: no key, no scanner. What the books hold afterwards.

namespace {

const char* const prodotto = "cmdConto_7";
const char* const nuovoConto = "cmdComando_5";
const char* const nuovaVendita = "cmdComando_0";
const char* const vaiA = "cmdComando_3";
const char* const cancellaRiga = "cmdComando_6";
const char* const cancellaVendita = "cmdComando_4";
const char* const sospese = "cmdComando_12";
const char* const salva = "cmdComando_9";

class TouchOnly : public Percorso {
  protected:
    Gesto toccando(const char* nome) {
        return [this, nome] { tocca(nome); };
    }
    void toccaProdotto(const QString& codice) {
        nelDialogo(toccando(prodotto), [&] { toccaRiga(codice); });
    }
    // A new account for that customer.
    void toccaCliente(const QString& nome) {
        nelDialogo(toccando(nuovoConto), [&] { toccaRiga(nome); });
    }
    void incassa(const QStringList& tasti) {
        nelDialogo(toccando(salva), [&] {
            toccaTasti(tasti);
            tocca("cmdEsci");
        });
    }
    void toccaVaiA(const QStringList& cifre) {
        nelDialogo(toccando(vaiA), [&] {
            toccaTasti(cifre);
            tocca("cmdInvio");
        });
    }
};

}  // namespace

TEST_F(TouchOnly, CashSaleWithChange) {
    gMonitor = 1;
    nelDialogo(toccando(prodotto), [&] {
        toccaTasti({"V", "I"});
        toccaRiga("VITE");
    });
    incassa({"2", "0", "INVIO"});
    EXPECT_EQ(totale(), "12.2");
    EXPECT_EQ(vendita().lblUltimoResto.testo(), "7,80");
}

TEST_F(TouchOnly, CreditOnAccountTwoIsSuspendedRecalledAndPaid) {
    gMonitor = 1;
    toccaCliente("ROSSI");
    toccaProdotto("VITE");
    tocca(salva);
    ASSERT_EQ(gConti[1], nullptr);
    EXPECT_EQ(negozio.conta("Movimenti", "DATASTAMPA IS NULL"), 1);
    nelDialogo(toccando(sospese), [&] { toccaRiga("ROSSI"); });
    ASSERT_NE(gConti[1], nullptr);
    incassa({"1", "5", "INVIO"});
    EXPECT_EQ(gConti[1], nullptr);
    EXPECT_EQ(negozio.righe("SELECT FK_CONTROPARTITA, TOTDOCUMENTO + 0.0 FROM Movimenti"),
              QStringList{QString::number(rossi) + "|12.2"});
    EXPECT_EQ(negozio.conta("DettagliMovimento"), 1);
    EXPECT_TRUE(negozio.verifica().isEmpty());
}

TEST_F(TouchOnly, ReturnedPieceBesideASoldOne) {
    toccaProdotto("VITE");
    toccaProdotto("CHIODO");
    tocca("chkReso");
    tocca(salva);
    EXPECT_EQ(negozio.righe("SELECT CODPRODOTTO, QUANTITA + 0.0 FROM DettagliMovimento ORDER BY POS"),
              (QStringList{"VITE|1", "CHIODO|-1"}));
    EXPECT_EQ(totale(), "10.98");
}

TEST_F(TouchOnly, RecalledSaleWithOneRowAdded) {
    toccaProdotto("VITE");
    tocca(salva);
    tocca(nuovaVendita);
    toccaVaiA({"1"});
    toccaProdotto("CHIODO");
    tocca(salva);
    EXPECT_EQ(negozio.righe("SELECT CODPRODOTTO, EXTRAPROG FROM DettagliMovimento ORDER BY POS"),
              (QStringList{"VITE|1", "CHIODO|1"}));
    EXPECT_EQ(vendite(), 1);
    EXPECT_EQ(totale(), "13.42");
}

TEST_F(TouchOnly, OperatorChangesBetweenTwoRows) {
    toccaProdotto("VITE");
    nelDialogo(toccando("cmdOperatore"), [&] { toccaTasti({"2", "INVIO"}); });
    toccaProdotto("CHIODO");
    tocca(salva);
    EXPECT_EQ(negozio.righe("SELECT D.CODPRODOTTO || ' ' || V.DESCRIZIONE FROM DettagliMovimento D LEFT JOIN "
                            "Venditori V ON D.FK_VENDITORE = V.RID WHERE D.FK_VENDITORE > 0"),
              QStringList{"CHIODO Giulio"});
}

TEST_F(TouchOnly, PrintedSaleRefusesEdits) {
    gLockVBEdit = 1;
    toccaProdotto("VITE");
    tocca(salva);
    negozio.sql("UPDATE Movimenti SET DATASTAMPA = '2026-03-16 10:31:00'");
    tocca(nuovaVendita);
    toccaVaiA({"1"});
    ASSERT_EQ(vendita().lblDataStampa.testo(), "16/03/2026");
    const QStringList prima = ::libri(negozio);
    for (const char* comando : {prodotto, cancellaRiga, cancellaVendita, salva}) {
        EXPECT_FALSE(widget(comando).isEnabled()) << comando;
        tocca(comando);
    }
    tocca("chkReso");
    EXPECT_EQ(codici(), QStringList{"VITE"});
    EXPECT_EQ(::libri(negozio), prima);
    EXPECT_FALSE(vendita().venditaModificata);
}

TEST_F(TouchOnly, FifthCustomerIsToldToWait) {
    toccaProdotto("VITE");
    for (const char* cliente : {"ROSSI", "BIANCHI", "VERDI"}) {
        toccaCliente(cliente);
        toccaProdotto("VITE");
    }
    nelRiquadro("Nessun conto disponibile!\nChiudere prima un conto e riprovare.", toccando(nuovoConto),
                toccando("cmdOk"));
    EXPECT_EQ(vendite(), 0);
    for (int conto = 0; conto < contiMassimi; ++conto)
        EXPECT_EQ(vendita(conto).flxVB.ultima(), 1) << conto;
    tocca("cmdConto_2");
    tocca(salva);
    EXPECT_EQ(libri("SELECT FK_CONTROPARTITA FROM Movimenti").toInt(), bianchi);
}
