#include "core/globals.h"
#include "postings/expected_books.h"
#include "postings/save_sale.h"
#include "sale/document_info.h"
#include "sale/recall.h"

// A deletion posts anew what remains, and meets what the shop's tables have got wrong since the save: the
// operator is told, and nothing is half taken away.

namespace {

using Icona = OperatorPort::Icona;

const QString senzaConti = "Impossibile assegnare i conti DARE/AVERE!";

struct RefusedDeletion : ContoInBottega {
    RefusedDeletion() {
        gNomeModulo = "bBottegonClientVB";
        n.sql("UPDATE Causali SET DESCRIZIONE = 'Vendita' WHERE RID = 1");
        n.sql("UPDATE Causali SET DESCRIZIONE = 'Incasso' WHERE RID = 2");
    }
    // Books and screen stay, and nothing more is said than was expected.
    void rifiutata() {
        const QStringList libriPrima = libri(n);
        const QStringList schermoPrima = schermata(v);
        EXPECT_FALSE(cancella());
        EXPECT_EQ(libri(n), libriPrima);
        EXPECT_EQ(schermata(v), schermoPrima);
        EXPECT_TRUE(n.operatore.esaurito());
        EXPECT_EQ(n.operatore.clessidre, 0);
    }
    void cancellata() {
        EXPECT_TRUE(cancella());
        EXPECT_EQ(n.conta("Movimenti"), 0);
        EXPECT_EQ(n.conta("PrimaNota"), 0);
        EXPECT_EQ(n.verifica(), QStringList());
    }
    void manca(const QString& nome) {
        n.operatore.attendiMessaggio("La vendita non è stata cancellata. Nell'archivio non c'è più:\n - " +
                                         nome +
                                         "\nSi potrà cancellare quando l'archivio sarà stato completato.",
                                     Icona::Esclamazione);
    }
};

}  // namespace

// ---- Accounts

TEST_F(RefusedDeletion, AnAccountOfTheCausalThatIsGoneIsNamed) {
    vendiESalva("A", "2");
    n.sql("UPDATE Causali SET FK_CONTOAVERE2 = 98 WHERE RID = 1");
    manca("un conto della causale [Vendita]");
    rifiutata();
    n.sql("UPDATE Causali SET FK_CONTOAVERE2 = 4 WHERE RID = 1");
    cancellata();
}

// What the server said is for those who look after the till.
TEST_F(RefusedDeletion, TheServersWordsAreInTheLogAlone) {
    vendiESalva("A", "2");
    n.sql("UPDATE Causali SET FK_CONTOAVERE2 = 98 WHERE RID = 1");
    manca("un conto della causale [Vendita]");
    rifiutata();
    const QString registro = n.registroErrori();
    EXPECT_EQ(registro.count("foreign key constraint", Qt::CaseInsensitive), 1) << registro.toStdString();
    EXPECT_EQ(registro.count("INSERT INTO PrimaNotaDettagli"), 1);
    EXPECT_EQ(registro.count("Modulo bBottegonClientVB.cancellaVendita"), 1);
}

TEST_F(RefusedDeletion, AnAccountOfTheCollectionsCausalThatIsGoneIsNamed) {
    vendiESalva("A", "2");
    n.sql("UPDATE Causali SET FK_CONTODARE1 = 98 WHERE RID = 2");
    manca("un conto della causale [Incasso]");
    rifiutata();
}

// The collection of a named customer is not posted anew.
TEST_F(RefusedDeletion, AnAccountOfTheCollectionOfANamedCustomerIsNotNeeded) {
    n.intesta(v, 1, 9);
    vendiESalva("A", "2");
    n.sql("UPDATE Causali SET FK_CONTODARE1 = 98 WHERE RID = 2");
    cancellata();
}

// Where the account is there again by the time it is looked for, no more is known than that.
TEST_F(RefusedDeletion, AnAccountThatIsBackIsNotNamed) {
    vendiESalva("A", "2");
    n.sql("UPDATE Causali SET FK_CONTOAVERE2 = 98 WHERE RID = 1");
    sondaIstruzioni() = [this, tornato = false](const QString& sql) mutable -> std::optional<ErroreServer> {
        if (sql.startsWith("SELECT RID FROM PianoConti") && !std::exchange(tornato, true))
            n.sql("INSERT INTO PianoConti (RID, CODICE, DESCRIZIONE) VALUES (98,'98','IVA')");
        return std::nullopt;
    };
    n.operatore.attendiMessaggio(
        "La vendita non è stata cancellata: qualcosa a cui si riferisce non è più nell'archivio.\n"
        "La vendita è ancora nell'archivio e si può cancellare di nuovo.",
        Icona::Esclamazione);
    EXPECT_FALSE(cancella());
    sondaIstruzioni() = {};
    cancellata();
}

// There it is not something that is gone, but something that is still there.
TEST_F(RefusedDeletion, OfADocumentThatOthersReferToIsToldInTheServersWords) {
    vendiESalva("A", "2");
    n.sql("INSERT INTO Scadenze (FK_MOVIMENTO, DATA, IMPORTO) VALUES (1,'2026-04-01 00:00:00',5)");
    const QStringList libriPrima = libri(n);
    const RegistroAvvisi avvisi;
    EXPECT_FALSE(cancella());
    EXPECT_EQ(libri(n), libriPrima);
    ASSERT_EQ(avvisi.messaggi.size(), 1);
    EXPECT_TRUE(avvisi.messaggi[0].contains("record che risulta vincolato"))
        << avvisi.messaggi[0].toStdString();
}

// ---- Causals

TEST_F(RefusedDeletion, ACausalThatIsNotThereIsTold) {
    vendiESalva("A", "2");
    v.mCausaleDoc = 99;
    n.operatore.attendiMessaggio(senzaConti, Icona::Critica);
    rifiutata();
    v.mCausaleDoc = 1;
    gCausalePagVb = 99;
    n.operatore.attendiMessaggio(senzaConti, Icona::Critica);
    rifiutata();
    gCausalePagVb = 2;
    cancellata();
}

// Such a document is saved without an entry of its own, and deleted only when its type has a causal.
TEST_F(RefusedDeletion, ADocumentOfATypeWithoutACausalWaitsForOne) {
    n.sql("UPDATE TipoDocumenti SET FK_CAUSALE = NULL WHERE RID = 1");
    setInfoDocumento(v, 1);
    vendiESalva("B", "2");
    n.operatore.attendiMessaggio(senzaConti, Icona::Critica);
    rifiutata();
    n.sql("UPDATE TipoDocumenti SET FK_CAUSALE = 1 WHERE RID = 1");
    setInfoDocumento(v, 1);
    EXPECT_TRUE(cancella());
    EXPECT_EQ(n.conta("Movimenti"), 0);
}

// ---- Terms

TEST_F(RefusedDeletion, TermsCutShortSinceTheSaleLeaveTheScheduleWhole) {
    n.intesta(v, 0, 9);
    vendiESalva("A", "2");
    nuovaVendita();
    vendiESalva("A", "1");
    v.idPagamento = 9;
    n.sql("UPDATE Pagamenti SET NRATE = 3 WHERE RID = 9");
    n.operatore.attendiAvviso("bBottegonClientVB.generaScadenzePagamento");
    rifiutata();
    EXPECT_EQ(leggiLibri(n).scadenze, (QStringList{"1||2026-04-15|18.3", "1||2026-05-15|18.3"}));
    n.sql("UPDATE Pagamenti SET NRATE = 2 WHERE RID = 9");
    ASSERT_TRUE(cancella());
    EXPECT_EQ(leggiLibri(n).scadenze, (QStringList{"1||2026-04-15|12.2", "1||2026-05-15|12.2"}));
}
