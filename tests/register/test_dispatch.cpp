#include "core/program_folder.h"
#include "data/gateway.h"
#include "data/server_driver.h"
#include "register/shop_with_register.h"
#include "register/start.h"

// Which sale becomes which receipt, and when.
class Dispatch : public NegozioConRegistratore {
  protected:
    void salvaEStampa(ContoDiProva& c, int cornici) {
        c.tasto(Qt::Key_F5);
        ASSERT_TRUE(diventa([&] { return finito() && peer.cornici().size() == cornici; }))
            << peer.cornici().join(" ").toStdString();
    }
    // A statement that begins like this fails.
    static void fallisce(const QString& inizio) {
        sondaIstruzioni() = [inizio](const QString& sql) -> std::optional<ErroreServer> {
            if (!sql.startsWith(inizio)) return std::nullopt;
            return ErroreServer{ErroreServer::Classe::Altro, 4711, "guasto di prova", "prova"};
        };
    }
};

TEST_F(Dispatch, OneRowIsResetRowAndTotal) {
    connetti();
    ContoDiProva& c = n.apriConto();
    vendi(c, "A");
    salvaEStampa(c, 3);
    EXPECT_TRUE(peer.cornici().first().startsWith("RST"));
    EXPECT_EQ(scontrino(), (QStringList{"REPA¤Vite¤1¤12.2¤1¤22¤", "TOT12.2¤"}));
    EXPECT_EQ(peer.guaste(), QStringList());
}

TEST_F(Dispatch, TotalIsThePreciseSumRoundedOnce) {
    connetti();
    ContoDiProva& c = n.apriConto();
    vendiQuantita(c, "B", "1,5");
    salvaEStampa(c, 3);
    EXPECT_EQ(scontrino(), (QStringList{"REPB¤Colla¤1.5¤1.99¤1¤0¤", "TOT2.99¤"}));
}

TEST_F(Dispatch, ReturnKeepsItsSign) {
    connetti();
    ContoDiProva& c = n.apriConto();
    vendi(c, "A");
    c.digita("B");
    c.invio();
    rendi(c, "2");
    salvaEStampa(c, 4);
    EXPECT_EQ(scontrino().at(1), "REPB¤Colla¤-2¤1.99¤1¤0¤");
    EXPECT_EQ(scontrino().last(), "TOT8.22¤");
}

TEST_F(Dispatch, SaleSavedAgainPrintsItsNewRowsAlone) {
    n.prodotto({.codice = "C", .listino1 = 1, .descrizione = "Filo"});
    connetti();
    ContoDiProva& c = n.apriConto();
    vendi(c, "A");
    salvaEStampa(c, 3);
    peer.dimentica();
    vendi(c, "B");
    vendi(c, "C");
    salvaEStampa(c, 4);
    EXPECT_EQ(scontrino(), (QStringList{"REPB¤Colla¤1¤1.99¤1¤0¤", "REPC¤Filo¤1¤1.22¤1¤22¤", "TOT3.21¤"}));
}

TEST_F(Dispatch, SaleSavedAgainWithoutNewRowsPrintsNothing) {
    connetti();
    ContoDiProva& c = n.apriConto();
    vendi(c, "A");
    salvaEStampa(c, 3);
    peer.dimentica();
    c.clicRiga(1);
    scrivi(c, c.vendita().txtQta, "3");
    c.tasto(Qt::Key_F6);
    c.tasto(Qt::Key_F5);
    lasciaArrivare();
    EXPECT_EQ(n.valore("SELECT QUANTITA FROM DettagliMovimento"), "3");
    EXPECT_EQ(peer.ricevuti(), QByteArray());
}

TEST_F(Dispatch, DeskWithoutARegisterCollectsNothing) {
    connetti();
    gRegCassa.clear();
    ContoDiProva& c = n.apriConto();
    vendi(c, "A");
    c.tasto(Qt::Key_F5);
    lasciaArrivare();
    EXPECT_EQ(n.conta("Movimenti"), 1);
    EXPECT_EQ(peer.ricevuti(), QByteArray());
    EXPECT_EQ(senzaScontrino(), QStringList());
}

TEST_F(Dispatch, CounterShowsALampOnADeskWithARegisterAlone) {
    EXPECT_TRUE(n.apriConto(0).vendita().shRegCassa.visibile());
    gRegCassa.clear();
    ContoDiProva& senza = n.apriConto(1);
    EXPECT_FALSE(senza.vendita().shRegCassa.visibile());
    EXPECT_FALSE(senza.vendita().lblRegCassa.visibile());
}

TEST_F(Dispatch, SaleOnADeskWhoseInterfaceProgramIsMissingIsBookedWithoutAWord) {
    const QTemporaryDir vuota;
    impostaCartellaProgramma(vuota.path());
    n.operatore.attendiMessaggio("Impossibile avviare l'interfaccia del Registratore di cassa: Prova",
                                 OperatorPort::Icona::Critica);
    setRegCassa(n.operatore);
    impostaCartellaProgramma({});
    ContoDiProva& c = n.apriConto();
    vendi(c, "A");
    c.tasto(Qt::Key_F5);
    lasciaArrivare();
    EXPECT_EQ(n.conta("Movimenti"), 1);
    EXPECT_FALSE(link.statoConnessione());
    EXPECT_EQ(senzaScontrino().size(), 1);
}

TEST_F(Dispatch, SeparatorsInADescriptionAreNotEscaped) {
    n.prodotto({.codice = "C", .listino1 = 1, .descrizione = "a¤b¥c"});
    connetti();
    ContoDiProva& c = n.apriConto();
    vendi(c, "C");
    salvaEStampa(c, 4);
    EXPECT_EQ(scontrino(), (QStringList{"REPC¤a¤b", "c¤1¤1.22¤1¤22¤", "TOT1.22¤"}));
}

TEST_F(Dispatch, SaleWithTheLinkDownIsSavedWithoutAWordAndListed) {
    ContoDiProva& c = n.apriConto();
    vendi(c, "A");
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(n.conta("Movimenti"), 1);
    EXPECT_EQ(link.Buffer(), "");
    EXPECT_EQ(senzaScontrino(),
              QStringList{"N° 0001/0001 del 16/03/2026, € 12,20 | registratore scollegato"});
}

TEST_F(Dispatch, SaleWhileSuspendedIsSavedAndListed) {
    connetti();
    link.interrompi();
    ContoDiProva& c = n.apriConto();
    vendi(c, "A");
    c.tasto(Qt::Key_F5);
    lasciaArrivare();
    EXPECT_EQ(n.conta("Movimenti"), 1);
    EXPECT_EQ(peer.ricevuti(), QByteArray());
    EXPECT_EQ(senzaScontrino(), QStringList{"N° 0001/0001 del 16/03/2026, € 12,20 | invio sospeso"});
}

TEST_F(Dispatch, ReceiptStandsWhenTheSaleIsRolledBackAfterIt) {
    connetti();
    ContoDiProva& c = n.apriConto();
    vendi(c, "A");
    fallisce("UPDATE Movimenti SET TOTIMPONIBILE");
    n.operatore.attendiAvviso("cAdoSqlServer.executeSQL -> bBottegonClientVB.salvaVendita");
    c.tasto(Qt::Key_F5);
    sondaIstruzioni() = {};
    EXPECT_TRUE(diventa([&] { return finito(); }));
    EXPECT_EQ(n.conta("Movimenti"), 0);
    EXPECT_EQ(scontrino().last(), "TOT12.2¤");
    EXPECT_EQ(senzaScontrino().size(), 1);
}

TEST_F(Dispatch, FailedRowSendsNothing) {
    connetti();
    ContoDiProva& c = n.apriConto();
    vendi(c, "A");
    fallisce("INSERT INTO DettagliMovimento");
    n.operatore.attendiAvviso("cAdoSqlServer.getIDByInsert -> bBottegonClientVB.saveDettagli");
    c.tasto(Qt::Key_F5);
    sondaIstruzioni() = {};
    lasciaArrivare();
    EXPECT_EQ(n.conta("Movimenti"), 0);
    EXPECT_EQ(peer.ricevuti(), QByteArray());
}

TEST_F(Dispatch, RefusalNeverTouchesTheSale) {
    connetti();
    peer.risposta = [](const QByteArray&) { return QByteArray("\x15"); };
    dialoghi.attendi(DialoghiRegCassa::AnnullaTutto);
    ContoDiProva& c = n.apriConto();
    vendi(c, "A");
    c.tasto(Qt::Key_F5);
    EXPECT_TRUE(diventa([&] { return dialoghi.descrizioni.size() == 1 && finito(); }));
    EXPECT_EQ(n.conta("Movimenti"), 1);
    EXPECT_EQ(senzaScontrino(),
              QStringList{"N° 0001/0001 del 16/03/2026, € 12,20 | annullato dall'operatore"});
}

TEST_F(Dispatch, EveryOpenAccountAsks) {
    connetti();
    n.apriConto(0);
    n.apriConto(1);
    n.apriConto(2);
    gConti[1]->scarica();
    dialoghi.attendi(DialoghiRegCassa::Nessuna);
    dialoghi.attendi(DialoghiRegCassa::Nessuna);
    peer.manda("\x15");
    EXPECT_TRUE(diventa([&] { return dialoghi.descrizioni.size() == 2; }));
    lasciaArrivare();
}

TEST_F(Dispatch, FarewellStandsBehindTheEndOfTheProgram) {
    connetti();
    n.apriConto();
    n.apriConto(1);
    bool detto = true;
    impostaChiudiApplicazione([&] {
        lasciaArrivare();
        detto = !peer.ricevuti().isEmpty();
    });
    gConti[1]->scarica();
    EXPECT_TRUE(detto);  // an account is open yet
    gConti[0]->scarica();
    EXPECT_FALSE(detto);
    EXPECT_TRUE(diventa([&] { return peer.ricevuti() == "\2OFF19\3" && !link.statoConnessione(); }));
    impostaChiudiApplicazione({});
}

TEST_F(Dispatch, NobodyIsAskedWhileTheDeskHasItsTurnToWrite) {
    connetti();
    n.apriConto();
    ASSERT_TRUE(gAdo.beginTrasaction("prova"));
    peer.manda("\x15");
    lasciaArrivare(20);
    EXPECT_EQ(dialoghi.descrizioni.size(), 0);
    dialoghi.attendi(DialoghiRegCassa::Nessuna);
    gAdo.rollbackTrasaction("prova");
    EXPECT_TRUE(diventa([&] { return dialoghi.descrizioni.size() == 1; }));
}

TEST_F(Dispatch, CounterShowsTheStateOfTheLink) {
    const Vendita& v = n.apriConto().vendita();
    const auto mostrato = [&](StatoRegCassa stato, const QString& parole) {
        EXPECT_EQ(link.stato(), stato);
        EXPECT_EQ(v.lblRegCassa.testo(), "REG. CASSA (" + parole + ")");
        EXPECT_EQ(v.shRegCassa.coloreFondo(), coloreStato(stato));
    };
    mostrato(StatoRegCassa::Scollegato, "scollegato");
    connetti();
    mostrato(StatoRegCassa::Pronto, "pronto");
    peer.risposta = [](const QByteArray&) { return QByteArray(); };
    link.sendData("REPa¥TOT1");
    mostrato(StatoRegCassa::AlLavoro, "stampa");
    dialoghi.attendi(DialoghiRegCassa::Nessuna);
    peer.manda("\x15");
    ASSERT_TRUE(diventa([&] { return dialoghi.esauriti(); }));
    mostrato(StatoRegCassa::Fermo, "FERMO");
    link.interrompi();
    mostrato(StatoRegCassa::Sospeso, "sospeso");
}

TEST_F(Dispatch, ReceiptsBehindASilentRegisterAreToldAloud) {
    const Vendita& v = n.apriConto().vendita();
    connetti();
    peer.risposta = [](const QByteArray&) { return QByteArray(); };
    link.sendData("REPa¥TOT1");
    EXPECT_EQ(v.lblRegCassa.coloreFondo(), std::nullopt);
    link.sendData("REPb¥TOT2");
    EXPECT_EQ(v.lblRegCassa.testo(), "REG. CASSA (stampa, 1 in attesa)");
    EXPECT_EQ(v.lblRegCassa.coloreFondo(), coloreStato(StatoRegCassa::AlLavoro));
    link.sendData("REPc¥TOT3");
    EXPECT_EQ(v.lblRegCassa.testo(), "REG. CASSA (stampa, 2 in attesa)");
    link.annullaOperazioni();
    EXPECT_EQ(v.lblRegCassa.testo(), "REG. CASSA (pronto)");
    EXPECT_EQ(v.lblRegCassa.coloreFondo(), std::nullopt);
}

TEST_F(Dispatch, WordsOfTheLinkKeepQuietAgainWhenTheReceiptsBehindArePrinted) {
    const Vendita& v = n.apriConto().vendita();
    connetti();
    QStringList dette;
    QObject::connect(&link.eventi, &EventiRegCassa::statoCambiato, &link.eventi,
                     [&] { dette << v.lblRegCassa.testo(); });
    link.sendData("REPa¥TOT1");
    link.sendData("REPb¥TOT2");
    ASSERT_TRUE(diventa([&] { return link.stato() == StatoRegCassa::Pronto; }));
    EXPECT_TRUE(dette.contains("REG. CASSA (stampa, 1 in attesa)"));
    EXPECT_EQ(v.lblRegCassa.testo(), "REG. CASSA (pronto)");
    EXPECT_EQ(v.lblRegCassa.coloreFondo(), std::nullopt);
}

TEST_F(Dispatch, WordsOfTheLinkStandOutWhileNoReceiptWillCome) {
    const Vendita& v = n.apriConto().vendita();
    EXPECT_EQ(v.lblRegCassa.coloreFondo(), coloreStato(StatoRegCassa::Scollegato));
    connetti();
    EXPECT_EQ(v.lblRegCassa.coloreFondo(), std::nullopt);
    link.interrompi();
    EXPECT_EQ(v.lblRegCassa.coloreFondo(), coloreStato(StatoRegCassa::Sospeso));
}
