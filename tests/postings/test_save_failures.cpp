#include <csignal>

#include <QFile>

#include "core/globals.h"
#include "core/run_time_error.h"
#include "data/gateway.h"
#include "data/sqlite_connection.h"
#include "postings/books.h"

// A save that is disturbed at each of its statements in turn leaves all of the sale in the books or
// nothing, and the screen says which.

namespace {

// More statements than a save of two rows and its display ever run.
constexpr int troppe = 200;

ErroreServer guastoDelServer() {
    return {ErroreServer::Classe::Altro, 4711, "guasto di prova", "prova"};
}

// A shop where a sale of two rows, 12,20 and 12,10, stands ready to be saved.
struct VenditaPronta {
    VenditaPronta() {
        gNomeModulo = "bBottegonClientVB";
        n.prodotto({.codice = "A", .listino1 = 10});
        n.prodotto({.codice = "B", .listino1 = 5.5, .idIva = 2});
        n.apriConto();
        vendi(conto(), "A");
        vendi(conto(), "B", "2");
    }
    ContoDiProva& conto() { return static_cast<ContoDiProva&>(*gConti[0]); }
    Vendita& vendita() { return n.vendita(); }
    int testate() { return n.conta("Movimenti"); }
    int righe() { return n.conta("DettagliMovimento"); }
    int ultimoNumero() { return n.valore("SELECT SUM(NUMERO) FROM Contatori").toInt(); }

    Negozio n;
};

void attendiVenditaNeiLibri(VenditaPronta& s) {
    EXPECT_EQ(s.testate(), 1);
    EXPECT_EQ(s.righe(), 2);
    EXPECT_EQ(s.ultimoNumero(), 1);
    EXPECT_EQ(s.n.valore("SELECT TOTDOCUMENTO FROM Movimenti"), "24.3");
    EXPECT_EQ(s.n.verifica(), QStringList());
}

// Another F5; a screen that a failed display has left without rows says that there is nothing to save.
void salvaAncora(VenditaPronta& s) {
    if (s.vendita().flxVB.righe() < 2) {
        s.n.operatore.attendiMessaggio(
            "Attenzione! non vi è nessun elemento da salvare.\nAggiungere almeno un prodotto");
    }
    s.conto().tasto(Qt::Key_F5);
}

}  // namespace

TEST(SaveFailures, AStatementThatFailsBeforeTheCommitLeavesBooksAndScreen) {
    int prove = 0;
    for (int numero = 1; numero < troppe; ++numero) {
        VenditaPronta s;
        const RegistroAvvisi avvisi;
        const QStringList libriPrima = libri(s.n);
        const QStringList schermoPrima = schermata(s.vendita());
        AllaIstruzione guasto(numero, [] { return guastoDelServer(); });
        s.conto().tasto(Qt::Key_F5);
        sondaIstruzioni() = {};
        if (guasto.confermata || !guasto.accaduto) break;
        SCOPED_TRACE(guasto.istruzione.toStdString());
        ++prove;
        EXPECT_EQ(libri(s.n), libriPrima);
        EXPECT_EQ(schermata(s.vendita()), schermoPrima);
        EXPECT_EQ(avvisi.moduli.size(), 1);
        EXPECT_FALSE(gAdo.inTransazione());
        salvaAncora(s);
        attendiVenditaNeiLibri(s);
        if (testing::Test::HasFailure()) return;
    }
    // Begin, counter, header, two rows, three sums and totals, commit.
    EXPECT_GE(prove, 10);
}

TEST(SaveFailures, AStatementThatFailsAfterTheCommitBooksNothingTwice) {
    int prove = 0;
    for (int numero = 1; numero < troppe; ++numero) {
        VenditaPronta s;
        const RegistroAvvisi avvisi;
        AllaIstruzione guasto(numero, [] { return guastoDelServer(); });
        s.conto().tasto(Qt::Key_F5);
        sondaIstruzioni() = {};
        if (!guasto.accaduto) break;
        if (!guasto.confermata) continue;
        SCOPED_TRACE(guasto.istruzione.toStdString());
        ++prove;
        attendiVenditaNeiLibri(s);
        salvaAncora(s);
        attendiVenditaNeiLibri(s);
        if (testing::Test::HasFailure()) return;
    }
    EXPECT_GE(prove, 2);
}

TEST(SaveFailures, AStatementThatFailsOnASecondSaveLeavesTheFirst) {
    int prove = 0;
    for (int numero = 1; numero < troppe; ++numero) {
        VenditaPronta s;
        s.conto().tasto(Qt::Key_F5);
        s.conto().clicRiga(1);
        s.conto().clic(s.vendita().txtQta);
        s.conto().digita("3");
        s.conto().clic(s.vendita().txtCodProdotto);
        const RegistroAvvisi avvisi;
        const QStringList libriPrima = libri(s.n);
        const QStringList schermoPrima = schermata(s.vendita());
        AllaIstruzione guasto(numero, [] { return guastoDelServer(); });
        s.conto().tasto(Qt::Key_F5);
        sondaIstruzioni() = {};
        if (guasto.confermata || !guasto.accaduto) break;
        SCOPED_TRACE(guasto.istruzione.toStdString());
        ++prove;
        EXPECT_EQ(libri(s.n), libriPrima);
        EXPECT_EQ(schermata(s.vendita()), schermoPrima);
        s.conto().tasto(Qt::Key_F5);
        EXPECT_EQ(s.n.valore("SELECT TOTDOCUMENTO FROM Movimenti"), "48.7");
        EXPECT_EQ(s.righe(), 2);
        if (testing::Test::HasFailure()) return;
    }
    EXPECT_GE(prove, 7);
}

TEST(SaveFailures, FailureIsToldAfterTheTransaction) {
    VenditaPronta s;
    bool dentro = true;
    s.n.operatore.attendiAvviso("cAdoSqlServer.executeSQL -> bBottegonClientVB.salvaVendita");
    sondaIstruzioni() = [&](const QString& sql) -> std::optional<ErroreServer> {
        if (sql.startsWith("UPDATE Movimenti")) return guastoDelServer();
        if (sql == "ROLLBACK") dentro = s.n.operatore.avvisi.empty();
        return std::nullopt;
    };
    s.conto().tasto(Qt::Key_F5);
    EXPECT_TRUE(dentro);
    EXPECT_EQ(s.n.operatore.avvisi.size(), 1u);
    EXPECT_EQ(s.n.operatore.clessidre, 0);
}

// ---- Run-time errors

namespace {

// However the first attempt has ended.
void attendiTuttoNeiLibri(VenditaPronta& s, const QString& totale) {
    EXPECT_FALSE(s.vendita().venditaModificata);
    EXPECT_EQ(s.righe(), 2);
    EXPECT_EQ(s.n.righe("SELECT DISTINCT TOTDOCUMENTO FROM Movimenti WHERE RID IN (SELECT FK_MOVIMENTO FROM "
                        "DettagliMovimento)"),
              QStringList(totale));
    EXPECT_EQ(s.n.verifica(), QStringList());
}

// About a table; what else goes to a server begins and ends the turn.
bool proprioDelSalvataggio(const QString& sql) {
    return sql.contains(" FROM ") || sql.startsWith("INSERT ") || sql.startsWith("UPDATE ");
}

// F5 meets an unforeseen error at the statements that begin like this.
void salvaConErrore(VenditaPronta& s, const QString& inizio) {
    sondaIstruzioni() = [inizio](const QString& sql) -> std::optional<ErroreServer> {
        if (sql.startsWith(inizio)) throw RunTimeError(RunTimeError::Overflow);
        return std::nullopt;
    };
    s.conto().tasto(Qt::Key_F5);
    sondaIstruzioni() = {};
}

}  // namespace

TEST(SaveRunTimeErrors, AtEveryStatementNothingIsBookedTwice) {
    int prove = 0;
    for (int numero = 1; numero < troppe; ++numero) {
        VenditaPronta s;
        const RegistroAvvisi avvisi;
        AllaIstruzione guasto(numero, [&]() -> std::optional<ErroreServer> {
            if (proprioDelSalvataggio(guasto.istruzione)) throw RunTimeError(RunTimeError::Overflow);
            return std::nullopt;
        });
        s.conto().tasto(Qt::Key_F5);
        sondaIstruzioni() = {};
        if (guasto.confermata || !guasto.accaduto) break;
        if (!proprioDelSalvataggio(guasto.istruzione)) continue;
        SCOPED_TRACE(guasto.istruzione.toStdString());
        ++prove;
        EXPECT_GE(avvisi.moduli.size(), 1);
        EXPECT_FALSE(gAdo.inTransazione());
        // Rows that were written are on the screen as they are in the books; others stand as they were typed.
        EXPECT_EQ(s.vendita().flxVB.ultima(), 2);
        EXPECT_EQ(s.vendita().flxVB.gestione(1), s.righe() > 0 ? RigaInvariata : RigaNuova);
        // Without the accounts of its causal the whole sale is rolled back.
        const bool contiNonLetti = guasto.istruzione.startsWith("SELECT FK_CONTODARE1");
        EXPECT_TRUE(!contiNonLetti || s.righe() == 0);
        // A header whose key could not be read stays without rows, and its number is used up.
        const bool chiaveLetta = !guasto.istruzione.startsWith("SELECT MAX(RID) FROM Movimenti");
        EXPECT_EQ(s.vendita().rid() > 0, s.testate() > 0 && chiaveLetta);
        s.conto().tasto(Qt::Key_F5);
        attendiTuttoNeiLibri(s, "24.3");
        if (testing::Test::HasFailure()) return;
    }
    EXPECT_GE(prove, 9);  // one less where an insert answers its key itself
}

TEST(SaveRunTimeErrors, AtEveryStatementOfASecondSaveNothingTypedIsLost) {
    int rimaste = 0;
    int scritte = 0;
    for (int numero = 1; numero < troppe; ++numero) {
        VenditaPronta s;
        s.conto().tasto(Qt::Key_F5);
        s.conto().clicRiga(1);
        s.conto().clic(s.vendita().txtQta);
        s.conto().digita("3");
        s.conto().tasto(Qt::Key_F6);
        const RegistroAvvisi avvisi;
        AllaIstruzione guasto(numero, [&]() -> std::optional<ErroreServer> {
            if (proprioDelSalvataggio(guasto.istruzione)) throw RunTimeError(RunTimeError::Overflow);
            return std::nullopt;
        });
        s.conto().tasto(Qt::Key_F5);
        sondaIstruzioni() = {};
        if (guasto.confermata || !guasto.accaduto) break;
        if (!proprioDelSalvataggio(guasto.istruzione)) continue;
        SCOPED_TRACE(guasto.istruzione.toStdString());
        const bool scritta =
            s.n.valore("SELECT QUANTITA FROM DettagliMovimento WHERE CODPRODOTTO = 'A'") == "3";
        ++(scritta ? scritte : rimaste);
        EXPECT_EQ(s.vendita().flxVB.cella(1, Colonna::Quantita), "3,00");
        EXPECT_EQ(s.vendita().flxVB.gestione(1), scritta ? RigaInvariata : RigaModificata);
        EXPECT_EQ(s.vendita().venditaModificata, !scritta);
        s.conto().tasto(Qt::Key_F5);
        attendiTuttoNeiLibri(s, "48.7");
        if (testing::Test::HasFailure()) return;
    }
    EXPECT_GE(rimaste, 2);
    EXPECT_GE(scritte, 2);
}

TEST(SaveRunTimeErrors, BeforeTheRowsKeepTheHeaderWithWhatWasTyped) {
    VenditaPronta s;
    s.n.operatore.attendiAvviso("bBottegonClientVB.salvaVendita");
    salvaConErrore(s, "SELECT MAX(EXTRAPROG)");
    EXPECT_EQ(s.testate(), 1);
    EXPECT_EQ(s.righe(), 0);
    EXPECT_EQ(s.vendita().lblRID.testo(), s.n.valore("SELECT RID FROM Movimenti"));
    EXPECT_EQ(s.vendita().txtProg.testo(), "0001");
    EXPECT_EQ(s.vendita().txtSottoProg.testo(), "(Auto)");
    EXPECT_TRUE(s.vendita().venditaModificata);
    s.conto().tasto(Qt::Key_F5);
    attendiVenditaNeiLibri(s);
    EXPECT_EQ(s.n.valore("SELECT MAX(EXTRAPROG) FROM DettagliMovimento"), "1");
}

TEST(SaveRunTimeErrors, InTheSaveItselfCommitsWhatWasWrittenAndShowsIt) {
    VenditaPronta s;
    s.n.operatore.attendiAvviso("bBottegonClientVB.salvaVendita");
    salvaConErrore(s, "UPDATE Movimenti");
    EXPECT_EQ(s.testate(), 1);
    EXPECT_EQ(s.righe(), 2);
    EXPECT_EQ(s.vendita().lblRID.testo(), s.n.valore("SELECT RID FROM Movimenti"));
    EXPECT_EQ(s.vendita().flxVB.ultima(), 2);
    EXPECT_EQ(s.vendita().flxVB.gestione(1), RigaInvariata);
    EXPECT_EQ(s.n.operatore.clessidre, 0);
}

TEST(SaveRunTimeErrors, InTheSaveItselfIsToldBeforeTheCommit) {
    VenditaPronta s;
    const RegistroAvvisi avvisi;
    bool dettoPrima = false;
    sondaIstruzioni() = [&](const QString& sql) -> std::optional<ErroreServer> {
        if (sql.startsWith("UPDATE Movimenti")) throw RunTimeError(RunTimeError::Overflow);
        if (sql == "COMMIT") dettoPrima = avvisi.moduli == QStringList("bBottegonClientVB.salvaVendita");
        return std::nullopt;
    };
    s.conto().tasto(Qt::Key_F5);
    EXPECT_TRUE(dettoPrima);
}

TEST(SaveRunTimeErrors, InTheRowsRollBack) {
    VenditaPronta s;
    s.n.operatore.attendiAvviso("bBottegonClientVB.saveDettagli");
    const QStringList prima = libri(s.n);
    salvaConErrore(s, "INSERT INTO DettagliMovimento");
    EXPECT_EQ(libri(s.n), prima);
    EXPECT_EQ(s.vendita().flxVB.gestione(1), RigaNuova);
}

// ---- The process dies

TEST(SaveKilled, AtEveryStatementTheSaleIsWhollyThereOrAbsent) {
    int assenti = 0;
    int presenti = 0;
    for (int numero = 1; numero < troppe; ++numero) {
        VenditaPronta s;
        gAdo.chiudiConnessioniCalde();
        const int esito = inUnFiglio([&] {
            const AllaIstruzione fine(numero, []() -> std::optional<ErroreServer> {
                raise(SIGKILL);
                return std::nullopt;
            });
            s.conto().tasto(Qt::Key_F5);
            return 0;
        });
        if (esito == 0) break;
        ASSERT_EQ(esito, -SIGKILL);
        SCOPED_TRACE(numero);
        EXPECT_EQ(s.n.verifica(), QStringList());
        EXPECT_EQ(s.testate() * 2, s.righe());
        EXPECT_EQ(s.testate(), s.ultimoNumero());
        (s.testate() == 1 ? presenti : assenti) += 1;
        if (testing::Test::HasFailure()) return;
    }
    EXPECT_GE(assenti, 10);
    EXPECT_GE(presenti, 1);
}

TEST(SaveKilled, TheNextStartSavesWithoutRepair) {
    VenditaPronta s;
    gAdo.chiudiConnessioniCalde();
    ASSERT_EQ(inUnFiglio([&] {
                  sondaIstruzioni() = [](const QString& sql) -> std::optional<ErroreServer> {
                      if (sql == "COMMIT") raise(SIGKILL);
                      return std::nullopt;
                  };
                  s.conto().tasto(Qt::Key_F5);
                  return 0;
              }),
              -SIGKILL);
    s.conto().tasto(Qt::Key_F5);
    attendiVenditaNeiLibri(s);
}

// ---- The archive itself

namespace {

// Limits the size of the archive on the warm connection that the next operation takes.
void limitaPagine(const QString& quante) {
    ASSERT_TRUE(gAdo.Connect("prova", 60, 0, false));
    auto* connessione = dynamic_cast<SqliteConnection*>(gAdo.getActiveConnection());
    Recordset pagine;
    EXPECT_TRUE(connessione->eseguiNativo(quante, &pagine));
    EXPECT_TRUE(connessione->eseguiNativo("PRAGMA max_page_count = " + pagine.campo(0).toString()));
    gAdo.disconnect();
}

}  // namespace

TEST(SaveFaultsOnFile, FullDiskIsSaidAndTheNextSaveWorks) {
    VenditaPronta s;
    // The row needs more pages than the archive may grow by.
    s.vendita().flxVB.scrivi(1, Colonna::Descrizione, QString(100000, 'x'));
    const QStringList prima = libri(s.n);
    {
        const RegistroAvvisi avvisi;
        limitaPagine("SELECT page_count FROM pragma_page_count");
        s.conto().tasto(Qt::Key_F5);
        EXPECT_EQ(avvisi.moduli,
                  QStringList("cAdoSqlServer.getIDByInsert -> bBottegonClientVB.saveDettagli"));
    }
    EXPECT_EQ(libri(s.n), prima);
    EXPECT_EQ(s.n.verifica(), QStringList());
    limitaPagine("SELECT 1000000");
    s.conto().tasto(Qt::Key_F5);
    attendiVenditaNeiLibri(s);
}

TEST(SaveFaultsOnFile, ArchiveThatIsGoneIsSaidAndTheSaleStays) {
    VenditaPronta s;
    const QStringList prima = schermata(s.vendita());
    s.n.operatore.attendiAvviso("cAdoSqlServer.Connect -> N/D");
    ASSERT_TRUE(QFile::rename(s.n.percorso(), s.n.percorso() + ".via"));
    s.conto().tasto(Qt::Key_F5);
    EXPECT_EQ(schermata(s.vendita()), prima);
    ASSERT_TRUE(QFile::rename(s.n.percorso() + ".via", s.n.percorso()));
    s.conto().tasto(Qt::Key_F5);
    attendiVenditaNeiLibri(s);
}
