#include <gtest/gtest.h>

#include "core/globals.h"
#include "counter/operator_code.h"

namespace {

class OperatorCode : public testing::Test {
  protected:
    OperatorCode() {
        ripristinaGlobali();
        gVenditoreChar = "V";
    }
    ~OperatorCode() override { ripristinaGlobali(); }
    void osserva(CodiceVenditore& dialogo) {
        dialogo.osservaConferma([this] { ++conferme; });
    }
    int conferme = 0;
};

TEST_F(OperatorCode, EnterConfirmsAndWritesNothing) {
    CodiceVenditore dialogo({});
    osserva(dialogo);
    EXPECT_EQ(dialogo.tasto(u'1'), std::optional<QChar>(u'1'));
    EXPECT_EQ(conferme, 0);
    EXPECT_EQ(dialogo.tasto(u'\r'), std::nullopt);
    EXPECT_EQ(conferme, 1);
}

TEST_F(OperatorCode, TheMarkTypedByAHandIsALetter) {
    CodiceVenditore dialogo({});
    EXPECT_EQ(dialogo.tasto(u'V'), std::optional<QChar>(u'V'));
}

TEST_F(OperatorCode, ABadgeTakesThePlaceOfWhatWasTypedAndIsConfirmed) {
    CodiceVenditore dialogo({});
    osserva(dialogo);
    dialogo.txtCodice.testo("99");
    EXPECT_TRUE(dialogo.scansione("V990001"));
    EXPECT_EQ(dialogo.txtCodice.testo(), "990001");
    EXPECT_EQ(conferme, 1);
}

TEST_F(OperatorCode, TheMarkAloneOnlyClearsTheBox) {
    CodiceVenditore dialogo({});
    osserva(dialogo);
    dialogo.txtCodice.testo("99");
    EXPECT_TRUE(dialogo.scansione("V"));
    EXPECT_EQ(dialogo.txtCodice.testo(), "");
    EXPECT_EQ(conferme, 0);
}

TEST_F(OperatorCode, TheScanOfAProductIsLeftToTheScreen) {
    CodiceVenditore dialogo({});
    EXPECT_FALSE(dialogo.scansione("8001"));
    EXPECT_EQ(dialogo.txtCodice.testo(), "");
}

TEST_F(OperatorCode, WithoutTheOptionNoScanIsABadge) {
    gVenditoreChar.clear();
    EXPECT_FALSE(CodiceVenditore({}).scansione("V1"));
}

TEST_F(OperatorCode, ACodeThatNobodyHasIsNamed) {
    EXPECT_EQ(CodiceVenditore({"77", true}).lblEsito.testo(), "Nessun operatore ha il codice «77»");
    EXPECT_EQ(CodiceVenditore({"77", false}).lblEsito.testo(), "");
}

}  // namespace
