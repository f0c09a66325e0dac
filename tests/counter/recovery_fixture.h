#pragma once

#include <optional>

#include <QFile>
#include <QTemporaryDir>

#include "counter/bring_back.h"
#include "counter/counter_shop.h"
#include "counter/recovery_journal.h"

// A till with a journal of its open sales, that dies and starts again.
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
        n.operatore.attendiDomanda("Riprendere le vendite non salvate?", risposta);
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
