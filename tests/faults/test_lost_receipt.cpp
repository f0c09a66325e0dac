#include "core/run_time_error.h"
#include "faults/cutting_proxy.h"
#include "faults/faulty_shop.h"
#include "register/fake_socket.h"
#include "register/interface_link.h"

// A sale whose commit nobody knows of, on the list of sales without a receipt.

namespace {

using Guasto = LineaTagliabile::Guasto;
using Icona = OperatorPort::Icona;

class LostReceipt : public NegozioGuasto {
  protected:
    LostReceipt() {
        collega(linea.porta());
        gRegCassa = "Prova";
        impostaFrmRegCassa(&link);
    }
    ~LostReceipt() override {
        gAdo.chiudiConnessioniCalde();
        impostaFrmRegCassa(nullptr);
    }

    // The first statement about the written header ends in an error.
    void guastaLaTestata() {
        sondaIstruzioni() = [fatto = false](const QString& sql) mutable -> std::optional<ErroreServer> {
            if (sql.startsWith("UPDATE Movimenti") && !std::exchange(fatto, true))
                throw RunTimeError(RunTimeError::Overflow);
            return std::nullopt;
        };
        n->operatore.attendiAvviso("bBottegonClientVB.salvaVendita");
    }
    void attendiComeNellArchivio() {
        n->operatore.attendiMessaggio(
            "Il collegamento con il server si era interrotto: si mostra la vendita "
            "come è nell'archivio.\nControllarla prima di salvarla di nuovo.",
            Icona::Esclamazione);
    }
    void salvaNelBuio(Guasto guasto) {
        linea.guasta(guasto, true);
        attendiVenditaIncerta();
        salva();
        ASSERT_EQ(elenco().size(), 1);
        linea.ripristina();
    }
    void salvaERitrova() {
        n->operatore.attendiMessaggio(
            "La vendita è stata salvata: N° 0001/0001.\n"
            "Il collegamento con il server si era interrotto; la vendita è stata "
            "ritrovata nell'archivio.",
            Icona::Informazione);
        salva();
    }
    // The register takes everything that it has been sent.
    void stampa() {
        while (link.stato() == StatoRegCassa::AlLavoro) {
            presa->arriva("\x06");
        }
    }
    QStringList elenco() const {
        QStringList tutte;
        for (const auto& voce : link.scontrini.voci()) {
            tutte << descrizione(voce);
        }
        return tutte;
    }

    LineaTagliabile linea{server.porta()};
    PresaFinta* presa = new PresaFinta;
    InterfacciaRegCassa link{std::unique_ptr<PresaRegCassa>(presa)};
};

}  // namespace

TEST_F(LostReceipt, OfASaleThatIsFoundIsOffTheList) {
    presa->apri();
    ASSERT_NO_FATAL_FAILURE(salvaNelBuio(Guasto::DopoIlCommit));
    EXPECT_EQ(elenco(), QStringList{"in attesa del registratore, salvataggio incerto"});
    stampa();
    EXPECT_EQ(elenco(), QStringList{"scontrino stampato, salvataggio incerto"});
    salvaERitrova();
    EXPECT_EQ(elenco(), QStringList());
}

TEST_F(LostReceipt, OfASaleThatIsMissingIsOneTooMany) {
    presa->apri();
    ASSERT_NO_FATAL_FAILURE(salvaNelBuio(Guasto::PrimaDelCommit));
    stampa();
    salva();
    stampa();
    venditaNeiLibri();
    EXPECT_EQ(elenco(), QStringList{"scontrino inviato, salvataggio NON riuscito"});
}

TEST_F(LostReceipt, NeverHandedOverIsMissingOnceTheSaleIsFound) {
    ASSERT_NO_FATAL_FAILURE(salvaNelBuio(Guasto::DopoIlCommit));
    EXPECT_EQ(elenco(), QStringList{"registratore scollegato, salvataggio incerto"});
    salvaERitrova();
    EXPECT_EQ(elenco(), QStringList{"registratore scollegato"});
}

TEST_F(LostReceipt, OfASaleThatIsFoundBeforeItsDeletionIsOffTheList) {
    presa->apri();
    salva();
    stampa();
    n->prodotto({.codice = "C", .listino1 = 1});
    vendi(*conto, "C");
    ASSERT_NO_FATAL_FAILURE(salvaNelBuio(Guasto::DopoIlCommit));
    stampa();
    n->operatore.attendiMessaggio(
        "La vendita era già stata salvata: N° 0001/0001.\n"
        "Si mostra come è nell'archivio: controllarla prima di cancellarla.",
        Icona::Esclamazione);
    conto->tasto(Qt::Key_F7, Qt::ShiftModifier);
    EXPECT_EQ(elenco(), QStringList());
}

// An error behind the written header, and the answer to the commit that follows it is lost as well.
TEST_F(LostReceipt, OfASaleFoundBehindAnErrorIsNoReceiptTooMany) {
    presa->apri();
    guastaLaTestata();
    linea.guasta(Guasto::DopoIlCommit, false);
    attendiComeNellArchivio();
    salva();
    sondaIstruzioni() = {};
    stampa();
    EXPECT_EQ(n->conta("Movimenti"), 1);
    EXPECT_EQ(elenco(), QStringList());
}

TEST_F(LostReceipt, BehindAnErrorIsOffTheListOnceTheSaleIsFound) {
    presa->apri();
    guastaLaTestata();
    ASSERT_NO_FATAL_FAILURE(salvaNelBuio(Guasto::DopoIlCommit));
    sondaIstruzioni() = {};
    stampa();
    EXPECT_EQ(elenco(), QStringList{"scontrino stampato, salvataggio incerto"});
    attendiComeNellArchivio();
    salva();
    EXPECT_EQ(elenco(), QStringList());
}

TEST_F(LostReceipt, BehindAnErrorIsOneTooManyOnceTheSaleIsMissing) {
    presa->apri();
    guastaLaTestata();
    ASSERT_NO_FATAL_FAILURE(salvaNelBuio(Guasto::PrimaDelCommit));
    sondaIstruzioni() = {};
    stampa();
    salva();
    stampa();
    venditaNeiLibri();
    EXPECT_EQ(elenco(), QStringList{"scontrino inviato, salvataggio NON riuscito"});
}
