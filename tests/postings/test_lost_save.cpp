#include "core/globals.h"
#include "postings/books.h"
#include "postings/lost_save.h"

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
