#include "core/globals.h"
#include "postings/delete_sale.h"
#include "postings/expected_books.h"
#include "postings/full_shop.h"
#include "postings/save_sale.h"
#include "sale/recall.h"

// What the shop's tables, its clock and its people get wrong: the operator is told, and nothing is half
// booked.

namespace {

using Icona = OperatorPort::Icona;

class BadInput : public testing::Test {
  protected:
    // The save is refused: books and screen stay, and nothing more is said than was expected.
    void rifiutata() {
        const QStringList libriPrima = libri(n);
        const QStringList schermoPrima = schermata(v);
        s->salva();
        EXPECT_EQ(libri(n), libriPrima);
        EXPECT_EQ(schermata(v), schermoPrima);
        EXPECT_TRUE(n.operatore.esaurito());
        EXPECT_EQ(n.operatore.clessidre, 0);
    }
    void salvata() {
        s->salva();
        EXPECT_EQ(n.conta("Movimenti"), 1);
        EXPECT_FALSE(v.venditaModificata);
        EXPECT_EQ(n.verifica(), QStringList());
    }

    void mancano(const QString& nomi, const QString& rimedio) {
        n.operatore.attendiMessaggio("La vendita non è stata salvata. Nell'archivio non c'è più:\n - " +
                                         nomi + "\nLa vendita è ancora sullo schermo: " + rimedio,
                                     Icona::Esclamazione);
    }
    void mancano(const QString& nomi) { mancano(nomi, "correggerla e salvarla di nuovo."); }
    // Nothing that is done on the screen helps.
    void mancanoNellArchivio(const QString& nomi) {
        mancano(nomi, "si potrà salvare quando l'archivio sarà stato completato.");
    }
    void nonScelti(const QString& nomi) {
        n.operatore.attendiMessaggio(
            "La vendita non è stata salvata. Nelle opzioni non è stato scelto:\n - " + nomi +
                "\nLa vendita è ancora sullo schermo: si potrà salvare quando sarà stato scelto.",
            Icona::Esclamazione);
    }
    // What the server said is for those who look after the till.
    void soloNelRegistro(const QString& procedura) {
        EXPECT_EQ(n.registroErrori().count(procedura), 1);
        EXPECT_TRUE(n.operatore.avvisi.empty());
    }
    void rifiutoNelRegistro() {
        EXPECT_EQ(n.registroErrori().count("foreign key constraint", Qt::CaseInsensitive), 1)
            << n.registroErrori().toStdString();
        EXPECT_EQ(n.registroErrori().count("Modulo bBottegonClientVB.salvaVendita"), 1);
    }

    std::unique_ptr<BottegaCompleta> s = std::make_unique<BottegaCompleta>(false);
    Negozio& n = s->n;
    Vendita& v = s->vendita();
};

}  // namespace

// ---- Causals

TEST_F(BadInput, ADocumentWithoutACausalIsNotPosted) {
    v.mCausaleDoc = -1;
    n.operatore.attendiMessaggio("Impossibile assegnare i conti DARE/AVERE!", Icona::Critica);
    rifiutata();
    v.mCausaleDoc = 1;
    salvata();
}

TEST_F(BadInput, ACollectionWithoutACausalIsNotPosted) {
    v.idCausalePagamento = 0;
    n.operatore.attendiMessaggio("Impossibile assegnare i conti DARE/AVERE!", Icona::Critica);
    rifiutata();
}

TEST_F(BadInput, ACausalThatIsNotThereIsToldAsOneThatIsMissing) {
    v.idCausalePagamento = 99;
    n.operatore.attendiMessaggio("Impossibile assegnare i conti DARE/AVERE!", Icona::Critica);
    rifiutata();
    v.idCausalePagamento = 2;
    v.mCausaleDoc = 99;
    n.operatore.attendiMessaggio("Impossibile assegnare i conti DARE/AVERE!", Icona::Critica);
    rifiutata();
    EXPECT_EQ(n.registroErrori(), QString());
}

TEST_F(BadInput, ACausalWithoutAccountsGivesEntriesWithoutLines) {
    n.sql("UPDATE Causali SET FK_CONTODARE1 = 0, FK_CONTOAVERE1 = NULL, FK_CONTOAVERE2 = 0");
    salvata();
    EXPECT_EQ(n.conta("PrimaNota"), 2);
    EXPECT_EQ(n.conta("PrimaNotaDettagli"), 0);
}

// ---- Terms

TEST_F(BadInput, TermsWithFewerInstalmentsThanToldAreNotBookedInPart) {
    n.sql("UPDATE Pagamenti SET NRATE = 3 WHERE RID = 1");
    n.operatore.attendiAvviso("bBottegonClientVB.generaScadenzePagamento");
    rifiutata();
    EXPECT_EQ(n.operatore.avvisi.back().descrizione,
              "Indice non compreso nell'intervallo.\n"
              "Il pagamento prevede più rate di quelle che vi sono registrate: completarlo nell'archivio dei "
              "pagamenti.");
    n.sql("UPDATE Pagamenti SET NRATE = 2 WHERE RID = 1");
    salvata();
}

// ---- Products

TEST_F(BadInput, AProductWithoutACostIsNamed) {
    n.sql("DELETE FROM DettagliProdotto WHERE FK_PRODOTTO = 2");
    n.operatore.attendiMessaggio(
        "Impossibile determinare il taglio.\nManca il riferimento al prezzo di costo del prodotto.\n\n"
        "Informazioni: \n - Prodotto [B - B]",
        Icona::Critica);
    rifiutata();
}

TEST_F(BadInput, AProductThatIsGoneIsNamed) {
    n.sql("DELETE FROM Prodotti WHERE CODICE = 'C'");
    mancano("il prodotto [C - C]");
    rifiutata();
    soloNelRegistro("getIDByInsert -> bBottegonClientVB.saveDettagli");
    // Without it the sale is as good as any.
    n.operatore.attendiDomanda("Eliminare il prodotto [C]?", OperatorPort::Risposta::Si);
    s->conto().clicRiga(3);
    s->conto().tasto(Qt::Key_F9);
    salvata();
}

TEST_F(BadInput, AllThatARowMissesIsNamedOnce) {
    n.sql("INSERT INTO UnitaMisura (RID, CODICE, DESCRIZIONE) VALUES (9,'KG','Chili')");
    for (const int riga : {1, 2}) {
        v.flxVB.scrivi(riga, Colonna::IdVenditore, "77");
        v.flxVB.scrivi(riga, Colonna::DescVenditore, "Ada");
    }
    v.flxVB.scrivi(2, Colonna::IdIva, "78");
    v.flxVB.scrivi(2, Colonna::IdUm, "9");
    v.flxVB.scrivi(2, Colonna::Um, "KG");
    n.sql("DELETE FROM UnitaMisura WHERE RID = 9");
    mancano(
        "il venditore [Ada]\n - l'aliquota IVA [10] del prodotto [B - B]\n - l'unità di misura [KG] del "
        "prodotto [B - B]");
    rifiutata();
}

// ---- The customer goes while the sale is rung up

TEST_F(BadInput, ACustomerWhoIsGoneIsNamed) {
    n.sql("DELETE FROM Anagrafiche WHERE NUMERO = 7");
    v.lblDescCliente.testo("ROSSI");
    mancano("il cliente [ROSSI]");
    rifiutata();
    soloNelRegistro("getIDByInsert -> bBottegonClientVB.salvaVendita");
    // The sale goes to somebody who is there.
    v.txtCodCliente.tag("1");
    salvata();
}

TEST_F(BadInput, ADocumentTypeThatIsGoneIsNamed) {
    gTipoDocVb = 99;
    mancanoNellArchivio("il tipo di documento [Vendita al banco]");
    rifiutata();
}

// The payment that the refused save used, not the one that stands on the screen again by now.
TEST_F(BadInput, ThePaymentOfTheSaveIsNamed) {
    v.idPagamento = 1;
    gPagamentoVB = 98;
    mancanoNellArchivio("il pagamento della vendita");
    rifiutata();
    EXPECT_EQ(v.idPagamento, 1);
}

// Nobody has filled in the options of the shop.
TEST_F(BadInput, APaymentThatWasNeverChosenIsNamed) {
    gPagamentoVB = -1;
    nonScelti("il pagamento della vendita");
    rifiutata();
    gPagamentoVB = 1;
    salvata();
}

TEST_F(BadInput, ADocumentTypeThatWasNeverChosenIsNamed) {
    gTipoDocVb = gPagamentoVB = -1;
    v.descTipoDocumento.clear();
    nonScelti("il pagamento della vendita\n - il tipo di documento");
    rifiutata();
}

TEST_F(BadInput, WhatWasNeverChosenIsNamedBesideWhatIsGone) {
    gPagamentoVB = -1;
    n.sql("DELETE FROM Prodotti WHERE CODICE = 'C'");
    mancanoNellArchivio(
        "il prodotto [C - C]\nNelle opzioni non è stato scelto:\n - il pagamento della vendita");
    rifiutata();
}

TEST_F(BadInput, WarehousesThatAreGoneAreNamed) {
    v.magazzinoOrigine = 97;
    v.magazzinoDestinazione = 98;
    mancanoNellArchivio("il magazzino da cui parte la merce\n - il magazzino a cui va la merce");
    rifiutata();
}

TEST_F(BadInput, WhatTheScreenCanMendIsNamedBesideWhatItCannot) {
    v.magazzinoOrigine = 97;
    n.sql("DELETE FROM Prodotti WHERE CODICE = 'C'");
    mancanoNellArchivio("il magazzino da cui parte la merce\n - il prodotto [C - C]");
    rifiutata();
}

// ---- Statements of which the gateway says the server's words in a box, and logs nothing

TEST_F(BadInput, AnAccountOfTheCausalThatIsGoneIsNamed) {
    n.sql(
        "UPDATE Causali SET DESCRIZIONE = 'Vendita', FK_CONTODARE1 = 99, FK_CONTOAVERE2 = 98 WHERE RID = 1");
    mancanoNellArchivio("un conto della causale [Vendita]");
    rifiutata();
    soloNelRegistro("INSERT INTO PrimaNotaDettagli");
    rifiutoNelRegistro();
}

TEST_F(BadInput, AnAccountOfTheCollectionsCausalThatIsGoneIsNamed) {
    n.sql("UPDATE Causali SET DESCRIZIONE = 'Incasso', FK_CONTOAVERE1 = 99 WHERE RID = 2");
    mancanoNellArchivio("un conto della causale [Incasso]");
    rifiutata();
}

// The causals that a save does not use are nothing to it.
TEST_F(BadInput, AnAccountOfACausalThatIsNotUsedIsNotNamed) {
    n.sql("UPDATE Causali SET FK_CONTOAVERE1 = 99 WHERE RID = 2");
    v.chkPagato.valore(0);
    n.sql("DELETE FROM Prodotti WHERE CODICE = 'C'");
    mancano("il prodotto [C - C]");
    rifiutata();
}

TEST_F(BadInput, AChangeOfTheHeaderThatIsRefusedIsLogged) {
    salvata();
    n.sql("DELETE FROM TipoDocumenti WHERE RID = 99");
    gTipoDocVb = 99;
    s->ritocca();
    mancanoNellArchivio("il tipo di documento [Vendita al banco]");
    rifiutata();
    soloNelRegistro("SQL=UPDATE Movimenti SET");
    rifiutoNelRegistro();
}

TEST_F(BadInput, WhatManyRowsReferToIsLookedAtOnce) {
    for (const int riga : {1, 2, 3})
        v.flxVB.scrivi(riga, Colonna::IdVenditore, "77");
    mancano("il venditore");
    QStringList viste;
    sondaIstruzioni() = [&viste](const QString& sql) -> std::optional<ErroreServer> {
        if (sql.startsWith("SELECT RID FROM ") && sql.contains(" IN (")) viste << sql.section(' ', 3, 3);
        return std::nullopt;
    };
    rifiutata();
    sondaIstruzioni() = {};
    EXPECT_TRUE(viste.contains("Venditori"));
    EXPECT_EQ(viste.removeDuplicates(), 0) << viste.join(' ').toStdString();
}

// Where the reference is there again by the time it is looked for, no more is known than that.
TEST_F(BadInput, AReferenceThatIsBackIsNotNamed) {
    n.sql("DELETE FROM Prodotti WHERE CODICE = 'C'");
    sondaIstruzioni() = [this, tornato = false](const QString& sql) mutable -> std::optional<ErroreServer> {
        if (sql.startsWith("SELECT RID FROM ") && !std::exchange(tornato, true))
            n.sql("INSERT INTO Prodotti (RID, CODICE, DESCRIZIONE) VALUES (3,'C','C')");
        return std::nullopt;
    };
    n.operatore.attendiMessaggio(
        "La vendita non è stata salvata: qualcosa a cui si riferisce non è più nell'archivio.\n"
        "La vendita è ancora sullo schermo e si può salvare di nuovo.",
        Icona::Esclamazione);
    s->salva();
    sondaIstruzioni() = {};
    EXPECT_EQ(n.conta("Movimenti"), 0);
    EXPECT_EQ(n.conta("Prodotti", "RID = 3"), 1);
    salvata();
}

TEST_F(BadInput, AChangedSaleWithANewRowOfAProductThatIsGoneStaysAsItIs) {
    salvata();
    n.prodotto({.codice = "D", .listino1 = 3});
    vendi(s->conto(), "D");
    n.sql("DELETE FROM Prodotti WHERE CODICE = 'D'");
    mancano("il prodotto [D - D]");
    rifiutata();
}

// ---- The document goes while a sale under it is rung up

class GoneDocument : public testing::Test {
  protected:
    GoneDocument() {
        s.salva();
        mPrimo = v.rid();
    }
    // Elsewhere, with all its rows and entries, and the goods come back.
    void altraCassaCancella() {
        ContoDiProva& altro = n.apriConto(1);
        showVendita(altro.vendita(), mPrimo, -1, 1, -1);
        ASSERT_TRUE(cancellaVendita(altro.vendita(), mPrimo, false));
        altro.scarica();
        ASSERT_EQ(n.conta("Movimenti"), 0);
        ASSERT_EQ(restanoDiA(), 14);
    }
    int restanoDiA() const { return n.valore("SELECT GIACENZA FROM Prodotti WHERE RID = 1").toInt(); }

    BottegaCompleta s{true};
    Negozio& n = s.n;
    Vendita& v = s.vendita();
    const QString sparito =
        "Il documento N° 0001 non è più nell'archivio: è stato cancellato da un'altra cassa.\n"
        "La vendita non è stata salvata. Salvarla come nuova vendita?";

  private:
    int mPrimo = -1;
};

TEST_F(GoneDocument, ANewSaleUnderItIsSavedUnderAnother) {
    s.conto().tasto(Qt::Key_F2);
    vendi(s.conto(), "A");
    altraCassaCancella();
    n.operatore.attendiDomanda(sparito, OperatorPort::Risposta::Si);
    s.salva();
    EXPECT_EQ(v.flxVB.ultima(), 1);
    EXPECT_EQ(n.riga("SELECT PROGRESSIVO, TOTDOCUMENTO FROM Movimenti"), "2|12.2");
    EXPECT_EQ(n.valore("SELECT EXTRAPROG FROM DettagliMovimento"), "1");
    EXPECT_EQ(n.conta("PrimaNota"), 2);
    EXPECT_EQ(restanoDiA(), 13);
    EXPECT_EQ(n.verifica(), QStringList());
}

TEST_F(GoneDocument, AChangedSaleIsSavedWholeUnderAnother) {
    s.ritocca();
    const QString totale = v.lblMainDisplay.testo();
    altraCassaCancella();
    n.operatore.attendiDomanda(sparito, OperatorPort::Risposta::Si);
    s.salva();
    EXPECT_EQ(n.valore("SELECT PROGRESSIVO FROM Movimenti"), "2");
    EXPECT_EQ(v.lblMainDisplay.testo(), totale);
    EXPECT_FALSE(v.venditaModificata);
    EXPECT_EQ(restanoDiA(), 11);
    EXPECT_EQ(n.verifica(), QStringList());
}

namespace {

// ROSSI's sale of one A, saved on credit by her terms, is deleted elsewhere while it is changed here.
class GoneSaleOfACustomer : public testing::Test {
  protected:
    void SetUp() override {
        n.intesta(v, 0, 9);
        vendi(c, "A");
        ASSERT_TRUE(salvaVendita(v, false, -1));
        ContoDiProva& altro = n.apriConto(1);
        showVendita(altro.vendita(), v.rid(), -1, 1, -1);
        ASSERT_TRUE(cancellaVendita(altro.vendita(), v.rid(), false));
        altro.scarica();
        n.operatore.attendiDomanda(
            "Il documento N° 0001 non è più nell'archivio: è stato cancellato da un'altra cassa.\n"
            "La vendita non è stata salvata. Salvarla come nuova vendita?",
            OperatorPort::Risposta::Si);
    }
    QString testata() { return n.riga("SELECT PROGRESSIVO, FK_PAGAMENTO FROM Movimenti"); }
    int incassi() { return n.conta("PrimaNota", "FK_CAUSALE = 2"); }

    Bottega n;
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();
};

}  // namespace

TEST_F(GoneSaleOfACustomer, GoesByTheSameTerms) {
    ASSERT_TRUE(salvaERilegge(v));
    EXPECT_EQ(testata(), "2|9");
    EXPECT_EQ(incassi(), 0);
    EXPECT_EQ(n.conta("Scadenze"), 2);
}

TEST_F(GoneSaleOfACustomer, PaidByNowGoesByTheCountersPayment) {
    v.chkPagato.valore(1);
    ASSERT_TRUE(salvaERilegge(v));
    EXPECT_EQ(testata(), "2|1");
    EXPECT_EQ(incassi(), 1);
    EXPECT_EQ(n.conta("Scadenze"), 0);
}

// All of its rows are new ones.
TEST_F(GoneDocument, AChangedSaleWillBePrintedOnceMore) {
    s.ritocca();
    altraCassaCancella();
    gRegCassa = "prova";
    n.operatore.attendiDomanda(sparito + "\nLo scontrino sarà stampato di nuovo.",
                               OperatorPort::Risposta::No);
    s.salva();
}

// That one has had no receipt yet.
TEST_F(GoneDocument, ANewSaleUnderItWillBePrintedForTheFirstTime) {
    s.conto().tasto(Qt::Key_F2);
    vendi(s.conto(), "A");
    altraCassaCancella();
    gRegCassa = "prova";
    n.operatore.attendiDomanda(sparito, OperatorPort::Risposta::No);
    s.salva();
}

TEST_F(GoneDocument, AChangedSaleMovesNoStock) {
    s.ritocca();
    altraCassaCancella();
    const QStringList prima = libri(n);
    const QStringList schermoPrima = schermata(v);
    n.operatore.attendiDomanda(sparito, OperatorPort::Risposta::No);
    s.salva();
    EXPECT_EQ(libri(n), prima);
    EXPECT_EQ(schermata(v), schermoPrima);
}

// ---- Dates and clocks

class SaleDates : public testing::Test {
  protected:
    void adesso(const QString& istante) {
        n.orologio.istante = QDateTime::fromString(istante, "yyyy-MM-dd HH:mm");
    }
    QString documento(const QString& condizione = "1=1") {
        return n.riga("SELECT PROGRESSIVO, ANNO, DATA FROM Movimenti WHERE " + condizione +
                      " ORDER BY RID DESC");
    }
    void nuovaVendita() {
        c.tasto(Qt::Key_F2);
        vendi(c, "A");
        c.tasto(Qt::Key_F5);
        EXPECT_FALSE(v.venditaModificata);
    }

    Negozio n;
    int prodotto = n.prodotto({.codice = "A", .listino1 = 10});
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();
};

TEST_F(SaleDates, ASaleBegunBeforeMidnightKeepsItsDay) {
    adesso("2026-03-16 23:58");
    c.tasto(Qt::Key_F2);
    vendi(c, "A");
    adesso("2026-03-17 00:02");
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(documento(), "1|2026|2026-03-16 00:00:00");
    nuovaVendita();
    EXPECT_EQ(documento(), "2|2026|2026-03-17 00:00:00");
}

TEST_F(SaleDates, ASaleBegunBeforeNewYearIsTheOldYears) {
    adesso("2026-12-31 23:58");
    c.tasto(Qt::Key_F2);
    vendi(c, "A");
    adesso("2027-01-01 00:02");
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(documento(), "1|2026|2026-12-31 00:00:00");
    EXPECT_EQ(n.valore("SELECT DATA FROM PrimaNota"), "2026-12-31 00:00:00");
    EXPECT_EQ(v.txtProg.testo(), "0001");
    EXPECT_EQ(v.flxVB.ultima(), 1);
    nuovaVendita();
    EXPECT_EQ(documento(), "1|2027|2027-01-01 00:00:00");
    EXPECT_EQ(n.valore("SELECT MAX(PROGRESSIVO) FROM PrimaNota WHERE DATA >= '2027-01-01'"), "2");
    EXPECT_EQ(n.verifica(), QStringList());
}

TEST_F(SaleDates, AConversionAfterNewYearIsOfTheNewYear) {
    adesso("2026-12-31 23:58");
    c.tasto(Qt::Key_F2);
    vendi(c, "A");
    adesso("2027-01-01 00:02");
    ASSERT_TRUE(salvaVendita(v, true, 1));
    EXPECT_EQ(documento(), "1|2027|2027-01-01 00:00:00");
    EXPECT_EQ(n.valore("SELECT ANNO FROM Contatori"), "2027");
}

TEST_F(SaleDates, AClockSetBackADayBeginsADocumentOfItsOwn) {
    nuovaVendita();
    adesso("2026-03-15 10:30");
    nuovaVendita();
    EXPECT_EQ(documento(), "2|2026|2026-03-15 00:00:00");
    EXPECT_EQ(n.conta("Movimenti"), 2);
    EXPECT_EQ(n.verifica(), QStringList());
}

TEST_F(SaleDates, AClockSetBackAnHourGoesOnUnderTheDaysDocument) {
    nuovaVendita();
    adesso("2026-03-16 09:30");
    nuovaVendita();
    EXPECT_EQ(n.conta("Movimenti"), 1);
    EXPECT_EQ(v.txtSottoProg.testo(), "0002");
}

TEST_F(SaleDates, ALeapDayIsASaleDay) {
    adesso("2028-02-29 10:00");
    nuovaVendita();
    EXPECT_EQ(documento(), "1|2028|2028-02-29 00:00:00");
}

TEST_F(SaleDates, ADateThatIsNoneIsAskedFor) {
    vendi(c, "A");
    v.txtData.testo("   ");
    n.operatore.attendiMessaggio("Attenzione:\n - Campo [Data] Obbligatorio.", Icona::Esclamazione);
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(n.conta("Movimenti"), 0);
}
