#include <csignal>

#include "core/globals.h"
#include "data/gateway.h"
#include "postings/full_shop.h"
#include "postings/save_sale.h"
#include "sale/document_info.h"

// A save, a second save and a deletion that are disturbed at each of their statements in turn: the books are
// as before, or as after, and the same thing done again succeeds.

namespace {

// More statements than any of the three runs.
constexpr int troppe = 400;

enum class Lavoro { Salva, Risalva, Cancella, Trasferisci };

struct Caso {
    Lavoro lavoro;
    bool banco;
    int prezzoMedio = 0;
};

void PrintTo(const Caso& c, std::ostream* uscita) {
    static const char* const nomi[] = {"Save", "SecondSave", "Deletion", "Transfer"};
    *uscita << nomi[static_cast<int>(c.lavoro)] << (c.banco ? "OfTheCounter" : "OfACustomer")
            << (c.prezzoMedio ? "AtTheAverage" : "ByLayers");
}

std::string nome(const testing::TestParamInfo<Caso>& caso) {
    return testing::PrintToString(caso.param);
}

ErroreServer guastoDelServer() {
    return {ErroreServer::Classe::Altro, 4711, "guasto di prova", "prova"};
}

// A shop in which the work stands ready to be done.
struct Banco : BottegaCompleta {
    explicit Banco(const Caso& caso) : BottegaCompleta(caso.banco, caso.prezzoMedio), caso(caso) {
        if (caso.lavoro == Lavoro::Trasferisci) preparaTrasferimento();
        if (caso.lavoro == Lavoro::Risalva || caso.lavoro == Lavoro::Cancella) salva();
        if (caso.lavoro == Lavoro::Risalva) ritocca();
    }
    void fai() {
        if (caso.lavoro == Lavoro::Trasferisci) {
            // A till goes on asking its books.
            if (salvaVendita(vendita(), false, -1)) gAdo.getDataOraServer("prova");
        } else {
            caso.lavoro == Lavoro::Cancella ? cancella() : salva();
        }
    }
    // The rows go to the store instead, at their cost; some of their amount was counted in a balance.
    void preparaTrasferimento() {
        n.sql("INSERT INTO Magazzini (RID, CODICE, DESCRIZIONE) VALUES (2,'DEP','Deposito')");
        n.sql(
            "INSERT INTO Causali (RID, CODICE, OPERAZIONE, ORIGINE, DESTINAZIONE, FK_MAGAZZINOORIG, "
            "FK_MAGAZZINODEST, GENERAPN) VALUES (4,'DT',1,3,3,1,2,1)");
        n.sql(
            "INSERT INTO TipoDocumenti (RID, CODICE, DESCRIZIONE, FK_CAUSALE, NCONTATORE, USAPREZZIIVA, "
            "ACCOMPAGNATORIO) VALUES (4,'DT','Trasferimento',4,4,0,1)");
        gTipoDocVb = 4;
        setInfoDocumento(vendita(), 4);
        vendita().lblLastMainDisplay.testo("12,34");
    }

    const Caso caso;
};

// The books after the work was done without a disturbance.
QStringList libriDopo(const Caso& caso) {
    Banco s(caso);
    s.fai();
    EXPECT_EQ(s.n.verifica(), QStringList());
    return libriSenzaChiavi(s.n);
}

// A failed statement is one report, and nothing else has happened.
void nullaAccaduto(Banco& s, const QStringList& libriPrima, const QStringList& schermoPrima,
                   const RegistroAvvisi& avvisi) {
    EXPECT_EQ(libriSenzaChiavi(s.n), libriPrima);
    EXPECT_EQ(schermata(s.vendita()), schermoPrima);
    EXPECT_EQ(avvisi.moduli.size(), 1);
    EXPECT_EQ(avvisi.messaggi, QStringList());
    EXPECT_FALSE(gAdo.inTransazione());
    EXPECT_EQ(s.n.operatore.clessidre, 0);
}

// Fails one statement after the other in one shop, then does the work; answers how many.
int falliteDiSeguito(const Caso& caso) {
    const QStringList attesi = libriDopo(caso);
    Banco s(caso);
    const QStringList libriPrima = libriSenzaChiavi(s.n);
    const QStringList schermoPrima = schermata(s.vendita());
    int numero = 1;
    for (; numero < troppe && !testing::Test::HasFailure(); ++numero) {
        const RegistroAvvisi avvisi;
        AllaIstruzione guasto(numero, [] { return guastoDelServer(); });
        s.fai();
        sondaIstruzioni() = {};
        if (guasto.confermata) break;
        SCOPED_TRACE(guasto.istruzione.toStdString());
        nullaAccaduto(s, libriPrima, schermoPrima, avvisi);
    }
    EXPECT_EQ(libriSenzaChiavi(s.n), attesi);
    EXPECT_EQ(s.n.verifica(), QStringList());
    return numero - 1;
}

// Fails each statement in a shop of its own, and does the same work again at once; answers how many.
int falliteUnaAUna(const Caso& caso) {
    const QStringList attesi = libriDopo(caso);
    int numero = 1;
    for (; numero < troppe && !testing::Test::HasFailure(); ++numero) {
        Banco s(caso);
        const QStringList libriPrima = libriSenzaChiavi(s.n);
        const QStringList schermoPrima = schermata(s.vendita());
        const RegistroAvvisi avvisi;
        AllaIstruzione guasto(numero, [] { return guastoDelServer(); });
        s.fai();
        sondaIstruzioni() = {};
        if (guasto.confermata) break;
        SCOPED_TRACE(guasto.istruzione.toStdString());
        nullaAccaduto(s, libriPrima, schermoPrima, avvisi);
        s.fai();
        EXPECT_EQ(libriSenzaChiavi(s.n), attesi);
        EXPECT_EQ(s.n.verifica(), QStringList());
    }
    return numero - 1;
}

// The till dies at that statement. False: it had none so many.
bool muoreAlla(Banco& s, int numero) {
    gAdo.chiudiConnessioniCalde();
    const int esito = inUnFiglio([&] {
        const AllaIstruzione fine(numero, []() -> std::optional<ErroreServer> {
            raise(SIGKILL);
            return std::nullopt;
        });
        s.fai();
        return 0;
    });
    // The answer that the child was given is not given here.
    if (esito == 0) return false;
    EXPECT_EQ(esito, -SIGKILL);
    return true;
}

// One till after the other dies in one shop, a statement later each time, until the work is in the books;
// answers how many left them as they were.
int mortiDiSeguito(const Caso& caso) {
    const QStringList attesi = libriDopo(caso);
    Banco s(caso);
    const QStringList libriPrima = libriSenzaChiavi(s.n);
    for (int numero = 1; numero < troppe; ++numero) {
        EXPECT_TRUE(muoreAlla(s, numero));
        SCOPED_TRACE(numero);
        const QStringList trovati = libriSenzaChiavi(s.n);
        if (trovati == libriPrima) continue;
        EXPECT_EQ(trovati, attesi);
        EXPECT_EQ(s.n.verifica(), QStringList());
        return numero - 1;
    }
    return 0;
}

struct Morti {
    int prima = 0;  // left the books as before
    int dopo = 0;   // or as after
};

// Each in a shop of its own, and the next start does the work without repair.
Morti mortiUnaAUna(const Caso& caso) {
    const QStringList attesi = libriDopo(caso);
    Morti morti;
    for (int numero = 1; numero < troppe && !testing::Test::HasFailure(); ++numero) {
        Banco s(caso);
        const QStringList libriPrima = libriSenzaChiavi(s.n);
        if (!muoreAlla(s, numero)) break;
        SCOPED_TRACE(numero);
        EXPECT_EQ(s.n.verifica(), QStringList());
        const QStringList trovati = libriSenzaChiavi(s.n);
        ++(trovati == attesi ? morti.dopo : morti.prima);
        if (trovati == attesi) continue;
        EXPECT_EQ(trovati, libriPrima);
        s.fai();
        EXPECT_EQ(libriSenzaChiavi(s.n), attesi);
    }
    return morti;
}

const Caso salvaBanco{Lavoro::Salva, true};
const Caso salvaCliente{Lavoro::Salva, false};
const Caso risalvaCliente{Lavoro::Risalva, false};
const Caso cancellaBanco{Lavoro::Cancella, true};
const Caso cancellaCliente{Lavoro::Cancella, false};
const Caso trasferisci{Lavoro::Trasferisci, false};
const Caso salvaBancoAllaMedia{Lavoro::Salva, true, 1};
const Caso cancellaClienteAllaMedia{Lavoro::Cancella, false, 1};

// Every kind of sale, work and valuation.
std::vector<Caso> tutti() {
    std::vector<Caso> casi;
    for (const Lavoro lavoro : {Lavoro::Salva, Lavoro::Risalva, Lavoro::Cancella}) {
        for (const bool banco : {true, false}) {
            for (const int prezzoMedio : {0, 1})
                casi.push_back({lavoro, banco, prezzoMedio});
        }
    }
    for (const int prezzoMedio : {0, 1})
        casi.push_back({Lavoro::Trasferisci, false, prezzoMedio});
    return casi;
}

class BooksFailures : public testing::TestWithParam<Caso> {};
class BooksKilled : public testing::TestWithParam<Caso> {};
class BooksFailuresLong : public testing::TestWithParam<Caso> {};
class BooksKilledLong : public testing::TestWithParam<Caso> {};

}  // namespace

TEST_P(BooksFailures, AStatementThatFailsLeavesTheBooks) {
    EXPECT_GE(falliteDiSeguito(GetParam()), 30);
}
INSTANTIATE_TEST_SUITE_P(Every, BooksFailures,
                         testing::Values(salvaCliente, risalvaCliente, cancellaBanco, cancellaCliente,
                                         trasferisci, salvaBancoAllaMedia, cancellaClienteAllaMedia),
                         nome);

TEST_P(BooksFailuresLong, AStatementThatFailsLeavesTheBooks) {
    EXPECT_GE(falliteUnaAUna(GetParam()), 30);
}
INSTANTIATE_TEST_SUITE_P(Every, BooksFailuresLong, testing::ValuesIn(tutti()), nome);

TEST_P(BooksKilled, TheProcessLeavesTheBooksWhole) {
    EXPECT_GE(mortiDiSeguito(GetParam()), 30);
}
INSTANTIATE_TEST_SUITE_P(Every, BooksKilled,
                         testing::Values(salvaCliente, risalvaCliente, cancellaBanco, trasferisci,
                                         salvaBancoAllaMedia, cancellaClienteAllaMedia),
                         nome);

TEST_P(BooksKilledLong, TheProcessLeavesTheBooksWhole) {
    const Morti morti = mortiUnaAUna(GetParam());
    EXPECT_GE(morti.prima, 30);
    EXPECT_GE(morti.dopo, 1);
}
INSTANTIATE_TEST_SUITE_P(Every, BooksKilledLong, testing::ValuesIn(tutti()), nome);

// ---- After the commit nothing is undone, and nothing done twice

TEST(DeletionFailures, AScreenThatCannotGoOnAfterTheCommitLeavesTheSaleDeleted) {
    int prove = 0;
    for (bool fallita = true; fallita && prove < troppe;) {
        Banco s(cancellaBanco);
        const RegistroAvvisi avvisi;
        int dopoIlCommit = 0;
        fallita = false;
        sondaIstruzioni() = [&](const QString& sql) -> std::optional<ErroreServer> {
            if (sql == "COMMIT" || dopoIlCommit > 0) ++dopoIlCommit;
            if (fallita || dopoIlCommit != prove + 2) return std::nullopt;
            fallita = true;
            return guastoDelServer();
        };
        s.fai();
        sondaIstruzioni() = {};
        if (!fallita) break;
        ++prove;
        EXPECT_EQ(s.n.conta("Movimenti"), 0);
        EXPECT_EQ(s.n.conta("DettagliMovimento"), 0);
        EXPECT_EQ(s.n.verifica(), QStringList());
        // The end of the turn itself may fail unseen: the connection goes, and the turn with it.
        EXPECT_LE(avvisi.moduli.size(), 1);
    }
    EXPECT_GE(prove, 1);
}

TEST(DeletionFailures, AnUnforeseenErrorRollsBackToo) {
    Banco s(cancellaCliente);
    const QStringList libriPrima = libriSenzaChiavi(s.n);
    const QStringList schermoPrima = schermata(s.vendita());
    const RegistroAvvisi avvisi;
    sondaIstruzioni() = [](const QString& sql) -> std::optional<ErroreServer> {
        if (sql.startsWith("SELECT SUM(TOTALEIVA)")) throw RunTimeError(RunTimeError::Overflow);
        return std::nullopt;
    };
    s.fai();
    sondaIstruzioni() = {};
    EXPECT_EQ(avvisi.moduli, QStringList("bBottegonClientVB.cancellaVendita"));
    EXPECT_EQ(libriSenzaChiavi(s.n), libriPrima);
    EXPECT_EQ(schermata(s.vendita()), schermoPrima);
}

// ---- An unforeseen error in the accounts

namespace {

// The sale of a customer who pays by instalments, saved with such an error at the first of these statements.
struct ErroreInContabilita {
    explicit ErroreInContabilita(const QString& inizio) : s(salvaCliente), prima(libriSenzaChiavi(s.n)) {
        sondaIstruzioni() = [this, inizio](const QString& sql) -> std::optional<ErroreServer> {
            if (accaduto || !sql.startsWith(inizio)) return std::nullopt;
            accaduto = true;
            throw RunTimeError(RunTimeError::Overflow);
        };
        s.fai();
        sondaIstruzioni() = {};
        EXPECT_TRUE(accaduto);
    }

    Banco s;
    const QStringList prima;
    const RegistroAvvisi avvisi;
    bool accaduto = false;
};

}  // namespace

// An entry that nobody knows the fate of is no reason to roll back: the sale is in the books without it, and
// so without due dates; its collection is there.
TEST(PostingRunTimeErrors, AnEntryThatCannotBeMadeLeavesTheSaleWithoutOne) {
    ErroreInContabilita e("INSERT INTO PrimaNota (");
    const Negozio& n = e.s.n;
    EXPECT_EQ(e.avvisi.moduli, QStringList("bBottegonClientVB.salvaPrimaNota"));
    EXPECT_FALSE(e.s.vendita().venditaModificata);
    EXPECT_GT(n.conta("DettagliMovimento"), 0);
    EXPECT_EQ(n.conta("Movimenti", "FK_PRIMANOTA IS NULL AND FK_PNPAGAMENTO IS NOT NULL"), 1);
    EXPECT_EQ(n.righe("SELECT FK_CAUSALE FROM PrimaNota"), QStringList("2"));
    EXPECT_EQ(n.righe("SELECT FK_CONTO FROM PrimaNotaDettagli ORDER BY RID"), (QStringList{"2", "1"}));
    EXPECT_EQ(n.conta("Scadenze"), 0);
}

TEST(PostingRunTimeErrors, LinesThatCannotBeMadeRollTheSaleBack) {
    ErroreInContabilita e("INSERT INTO PrimaNotaDettagli (");
    EXPECT_EQ(e.avvisi.moduli, QStringList("bBottegonClientVB.saveDettagliPrimaNota"));
    EXPECT_TRUE(e.s.vendita().venditaModificata);
    EXPECT_EQ(libriSenzaChiavi(e.s.n), e.prima);
}
