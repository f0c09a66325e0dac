#include "faults/cutting_proxy.h"
#include "faults/faulty_shop.h"
#include "postings/delete_sale.h"

// The answer to a deletion's commit does not come back. The operator is told what is true, and a sale that is
// gone is not written over.

namespace {

using Guasto = LineaTagliabile::Guasto;
using Icona = OperatorPort::Icona;
using Risposta = OperatorPort::Risposta;

const char* const cancellata =
    "La vendita è stata cancellata: N° 0001/0001.\n"
    "Il collegamento con il server si era interrotto; la vendita non è più nell'archivio.";
const char* const nonCancellata =
    "La vendita non è stata cancellata: il collegamento con il server si è interrotto.\n"
    "La vendita è ancora nell'archivio e si può cancellare di nuovo.";
const char* const incerta =
    "Non si sa se la vendita è stata cancellata: il server non risponde o è occupato.\n"
    "Quando la si cancella o la si salva di nuovo si controlla prima se è ancora nell'archivio.";

class LostDeletion : public NegozioGuasto {
  protected:
    LostDeletion() {
        n->sql("UPDATE Prodotti SET SETGIACENZA = 1, GIACENZA = 10");
        n->sql(
            "INSERT INTO DettagliProdotto (FK_PRODOTTO, FK_MAGAZZINO, TAGLIO, QUANTITA) SELECT RID, 1, 4, 10 "
            "FROM Prodotti");
        n->sql("UPDATE Causali SET FK_CONTODARE1 = 1, FK_CONTOAVERE1 = 3");
        n->prodotto({.codice = "C", .listino1 = 1});
        vuoti = libri();
        salva();
        pieni = libri();
        collega(linea.porta());
        prima = schermata(vendita());
    }
    ~LostDeletion() override { gAdo.chiudiConnessioniCalde(); }

    // Without the counters: a deletion gives no number back.
    QStringList libri() {
        QStringList righe = ::libri(*n);
        righe.removeIf([](const QString& riga) { return riga.startsWith("Contatori"); });
        return righe;
    }
    void premi() { conto->tasto(Qt::Key_F7, Qt::ShiftModifier); }
    void rispondeSi() {
        n->operatore.attendiDomanda("Eliminare il movimento con progressivo 0001/0001?", Risposta::Si);
    }
    void cancella() {
        rispondeSi();
        premi();
    }
    void cancellaCon(Guasto guasto, bool restaInterrotta, const QString& messaggio, Icona icona) {
        linea.guasta(guasto, restaInterrotta);
        rispondeSi();
        n->operatore.attendiMessaggio(messaggio, icona);
        premi();
        EXPECT_TRUE(linea.accaduto());
        EXPECT_TRUE(n->operatore.esaurito());
        EXPECT_FALSE(gAdo.inTransazione());
        EXPECT_EQ(n->operatore.clessidre, 0);
        EXPECT_EQ(n->operatore.attesa, QString());
    }
    void cancellaNelBuio(Guasto guasto) {
        cancellaCon(guasto, true, incerta, Icona::Critica);
        EXPECT_EQ(schermata(vendita()), prima);
    }
    void venditaSparita() {
        EXPECT_EQ(libri(), vuoti);
        EXPECT_EQ(n->verifica(), QStringList());
        EXPECT_EQ(vendita().flxVB.ultima(), 0);
        EXPECT_EQ(vendita().rid(), -1);
    }

    LineaTagliabile linea{server.porta()};
    QStringList vuoti;
    QStringList pieni;
};

TEST_F(LostDeletion, ThatReachedTheServerGoesOnAsDeleted) {
    cancellaCon(Guasto::DopoIlCommit, false, cancellata, Icona::Informazione);
    venditaSparita();
}

TEST_F(LostDeletion, ThatDidNotReachTheServerCanBeRepeated) {
    cancellaCon(Guasto::PrimaDelCommit, false, nonCancellata, Icona::Critica);
    EXPECT_EQ(schermata(vendita()), prima);
    EXPECT_EQ(libri(), pieni);
    cancella();
    venditaSparita();
}

TEST_F(LostDeletion, OfTheSecondSaleOfTheDayIsFoundByItsRows) {
    conto->tasto(Qt::Key_F2);
    vendi(*conto, "A");
    salva();
    linea.guasta(Guasto::DopoIlCommit, false);
    n->operatore.attendiDomanda("Eliminare il movimento con progressivo 0001/0002?", Risposta::Si);
    n->operatore.attendiMessaggio(QString(cancellata).replace("/0001", "/0002"), Icona::Informazione);
    premi();
    EXPECT_EQ(n->conta("Movimenti"), 1);
    EXPECT_EQ(n->conta("DettagliMovimento"), 2);
}

// The screen shows the new document by then.
TEST_F(LostDeletion, OfAConvertedSaleTellsNoOtherSalesNumber) {
    const int origine = vendita().rid();
    vendita().lblRID.testo("99");
    vendita().txtProg.testo("0007");
    linea.guasta(Guasto::DopoIlCommit, false);
    n->operatore.attendiMessaggio(QString(cancellata).remove(": N° 0001/0001"), Icona::Informazione);
    EXPECT_TRUE(cancellaVendita(vendita(), origine, false));
    EXPECT_EQ(n->conta("DettagliMovimento"), 0);
}

// ---- The server cannot be asked

TEST_F(LostDeletion, WithoutAServerTheOutcomeIsLeftOpen) {
    cancellaNelBuio(Guasto::DopoIlCommit);
    n->operatore.attendiMessaggio(incerta, Icona::Critica);
    premi();
    EXPECT_EQ(schermata(vendita()), prima);
}

TEST_F(LostDeletion, OneLeftOpenIsFoundInsteadOfRepeated) {
    cancellaNelBuio(Guasto::DopoIlCommit);
    linea.ripristina();
    n->operatore.attendiMessaggio(cancellata, Icona::Informazione);
    premi();
    venditaSparita();
}

TEST_F(LostDeletion, OneLeftOpenThatDidNotHappenIsRepeated) {
    cancellaNelBuio(Guasto::PrimaDelCommit);
    linea.ripristina();
    cancella();
    venditaSparita();
}

TEST_F(LostDeletion, ASaleThatIsGoneIsNotSavedOver) {
    cancellaNelBuio(Guasto::DopoIlCommit);
    linea.ripristina();
    n->operatore.attendiMessaggio(cancellata, Icona::Informazione);
    salva();
    venditaSparita();
}

TEST_F(LostDeletion, ASaleThatIsStillThereIsSavedAsEver) {
    cancellaNelBuio(Guasto::PrimaDelCommit);
    linea.ripristina();
    salva();
    venditaNeiLibri();
}

TEST_F(LostDeletion, WithoutAServerNothingIsSavedOverIt) {
    cancellaNelBuio(Guasto::DopoIlCommit);
    n->operatore.attendiMessaggio(incerta, Icona::Critica);
    salva();
    EXPECT_EQ(schermata(vendita()), prima);
}

TEST_F(LostDeletion, ANewSaleForgetsTheOneLeftOpen) {
    cancellaNelBuio(Guasto::DopoIlCommit);
    linea.ripristina();
    conto->tasto(Qt::Key_F2);
    EXPECT_TRUE(vendita().cancellazioneIncerta.empty());
    vendi(*conto, "A");
    salva();
    EXPECT_EQ(n->conta("DettagliMovimento"), 1);
}

// ---- A save left open before the deletion

class DeletionAfterALostSave : public LostDeletion {
  protected:
    // A third row was added, and nobody knows whether it was saved.
    void salvaNelBuio(Guasto guasto) {
        vendi(*conto, "C", "4");
        linea.guasta(guasto, true);
        attendiVenditaIncerta();
        salva();
    }
};

TEST_F(DeletionAfterALostSave, ShowsFirstWhatWasSaved) {
    salvaNelBuio(Guasto::DopoIlCommit);
    linea.ripristina();
    n->operatore.attendiMessaggio(
        "La vendita era già stata salvata: N° 0001/0001.\n"
        "Si mostra come è nell'archivio: controllarla prima di cancellarla.",
        Icona::Esclamazione);
    premi();
    EXPECT_EQ(n->conta("DettagliMovimento"), 3);
    cancella();
    venditaSparita();
}

TEST_F(DeletionAfterALostSave, GoesOnWhenNothingWasSaved) {
    salvaNelBuio(Guasto::PrimaDelCommit);
    linea.ripristina();
    cancella();
    venditaSparita();
}

TEST_F(DeletionAfterALostSave, WaitsForTheServer) {
    salvaNelBuio(Guasto::DopoIlCommit);
    n->operatore.attendiMessaggio(
        "Non si sa se la vendita è stata salvata: il server non risponde o è occupato.\n"
        "Finché non si sa, la vendita non si può cancellare.",
        Icona::Critica);
    premi();
    EXPECT_EQ(vendita().flxVB.ultima(), 3);
}

}  // namespace
