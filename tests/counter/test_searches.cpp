#include "core/errors.h"
#include "counter/commands.h"
#include "counter/counter_shop.h"
#include "data/prepare_sql.h"
#include "kit/search.h"

namespace {

class Searches : public BancoDiProva {
  protected:
    // The search that comes up next runs on the archive; `gesto` is what the operator does in it.
    void quandoCerca(ContoDiProva& conto, std::function<void(Ricerca&)> gesto = {}) {
        conto.ricerche.emplace_back([this, gesto](const RichiestaRicerca& richiesta) {
            Ricerca ricerca(richiesta, n.operatore);
            if (gesto) gesto(ricerca);
            for (int r = 1; r <= ricerca.righe(); ++r) {
                QStringList celle;
                for (int c = 2; c < ricerca.colonne(); ++c) {
                    celle << ricerca.cella(r, c);
                }
                offerti << celle.join('|');
            }
            return ricerca.scelti();
        });
    }
    static void annulla(ContoDiProva& conto) { conto.rispondeRicerca({}); }

    QStringList offerti;  // the rows of the searches so far, without their keys
};

// ---- Products

TEST_F(Searches, F3InTheCodeBoxSellsTheProductChosen) {
    ContoDiProva& c = n.apriConto();
    c.fuoco(c.vendita().txtCodProdotto);
    quandoCerca(c);
    c.tasto(Qt::Key_F3);
    EXPECT_EQ(c.vendita().flxVB.cella(1, Colonna::Codice), "A");
    EXPECT_EQ(c.vendita().lblMainDisplay.testo(), "12,20");
}

TEST_F(Searches, OnlyProductsThatAreSoldAreOffered) {
    n.prodotto({.codice = "D", .descrizione = "Disabilitato", .disabilitato = true});
    n.prodotto({.codice = "S", .descrizione = "Sostituito", .idSostituito = 1});
    ContoDiProva& c = n.apriConto();
    quandoCerca(c);
    cmdConto_Click(c, contoProdotto);
    EXPECT_EQ(offerti, QStringList{"A|Vite"});
}

TEST_F(Searches, SeveralProductsAreSoldAtOnceWhereTheWorkstationKeepsThem) {
    gMultiSel = 1;
    n.prodotto({.codice = "B", .listino1 = 5, .descrizione = "Dado"});
    ContoDiProva& c = n.apriConto();
    quandoCerca(c, [](Ricerca& r) {
        r.segna(1);
        r.segna(2);
    });
    cmdConto_Click(c, contoProdotto);
    EXPECT_EQ(c.vendita().flxVB.ultima(), 2);
    EXPECT_EQ(c.vendita().lblMainDisplay.testo(), "18,30");
}

TEST_F(Searches, ACancelledSearchReturnsToTheCodeBoxAndSellsNothing) {
    ContoDiProva& c = n.apriConto();
    c.fuoco(c.vendita().txtQta);
    annulla(c);
    cmdConto_Click(c, contoProdotto);
    EXPECT_EQ(c.fuocoSu(), &c.vendita().txtCodProdotto);
    EXPECT_EQ(c.vendita().flxVB.ultima(), 0);
}

TEST_F(Searches, AClosedSaleOpensNoProductSearch) {
    ContoDiProva& c = n.apriConto();
    c.vendita().modificaConsentita = false;
    cmdConto_Click(c, contoProdotto);
    EXPECT_TRUE(c.ricercheAperte.empty());
}

TEST_F(Searches, WhatWasTypedIsTakenBeforeTheSearchOpens) {
    ContoDiProva& c = n.apriConto();
    c.scansiona("8001");
    c.fuoco(c.vendita().txtQta);
    c.digita("3");
    annulla(c);
    cmdConto_Click(c, contoProdotto);
    EXPECT_EQ(c.vendita().flxVB.cella(1, Colonna::Quantita), "3,00");
}

TEST_F(Searches, TheWiderProductSearchShowsStockAndTheCustomersPrices) {
    gRicercaProdAdv = 1;
    n.prodotto({.codice = "B", .listino1 = 100, .descrizione = "Dado", .sconto = 10, .giacenza = 7});
    ContoDiProva& c = n.apriConto();
    quandoCerca(c);
    cmdConto_Click(c, contoProdotto);
    EXPECT_EQ(offerti, (QStringList{"B|Dado|7,00|90,00|109,80", "A|Vite|0,00|10,00|12,20"}));
    EXPECT_EQ(c.ricercheAperte[0].colonne,
              "<CODICE¤1500|<DESCRIZIONE¤5000|>GIAC.¤1000|>PR.NETTO¤1500|>PR.FIN.¤1500");
}

TEST_F(Searches, WithAWarehouseTheWiderSearchShowsItsStock) {
    gRicercaProdAdv = 1;
    gIDMagazzino = 1;
    n.sql("INSERT INTO DettagliProdotto (FK_PRODOTTO, FK_MAGAZZINO, TAGLIO, QUANTITA) VALUES (1, 1, 0, 42)");
    ContoDiProva& c = n.apriConto();
    quandoCerca(c, [](Ricerca& r) {
        r.txtRicerca.testo("vi");
        r.cmdInvio();
    });
    cmdConto_Click(c, contoProdotto);
    EXPECT_EQ(offerti, QStringList{"A|Vite|42,00|10,00|12,20"});
}

// ---- Customers

TEST_F(Searches, OnTheFirstAccountANamedCustomerGoesToANewOne) {
    const int rossi = n.cliente(7, "ROSSI");
    ContoDiProva& c = n.apriConto();
    c.fuoco(c.vendita().txtCodCliente);
    quandoCerca(c, [](Ricerca& r) {
        r.txtRicerca.testo("ros");
        r.cmdInvio();
    });
    n.operatore.attendiDomanda(
        "Non è possibile utilizzare il CONTO1 per clienti diversi da quello predefinito.\nAprire un nuovo "
        "conto?",
        Risposta::Si);
    c.tasto(Qt::Key_F3);
    EXPECT_EQ(c.vendita().cliente(), gClientePredefinito);
    EXPECT_EQ(c.vendita().txtCodCliente.testo(), "1");
    EXPECT_EQ(n.vendita(1).cliente(), rossi);
    EXPECT_EQ(n.vendita(1).lblDescCliente.testo(), "ROSSI");
}

TEST_F(Searches, OnAnotherAccountTheCustomerChosenIsLoaded) {
    const int rossi = n.cliente(7, "ROSSI");
    n.apriConto();
    ContoDiProva& c = n.apriConto(1);
    c.rispondeRicerca(QString::number(rossi) + "|");
    cmdConto_Click(c, contoCliente);
    EXPECT_EQ(c.vendita().cliente(), rossi);
    EXPECT_EQ(c.fuocoSu(), &c.vendita().txtCodProdotto);
}

TEST_F(Searches, CustomerPickedForASavedSaleIsToBeSaved) {
    n.apriConto();
    contoConCliente(1).tasto(Qt::Key_F5);
    ASSERT_EQ(gConti[1], nullptr);
    const int bianchi = n.cliente(8, "BIANCHI");
    ASSERT_TRUE(apriContoConVendita(n.valore("SELECT RID FROM Movimenti").toInt()));
    ContoDiProva& c = static_cast<ContoDiProva&>(*gConti[1]);
    ASSERT_FALSE(c.vendita().venditaModificata);
    c.rispondeRicerca(QString::number(bianchi) + "|");
    n.operatore.attendiDomanda("Il conto attuale è gia stato salvato.\nAprire un nuovo conto?", Risposta::No);
    cmdConto_Click(c, contoCliente);
    EXPECT_TRUE(c.vendita().venditaModificata);
    EXPECT_TRUE(c.vendita().pctSave.visibile());
    rispondeAlSalvataggio(Risposta::No);
    c.tasto(Qt::Key_F10);
    EXPECT_TRUE(n.operatore.esaurito());
}

TEST_F(Searches, ACustomerWithoutANumberIsLoadedByItsKey) {
    n.sql("INSERT INTO Anagrafiche (RID, TIPO, DENOMINAZIONE, LISTINO) VALUES (50, 'C', 'SENZA NUMERO', 1)");
    n.apriConto();
    ContoDiProva& c = n.apriConto(1);
    c.rispondeRicerca("50|");
    cmdConto_Click(c, contoCliente);
    EXPECT_EQ(c.vendita().cliente(), 50);
}

TEST_F(Searches, OnlyCustomersAreOfferedAndThoseWithTheirAddress) {
    n.sql(
        "INSERT INTO Anagrafiche (NUMERO, TIPO, DENOMINAZIONE, INDIRIZZO, CIVICO, CITTA) VALUES "
        "(8, 'C', 'BIANCHI', 'Via Roma', '3/b', 'Borgo'), (9, 'F', 'ACME', NULL, NULL, NULL)");
    ContoDiProva& c = n.apriConto();
    quandoCerca(c, [](Ricerca& r) { r.rigaCorrente(0); });
    cmdConto_Click(c, contoCliente);
    EXPECT_EQ(offerti, (QStringList{"8|BIANCHI|Via Roma|3/b|Borgo", "1|CLIENTE DEL BANCO|||"}));
}

TEST_F(Searches, ACancelledCustomerSearchChangesNothing) {
    ContoDiProva& c = n.apriConto();
    annulla(c);
    cmdConto_Click(c, contoCliente);
    EXPECT_EQ(c.vendita().cliente(), gClientePredefinito);
}

TEST_F(Searches, ADisabledCustomerBoxOpensNoSearch) {
    ContoDiProva& c = n.apriConto();
    c.vendita().txtCodCliente.abilitato(false);
    cmdConto_Click(c, contoCliente);
    EXPECT_TRUE(c.ricercheAperte.empty());
}

// ---- VAT

TEST_F(Searches, AVatCodeChosenFillsItsBoxAndPricesTheRow) {
    ContoDiProva& c = n.apriConto();
    c.scansiona("8001");
    quandoCerca(c, [](Ricerca& r) { r.rigaCorrente(2); });
    cmdConto_Click(c, 13);
    EXPECT_EQ(offerti, (QStringList{"04|Iva 4%", "10|Iva 10%", "22|Iva 22%"}));
    EXPECT_EQ(c.vendita().txtIVA.testo(), "10");
    EXPECT_EQ(c.vendita().lblMainDisplay.testo(), "11,00");
}

TEST_F(Searches, F3InTheVatBoxOffersTheVatCodes) {
    ContoDiProva& c = n.apriConto();
    c.scansiona("8001");
    c.clic(c.vendita().txtIVA);
    quandoCerca(c, [](Ricerca& r) { r.rigaCorrente(2); });
    c.tasto(Qt::Key_F3);
    EXPECT_EQ(c.vendita().txtIVA.testo(), "10");
}

// ---- Accounts

TEST_F(Searches, F8OpensAnAccountAndItsCustomerSearch) {
    const int rossi = n.cliente(7, "ROSSI");
    ContoDiProva& c = n.apriConto();
    // The new screen is made by the shop: its search is answered as it comes up.
    n.allaProssimaApertura = [&](ContoDiProva& nuovo) {
        nuovo.rispondeRicerca(QString::number(rossi) + "|");
    };
    c.tasto(Qt::Key_F8);
    ASSERT_TRUE(gConti[1]);
    EXPECT_EQ(n.vendita(1).cliente(), rossi);
}

TEST_F(Searches, WithAllAccountsOpenF8SaysSoAndSearchesNothing) {
    ContoDiProva& c = n.apriConto();
    for (int i = 1; i < 4; ++i) {
        n.apriConto(i);
    }
    n.operatore.attendiMessaggio("Nessun conto disponibile!\nChiudere prima un conto e riprovare.",
                                 OperatorPort::Icona::Critica);
    c.tasto(Qt::Key_F8);
    EXPECT_TRUE(c.ricercheAperte.empty());
}

// ---- Suspended sales

class SuspendedSales : public Searches {
  protected:
    // A saved sale of that customer.
    void salvaPer(int numero) {
        ContoDiProva& c = n.apriConto(1);
        c.digita(QString::number(numero));
        c.invio();
        c.scansiona("8001");
        c.tasto(Qt::Key_F5);
        ASSERT_TRUE(c.eliminato);
    }
    // The list's statement shows the bare number on MySQL.
    const QString primoNumero = gTipoDB == MySql ? "1/" : "00001/";
};

TEST_F(SuspendedSales, ASavedSaleOfANamedCustomerIsListedAndComesUpInAFreeAccount) {
    const int rossi = n.cliente(7, "ROSSI");
    ContoDiProva& c = n.apriConto();
    salvaPer(7);
    quandoCerca(c);
    c.tasto(Qt::Key_F11);
    EXPECT_EQ(offerti, QStringList{primoNumero + "VB|ROSSI|16/03/2026|Vendita al banco"});
    ASSERT_TRUE(gConti[1]);
    EXPECT_EQ(n.vendita(1).cliente(), rossi);
    EXPECT_EQ(n.vendita(1).flxVB.cella(1, Colonna::Codice), "A");
}

TEST_F(SuspendedSales, TheListCanBeNarrowedByTheNumber) {
    n.cliente(7, "ROSSI");
    ContoDiProva& c = n.apriConto();
    salvaPer(7);
    quandoCerca(c, [this](Ricerca& r) {
        r.scegliColonna(2);
        r.txtRicerca.testo(primoNumero);
        r.cmdInvio();
        EXPECT_EQ(r.righe(), 1);
        r.rigaCorrente(0);
    });
    c.tasto(Qt::Key_F11);
    EXPECT_FALSE(gConti[1]);
}

TEST_F(SuspendedSales, SalesOfTheWalkInCustomerPrintedOnesAndOtherDesksAreNotListed) {
    n.cliente(7, "ROSSI");
    n.cliente(8, "BIANCHI");
    ContoDiProva& c = n.apriConto();
    c.scansiona("8001");
    c.tasto(Qt::Key_F5);
    c.tasto(Qt::Key_F2);
    salvaPer(7);
    salvaPer(8);
    n.sql("UPDATE Movimenti SET DATASTAMPA = '2026-03-16 00:00:00' WHERE RID = 2");
    n.sql("UPDATE Movimenti SET ID_CASSA = 99 WHERE RID = 3");
    quandoCerca(c);
    c.tasto(Qt::Key_F11);
    EXPECT_EQ(offerti, QStringList());
}

TEST_F(SuspendedSales, DocumentsOfAnotherTypeAreNotListed) {
    n.cliente(7, "ROSSI");
    n.cliente(8, "BIANCHI");
    n.sql(
        "INSERT INTO TipoDocumenti (RID, CODICE, DESCRIZIONE, FK_CAUSALE, NCONTATORE) VALUES "
        "(2, 'FT', 'Fattura', 1, 2)");
    ContoDiProva& c = n.apriConto();
    salvaPer(7);
    salvaPer(8);
    n.sql("UPDATE Movimenti SET FK_TIPODOCUMENTO = 2 WHERE RID = 1");
    quandoCerca(c, [](Ricerca& r) { r.rigaCorrente(0); });
    c.tasto(Qt::Key_F11);
    ASSERT_EQ(offerti.size(), 1);
    EXPECT_TRUE(offerti[0].endsWith("VB|BIANCHI|16/03/2026|Vendita al banco")) << offerti[0].toStdString();
}

TEST_F(SuspendedSales, WithoutAFreeAccountTheChoiceIsRefused) {
    n.cliente(7, "ROSSI");
    ContoDiProva& c = n.apriConto();
    salvaPer(7);
    for (int i = 1; i < 4; ++i) {
        n.apriConto(i);
    }
    quandoCerca(c);
    n.operatore.attendiMessaggio(
        "Nessun conto disponibile per aprire il documento selezionato!\nChiudere prima un conto e riprovare.",
        OperatorPort::Icona::Critica);
    c.tasto(Qt::Key_F11);
}

// ---- Payment reasons

class PaymentReasons : public Searches {
  protected:
    void causale(const QString& codice, bool alBanco) {
        n.sql(QString("INSERT INTO Causali (CODICE, DESCRIZIONE, MOSTRAVB) VALUES ('%1', 'Causale %1', %2)")
                  .arg(codice)
                  .arg(alBanco ? 1 : 0));
    }
    void cercaCausale(ContoDiProva& c) {
        constexpr int altriPagamenti = 10;
        quandoCerca(c, [](Ricerca& r) { r.rigaCorrente(0); });
        c.premiComando(altriPagamenti);
    }
};

TEST_F(PaymentReasons, OneThatIsNotForTheCounterIsNotOffered) {
    causale("A1", false);
    causale("B1", true);
    cercaCausale(contoConVendita());
    EXPECT_EQ(offerti, (QStringList{"B1|Causale B1", "INC|Incasso contanti"}));
}

TEST_F(PaymentReasons, TheTenthIsNotOffered) {
    for (const char* codice : {"05", "10", "01", "09", "02", "08", "03", "07", "04", "06"})
        causale(codice, true);
    cercaCausale(contoConVendita());
    EXPECT_EQ(offerti.size(), 9);
    EXPECT_EQ(offerti.front(), "01|Causale 01");
    EXPECT_EQ(offerti.back(), "09|Causale 09");
}

TEST_F(PaymentReasons, WithoutAnyTheSaleKeepsItsOwn) {
    n.sql("UPDATE Causali SET MOSTRAVB = 0");
    ContoDiProva& c = contoConVendita();
    cercaCausale(c);
    EXPECT_EQ(offerti, QStringList());
    EXPECT_EQ(c.vendita().lblDescPagamento.tag(), QString::number(gCausalePagVb));
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
    EXPECT_FALSE(gConti[1]);
}

}  // namespace
