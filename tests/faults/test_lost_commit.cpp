#include <csignal>

#include "core/run_time_error.h"
#include "faults/cutting_proxy.h"
#include "faults/faulty_shop.h"

// The answer to a commit does not come back. The operator is told what is true, and nothing is booked twice.

namespace {

using Guasto = LineaTagliabile::Guasto;
using Icona = OperatorPort::Icona;

const char* const salvata =
    "La vendita è stata salvata: N° %1.\n"
    "Il collegamento con il server si era interrotto; la vendita è stata ritrovata nell'archivio.";
const char* const nonSalvata =
    "La vendita non è stata salvata: il collegamento con il server si è interrotto.\n"
    "La vendita è ancora sullo schermo e si può salvare di nuovo.";
const char* const salvataPrima =
    "La vendita era già stata salvata: N° 0001/0001.\n"
    "Le modifiche fatte dopo non sono nell'archivio: si mostra la vendita come è stata salvata.";

class LostCommit : public NegozioGuasto {
  protected:
    LostCommit() { collega(linea.porta()); }
    ~LostCommit() override { gAdo.chiudiConnessioniCalde(); }

    void salvaCon(Guasto guasto, bool restaInterrotta, const QString& messaggio, Icona icona) {
        linea.guasta(guasto, restaInterrotta);
        n->operatore.attendiMessaggio(messaggio, icona);
        salva();
        EXPECT_TRUE(linea.accaduto());
        EXPECT_TRUE(n->operatore.esaurito());
        EXPECT_FALSE(gAdo.inTransazione());
        EXPECT_EQ(n->operatore.clessidre, 0);
        EXPECT_EQ(n->operatore.attesa, QString());
    }
    // It is not known, and the sale stands as it was.
    void salvaNelBuio(Guasto guasto) {
        salvaCon(guasto, true, testoIncerta, Icona::Critica);
        EXPECT_EQ(schermata(vendita()), prima);
    }
    static QString ritrovata(const QString& numero = "0001/0001") { return QString(salvata).arg(numero); }

    LineaTagliabile linea{server.porta()};
};

TEST_F(LostCommit, ASaleThatReachedTheServerGoesOnAsSaved) {
    salvaCon(Guasto::DopoIlCommit, false, ritrovata(), Icona::Informazione);
    venditaNeiLibri();
    EXPECT_EQ(vendita().flxVB.gestione(1), RigaInvariata);
    EXPECT_TRUE(gVenditaSalvata);
}

TEST_F(LostCommit, ASaleThatDidNotReachTheServerCanBeSavedAgain) {
    salvaCon(Guasto::PrimaDelCommit, false, nonSalvata, Icona::Critica);
    EXPECT_EQ(schermata(vendita()), prima);
    nienteEPoiSalvata();
}

TEST_F(LostCommit, IsLoggedOnce) {
    salvaCon(Guasto::PrimaDelCommit, false, nonSalvata, Icona::Critica);
    EXPECT_EQ(n->registroErrori().count("commitTrasaction"), 1);
}

TEST_F(LostCommit, ANextSaleOfTheDayIsFoundByItsRows) {
    salva();
    conto->tasto(Qt::Key_F2);
    vendi(*conto, "A");
    salvaCon(Guasto::DopoIlCommit, false, ritrovata("0001/0002"), Icona::Informazione);
    EXPECT_EQ(n->conta("DettagliMovimento"), 3);
    EXPECT_EQ(n->verifica(), QStringList());
}

TEST_F(LostCommit, ANextSaleOfTheDayThatIsMissingIsNotTakenForTheFirst) {
    salva();
    conto->tasto(Qt::Key_F2);
    vendi(*conto, "A");
    salvaCon(Guasto::PrimaDelCommit, false, nonSalvata, Icona::Critica);
    EXPECT_EQ(n->conta("DettagliMovimento"), 2);
    salva();
    EXPECT_EQ(n->conta("DettagliMovimento"), 3);
    EXPECT_EQ(n->verifica(), QStringList());
}

// ---- The document went on meanwhile

class LostCommitOfAnOpenDocument : public LostCommit {
  protected:
    // Another account of the desk sells under the same header: its totals and entries are others then.
    void vendeUnAltroConto() {
        ContoDiProva& altro = n->apriConto(1);
        altro.tasto(Qt::Key_F2);
        altro.vendita().lblRID.testo(n->valore("SELECT MAX(RID) FROM Movimenti"));
        altro.vendita().txtProg.testo("0001");
        vendi(altro, "A");
        altro.tasto(Qt::Key_F5);
        EXPECT_EQ(altro.vendita().txtSottoProg.testo(), "0002");
    }
    void ritrova(int righe) {
        linea.ripristina();
        vendeUnAltroConto();
        n->operatore.attendiMessaggio(ritrovata(), Icona::Informazione);
        salva();
        EXPECT_EQ(n->conta("DettagliMovimento"), righe);
        EXPECT_EQ(n->conta("Movimenti"), 1);
        EXPECT_EQ(n->verifica(), QStringList());
    }
};

TEST_F(LostCommitOfAnOpenDocument, ASaleIsFoundUnderAHeaderThatAnotherOneHasChanged) {
    salvaNelBuio(Guasto::DopoIlCommit);
    ritrova(3);
}

TEST_F(LostCommitOfAnOpenDocument, AnAddedRowIsFoundUnderAHeaderThatAnotherSaleHasChanged) {
    n->prodotto({.codice = "C", .listino1 = 1});
    salva();
    vendi(*conto, "C", "7");
    prima = schermata(vendita());
    salvaNelBuio(Guasto::DopoIlCommit);
    ritrova(4);
}

TEST_F(LostCommitOfAnOpenDocument, ADeletedRowIsMissedUnderAHeaderThatAnotherSaleHasChanged) {
    salva();
    conto->clicRiga(2);
    n->operatore.attendiDomanda("Eliminare il prodotto [B]?", OperatorPort::Risposta::Si);
    conto->tasto(Qt::Key_F9);
    prima = schermata(vendita());
    salvaNelBuio(Guasto::DopoIlCommit);
    ritrova(2);
}

TEST_F(LostCommitOfAnOpenDocument, ASaleIsFoundWhenAnotherDeskHasChangedItsRows) {
    salvaNelBuio(Guasto::DopoIlCommit);
    linea.ripristina();
    n->interroga("DELETE FROM DettagliMovimento WHERE CODPRODOTTO = 'A'");
    n->interroga("UPDATE DettagliMovimento SET QUANTITA = 5 WHERE CODPRODOTTO = 'B'");
    n->operatore.attendiMessaggio(ritrovata(), Icona::Informazione);
    salva();
    EXPECT_EQ(n->righe("SELECT CODPRODOTTO, QUANTITA FROM DettagliMovimento"), QStringList("B|5"));
}

TEST_F(LostCommitOfAnOpenDocument, AMissingSaleIsNotTakenForTheOneThatAnotherAccountSaved) {
    salva();
    conto->tasto(Qt::Key_F2);
    vendi(*conto, "A");
    prima = schermata(vendita());
    salvaNelBuio(Guasto::PrimaDelCommit);
    linea.ripristina();
    vendeUnAltroConto();
    salva();
    EXPECT_EQ(vendita().txtSottoProg.testo(), "0003");
    EXPECT_EQ(n->conta("DettagliMovimento"), 4);
    EXPECT_EQ(n->verifica(), QStringList());
}

class LostCommitOfAChange : public LostCommit {
  protected:
    // The quantity of the first row becomes 3, the second row goes, and a third one comes.
    LostCommitOfAChange() {
        salva();
        conto->clicRiga(1);
        conto->clic(vendita().txtQta);
        conto->digita("3");
        conto->tasto(Qt::Key_F6);
        conto->clicRiga(2);
        n->operatore.attendiDomanda("Eliminare il prodotto [B]?", OperatorPort::Risposta::Si);
        conto->tasto(Qt::Key_F9);
        vendi(*conto, "B", "7");
        prima = schermata(vendita());
    }
    QStringList righe() {
        return n->righe("SELECT CODPRODOTTO, QUANTITA FROM DettagliMovimento ORDER BY POS");
    }
};

TEST_F(LostCommitOfAChange, ThatReachedTheServerGoesOnAsSaved) {
    salvaCon(Guasto::DopoIlCommit, false, ritrovata(), Icona::Informazione);
    EXPECT_EQ(righe(), (QStringList{"A|3", "B|7"}));
}

TEST_F(LostCommitOfAChange, ThatDidNotReachTheServerCanBeSavedAgain) {
    salvaCon(Guasto::PrimaDelCommit, false, nonSalvata, Icona::Critica);
    EXPECT_EQ(righe(), (QStringList{"A|1", "B|2"}));
    EXPECT_EQ(schermata(vendita()), prima);
    salva();
    EXPECT_EQ(righe(), (QStringList{"A|3", "B|7"}));
    EXPECT_EQ(n->verifica(), QStringList());
}

// ---- What a change has written

struct Cambiamento {
    const char* nome;
    void (*fai)(Vendita&);
};

void cambiaRiga(Vendita& v, const std::vector<std::pair<Colonna, QString>>& celle) {
    for (const auto& [colonna, testo] : celle)
        v.flxVB.scrivi(1, colonna, testo);
    v.flxVB.scrivi(1, Colonna::Gestione, QString::number(RigaModificata));
}

const Cambiamento cambiamenti[] = {
    {"discountThatTheListPriceMakesUpFor",
     [](Vendita& v) {
         cambiaRiga(v, {{Colonna::PrezzoListino, "12,50"}, {Colonna::Sconto1, "20,00"}});
     }},
    {"secondDiscount",
     [](Vendita& v) {
         cambiaRiga(v, {{Colonna::Sconto2, "1,50"}});
     }},
    {"letterOfTheDescription",
     [](Vendita& v) {
         cambiaRiga(v, {{Colonna::Descrizione, "a"}});
     }},
    {"vatRateOfTheSamePercentage",
     [](Vendita& v) {
         cambiaRiga(v, {{Colonna::IdIva, "3"}});
     }},
    {"unitOfMeasure",
     [](Vendita& v) {
         cambiaRiga(v, {{Colonna::IdUm, ""}});
     }},
    {"paidTick",
     [](Vendita& v) {
         v.chkPagato.valore(1);
         v.idPNPagamento = -1;
     }},
};

class LostCommitOfOneColumn : public LostCommit, public testing::WithParamInterface<Cambiamento> {
  protected:
    // A sale to a customer who has not paid yet, saved and then changed.
    LostCommitOfOneColumn() {
        const int cliente = n->cliente(120, "Rossi");
        vendita().txtCodCliente.testoETag("120");
        vendita().txtCodCliente.tag(QString::number(cliente));
        vendita().chkPagato.valore(0);
        salva();
        EXPECT_EQ(n->valore("SELECT COUNT(*) FROM Movimenti WHERE FK_PNPAGAMENTO IS NULL"), "1");
        GetParam().fai(vendita());
        prima = schermata(vendita());
    }
};

TEST_P(LostCommitOfOneColumn, ThatReachedTheServerGoesOnAsSaved) {
    salvaCon(Guasto::DopoIlCommit, false, ritrovata(), Icona::Informazione);
}

TEST_P(LostCommitOfOneColumn, ThatDidNotReachTheServerIsNotTakenForSaved) {
    const QStringList libriPrima = libri(*n);
    salvaCon(Guasto::PrimaDelCommit, false, nonSalvata, Icona::Critica);
    EXPECT_EQ(libri(*n), libriPrima);
    EXPECT_EQ(schermata(vendita()), prima);
}

INSTANTIATE_TEST_SUITE_P(Each, LostCommitOfOneColumn, testing::ValuesIn(cambiamenti),
                         [](const auto& caso) { return caso.param.nome; });

// ---- Behind an unforeseen error, what was written is committed

class LostCommitBehindAnError : public LostCommit {
  protected:
    void salvaConErrore(Guasto guasto, const QString& messaggio, Icona icona,
                        const QString& istruzione = "UPDATE Movimenti", bool restaInterrotta = false) {
        sondaIstruzioni() = [=, fatto = false](const QString& sql) mutable -> std::optional<ErroreServer> {
            if (sql.startsWith(istruzione) && !std::exchange(fatto, true))
                throw RunTimeError(RunTimeError::Overflow);
            return std::nullopt;
        };
        n->operatore.attendiAvviso("bBottegonClientVB.salvaVendita");
        salvaCon(guasto, restaInterrotta, messaggio, icona);
        sondaIstruzioni() = {};
    }
    void salvaNelBuioConErrore(Guasto guasto, const QString& istruzione = "UPDATE Movimenti") {
        salvaConErrore(guasto, testoIncerta, Icona::Critica, istruzione, true);
        EXPECT_EQ(schermata(vendita()), prima);
        linea.ripristina();
    }
};

const char* const comeNellArchivio =
    "Il collegamento con il server si era interrotto: si mostra la vendita come è nell'archivio.\n"
    "Controllarla prima di salvarla di nuovo.";

TEST_F(LostCommitBehindAnError, ThatReachedTheServerIsShownAsItIsInTheBooks) {
    salvaConErrore(Guasto::DopoIlCommit, comeNellArchivio, Icona::Esclamazione);
    EXPECT_EQ(n->conta("Movimenti"), 1);
    EXPECT_EQ(vendita().lblRID.testo(), n->valore("SELECT RID FROM Movimenti"));
    EXPECT_EQ(vendita().flxVB.gestione(2), RigaInvariata);
    salva();
    EXPECT_EQ(n->conta("DettagliMovimento"), 2);
}

TEST_F(LostCommitBehindAnError, BeforeTheRowsKeepsThemUnderTheHeaderThatIsThere) {
    salvaConErrore(Guasto::DopoIlCommit, nonSalvata, Icona::Esclamazione, "SELECT MAX(EXTRAPROG)");
    EXPECT_EQ(n->conta("Movimenti"), 1);
    EXPECT_EQ(n->conta("DettagliMovimento"), 0);
    EXPECT_EQ(vendita().lblRID.testo(), n->valore("SELECT RID FROM Movimenti"));
    EXPECT_EQ(vendita().flxVB.gestione(2), RigaNuova);
    salva();
    EXPECT_EQ(n->conta("Movimenti"), 1);
    EXPECT_EQ(n->conta("DettagliMovimento"), 2);
}

TEST_F(LostCommitBehindAnError, ThatDidNotReachTheServerCanBeSavedAgain) {
    salvaConErrore(Guasto::PrimaDelCommit, nonSalvata, Icona::Critica);
    EXPECT_EQ(schermata(vendita()), prima);
    nienteEPoiSalvata();
}

TEST_F(LostCommitBehindAnError, ThatWasLeftOpenIsShownInsteadOfSavedAgain) {
    salvaNelBuioConErrore(Guasto::DopoIlCommit);
    n->operatore.attendiMessaggio(comeNellArchivio, Icona::Esclamazione);
    salva();
    EXPECT_TRUE(n->operatore.esaurito());
    EXPECT_EQ(n->conta("Movimenti"), 1);
    EXPECT_EQ(n->conta("DettagliMovimento"), 2);
    EXPECT_EQ(vendita().flxVB.gestione(2), RigaInvariata);
}

TEST_F(LostCommitBehindAnError, BeforeTheRowsAndLeftOpenIsSavedUnderTheHeaderThatIsThere) {
    salvaNelBuioConErrore(Guasto::DopoIlCommit, "SELECT MAX(EXTRAPROG)");
    salva();
    venditaNeiLibri();
}

TEST_F(LostCommitBehindAnError, ThatWasLeftOpenAndIsMissingIsSaved) {
    salvaNelBuioConErrore(Guasto::PrimaDelCommit);
    nienteEPoiSalvata();
}

// ---- The server cannot be asked

TEST_F(LostCommit, WithoutAServerTheOutcomeIsLeftOpen) {
    salvaNelBuio(Guasto::DopoIlCommit);
    attendiVenditaIncerta();
    salva();
    EXPECT_EQ(schermata(vendita()), prima);
}

TEST_F(LostCommit, ASaleLeftOpenIsFoundInsteadOfSavedAgain) {
    salvaNelBuio(Guasto::DopoIlCommit);
    linea.ripristina();
    n->operatore.attendiMessaggio(ritrovata(), Icona::Informazione);
    salva();
    venditaNeiLibri();
    salva();
    venditaNeiLibri();
}

TEST_F(LostCommit, ASaleLeftOpenThatIsMissingIsSaved) {
    salvaNelBuio(Guasto::PrimaDelCommit);
    linea.ripristina();
    nienteEPoiSalvata();
}

TEST_F(LostCommit, ASaleLeftOpenAndChangedIsShownAsItWasSaved) {
    salvaNelBuio(Guasto::DopoIlCommit);
    linea.ripristina();
    n->prodotto({.codice = "C", .listino1 = 1});
    vendi(*conto, "C");
    ASSERT_EQ(vendita().flxVB.ultima(), 3);
    n->operatore.attendiMessaggio(salvataPrima, Icona::Esclamazione);
    salva();
    venditaNeiLibri();
    EXPECT_EQ(vendita().flxVB.ultima(), 2);
}

TEST_F(LostCommit, ANewSaleForgetsTheOneLeftOpen) {
    salvaNelBuio(Guasto::PrimaDelCommit);
    linea.ripristina();
    n->operatore.attendiDomanda("Attenzione Salvare la vendita corrente?", OperatorPort::Risposta::No);
    conto->tasto(Qt::Key_F2);
    EXPECT_FALSE(vendita().salvataggioIncerto);
    vendi(*conto, "A");
    salva();
    EXPECT_EQ(n->conta("DettagliMovimento"), 1);
}

// The commit lies in the frozen server's line, and is done when it wakes up.
TEST_F(LostCommit, ACommitThatIsStillUnderWayIsNotTakenForLost) {
    collega(server.porta());
    sondaIstruzioni() = [&](const QString& sql) -> std::optional<ErroreServer> {
        if (sql == "COMMIT") server.sospendi();
        return std::nullopt;
    };
    attendiVenditaIncerta();
    salva();
    sondaIstruzioni() = {};
    server.riprendi();
    n->operatore.attendiMessaggio(ritrovata(), Icona::Informazione);
    salva();
    venditaNeiLibri();
}

// A backup holds the server up for longer than the till waits: the server gives the commit up with the line.
TEST_F(LostCommit, ACommitThatIsHeldUpForTooLongIsLookedUp) {
    ClienteMariaDb copia;
    MySqlConnection::attesaMassima = 10000;
    sondaIstruzioni() = [&, fermato = false](const QString& sql) mutable -> std::optional<ErroreServer> {
        if (sql == "COMMIT" && !std::exchange(fermato, true)) copia.esegui("FLUSH TABLES WITH READ LOCK");
        return std::nullopt;
    };
    n->operatore.attendiMessaggio(nonSalvata, Icona::Critica);
    salva();
    sondaIstruzioni() = {};
    copia.esegui("UNLOCK TABLES");
    nienteEPoiSalvata();
}

TEST_F(LostCommit, APowerCutBeforeTheCommitIsLookedUpAfterTheRestart) {
    collega(server.porta());
    sondaIstruzioni() = [&](const QString& sql) -> std::optional<ErroreServer> {
        if (sql == "COMMIT" && server.acceso()) server.ferma(SIGKILL);
        return std::nullopt;
    };
    attendiVenditaIncerta();
    salva();
    sondaIstruzioni() = {};
    server.avvia();
    nienteEPoiSalvata();
}

}  // namespace
