#include "data/options_table.h"
#include "data/schema_archive.h"

namespace {

// The shop's books without any option.
class OptionsTable : public ::testing::Test {
  protected:
    OptionsTable() { archivio.sql("DELETE FROM Opzioni"); }

    void opzione(const QString& nome, const QString& valore) {
        archivio.sql("INSERT INTO Opzioni (NOME, VALORE) VALUES ('" + nome + "', " + valore + ")");
    }

    LibriDiProva archivio;
    OperatoreRegistrato& operatore = archivio.operatore;
};

struct NumeroAtteso {
    const char* nome;
    int* variabile;
};

const NumeroAtteso numeri[] = {
    {"TipoStampaDistinta", &gTipoStampaDistinta},
    {"ClientePredefinito", &gClientePredefinito},
    {"CatPrezziNetti", &gCatPrezziNetti},
    {"TipoDocVb", &gTipoDocVb},
    {"CausalePagVb", &gCausalePagVb},
    {"PagamentoVB", &gPagamentoVB},
    {"PrezzoMedio", &gPrezzoMedio},
    {"MesiPrezzoMedio", &gMesiPrezzoMedio},
    {"ContoClienti", &gContoClienti},
    {"ContoFornitori", &gContoFornitori},
    {"SottoScorta", &gSottoScorta},
    {"VenditeGiorniDiversi", &gVenditeGiorniDiversi},
    {"LockVBEdit", &gLockVBEdit},
    {"FidoAllaData", &gFidoAllaData},
    {"LockVBPrezzo", &gLockVBPrezzo},
    {"VenditoriObbligatori", &gVenditoriObbligatori},
    {"VenditoriBlocco", &gVenditoriBlocco},
    {"PagatoAltriClienti", &gPagatoAltriClienti},
    {"NumeratoreElencoSpeciale", &gNumeratoreElencoSpeciale},
};

struct TestoAtteso {
    const char* nome;
    QString* variabile;
};

const TestoAtteso testi[] = {
    {"DistintaBase", &gDistintaBase},
    {"RigaLibera", &gRigaLibera},
    {"VenditoreChar", &gVenditoreChar},
    {"PiePagina", &gPiePagina},
    {"ReportElencoSpeciale", &gReportElencoSpeciale},
};

struct FlagAtteso {
    const char* nome;
    bool* variabile;
};

const FlagAtteso flag[] = {
    {"BloccaSottoScorta", &gBloccaSottoScorta},
    {"AvvisaSottoScorta", &gAvvisaSottoScorta},
    {"BloccaVenditeGiorniDiversi", &gBloccaVenditeGiorniDiversi},
    {"AvvisaVenditeGiorniDiversi", &gAvvisaVenditeGiorniDiversi},
};

}  // namespace

TEST_F(OptionsTable, AnOptionIsTheTextOfItsRow) {
    opzione("PiePagina", "'Grazie, e arrivederci'");
    EXPECT_EQ(getOpzione("PiePagina"), "Grazie, e arrivederci");
}

TEST_F(OptionsTable, AMissingOrNullOptionIsEmptyAndNotReported) {
    opzione("PiePagina", "NULL");
    EXPECT_EQ(getOpzione("PiePagina"), "");
    EXPECT_EQ(getOpzione("NonEsiste"), "");
    EXPECT_TRUE(operatore.avvisi.empty());
}

TEST_F(OptionsTable, ANameWithAQuoteIsOnlyAName) {
    EXPECT_EQ(getOpzione("x' OR '1'='1"), "");
    EXPECT_TRUE(operatore.avvisi.empty());
}

TEST_F(OptionsTable, EveryOptionReachesItsVariable) {
    int valore = 10;
    for (const NumeroAtteso& numero : numeri) {
        opzione(numero.nome, QString("'%1'").arg(++valore));
    }
    for (const TestoAtteso& testo : testi) {
        opzione(testo.nome, QString("'[%1]'").arg(testo.nome));
    }
    for (const FlagAtteso& uno : flag) {
        opzione(uno.nome, "'-1'");
    }
    getAllOpzioni();
    valore = 10;
    for (const NumeroAtteso& numero : numeri) {
        EXPECT_EQ(*numero.variabile, ++valore) << numero.nome;
    }
    for (const TestoAtteso& testo : testi) {
        EXPECT_EQ(*testo.variabile, QString("[%1]").arg(testo.nome));
    }
    for (const FlagAtteso& uno : flag) {
        EXPECT_TRUE(*uno.variabile) << uno.nome;
    }
}

TEST_F(OptionsTable, AMissingRowIsZeroEmptyOrFalse) {
    for (const FlagAtteso& uno : flag) {
        *uno.variabile = true;
    }
    gVenditoreChar = "%";
    gVenditoriObbligatori = 1;
    getAllOpzioni();
    for (const NumeroAtteso& numero : numeri) {
        EXPECT_EQ(*numero.variabile, 0) << numero.nome;
    }
    for (const FlagAtteso& uno : flag) {
        EXPECT_FALSE(*uno.variabile) << uno.nome;
    }
    EXPECT_EQ(gVenditoreChar, "");
}

TEST_F(OptionsTable, TheWorkstationsDocumentTypeAndCausalReplaceTheShops) {
    opzione("TipoDocVb", "'3'");
    opzione("CausalePagVb", "'4'");
    gTipoDocOverride = 8;
    gCausalePagOverride = 9;
    getAllOpzioni();
    EXPECT_EQ(gTipoDocVb, 8);
    EXPECT_EQ(gCausalePagVb, 9);
}

TEST_F(OptionsTable, AnUnsetOverrideReplacesNothing) {
    opzione("TipoDocVb", "'3'");
    gTipoDocOverride = -1;
    getAllOpzioni();
    EXPECT_EQ(gTipoDocVb, 3);
}

TEST_F(OptionsTable, ANumberIsTheOneAtTheHeadOfTheText) {
    opzione("MesiPrezzoMedio", "'6 mesi'");
    opzione("TipoDocVb", "'abc'");
    opzione("BloccaSottoScorta", "'0.5'");
    getAllOpzioni();
    EXPECT_EQ(gMesiPrezzoMedio, 6);
    EXPECT_EQ(gTipoDocVb, 0);
    EXPECT_TRUE(gBloccaSottoScorta);
}

TEST_F(OptionsTable, ANumberTooLargeIsReportedOnceUnderTheProceduresName) {
    opzione("TipoStampaDistinta", "'99999'");
    getAllOpzioni();
    ASSERT_EQ(operatore.avvisi.size(), 1u);
    EXPECT_EQ(operatore.avvisi[0].numero, 6);
    EXPECT_EQ(operatore.avvisi[0].modulo, "bBottegonClientVB.getAllOpzioni");
}

TEST_F(OptionsTable, NoConnectionStaysOpen) {
    getAllOpzioni();
    EXPECT_EQ(gAdo.getConnectionCount(), 0);
}
