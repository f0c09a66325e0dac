#include "core/globals.h"
#include "core/run_time_error.h"
#include "postings/expected_books.h"
#include "postings/lost_save.h"
#include "postings/save_sale.h"

// Whether a save is in the books, asked of the books alone.

namespace {

class LostSave : public testing::Test {
  protected:
    LostSave() {
        gNomeModulo = "bBottegonClientVB";
        n.prodotto({.codice = "A", .listino1 = 10});
        n.apriConto();
        conto().vendita().primaDelCommit = [this](const SalvataggioIncerto& s) { salvataggio = s; };
        vendi(conto(), "A");
    }
    ContoDiProva& conto() { return static_cast<ContoDiProva&>(*gConti[0]); }
    void salva() { conto().tasto(Qt::Key_F5); }
    // The save gets as far as its commit, and all of it is rolled back.
    void salvaInvano() {
        const RegistroAvvisi avvisi;
        sondaIstruzioni() = [](const QString& sql) -> std::optional<ErroreServer> {
            if (sql != "COMMIT") return std::nullopt;
            return ErroreServer{ErroreServer::Classe::Altro, 4711, "guasto di prova", "prova"};
        };
        salva();
        sondaIstruzioni() = {};
        ASSERT_EQ(n.conta("DettagliMovimento"), 0);
    }
    EsitoCommit esito() { return cercaSalvataggio(n.operatore, salvataggio); }

    Negozio n;
    SalvataggioIncerto salvataggio;
};

}  // namespace

TEST_F(LostSave, ThatIsInTheBooksIsFound) {
    salva();
    EXPECT_EQ(esito(), EsitoCommit::Registrato);
}

TEST_F(LostSave, ThatWasRolledBackIsMissing) {
    salvaInvano();
    EXPECT_EQ(esito(), EsitoCommit::NonRegistrato);
}

// The server gives the keys of what was rolled back once more.
TEST_F(LostSave, ThatWasRolledBackIsNotTakenForTheSameSaleOfAnotherDesk) {
    salvaInvano();
    const SalvataggioIncerto persa = salvataggio;
    gIDCassa = 7;
    salva();
    ASSERT_EQ(n.conta("DettagliMovimento"), 1);
    EXPECT_EQ(esito(), EsitoCommit::Registrato);
    salvataggio = persa;
    EXPECT_EQ(esito(), EsitoCommit::NonRegistrato);
}

TEST_F(LostSave, OfAChangeAloneIsToldByWhatItWrote) {
    salva();
    conto().clicRiga(1);
    conto().clic(conto().vendita().txtQta);
    conto().digita("3");
    conto().tasto(Qt::Key_F6);
    salva();
    EXPECT_EQ(esito(), EsitoCommit::Registrato);
    n.sql("UPDATE DettagliMovimento SET QUANTITA = 1");
    EXPECT_EQ(esito(), EsitoCommit::NonRegistrato);
}

// ---- Transfers, which no recall finds

namespace {

struct LostTransfer : testing::Test {
    LostTransfer() {
        gNomeModulo = "bBottegonClientVB";
        gTipoDocVb = 6;
        n.apriConto();
        v().primaDelCommit = [this](const SalvataggioIncerto& s) { salvataggio = s; };
        vendi(conto(), "A", "2");
    }
    ContoDiProva& conto() { return static_cast<ContoDiProva&>(*gConti[0]); }
    Vendita& v() { return conto().vendita(); }
    void schermoPerLaProssima() {
        EXPECT_EQ(v().flxVB.ultima(), 0);
        EXPECT_EQ(v().lblRID.testo(), "-1");
        EXPECT_EQ(v().cliente(), gClientePredefinito);
        EXPECT_FALSE(v().venditaModificata);
        EXPECT_EQ(n.conta("Movimenti"), 1);
        EXPECT_TRUE(n.operatore.esaurito());
    }

    Bottega n;
    SalvataggioIncerto salvataggio;
};

}  // namespace

TEST_F(LostTransfer, ThatIsFoundIsToldByItsNumber) {
    ASSERT_TRUE(salvaVendita(v(), false, -1));
    v().lblRID.testo("-1");
    salvataggio.schermo = descriviSchermo(v());
    v().salvataggioIncerto = salvataggio;
    n.operatore.attendiMessaggio(
        "La vendita è stata salvata: N° 0001/0001.\n"
        "Il collegamento con il server si era interrotto; la vendita è stata ritrovata nell'archivio.",
        OperatorPort::Icona::Informazione);
    conto().tasto(Qt::Key_F5);
    schermoPerLaProssima();
}

TEST_F(LostTransfer, ThatAnErrorHasCutShortIsToldByItsNumber) {
    n.operatore.attendiAvviso("bBottegonClientVB.salvaVendita");
    n.operatore.attendiMessaggio(
        "Il trasferimento è nell'archivio: N° 0001/0001.\n"
        "Il salvataggio non è finito regolarmente: controllarlo.",
        OperatorPort::Icona::Esclamazione);
    sondaIstruzioni() = [](const QString& sql) -> std::optional<ErroreServer> {
        if (sql.startsWith("UPDATE Movimenti")) throw RunTimeError(RunTimeError::Overflow);
        return std::nullopt;
    };
    conto().tasto(Qt::Key_F5);
    sondaIstruzioni() = {};
    schermoPerLaProssima();
}
