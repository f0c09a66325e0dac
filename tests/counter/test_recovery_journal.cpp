#include <QDir>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>

#include "counter/commands.h"
#include "counter/counter_shop.h"
#include "counter/recovery_journal.h"
#include "postings/save_sale.h"
#include "sale/grid.h"

namespace {

const char* const offerta = "Riprendere le vendite non salvate?";

class RecoveryJournal : public BancoDiProva {
  protected:
    RecoveryJournal() {
        n.prodotto({.codice = "B", .listino1 = 5, .barcode = "8002", .descrizione = "Dado"});
        giornale.emplace(percorso);
    }
    ~RecoveryJournal() override { giornale.reset(); }

    // The program dies: nothing of it is left but its file. Then it starts again, up to the first account.
    void muoreERiparte() {
        giornale->annota();
        riparteCon(contenuto());
    }
    // A start that finds that file.
    void riparteCon(const QByteArray& file) {
        for (auto& conto : gConti)
            conto.reset();
        giornale.reset();
        QFile::remove(percorso);
        if (!file.isEmpty()) {
            QFile nuovo(percorso);
            ASSERT_TRUE(nuovo.open(QIODevice::WriteOnly));
            nuovo.write(file);
        }
        giornale.emplace(percorso);
        getConto(0, false);
    }
    // F5, and the file as it stood just before the commit.
    QByteArray salvaFinoAlCommit(ContoDiProva& c) {
        giornale->annota();
        QByteArray file;
        auto annota = c.vendita().primaDelCommit;
        c.vendita().primaDelCommit = [&](const SalvataggioIncerto& s) {
            annota(s);
            file = contenuto();
        };
        c.tasto(Qt::Key_F5);
        EXPECT_FALSE(file.isEmpty());
        return file;
    }
    // The books as they were before the last save.
    void ilCommitNonCE() {
        n.sql("DELETE FROM DettagliMovimento");
        n.sql("DELETE FROM Movimenti");
    }
    void riprende(Risposta risposta = Risposta::Si) {
        n.operatore.attendiDomanda(offerta, risposta);
        riprendiVendite(*giornale, n.operatore);
    }
    void nonOffre() { riprendiVendite(*giornale, n.operatore); }
    QByteArray contenuto() const {
        QFile file(percorso);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    bool fileCe() const { return QFile::exists(percorso); }
    // Cells, fields and numbers of a sale, as one text.
    static QStringList tutto(const Vendita& v) {
        QStringList parti;
        for (int r = 1; r <= v.flxVB.ultima(); ++r) {
            for (int c = 0; c < numeroColonne; ++c)
                parti << v.flxVB.cella(r, static_cast<Colonna>(c));
        }
        for (const Campo* campo : v.elenco.tutti()) {
            if (campo->nome().startsWith("cmdConto")) continue;
            parti << campo->nome() + "=" + campo->testo() + "|" + campo->tag() + "|" +
                         QString::number(campo->valore()) + QString::number(campo->bloccato()) +
                         QString::number(campo->abilitato()) + QString::number(campo->visibile());
        }
        return parti << QString::number(v.idPrimaNota) << QString::number(v.idPagamento);
    }

    QTemporaryDir cartella;
    const QString percorso = cartella.path() + "/vendite_aperte.giornale";
    std::optional<GiornaleVendite> giornale;
};

}  // namespace

TEST_F(RecoveryJournal, OpenSaleComesBackAsItWas) {
    ContoDiProva& c = contoConVendita();
    c.scansiona("8002");
    c.clic(c.vendita().txtQta);
    c.digita("3");
    c.tasto(Qt::Key_F6);
    const QStringList prima = tutto(c.vendita());
    muoreERiparte();
    riprende();
    EXPECT_EQ(tutto(n.vendita(0)), prima);
    EXPECT_TRUE(n.vendita(0).venditaModificata);
}

TEST_F(RecoveryJournal, KeyByKeyRecordsTellTheSameAsOne) {
    ContoDiProva& c = contoConVendita();
    giornale->annota();
    c.scansiona("8002");
    giornale->annota();
    c.clicRiga(1);
    c.clic(c.vendita().txtQta);
    for (const QChar cifra : QString("12")) {
        c.digita(cifra);
        giornale->annota();
    }
    c.tasto(Qt::Key_F6);
    giornale->annota();
    const QStringList prima = tutto(c.vendita());
    muoreERiparte();
    riprende();
    EXPECT_EQ(tutto(n.vendita(0)), prima);
}

TEST_F(RecoveryJournal, RowTakenAwayFromTheMiddleStaysAway) {
    ContoDiProva& c = contoConVendita();
    c.scansiona("8002");
    c.scansiona("8001");
    giornale->annota();
    n.operatore.attendiDomanda("Eliminare il prodotto [Vite]?", Risposta::Si);
    c.clicRiga(1);
    c.tasto(Qt::Key_F9);
    const QStringList prima = tutto(c.vendita());
    muoreERiparte();
    riprende();
    EXPECT_EQ(tutto(n.vendita(0)), prima);
}

TEST_F(RecoveryJournal, SaleBroughtBackCanBeSaved) {
    contoConVendita();
    muoreERiparte();
    riprende();
    n.apriConto(0).tasto(Qt::Key_F5);
    EXPECT_EQ(n.valore("SELECT TOTDOCUMENTO FROM Movimenti"), "12.2");
    EXPECT_TRUE(n.verifica().isEmpty());
}

TEST_F(RecoveryJournal, EveryAccountComesBackInItsPlace) {
    contoConVendita();
    contoConCliente(2);
    muoreERiparte();
    riprende();
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 1);
    ASSERT_TRUE(gConti[2]);
    EXPECT_EQ(n.vendita(2).txtCodCliente.testo(), "7");
    EXPECT_EQ(n.vendita(2).flxVB.ultima(), 1);
    EXPECT_FALSE(gConti[1]);
}

TEST_F(RecoveryJournal, ChangedSaleOfTheBooksKeepsItsKeys) {
    ContoDiProva& c = contoConVendita();
    c.tasto(Qt::Key_F5);
    c.scansiona("8002");
    muoreERiparte();
    riprende();
    n.apriConto(0).tasto(Qt::Key_F5);
    EXPECT_EQ(vendite(), 1);
    EXPECT_EQ(n.conta("DettagliMovimento"), 2);
    EXPECT_TRUE(n.verifica().isEmpty());
}

TEST_F(RecoveryJournal, SavedSaleLeavesNoFile) {
    ContoDiProva& c = contoConVendita();
    giornale->annota();
    EXPECT_TRUE(fileCe());
    c.tasto(Qt::Key_F5);
    giornale->annota();
    EXPECT_FALSE(fileCe());
}

TEST_F(RecoveryJournal, DroppedSaleLeavesNoFile) {
    ContoDiProva& c = contoConVendita();
    giornale->annota();
    rispondeAlSalvataggio(Risposta::No);
    c.tasto(Qt::Key_F2);
    giornale->annota();
    EXPECT_FALSE(fileCe());
}

TEST_F(RecoveryJournal, DroppedAtTheEndLeavesNoFile) {
    ContoDiProva& c = contoConVendita();
    giornale->annota();
    rispondeAlSalvataggio(Risposta::No);
    c.tasto(Qt::Key_F10);
    EXPECT_TRUE(n.terminato);
    EXPECT_FALSE(fileCe());
}

TEST_F(RecoveryJournal, NothingSoldWritesNoFile) {
    n.apriConto(0);
    giornale->annota();
    EXPECT_FALSE(fileCe());
    nonOffre();
}

TEST_F(RecoveryJournal, AnsweredNoIsNotOfferedAgain) {
    contoConVendita();
    muoreERiparte();
    riprende(Risposta::No);
    EXPECT_FALSE(fileCe());
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 0);
    muoreERiparte();
    nonOffre();
}

TEST_F(RecoveryJournal, BroughtBackItIsStillWrittenDown) {
    contoConVendita();
    muoreERiparte();
    riprende();
    muoreERiparte();
    riprende();
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 1);
}

TEST_F(RecoveryJournal, DeathWhileBringingBackLosesNothing) {
    contoConVendita();
    muoreERiparte();
    giornale->cominciaRipresa();
    EXPECT_FALSE(fileCe());
    muoreERiparte();
    riprende();
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 1);
}

TEST_F(RecoveryJournal, SaleWhoseCommitSucceededIsNotOffered) {
    riparteCon(salvaFinoAlCommit(contoConVendita()));
    nonOffre();
    EXPECT_FALSE(fileCe());
}

TEST_F(RecoveryJournal, SaleWhoseCommitDidNotComeIsOffered) {
    const QByteArray file = salvaFinoAlCommit(contoConVendita());
    ilCommitNonCE();
    riparteCon(file);
    riprende();
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 1);
    EXPECT_EQ(n.vendita(0).idPrimaNota, -1);
    EXPECT_EQ(n.vendita(0).idPNPagamento, -1);
    EXPECT_EQ(n.vendita(0).txtProg.testo(), "(Auto)");
}

// ---- Death in the save of a sale whose total was changed at the tender, to 10,00

class RecoveryAfterTender : public RecoveryJournal {
  protected:
    RecoveryAfterTender() { gMonitor = 1; }
    ContoDiProva& conIncasso(ContoDiProva& c) {
        c.incassi.emplace_back([](Currency) { return EsitoIncasso{Currency::daDouble(10), {}}; });
        return c;
    }
    // A sale of the books with one row more.
    ContoDiProva& richiamata() {
        gMonitor = 0;
        ContoDiProva& c = contoConVendita();
        c.tasto(Qt::Key_F5);
        gMonitor = 1;
        c.scansiona("8002");
        n.operatore.attendiDomanda(
            "Questa vendita è già registrata: con il totale cambiato tutte le sue righe verrebbero "
            "registrate "
            "un'altra volta.\nUsare comunque il nuovo totale?",
            Risposta::No);
        return c;
    }
};

TEST_F(RecoveryAfterTender, BehindTheCommitTheSaleIsInTheBooksOnce) {
    riparteCon(salvaFinoAlCommit(conIncasso(contoConVendita())));
    nonOffre();
    EXPECT_EQ(n.righe("SELECT QUANTITA + 0.0 FROM DettagliMovimento"), QStringList{"1"});
    EXPECT_EQ(n.valore("SELECT TOTDOCUMENTO FROM Movimenti"), "10");
}

TEST_F(RecoveryAfterTender, BeforeTheCommitTheSaleComesBackAsItWasBeforeTheTender) {
    const QByteArray file = salvaFinoAlCommit(conIncasso(contoConVendita()));
    ilCommitNonCE();
    riparteCon(file);
    riprende();
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 1);
    EXPECT_EQ(n.vendita(0).flxVB.cella(1, Colonna::Importo), "12,20");
    EXPECT_EQ(n.vendita(0).lblMainDisplay.testo(), "12,20");
}

TEST_F(RecoveryAfterTender, BroughtBackItIsSavedOnce) {
    const QByteArray file = salvaFinoAlCommit(conIncasso(contoConVendita()));
    ilCommitNonCE();
    riparteCon(file);
    riprende();
    conIncasso(n.apriConto(0)).tasto(Qt::Key_F5);
    EXPECT_EQ(n.conta("DettagliMovimento"), 1);
    EXPECT_EQ(n.valore("SELECT TOTDOCUMENTO FROM Movimenti"), "10");
}

TEST_F(RecoveryAfterTender, ASaleOfTheBooksIsThereOnceBehindTheCommit) {
    riparteCon(salvaFinoAlCommit(conIncasso(richiamata())));
    nonOffre();
    EXPECT_EQ(n.righe("SELECT CODPRODOTTO FROM DettagliMovimento ORDER BY RID"), QStringList({"A", "B"}));
    EXPECT_EQ(vendite(), 1);
}

TEST_F(RecoveryAfterTender, ASaleOfTheBooksComesBackWithItsRowsOnceBeforeTheCommit) {
    const QByteArray file = salvaFinoAlCommit(conIncasso(richiamata()));
    n.sql("DELETE FROM DettagliMovimento WHERE CODPRODOTTO = 'B'");
    n.sql("UPDATE Movimenti SET TOTDOCUMENTO = 12.2");
    riparteCon(file);
    riprende();
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 2);
    EXPECT_EQ(n.vendita(0).flxVB.gestione(1), RigaInvariata);
    EXPECT_EQ(n.vendita(0).flxVB.gestione(2), RigaNuova);
    gMonitor = 0;
    n.apriConto(0).tasto(Qt::Key_F5);
    EXPECT_EQ(n.righe("SELECT CODPRODOTTO FROM DettagliMovimento ORDER BY RID"), QStringList({"A", "B"}));
}

// ---- Death in a deletion

class RecoveryAfterDeletion : public RecoveryJournal {
  protected:
    // A sale of the books with one row more, written down; then Shift+F7, and the file as it stood when the
    // operator was asked.
    QByteArray cancellaFinoAllaDomanda(Risposta risposta) {
        ContoDiProva& c = contoConVendita();
        c.tasto(Qt::Key_F5);
        c.scansiona("8002");
        giornale->annota();
        QByteArray file;
        n.operatore.attendiDomanda("Eliminare il movimento con progressivo 0001/0001?", risposta,
                                   [&] { file = contenuto(); });
        c.tasto(Qt::Key_F7, Qt::ShiftModifier);
        return file;
    }
};

TEST_F(RecoveryAfterDeletion, SaleThatLeftTheBooksIsNotOffered) {
    const QByteArray file = cancellaFinoAllaDomanda(Risposta::Si);
    ASSERT_EQ(n.conta("DettagliMovimento"), 0);
    riparteCon(file);
    nonOffre();
    EXPECT_FALSE(fileCe());
}

TEST_F(RecoveryAfterDeletion, SaleThatIsStillInTheBooksIsOffered) {
    riparteCon(cancellaFinoAllaDomanda(Risposta::No));
    riprende();
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 2);
    EXPECT_TRUE(n.vendita(0).cancellazioneIncerta.empty());
}

TEST_F(RecoveryAfterDeletion, DeletionOfWhichNothingIsKnownIsStillLookedForAfterwards) {
    ContoDiProva& c = contoConVendita();
    c.tasto(Qt::Key_F5);
    c.scansiona("8002");
    const int riga = c.vendita().flxVB.chiave(1, Colonna::Rid);
    c.vendita().cancellazioneIncerta = {riga};
    muoreERiparte();
    riprende();
    EXPECT_EQ(n.vendita(0).cancellazioneIncerta, std::set<int>{riga});
}

TEST_F(RecoveryAfterDeletion, UnsavedSaleHasNothingToDelete) {
    ContoDiProva& c = contoConVendita();
    giornale->annota();
    const QByteArray prima = contenuto();
    c.tasto(Qt::Key_F7, Qt::ShiftModifier);
    EXPECT_EQ(contenuto(), prima);
}

// ----

TEST_F(RecoveryJournal, EveryDeskAndArchiveHasItsOwn) {
    const QString questa = GiornaleVendite::percorsoUtente();
    gIDCassa = 9;
    const QString altraCassa = GiornaleVendite::percorsoUtente();
    gDescrizioneConnessione = "altro.mdb: MS Access";
    EXPECT_EQ(QSet<QString>({questa, altraCassa, GiornaleVendite::percorsoUtente()}).size(), 3);
}

TEST_F(RecoveryJournal, RecordThatCouldNotBeWrittenIsMadeUpFor) {
    ContoDiProva& c = contoConVendita();
    giornale.emplace(cartella.path() + "/manca/giornale");
    giornale->annota();
    c.scansiona("8002");
    ASSERT_TRUE(QDir(cartella.path()).mkdir("manca"));
    giornale->annota();
    EXPECT_EQ(RegistroAppeso::leggi(cartella.path() + "/manca/giornale").size(), 1);
    for (auto& conto : gConti)
        conto.reset();
    ASSERT_TRUE(QFile::copy(cartella.path() + "/manca/giornale", percorso));
    giornale.emplace(percorso);
    getConto(0, false);
    riprende();
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 2);
}

TEST_F(RecoveryJournal, SaleOfYesterdayOffersTheNewDay) {
    contoConVendita();
    muoreERiparte();
    n.orologio.istante = QDateTime(QDate(2026, 3, 17), QTime(8, 0));
    riprende();
    n.operatore.attendiDomanda(
        "È cominciato un nuovo giorno (17/03/2026).\nIniziare una nuova vendita con la data di oggi?",
        Risposta::No);
    n.apriConto(0).scansiona("8002");
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 2);
}

TEST_F(RecoveryJournal, TornLastRecordLosesTheLastKeyOnly) {
    ContoDiProva& c = contoConVendita();
    giornale->annota();
    c.scansiona("8002");
    muoreERiparte();
    QFile file(percorso);
    ASSERT_TRUE(file.resize(file.size() - 3));
    giornale.emplace(percorso);
    riprende();
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 1);
}
