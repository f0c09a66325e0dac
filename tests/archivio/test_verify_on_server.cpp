#include <gtest/gtest.h>

#include <QTextStream>

#include "archivio/copy_archive.h"
#include "archivio/sales_report.h"
#include "archivio/trial_archive.h"
#include "archivio/trial_server.h"
#include "archivio/verify_archive.h"

namespace {

// A shop with two saved sales and a kit, on the server.
class NegozioSulServer {
  public:
    NegozioSulServer() {
        const ArchivioInCartella archivio;
        archivio.aggiungiVendite();
        QString testo;
        QTextStream esito(&testo);
        EXPECT_TRUE(copiaArchivio(archivio.percorso(), mDatabase.nome(), false, esito))
            << testo.toStdString();
    }
    const DatabaseDiProva& database() const { return mDatabase; }

  private:
    DatabaseDiProva mDatabase;
};

std::string testo(const EsitoVerifica& esito) {
    return esito.righe().join('\n').toStdString();
}

}  // namespace

TEST(VerifyOnServer, SavedSalesAreClean) {
    const NegozioSulServer negozio;
    const EsitoVerifica esito = verificaArchivio(negozio.database().nome());
    EXPECT_EQ(esito.righe(), QStringList{"Verifica: 0 errori, 0 note."}) << testo(esito);
}

TEST(VerifyOnServer, EmptyDatabaseIsNoArchive) {
    const DatabaseDiProva database;
    ArchivioServer({2, qEnvironmentVariable("BOTTEGON_PROVA_MYSQL")}, ArchivioServer::Stato::SenzaDatabase)
        .esegui("CREATE DATABASE " + database.database());
    const EsitoVerifica esito = verificaArchivio(database.nome());
    ASSERT_EQ(esito.errori.size(), 1) << testo(esito);
    EXPECT_TRUE(esito.errori.first().contains("non è un archivio di Bottegon")) << testo(esito);
}

TEST(VerifyOnServer, LastSalesArePrinted) {
    const NegozioSulServer negozio;
    QString scritto;
    QTextStream esito(&scritto);
    ASSERT_TRUE(stampaVendite(negozio.database().nome(), 10, esito)) << scritto.toStdString();
    EXPECT_TRUE(scritto.startsWith("VB Vendita al banco n. 0002/1 del 21/11/2026, cassa 255\n"))
        << scritto.toStdString();
    EXPECT_TRUE(scritto.contains("Merci conto vendite          dare       0,00 avere      21,70\n"));
}

// Every planted fault is found, one after the other on the same database, each taken back afterwards.
TEST(VerifyOnServer, EveryPlantedFaultIsFound) {
    struct Guasto {
        const char* rompi;
        const char* aggiusta;
        const char* atteso;
    };
    const Guasto guasti[] = {
        {"UPDATE Movimenti SET TOTDOCUMENTO = 51, TOTIMPONIBILE = 41.9844 WHERE RID = 2",
         "UPDATE Movimenti SET TOTDOCUMENTO = 50, TOTIMPONIBILE = 40.9844 WHERE RID = 2",
         "documento VB 2/2026: totale 51"},
        {"UPDATE Movimenti SET TOTIMPONIBILE = 40 WHERE RID = 2",
         "UPDATE Movimenti SET TOTIMPONIBILE = 40.9844 WHERE RID = 2", "imponibile 40"},
        {"UPDATE DettagliMovimento SET PREZZO = 3 WHERE RID = 4",
         "UPDATE DettagliMovimento SET PREZZO = 0 WHERE RID = 4", "la testa di distinta %BAGNO"},
        {"UPDATE Prodotti SET GIACENZA = GIACENZA + 1 WHERE RID = 1",
         "UPDATE Prodotti SET GIACENZA = GIACENZA - 1 WHERE RID = 1",
         "prodotto VITI440: giacenza 121, somma dei magazzini 120"},
        {"UPDATE PrimaNotaDettagli SET DARE = 26.46 WHERE FK_PRIMANOTA = 2 AND FK_CONTO = 1",
         "UPDATE PrimaNotaDettagli SET DARE = 26.47 WHERE FK_PRIMANOTA = 2 AND FK_CONTO = 1",
         "prima nota 2/2026: dare 26,46, avere 26,47"},
        {"UPDATE DettagliMovimento SET IK_DETTAGLIOMOVIMENTO = 1 WHERE RID = 5",
         "UPDATE DettagliMovimento SET IK_DETTAGLIOMOVIMENTO = 4 WHERE RID = 5",
         "il componente RUBLAV è senza la testa"},
        {"UPDATE Movimenti SET PROGRESSIVO = 1 WHERE RID = 2",
         "UPDATE Movimenti SET PROGRESSIVO = 2 WHERE RID = 2", "numero 1 dato a 2 documenti"},
        {"UPDATE DettagliMovimento SET POS = 1 WHERE RID = 2",
         "UPDATE DettagliMovimento SET POS = 2 WHERE RID = 2", "2 righe alla posizione 1"},
        {"UPDATE PrimaNota SET PROGRESSIVO = 1 WHERE RID = 2",
         "UPDATE PrimaNota SET PROGRESSIVO = 2 WHERE RID = 2", "numero 1 dato a 2 registrazioni"},
        {"UPDATE Contatori SET NUMERO = 1", "UPDATE Contatori SET NUMERO = 2",
         "il contatore è a 1, ma l'ultimo documento ha il numero 2"},
        {"UPDATE Contatori SET ANNO = '2020'", "UPDATE Contatori SET ANNO = '2026'", "il contatore manca"},
        {"RENAME TABLE Scadenze TO Scadute", "RENAME TABLE Scadute TO Scadenze", "mancano: Scadenze"},
    };
    const NegozioSulServer negozio;
    for (const Guasto& guasto : guasti) {
        negozio.database().esegui(guasto.rompi);
        const EsitoVerifica esito = verificaArchivio(negozio.database().nome());
        EXPECT_EQ(esito.errori.size(), 1) << guasto.rompi << "\n" << testo(esito);
        EXPECT_TRUE(esito.errori.value(0).contains(guasto.atteso)) << guasto.rompi << "\n" << testo(esito);
        negozio.database().esegui(guasto.aggiusta);
    }
}

TEST(VerifyOnServer, ReferenceToNothingIsFound) {
    const NegozioSulServer negozio;
    const auto archivio = negozio.database().apri();
    archivio->esegui("SET foreign_key_checks = 0");
    archivio->esegui("UPDATE Prodotti SET FK_MARCA = 9999 WHERE RID = 7");
    const EsitoVerifica esito = verificaArchivio(negozio.database().nome());
    ASSERT_EQ(esito.errori.size(), 1) << testo(esito);
    EXPECT_TRUE(esito.errori.first().contains("Prodotti 7: si riferisce a un record di Marche"))
        << testo(esito);
}
