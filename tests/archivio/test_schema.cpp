#include <algorithm>
#include <gtest/gtest.h>

#include <QSet>

#include "archivio/trial_archive.h"
#include "data/prepare_sql.h"
#include "data/schema.h"

namespace {

// Every table and column that the statements of the system name.
const std::string elencoTabelle[] = {
    "Movimenti RID PROGRESSIVO ANNO DATA FK_TIPODOCUMENTO FK_ORIGINE FK_DESTINAZIONE FK_CONTROPARTITA "
    "FK_PAGAMENTO "
    "ID_CASSA USAPREZZIIVA TOTIMPONIBILE TOTIMPOSTA TOTDOCUMENTO FK_PRIMANOTA FK_PNPAGAMENTO DATASTAMPA "
    "RIFERIMENTI "
    "CODPARTITA FK_ASPETTOCONS FK_CAUSALETRASPORTO FK_SPEDIZIONE FK_BANCA COLLICONS PESOCONS DATACONS "
    "ORACONS VIACONS "
    "CIVICOCONS CAPCONS CITTACONS PROVINCIACONS TELEFONOCONS FAXCONS PROGELENCOSPECIALE DESTELENCOSPECIALE "
    "AUTELENCOSPECIALE DOCUMELENCOSPECIALE RDA1 RDA2 TOTRDA",
    "DettagliMovimento RID FK_MOVIMENTO EXTRAPROG POS FK_PRODOTTO CODPRODOTTO DESCPRODOTTO QUANTITA PREZZO "
    "SCONTO "
    "SCONTO2 SCONTO3 SCONTONETTO PREZZONETTO TOTPREZZONETTO FK_IVA VALOREIVA IVA TOTALEIVA TOTALERIGA FK_UM "
    "TAGLIO "
    "IK_DETTAGLIOMOVIMENTO FK_VENDITORE ORA",
    "TipoDocumenti RID CODICE DESCRIZIONE DESCSTAMPA FK_CAUSALE NCONTATORE REPORT ACCOMPAGNATORIO "
    "USAPREZZIIVA "
    "MOSTRAVB STAMPAELENCOSPECIALE NonStampareVB",
    "Causali RID CODICE DESCRIZIONE OPERAZIONE ORIGINE DESTINAZIONE FK_MAGAZZINOORIG FK_MAGAZZINODEST TAGLIO "
    "GENERAPN "
    "GENERASCAD SCADENZENEGATIVE MOSTRAVB FK_CONTODARE1 FK_CONTODARE2 FK_CONTOAVERE1 FK_CONTOAVERE2",
    "Contatori FK_NUMERATORE ANNO NUMERO NOTE",
    "Scadenze RID FK_PRIMANOTA FK_MOVIMENTO DATA IMPORTO",
    "Anagrafiche RID NUMERO CODICEEXTRA TIPO DENOMINAZIONE INDIRIZZO CIVICO CAP CITTA PROVINCIA TELUFFICIO "
    "CELL FAX "
    "PIVA CFISCALE DATANASCITA LISTINO SCONTO FK_PAGAMENTO FK_FASCIACLIENTE FIDO CTRLFIDO SEGNALA "
    "INDIRIZZODEST "
    "CIVICODEST CAPDEST CITTADEST PROVINCIADEST DatiAutorizzazione DocumentoRiconoscimento",
    "Prodotti RID CODICE BARCODE EXTRACODICE DESCRIZIONE DISABILITATO FK_SOSTITUITO FK_MARCA FK_CATEGORIA "
    "FK_GRUPPO "
    "FK_IVA FK_UNITAMISURA FK_CATSCOVEN FK_CATSCOACQ LISTINO1 LISTINO2 LISTINO3 LISTINO4 SCONTO PLISTINO "
    "DATALISTINO "
    "PREZZOACQUISTO GIACENZA SETGIACENZA UBICAZIONE PESO COLLI ELENCOSPECIALE NUMREGISTRAZIONE BLOCCAPREZZO "
    "DATAULTIMOSCARICO PREZZOULTIMOSCARICO",
    "ProdottiAlternativi FK_PRODOTTO1 FK_PRODOTTO2",
    "DettagliProdotto RID FK_PRODOTTO FK_MAGAZZINO TAGLIO QUANTITA",
    "DistintaBase RID CODICE",
    "DistintaBaseDettagli FK_DISTINTABASE FK_PRODOTTO CODPRODOTTO DESCPRODOTTO QUANTITA PREZZO PREZZONETTO "
    "FK_IVA "
    "VALOREIVA FK_UM POS",
    "Iva RID CODICE DESCRIZIONE VALORE",
    "UnitaMisura RID CODICE DESCRIZIONE",
    "Marche RID CODICE DESCRIZIONE",
    "Gruppi RID CODICE DESCRIZIONE",
    "CategorieMerceologiche RID CODICE DESCRIZIONE",
    "Magazzini RID CODICE DESCRIZIONE",
    "Venditori RID CODICE DESCRIZIONE CODICEEXTRA",
    "AspettoEsteriore RID CODICE DESCRIZIONE",
    "CausaliTrasporto RID CODICE DESCRIZIONE",
    "Spedizioni RID CODICE DESCRIZIONE",
    "FasceClienti RID CODICE DESCRIZIONE",
    "CategorieSconti RID CODICE DESCRIZIONE",
    "Banche RID CODICE DESCRIZIONE ABI CAB AGENZIA",
    "Pagamenti RID CODICE DESCRIZIONE ACCONTO RIMESSADIRETTA FINEMESE NRATE",
    "DettagliPagamenti FK_PAGAMENTO NGIORNI PERCENTUALE",
    "CatScVendita RID FK_CATEGORIA FK_FASCIA FK_MARCA",
    "CatScVenditeSconti FK_CATSCVENDITE RANGEMIN RANGEMAX SCONTO1 SCONTO2 SCONTO3",
    "CatScProdVendita RID FK_CATEGORIA FK_FASCIA FK_PRODOTTO",
    "CatScVenditaProd FK_CATSCVENDITEPROD RANGEMIN RANGEMAX PREZZO",
    "CatScAcquisto RID FK_CATEGORIA FK_FORNITORE FK_MARCA",
    "CatScAcquistoSconti FK_CATSCACQUISTO RANGEMIN RANGEMAX SCONTO1 SCONTO2 SCONTO3",
    "ScontiImmediati RID CODICE DESCRIZIONE VALORE",
    "Listini FK_ANAGRAFE FK_PRODOTTO PREZZO",
    "PrimaNota RID PROGRESSIVO DATA DATAVALUTA FK_CAUSALE FK_ANAGRAFE DESCRIZIONE RIFERIMENTI NUMDOCUMENTO "
    "IMPORTO "
    "CODICEPARTITA FK_PAGAMENTO FK_CENTROCOSTO",
    "PrimaNotaDettagli RID FK_PRIMANOTA FK_CONTO DARE AVERE",
    "PianoConti RID CODICE DESCRIZIONE",
    "CentriCosto RID DESCRIZIONE",
    "Opzioni NOME VALORE",
    "FunzionalitaReport RID Funzionalita Report",
    "ElencoTabelle ID RifForm Nome",
    "GRUPPOUTENTI RID AMMINISTRATORE",
    "GRUPPOPERMESSI FK_GRUPPOUTENTI FK_TABELLE VISUALIZZA SCRIVI ELIMINA STAMPA",
    "TMP_ESTRATTO COMPUTER Prog Data DataValuta CodCausale Causale NumContropartita Contropartita Conto "
    "Importo "
    "Descrizione Riferimento CentroCosto CodicePartita",
};

class OgniTabella : public testing::TestWithParam<std::string> {};

}  // namespace

TEST_P(OgniTabella, HasTheColumnsThatStatementsName) {
    static const ArchivioInCartella archivio;
    const QStringList parole = QString::fromStdString(GetParam()).split(' ');
    const QString colonne = QStringList(parole.mid(1)).join(", ");
    EXPECT_EQ(archivio.esegui(QString("SELECT %1 FROM %2").arg(colonne, parole.first()).toUtf8()), SQLITE_OK)
        << parole.first().toStdString();
}

INSTANTIATE_TEST_SUITE_P(Schema, OgniTabella, testing::ValuesIn(elencoTabelle), [](const auto& info) {
    return QString::fromStdString(info.param).section(' ', 0, 0).remove('_').toStdString();
});

TEST(Schema, ProductWithSalesCannotBeDeleted) {
    const ArchivioInCartella archivio;
    archivio.aggiungiVendite();
    EXPECT_EQ(archivio.esegui("DELETE FROM Prodotti WHERE RID = 1"), SQLITE_CONSTRAINT_FOREIGNKEY);
}

TEST(Schema, CustomerWithSalesCannotBeDeleted) {
    const ArchivioInCartella archivio;
    archivio.aggiungiVendite();
    EXPECT_EQ(archivio.esegui("DELETE FROM Anagrafiche WHERE RID = 2"), SQLITE_CONSTRAINT_FOREIGNKEY);
}

TEST(Schema, RowOfAMissingProductIsRefused) {
    const ArchivioInCartella archivio;
    archivio.aggiungiVendite();
    EXPECT_EQ(archivio.esegui("UPDATE DettagliMovimento SET FK_PRODOTTO = 99999 WHERE RID = 1"),
              SQLITE_CONSTRAINT_FOREIGNKEY);
}

TEST(Schema, RowOfAMissingHeaderIsRefused) {
    const ArchivioInCartella archivio;
    EXPECT_EQ(archivio.esegui("INSERT INTO DettagliMovimento (FK_MOVIMENTO) VALUES (77)"),
              SQLITE_CONSTRAINT_FOREIGNKEY);
}

TEST(Schema, KitHeadMayBeDeletedBeforeItsComponents) {
    const ArchivioInCartella archivio;
    archivio.aggiungiVendite();
    EXPECT_EQ(archivio.esegui(
                  "DELETE FROM DettagliMovimento WHERE RID = 4; DELETE FROM DettagliMovimento WHERE RID = 5"),
              SQLITE_OK);
}

TEST(Schema, TransportKeysLeftAtZeroAreStored) {
    const ArchivioInCartella archivio;
    archivio.aggiungiVendite();
    EXPECT_EQ(archivio.esegui(
                  "UPDATE Movimenti SET FK_ASPETTOCONS = 0, FK_CAUSALETRASPORTO = 0, FK_SPEDIZIONE = 0"),
              SQLITE_OK);
}

TEST(Schema, KeysAreNeverGivenTwice) {
    const ArchivioInCartella archivio;
    ASSERT_EQ(archivio.esegui("INSERT INTO Marche (CODICE) VALUES ('X1')"), SQLITE_OK);
    const int prima = archivio.valore("SELECT MAX(RID) FROM Marche").toInt();
    ASSERT_EQ(
        archivio.esegui("DELETE FROM Marche WHERE CODICE = 'X1'; INSERT INTO Marche (CODICE) VALUES ('X2')"),
        SQLITE_OK);
    EXPECT_EQ(archivio.valore("SELECT RID FROM Marche WHERE CODICE = 'X2'").toInt(), prima + 1);
}

TEST(Schema, CounterExistsOnceAYear) {
    const ArchivioInCartella archivio;
    ASSERT_EQ(archivio.esegui("INSERT INTO Contatori (FK_NUMERATORE, ANNO, NUMERO) VALUES (1, '2026', 1)"),
              SQLITE_OK);
    EXPECT_EQ(archivio.esegui("INSERT INTO Contatori (FK_NUMERATORE, ANNO, NUMERO) VALUES (1, '2026', 1)"),
              SQLITE_CONSTRAINT_UNIQUE);
}

TEST(Schema, JournalLineSaysZeroOnTheSideNotWritten) {
    const ArchivioInCartella archivio;
    archivio.aggiungiVendite();
    EXPECT_EQ(
        archivio.valore("SELECT DARE - AVERE FROM PrimaNotaDettagli WHERE FK_PRIMANOTA = 1 AND FK_CONTO = 3"),
        "26.47");
}

TEST(Schema, CodesAreFoundWithoutRegardToCase) {
    const ArchivioInCartella archivio;
    EXPECT_EQ(archivio.valore("SELECT RID FROM Prodotti WHERE CODICE = 'viti440'"), "1");
}

TEST(Schema, EveryKeyOfAnotherTableIsIndexed) {
    for (const schema::Tabella& t : schema::tabelle()) {
        for (const schema::Colonna& c : t.colonne) {
            if (c.riferimento.isEmpty()) continue;
            const bool trovato = std::any_of(t.indici.begin(), t.indici.end(), [&](const schema::Indice& i) {
                return i.colonne.first() == c.nome;
            });
            EXPECT_TRUE(trovato) << t.nome.toStdString() << "." << c.nome.toStdString();
        }
    }
}

class OgniRicerca : public testing::TestWithParam<std::string> {};

TEST_P(OgniRicerca, UsesAnIndex) {
    static const ArchivioInCartella archivio;
    const QString piano = archivio.piano(QByteArray::fromStdString("SELECT * FROM " + GetParam()));
    EXPECT_FALSE(piano.contains("SCAN")) << piano.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Schema, OgniRicerca,
    testing::Values(
        "Prodotti WHERE BARCODE = 'x' OR CODICE = 'x' OR EXTRACODICE = 'x'",
        "Listini WHERE FK_ANAGRAFE = 1 AND FK_PRODOTTO = 1",
        "DettagliProdotto WHERE FK_PRODOTTO = 1 AND FK_MAGAZZINO = 1", "Anagrafiche WHERE NUMERO = 1",
        "Anagrafiche WHERE CODICEEXTRA = 'TES0002'",
        "DettagliMovimento WHERE FK_MOVIMENTO = 1 AND EXTRAPROG = 1 ORDER BY POS",
        "DettagliMovimento WHERE IK_DETTAGLIOMOVIMENTO = 1", "PrimaNota WHERE YEAR(DATA) = 2026",
        "Movimenti WHERE DATA = '2026-11-21 00:00:00' AND FK_TIPODOCUMENTO = 1 AND ID_CASSA = 255",
        "Movimenti WHERE YEAR(DATA) = 2026 AND FK_TIPODOCUMENTO = 1 AND ID_CASSA = 255",
        "Contatori WHERE FK_NUMERATORE = 1 AND ANNO = '2026'", "Opzioni WHERE NOME = 'RigaLibera'",
        "DistintaBase DB JOIN DistintaBaseDettagli DBD ON DBD.FK_DISTINTABASE = DB.RID WHERE "
        "DB.CODICE = '%BAGNO' ORDER BY DBD.POS"));

TEST(Schema, OtherServersGetTheSameTables) {
    const auto tabelleDi = [](int tipoServer) {
        QSet<QString> nomi;
        for (const QString& istruzione : schema::ddlTabelle(tipoServer)) {
            if (istruzione.startsWith("CREATE TABLE ")) nomi.insert(istruzione.section(' ', 2, 2));
        }
        return nomi;
    };
    EXPECT_EQ(tabelleDi(SqlServer), tabelleDi(Access));
    EXPECT_EQ(tabelleDi(MySql), tabelleDi(Access));
}
