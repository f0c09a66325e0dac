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
        const QByteArray file = contenuto();
        for (auto& conto : gConti)
            conto.reset();
        giornale.reset();
        QFile nuovo(percorso);
        if (!file.isEmpty()) {
            ASSERT_TRUE(nuovo.open(QIODevice::WriteOnly));
            nuovo.write(file);
            nuovo.close();
        }
        giornale.emplace(percorso);
        getConto(0, false);
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
    ContoDiProva& c = contoConVendita();
    giornale->annota();
    QByteArray primaDelCommit;
    auto annota = c.vendita().primaDelCommit;
    c.vendita().primaDelCommit = [&](const SalvataggioIncerto& s) {
        annota(s);
        primaDelCommit = contenuto();
    };
    c.tasto(Qt::Key_F5);
    giornale->annota();
    // Death came right after the commit.
    QFile file(percorso);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(primaDelCommit);
    file.close();
    giornale.emplace(percorso);
    nonOffre();
    EXPECT_FALSE(fileCe());
}

TEST_F(RecoveryJournal, SaleWhoseCommitDidNotComeIsOffered) {
    ContoDiProva& c = contoConVendita();
    giornale->annota();
    QByteArray primaDelCommit;
    auto annota = c.vendita().primaDelCommit;
    c.vendita().primaDelCommit = [&](const SalvataggioIncerto& s) {
        annota(s);
        primaDelCommit = contenuto();
    };
    c.tasto(Qt::Key_F5);
    // Death came just before the commit: the archive never had it.
    n.sql("DELETE FROM DettagliMovimento");
    n.sql("DELETE FROM Movimenti");
    for (auto& conto : gConti)
        conto.reset();
    giornale.reset();
    QFile file(percorso);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(primaDelCommit);
    file.close();
    giornale.emplace(percorso);
    getConto(0, false);
    riprende();
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 1);
    EXPECT_EQ(n.vendita(0).idPrimaNota, -1);
    EXPECT_EQ(n.vendita(0).idPNPagamento, -1);
    EXPECT_EQ(n.vendita(0).txtProg.testo(), "(Auto)");
}

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
