#include <QDir>
#include <QFile>
#include <QSet>

#include "counter/commands.h"
#include "counter/recovery_fixture.h"
#include "postings/save_sale.h"
#include "sale/grid.h"

TEST_F(RecoveryJournal, OpenSaleComesBackAsItWas) {
    ContoDiProva& c = contoConVendita();
    c.scansiona("8002");
    c.clic(c.vendita().txtQta);
    c.digita("3");
    c.tasto(Qt::Key_F6);
    const QStringList prima = tutto(c.vendita());
    muoreERiparte();
    riprende();
    EXPECT_EQ(tutto(n.vendita(0)), prima);
    EXPECT_TRUE(n.vendita(0).venditaModificata);
}

TEST_F(RecoveryJournal, QuantityBeingTypedReachesItsRowWithTheNextCommand) {
    ContoDiProva& c = contoConVendita();
    c.clic(c.vendita().txtQta);
    c.digita("3");
    muoreERiparte();
    riprende();
    EXPECT_EQ(n.vendita(0).txtQta.testo(), "3");
    n.apriConto(0).tasto(Qt::Key_F5);
    EXPECT_EQ(n.valore("SELECT QUANTITA + 0.0 FROM DettagliMovimento"), "3");
}

TEST_F(RecoveryJournal, QuantityBeingTypedReachesItsRowBeforeTheNextScan) {
    ContoDiProva& c = contoConVendita();
    c.clic(c.vendita().txtQta);
    c.digita("3");
    muoreERiparte();
    riprende();
    n.apriConto(0).scansiona("8002");
    EXPECT_EQ(n.vendita(0).flxVB.cella(1, Colonna::Quantita), "3,00");
}

TEST_F(RecoveryJournal, KeyByKeyRecordsTellTheSameAsOne) {
    ContoDiProva& c = contoConVendita();
    giornale->annota();
    c.scansiona("8002");
    giornale->annota();
    c.clicRiga(1);
    c.clic(c.vendita().txtQta);
    for (const QChar cifra : QString("12")) {
        c.digita(cifra);
        giornale->annota();
    }
    c.tasto(Qt::Key_F6);
    giornale->annota();
    const QStringList prima = tutto(c.vendita());
    muoreERiparte();
    riprende();
    EXPECT_EQ(tutto(n.vendita(0)), prima);
}

TEST_F(RecoveryJournal, RowTakenAwayFromTheMiddleStaysAway) {
    ContoDiProva& c = contoConVendita();
    c.scansiona("8002");
    c.scansiona("8001");
    giornale->annota();
    n.operatore.attendiDomanda("Eliminare il prodotto [Vite]?", Risposta::Si);
    c.clicRiga(1);
    c.tasto(Qt::Key_F9);
    const QStringList prima = tutto(c.vendita());
    muoreERiparte();
    riprende();
    EXPECT_EQ(tutto(n.vendita(0)), prima);
}

TEST_F(RecoveryJournal, SaleBroughtBackKeepsTheTermsOfItsCustomer) {
    n.cliente(7, "ROSSI");
    n.sql("UPDATE Anagrafiche SET FK_PAGAMENTO = 1 WHERE NUMERO = 7");
    n.apriConto(0);
    ContoDiProva& c = n.apriConto(1);
    c.digita("7");
    c.invio();
    c.scansiona("8002");
    muoreERiparte();
    n.sql("UPDATE Anagrafiche SET FK_PAGAMENTO = NULL");
    riprende();
    EXPECT_EQ(n.vendita(1).idPagamento, 1);
}

TEST_F(RecoveryJournal, SaleBroughtBackCanBeSaved) {
    contoConVendita();
    muoreERiparte();
    riprende();
    n.apriConto(0).tasto(Qt::Key_F5);
    EXPECT_EQ(n.valore("SELECT TOTDOCUMENTO FROM Movimenti"), "12.2");
    EXPECT_TRUE(n.verifica().isEmpty());
}

TEST_F(RecoveryJournal, EveryAccountComesBackInItsPlace) {
    contoConVendita();
    contoConCliente(2);
    muoreERiparte();
    riprende();
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 1);
    ASSERT_TRUE(gConti[2]);
    EXPECT_EQ(n.vendita(2).txtCodCliente.testo(), "7");
    EXPECT_EQ(n.vendita(2).flxVB.ultima(), 1);
    EXPECT_FALSE(gConti[1]);
}

TEST_F(RecoveryJournal, ChangedSaleOfTheBooksKeepsItsKeys) {
    ContoDiProva& c = contoConVendita();
    c.tasto(Qt::Key_F5);
    c.scansiona("8002");
    muoreERiparte();
    riprende();
    n.apriConto(0).tasto(Qt::Key_F5);
    EXPECT_EQ(vendite(), 1);
    EXPECT_EQ(n.conta("DettagliMovimento"), 2);
    EXPECT_TRUE(n.verifica().isEmpty());
}

TEST_F(RecoveryJournal, SavedSaleLeavesNoFile) {
    ContoDiProva& c = contoConVendita();
    giornale->annota();
    EXPECT_TRUE(fileCe());
    c.tasto(Qt::Key_F5);
    giornale->annota();
    EXPECT_FALSE(fileCe());
}

TEST_F(RecoveryJournal, DroppedSaleLeavesNoFile) {
    ContoDiProva& c = contoConVendita();
    giornale->annota();
    rispondeAlSalvataggio(Risposta::No);
    c.tasto(Qt::Key_F2);
    giornale->annota();
    EXPECT_FALSE(fileCe());
}

TEST_F(RecoveryJournal, DroppedAtTheEndLeavesNoFile) {
    ContoDiProva& c = contoConVendita();
    giornale->annota();
    rispondeAlSalvataggio(Risposta::No);
    c.tasto(Qt::Key_F10);
    EXPECT_TRUE(n.terminato);
    EXPECT_FALSE(fileCe());
}

TEST_F(RecoveryJournal, NothingSoldWritesNoFile) {
    n.apriConto(0);
    giornale->annota();
    EXPECT_FALSE(fileCe());
    nonOffre();
}

TEST_F(RecoveryJournal, AnsweredNoIsNotOfferedAgain) {
    contoConVendita();
    muoreERiparte();
    riprende(Risposta::No);
    EXPECT_FALSE(fileCe());
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 0);
    muoreERiparte();
    nonOffre();
}

TEST_F(RecoveryJournal, BroughtBackItIsStillWrittenDown) {
    contoConVendita();
    muoreERiparte();
    riprende();
    muoreERiparte();
    riprende();
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 1);
}

TEST_F(RecoveryJournal, DeathWhileBringingBackLosesNothing) {
    contoConVendita();
    muoreERiparte();
    giornale->cominciaRipresa();
    EXPECT_FALSE(fileCe());
    muoreERiparte();
    riprende();
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 1);
}

TEST_F(RecoveryJournal, SaleWhoseCommitSucceededIsNotOffered) {
    riparteCon(salvaFinoAlCommit(contoConVendita()));
    nonOffre();
    EXPECT_FALSE(fileCe());
}

TEST_F(RecoveryJournal, SaleWhoseCommitDidNotComeIsOffered) {
    const QByteArray file = salvaFinoAlCommit(contoConVendita());
    ilCommitNonCE();
    riparteCon(file);
    riprende();
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 1);
    EXPECT_EQ(n.vendita(0).idPrimaNota, -1);
    EXPECT_EQ(n.vendita(0).idPNPagamento, -1);
    EXPECT_EQ(n.vendita(0).txtProg.testo(), "(Auto)");
}

// ---- Death in the save of a sale whose total was changed at the tender, to 10,00

class RecoveryAfterTender : public RecoveryJournal {
  protected:
    RecoveryAfterTender() { gMonitor = 1; }
    ContoDiProva& conIncasso(ContoDiProva& c) {
        c.incassi.emplace_back([](Currency) { return EsitoIncasso{Currency::daDouble(10), {}}; });
        return c;
    }
    // A sale of the books with one row more.
    ContoDiProva& richiamata() {
        gMonitor = 0;
        ContoDiProva& c = contoConVendita();
        c.tasto(Qt::Key_F5);
        gMonitor = 1;
        c.scansiona("8002");
        n.operatore.attendiDomanda(
            "Questa vendita è già registrata: con il totale cambiato tutte le sue righe verrebbero "
            "registrate "
            "un'altra volta.\nUsare comunque il nuovo totale?",
            Risposta::No);
        return c;
    }
};

TEST_F(RecoveryAfterTender, BehindTheCommitTheSaleIsInTheBooksOnce) {
    riparteCon(salvaFinoAlCommit(conIncasso(contoConVendita())));
    nonOffre();
    EXPECT_EQ(n.righe("SELECT QUANTITA + 0.0 FROM DettagliMovimento"), QStringList{"1"});
    EXPECT_EQ(n.valore("SELECT TOTDOCUMENTO FROM Movimenti"), "10");
}

TEST_F(RecoveryAfterTender, BeforeTheCommitTheSaleComesBackAsItWasBeforeTheTender) {
    const QByteArray file = salvaFinoAlCommit(conIncasso(contoConVendita()));
    ilCommitNonCE();
    riparteCon(file);
    riprende();
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 1);
    EXPECT_EQ(n.vendita(0).flxVB.cella(1, Colonna::Importo), "12,20");
    EXPECT_EQ(n.vendita(0).lblMainDisplay.testo(), "12,20");
}

TEST_F(RecoveryAfterTender, BroughtBackItIsSavedOnce) {
    const QByteArray file = salvaFinoAlCommit(conIncasso(contoConVendita()));
    ilCommitNonCE();
    riparteCon(file);
    riprende();
    conIncasso(n.apriConto(0)).tasto(Qt::Key_F5);
    EXPECT_EQ(n.conta("DettagliMovimento"), 1);
    EXPECT_EQ(n.valore("SELECT TOTDOCUMENTO FROM Movimenti"), "10");
}

TEST_F(RecoveryAfterTender, ASaleOfTheBooksIsThereOnceBehindTheCommit) {
    riparteCon(salvaFinoAlCommit(conIncasso(richiamata())));
    nonOffre();
    EXPECT_EQ(n.righe("SELECT CODPRODOTTO FROM DettagliMovimento ORDER BY RID"), QStringList({"A", "B"}));
    EXPECT_EQ(vendite(), 1);
}

TEST_F(RecoveryAfterTender, ASaleOfTheBooksComesBackWithItsRowsOnceBeforeTheCommit) {
    const QByteArray file = salvaFinoAlCommit(conIncasso(richiamata()));
    n.sql("DELETE FROM DettagliMovimento WHERE CODPRODOTTO = 'B'");
    n.sql("UPDATE Movimenti SET TOTDOCUMENTO = 12.2");
    riparteCon(file);
    riprende();
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 2);
    EXPECT_EQ(n.vendita(0).flxVB.gestione(1), RigaInvariata);
    EXPECT_EQ(n.vendita(0).flxVB.gestione(2), RigaNuova);
    gMonitor = 0;
    n.apriConto(0).tasto(Qt::Key_F5);
    EXPECT_EQ(n.righe("SELECT CODPRODOTTO FROM DettagliMovimento ORDER BY RID"), QStringList({"A", "B"}));
}

// ---- Death in a deletion

class RecoveryAfterDeletion : public RecoveryJournal {
  protected:
    // A sale of the books with one row more, written down.
    ContoDiProva& registrataECambiata() {
        ContoDiProva& c = contoConVendita();
        c.tasto(Qt::Key_F5);
        c.scansiona("8002");
        giornale->annota();
        return c;
    }
    // Shift+F7, and the file as it stood just before the transaction; none when it did not come to that.
    QByteArray cancella(ContoDiProva& c, Risposta risposta) {
        QByteArray file;
        auto annota = c.vendita().primaDellaCancellazione;
        c.vendita().primaDellaCancellazione = [&file, annota, this](const std::set<int>& righe) {
            annota(righe);
            file = contenuto();
        };
        n.operatore.attendiDomanda("Eliminare il movimento con progressivo 0001/0001?", risposta);
        c.tasto(Qt::Key_F7, Qt::ShiftModifier);
        return file;
    }
    // Its deletion's commit was not answered.
    void cancellazioneIncerta(ContoDiProva& c) {
        c.vendita().cancellazioneIncerta = {c.vendita().flxVB.chiave(1, Colonna::Rid)};
    }
};

TEST_F(RecoveryAfterDeletion, SaleThatLeftTheBooksIsNotOffered) {
    const QByteArray file = cancella(registrataECambiata(), Risposta::Si);
    ASSERT_FALSE(file.isEmpty());
    ASSERT_EQ(n.conta("DettagliMovimento"), 0);
    riparteCon(file);
    nonOffre();
    EXPECT_FALSE(fileCe());
}

TEST_F(RecoveryAfterDeletion, SaleThatIsStillInTheBooksIsOffered) {
    ContoDiProva& c = registrataECambiata();
    // Another desk changes the row meanwhile: nothing is deleted.
    auto annota = c.vendita().primaDellaCancellazione;
    c.vendita().primaDellaCancellazione = [&](const std::set<int>& righe) {
        n.sql("UPDATE DettagliMovimento SET QUANTITA = 2");
        annota(righe);
        n.operatore.attendiMessaggio(
            "La vendita non è più nell'archivio come la si vede: un'altra cassa l'ha cambiata o cancellata.\n"
            "Richiamarla e ripetere l'operazione.",
            OperatorPort::Icona::Esclamazione);
    };
    const QByteArray file = cancella(c, Risposta::Si);
    ASSERT_FALSE(file.isEmpty());
    ASSERT_EQ(n.conta("DettagliMovimento"), 1);
    riparteCon(file);
    riprende();
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 2);
    EXPECT_TRUE(n.vendita(0).cancellazioneIncerta.empty());
}

TEST_F(RecoveryAfterDeletion, AnsweredNoNothingOfItIsWrittenDown) {
    ContoDiProva& c = registrataECambiata();
    const QByteArray prima = contenuto();
    EXPECT_TRUE(cancella(c, Risposta::No).isEmpty());
    EXPECT_EQ(contenuto(), prima);
}

TEST_F(RecoveryAfterDeletion, OneThatWasNotKnownToBeInTheBooksIsFoundThereAtTheStart) {
    cancellazioneIncerta(registrataECambiata());
    giornale->annota();
    n.sql("DELETE FROM DettagliMovimento");
    muoreERiparte();
    nonOffre();
    EXPECT_FALSE(fileCe());
}

TEST_F(RecoveryAfterDeletion, OneThatTurnsOutNotToBeInTheBooksIsForgotten) {
    cancellazioneIncerta(registrataECambiata());
    muoreERiparte();
    riprende();
    EXPECT_TRUE(n.vendita(0).cancellazioneIncerta.empty());
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 2);
}

TEST_F(RecoveryAfterDeletion, UnsavedSaleHasNothingToDelete) {
    ContoDiProva& c = contoConVendita();
    giornale->annota();
    const QByteArray prima = contenuto();
    c.tasto(Qt::Key_F7, Qt::ShiftModifier);
    EXPECT_EQ(contenuto(), prima);
}

TEST_F(RecoveryJournal, SavingWhatIsSavedLeavesNoFile) {
    ContoDiProva& c = contoConVendita();
    giornale->annota();
    c.tasto(Qt::Key_F5);
    giornale->annota();
    c.tasto(Qt::Key_F5);
    giornale->annota();
    EXPECT_FALSE(fileCe());
}

// ----

TEST_F(RecoveryJournal, EveryDeskAndArchiveHasItsOwn) {
    const QString questa = GiornaleVendite::percorsoUtente();
    gIDCassa = 9;
    const QString altraCassa = GiornaleVendite::percorsoUtente();
    gDescrizioneConnessione = "altro.mdb: MS Access";
    EXPECT_EQ(QSet<QString>({questa, altraCassa, GiornaleVendite::percorsoUtente()}).size(), 3);
}

TEST_F(RecoveryJournal, RecordThatCouldNotBeWrittenIsMadeUpFor) {
    ContoDiProva& c = contoConVendita();
    giornale.emplace(cartella.path() + "/manca/giornale");
    giornale->annota();
    c.scansiona("8002");
    ASSERT_TRUE(QDir(cartella.path()).mkdir("manca"));
    giornale->annota();
    EXPECT_EQ(RegistroAppeso::leggi(cartella.path() + "/manca/giornale").size(), 1);
    for (auto& conto : gConti)
        conto.reset();
    ASSERT_TRUE(QFile::copy(cartella.path() + "/manca/giornale", percorso));
    giornale.emplace(percorso);
    getConto(0, false);
    riprende();
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 2);
}

TEST_F(RecoveryJournal, SaleOfYesterdayOffersTheNewDay) {
    contoConVendita();
    muoreERiparte();
    n.orologio.istante = QDateTime(QDate(2026, 3, 17), QTime(8, 0));
    riprende();
    n.operatore.attendiDomanda(
        "È cominciato un nuovo giorno (17/03/2026).\nIniziare una nuova vendita con la data di oggi?",
        Risposta::No);
    n.apriConto(0).scansiona("8002");
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 2);
}

TEST_F(RecoveryJournal, TornLastRecordLosesTheLastKeyOnly) {
    ContoDiProva& c = contoConVendita();
    giornale->annota();
    c.scansiona("8002");
    muoreERiparte();
    QFile file(percorso);
    ASSERT_TRUE(file.resize(file.size() - 3));
    giornale.emplace(percorso);
    riprende();
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 1);
}
