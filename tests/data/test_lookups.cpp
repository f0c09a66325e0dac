#include "data/lookups.h"
#include "data/schema_archive.h"

namespace {

using Ricerca = void (*)(QString&, QString&, int&);

class Lookup : public testing::Test {
  protected:
    Lookup() {
        archivio.sql(
            "INSERT INTO Magazzini (RID, CODICE, DESCRIZIONE) VALUES (7, 'SED', 'Sede'), "
            "(8, 'D''OC', 'Deposito d''occasione')");
    }
    void cerca(Ricerca ricerca, const QString& daCodice, int daRid = -1) {
        codice = daCodice;
        rid = daRid;
        ricerca(codice, descrizione, rid);
    }

    LibriDiProva archivio;
    QString codice, descrizione = "prima";
    int rid = -1;
};

TEST_F(Lookup, ACodeBecomesKeyAndDescription) {
    cerca(validaMagazzino, "sed");
    EXPECT_EQ(rid, 7);
    EXPECT_EQ(codice, "SED");
    EXPECT_EQ(descrizione, "Sede");
    EXPECT_TRUE(archivio.operatore.mostrati.isEmpty());
}

TEST_F(Lookup, AKnownKeyWithoutACodeFillsBothInWithoutAWarning) {
    cerca(validaMagazzino, {}, 8);
    EXPECT_EQ(codice, "D'OC");
    EXPECT_EQ(descrizione, "Deposito d'occasione");
    EXPECT_TRUE(archivio.operatore.mostrati.isEmpty());
}

TEST_F(Lookup, ACodeCountsMoreThanTheKey) {
    cerca(validaMagazzino, "SED", 8);
    EXPECT_EQ(rid, 7);
}

TEST_F(Lookup, AnUnknownCodeWarnsOnceAndKeepsTheKey) {
    cerca(validaMagazzino, "XX");
    EXPECT_EQ(rid, -1);
    EXPECT_EQ(descrizione, "prima");
    EXPECT_EQ(archivio.operatore.mostrati, QStringList{"Bottegon|Codice: XX inesistente!"});
}

TEST_F(Lookup, AnUnknownCodeOverAnOldKeyKeepsItWithoutAWarning) {
    cerca(validaMagazzino, "XX", 7);
    EXPECT_EQ(rid, 7);
    EXPECT_EQ(codice, "XX");
    EXPECT_TRUE(archivio.operatore.mostrati.isEmpty());
}

TEST_F(Lookup, NeitherCodeNorKeyIsACodeThatDoesNotExist) {
    cerca(validaMagazzino, {});
    EXPECT_EQ(archivio.operatore.mostrati, QStringList{"Bottegon|Codice:  inesistente!"});
}

TEST_F(Lookup, AnApostropheInACodeReachesTheServerAsThatValue) {
    cerca(validaMagazzino, "D'OC");
    EXPECT_EQ(rid, 8);
    EXPECT_TRUE(gAdo.getLastSQLCommand().endsWith("WHERE CODICE = 'D''OC'"));
}

TEST_F(Lookup, ACodeCannotBecomeSQL) {
    cerca(validaMagazzino, "' OR '1'='1");
    EXPECT_EQ(rid, -1);
    cerca(validaMagazzino, "¤ OR RID = 7 OR CODICE = ¤");
    EXPECT_EQ(rid, -1);
}

TEST_F(Lookup, AServerThatFailsIsReportedUnderTheProceduresNameAndWarnsOfNoCode) {
    gNomeModulo = "modulo";
    LibriDiProva::guastaServer();
    cerca(validaMagazzino, "SED");
    EXPECT_EQ(rid, -1);
    ASSERT_EQ(archivio.operatore.avvisi.size(), 1U);
    EXPECT_TRUE(archivio.operatore.avvisi[0].modulo.contains("modulo.validaMagazzino"))
        << archivio.operatore.avvisi[0].modulo.toStdString();
    EXPECT_EQ(archivio.operatore.mostrati.size(), 1);
}

struct VoceRicerca {
    const char* nome;
    Ricerca ricerca;
    const char* tabella;
    const char* procedura;  // as it reports
};

class EachLookup : public testing::TestWithParam<VoceRicerca> {};

TEST_P(EachLookup, ReadsItsOwnTableByCodeAndByKey) {
    LibriDiProva archivio;
    archivio.sql(QString("INSERT INTO ") + GetParam().tabella +
                 " (RID, CODICE, DESCRIZIONE) VALUES (5, 'C5', 'Quinto')");
    QString codice = "C5", descrizione;
    int rid = -1;
    GetParam().ricerca(codice, descrizione, rid);
    EXPECT_EQ(rid, 5);
    EXPECT_EQ(descrizione, "Quinto");
    EXPECT_EQ(gAdo.getLastSQLCommand(),
              QString("SELECT RID, CODICE, DESCRIZIONE FROM ") + GetParam().tabella + " WHERE CODICE = 'C5'");
    codice.clear();
    GetParam().ricerca(codice, descrizione, rid);
    EXPECT_EQ(codice, "C5");
    EXPECT_TRUE(gAdo.getLastSQLCommand().endsWith("WHERE RID = 5"));
}

TEST_P(EachLookup, ReportsAsItselfAndLeavesTheKey) {
    LibriDiProva archivio;
    LibriDiProva::guastaServer();
    QString codice = "C5", descrizione;
    int rid = -1;
    GetParam().ricerca(codice, descrizione, rid);
    EXPECT_EQ(rid, -1);
    ASSERT_EQ(archivio.operatore.avvisi.size(), 1U);
    EXPECT_EQ(archivio.operatore.avvisi[0].modulo,
              QString("cAdoSqlServer.getNewRecordset -> bBottegonClientVB.") + GetParam().procedura);
}

INSTANTIATE_TEST_SUITE_P(
    All, EachLookup,
    testing::Values(VoceRicerca{"aspetto", validaAspetto, "AspettoEsteriore", "validaAspetto"},
                    VoceRicerca{"magazzino", validaMagazzino, "Magazzini", "validaMagazzino"},
                    VoceRicerca{"tipoDocumento", ValidaTipoDocumento, "TipoDocumenti", "ValidaTipoDocumento"},
                    VoceRicerca{"conto", ValidaConto, "PianoConti", "ValidaConto"},
                    VoceRicerca{"causale", valisaCausale, "Causali", "valisaCausale"},
                    VoceRicerca{"causaleTrasporto", validaCausaleTrasporto, "CausaliTrasporto",
                                "validaCausaleTrasporto"},
                    VoceRicerca{"categoria", validaCategoria, "CategorieMerceologiche", "validaCategoria"},
                    VoceRicerca{"documento", validaDocumento, "TipoDocumenti", "validaDocumento"},
                    VoceRicerca{"gruppo", validaGruppo, "Gruppi", "validaGruppo"},
                    VoceRicerca{"marca", validaMarca, "Marche", "validaMarca"},
                    VoceRicerca{"spedizione", validaSpedizione, "Spedizioni", "validaSpedizione"},
                    VoceRicerca{"venditore", validaVenditore, "Venditori", "validaVenditore"},
                    VoceRicerca{"pagamento", validaPagamento, "Pagamenti", "validaPagamento"}),
    [](const auto& voce) { return voce.param.nome; });

class CustomerLookup : public Lookup {
  protected:
    CustomerLookup() {
        archivio.sql(
            "INSERT INTO Anagrafiche (RID, NUMERO, CODICEEXTRA, TIPO, DENOMINAZIONE) VALUES "
            "(3, 120, 'ROS', 'C', 'Rossi'), (4, 7, '120', 'C', 'Bianchi')");
    }
};

TEST_F(CustomerLookup, ANumericCodeIsTheNumber) {
    cerca(validaAnagrafica, "120");
    EXPECT_EQ(rid, 3);
    EXPECT_EQ(codice, "120");
    EXPECT_EQ(descrizione, "Rossi");
}

TEST_F(CustomerLookup, AsksByNumberExtraCodeOrKey) {
    const QString testa = "SELECT RID, NUMERO, DENOMINAZIONE FROM Anagrafiche WHERE ";
    cerca(validaAnagrafica, "120");
    EXPECT_EQ(gAdo.getLastSQLCommand(), testa + "NUMERO = 120");
    cerca(validaAnagrafica, "ROS");
    EXPECT_EQ(gAdo.getLastSQLCommand(), testa + "CODICEEXTRA = 'ROS'");
    cerca(validaAnagrafica, {}, 4);
    EXPECT_EQ(gAdo.getLastSQLCommand(), testa + "RID = 4");
}

TEST_F(CustomerLookup, AnyOtherCodeIsTheExtraCode) {
    cerca(validaAnagrafica, "ROS");
    EXPECT_EQ(rid, 3);
    EXPECT_EQ(codice, "120");
}

TEST_F(CustomerLookup, TheKeyGivesTheNumber) {
    cerca(validaAnagrafica, {}, 4);
    EXPECT_EQ(codice, "7");
}

class ProductLookup : public Lookup {
  protected:
    ProductLookup() {
        archivio.sql(
            "INSERT INTO Prodotti (RID, CODICE, BARCODE, EXTRACODICE, DESCRIZIONE, FK_IVA) VALUES "
            "(11, 'VITE', '800', 'X1', 'Vite 4x40', 1), (12, 'DADO', NULL, NULL, 'Dado', NULL)");
    }
    void cercaProdotto(const QString& daCodice, int daRid = -1) {
        codice = daCodice;
        rid = daRid;
        validaProdottoEsteso(codice, descrizione, rid, valoreIva, codIva);
    }
    double valoreIva = -1;
    QString codIva = "prima";
};

TEST_F(ProductLookup, IsFoundByEachOfItsCodesAndByKey) {
    for (const char* quale : {"VITE", "800", "X1"}) {
        cercaProdotto(quale);
        EXPECT_EQ(rid, 11) << quale;
        EXPECT_EQ(codice, "VITE") << quale;
    }
    cercaProdotto({}, 11);
    EXPECT_EQ(descrizione, "Vite 4x40");
}

TEST_F(ProductLookup, AsksForEachOfItsCodesOrTheKey) {
    const QString testa =
        "SELECT P.RID, P.CODICE, P.DESCRIZIONE AS DESCPRODOTTO, I.CODICE AS CODIVA, I.VALORE AS VALOREIVA "
        "FROM Prodotti P LEFT JOIN Iva I ON P.FK_Iva = I.RID WHERE ";
    cercaProdotto("800");
    EXPECT_EQ(gAdo.getLastSQLCommand(),
              testa + " P.CODICE = '800' OR P.BARCODE = '800' OR P.EXTRACODICE = '800'");
    cercaProdotto({}, 11);
    EXPECT_EQ(gAdo.getLastSQLCommand(), testa + "P.RID = 11");
}

TEST_F(ProductLookup, GivesTheVat) {
    cercaProdotto("VITE");
    EXPECT_EQ(valoreIva, 22.0);
    EXPECT_EQ(codIva, "22");
}

TEST_F(ProductLookup, WithoutVatLeavesWhatStood) {
    cercaProdotto("DADO");
    EXPECT_EQ(rid, 12);
    EXPECT_EQ(valoreIva, -1.0);
    EXPECT_EQ(codIva, "prima");
}

TEST_F(ProductLookup, AnUnknownOneWarnsWithTheExclamationIcon) {
    cercaProdotto("NIENTE");
    EXPECT_EQ(archivio.operatore.mostrati, QStringList{"Bottegon|Codice: NIENTE inesistente!"});
    EXPECT_EQ(archivio.operatore.icone, std::vector{OperatorPort::Icona::Esclamazione});
}

TEST_F(ProductLookup, ADescriptionIsReadByKeyWithoutAWarning) {
    EXPECT_EQ(getDescrizioneProdotto(12), "Dado");
    EXPECT_EQ(getDescrizioneProdotto(99), "");
    EXPECT_TRUE(archivio.operatore.mostrati.isEmpty());
}

class KitTotals : public testing::Test {
  protected:
    void figli(int padre) { getTotaliFigli(padre, lordo, netto, ivato); }

    LibriDiProva archivio;
    Currency lordo = Currency::daIntero(9), netto = Currency::daIntero(9), ivato = Currency::daIntero(9);
};

TEST_F(KitTotals, AreTheSumsOverTheComponentsWithTheirQuantities) {
    archivio.sql(
        "INSERT INTO Movimenti (RID, PROGRESSIVO, ANNO, DATA, FK_TIPODOCUMENTO) VALUES (1, 1, 2026, "
        "'2026-03-16 00:00:00', 1)");
    archivio.sql(
        "INSERT INTO DettagliMovimento (FK_MOVIMENTO, IK_DETTAGLIOMOVIMENTO, QUANTITA, PREZZO, "
        "PREZZONETTO, VALOREIVA) VALUES (1, 50, 2, 10, 9, 22), (1, 50, 1.5, 4, 4, 10), (1, 51, 1, 7, 7, 4)");
    figli(50);
    EXPECT_EQ(lordo.testo(), "26");
    EXPECT_EQ(netto.testo(), "24");
    EXPECT_EQ(ivato.testo(), "28,56");
}

TEST_F(KitTotals, AreZeroWithoutComponents) {
    figli(50);
    EXPECT_EQ(lordo, Currency());
    EXPECT_EQ(netto, Currency());
    EXPECT_EQ(ivato, Currency());
}

}  // namespace
