#include "counter/recovery_fixture.h"
#include "doubles/disco_di_prova.h"
#include "postings/lost_save.h"

// ---- A save whose commit was not answered, and of which nothing was known when the program died

class RecoveryAfterUnknownSave : public RecoveryJournal {
  protected:
    // The sale as it was before its save, on the screen, with the save in the books.
    Vendita& salvataSenzaRisposta() {
        ContoDiProva& c = contoConVendita();
        giornale->annota();
        const QByteArray file = contenuto();
        SalvataggioIncerto salvataggio;
        c.vendita().primaDelCommit = [&](const SalvataggioIncerto& s) { salvataggio = s; };
        c.tasto(Qt::Key_F5);
        riparteCon(file);
        riprende();
        salvataggio.schermo = descriviSchermo(n.vendita(0));
        n.vendita(0).salvataggioIncerto = salvataggio;
        return n.vendita(0);
    }
};

TEST_F(RecoveryAfterUnknownSave, FoundInTheBooksItIsNotOffered) {
    salvataSenzaRisposta();
    muoreERiparte();
    nonOffre();
    EXPECT_FALSE(fileCe());
}

TEST_F(RecoveryAfterUnknownSave, NotInTheBooksItComesBackAsOneThatWasNeverSaved) {
    salvataSenzaRisposta();
    ilCommitNonCE();
    muoreERiparte();
    riprende();
    EXPECT_FALSE(n.vendita(0).salvataggioIncerto);
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 1);
}

TEST_F(RecoveryAfterUnknownSave, ChangedSinceItComesBackAndItsNextSaveFindsIt) {
    salvataSenzaRisposta();
    n.apriConto(0).scansiona("8002");
    muoreERiparte();
    riprende();
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 2);
    EXPECT_TRUE(n.vendita(0).salvataggioIncerto);
}

// ---- A disk that refuses

class RecoveryOnABadDisk : public RecoveryJournal {
  protected:
    bool primaCe() const { return QFile::exists(percorso + ".prima"); }
    void salva(int conto) {
        n.apriConto(conto).tasto(Qt::Key_F5);
        giornale->annota();
    }
    // Two sales that came back while the disk took nothing.
    void dueRipreseADiscoGuasto() {
        contoConVendita();
        contoConCliente(2);
        muoreERiparte();
        disco.guastoDati = true;
        riprende();
        ASSERT_TRUE(primaCe());
    }

    DiscoDiProva disco;
};

TEST_F(RecoveryOnABadDisk, TheLastRunsFileGoesWithTheLastOpenSale) {
    dueRipreseADiscoGuasto();
    salva(2);
    EXPECT_TRUE(primaCe());
    salva(0);
    EXPECT_FALSE(primaCe());
    muoreERiparte();
    nonOffre();
}

TEST_F(RecoveryOnABadDisk, TheLastRunsFileGoesWhenTheDiskTakesTheNewOne) {
    dueRipreseADiscoGuasto();
    disco.guastoDati = false;
    salva(2);
    EXPECT_FALSE(primaCe());
    muoreERiparte();
    riprende();
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 1);
}

TEST_F(RecoveryOnABadDisk, ASaleSavedMeanwhileIsNotOfferedAgain) {
    dueRipreseADiscoGuasto();
    salva(2);
    muoreERiparte();
    riprende();
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 1);
    EXPECT_FALSE(gConti[2]);
}

TEST_F(RecoveryOnABadDisk, TheSaleBeingSavedIsStillWrittenDown) {
    disco.guastoDati = true;
    const QByteArray file = salvaFinoAlCommit(contoConVendita());
    ilCommitNonCE();
    riparteCon(file);
    riprende();
    EXPECT_EQ(n.vendita(0).flxVB.cella(1, Colonna::Importo), "12,20");
}

TEST_F(RecoveryOnABadDisk, ItsCommitIsStillRecognised) {
    disco.guastoDati = true;
    riparteCon(salvaFinoAlCommit(contoConVendita()));
    nonOffre();
    EXPECT_FALSE(fileCe());
}

TEST_F(RecoveryOnABadDisk, ItIsToldOnceForAllSaves) {
    disco.guastoDati = true;
    for (int i = 0; i < 3; ++i) {
        n.apriConto(0).tasto(Qt::Key_F2);
        n.apriConto(0).scansiona("8001");
        giornale->annota();
        salva(0);
    }
    EXPECT_EQ(n.conta("DettagliMovimento"), 3);
    EXPECT_EQ(n.registroErrori().count("Giornale delle vendite aperte non scritto"), 1);
}

TEST_F(RecoveryOnABadDisk, ARefusedNameIsToldOnceForAllSaves) {
    disco.guastoNomi = true;
    for (int i = 0; i < 3; ++i) {
        n.apriConto(0).tasto(Qt::Key_F2);
        n.apriConto(0).scansiona("8001");
        giornale->annota();
        salva(0);
    }
    EXPECT_EQ(n.registroErrori().count("Nome del giornale delle vendite aperte non scritto"), 1);
    EXPECT_FALSE(n.registroErrori().contains("Giornale delle vendite aperte non scritto"));
}

// ---- An account that does not stay open

class RecoveryWithoutOperator : public RecoveryJournal {
  protected:
    // Sales on accounts 0 and 2 are brought back; 2 asks for an operator, and is refused one.
    void riprendeSoloConto0() {
        contoConVendita();
        contoConCliente(2);
        muoreERiparte();
        gVenditoriObbligatori = 1;
        n.allaProssimaApertura = [](ContoDiProva& c) { c.codiciVenditore = {""}; };
        n.operatore.attendiDomanda("Riprendere le vendite non salvate?", Risposta::Si);
        n.operatore.attendiMessaggio(
            "Vendite non riprese: 1.\n"
            "Non sono perse: restano conservate e vengono proposte di nuovo al prossimo avvio del programma.",
            OperatorPort::Icona::Esclamazione);
        riprendiVendite(*giornale, n.operatore);
        gVenditoriObbligatori = 0;
        ASSERT_FALSE(gConti[2]);
    }
};

TEST_F(RecoveryWithoutOperator, ItsSaleIsOfferedAgainWithTheOthers) {
    riprendeSoloConto0();
    muoreERiparte();
    riprende();
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 1);
    ASSERT_TRUE(gConti[1]);
    EXPECT_EQ(n.vendita(1).txtCodCliente.testo(), "7");
}

TEST_F(RecoveryWithoutOperator, ItsSaleStaysWhenTheOthersAreSaved) {
    riprendeSoloConto0();
    n.apriConto(0).tasto(Qt::Key_F5);
    giornale->annota();
    EXPECT_TRUE(fileCe());
    muoreERiparte();
    riprende();
    EXPECT_EQ(n.vendita(0).txtCodCliente.testo(), "7");
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 1);
}

TEST_F(RecoveryWithoutOperator, BroughtBackAndSavedNothingIsLeftOfIt) {
    riprendeSoloConto0();
    n.apriConto(0).tasto(Qt::Key_F5);
    muoreERiparte();
    riprende();
    n.apriConto(0).tasto(Qt::Key_F5);
    giornale->annota();
    EXPECT_FALSE(fileCe());
    EXPECT_EQ(n.conta("DettagliMovimento"), 2);
}
