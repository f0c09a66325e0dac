#include <gtest/gtest.h>

#include "core/run_time_error.h"
#include "data/recordset.h"

namespace {

class RecordsetFields : public testing::Test {
  protected:
    int erroreDi(const char* nome) const {
        try {
            righe.campo(nome);
        } catch (const RunTimeError& errore) {
            return errore.numero();
        }
        return 0;
    }

    Recordset righe{{"RID", "SCONTO2", "SCONTO3", "FK_IVA", "Città"}, {1, 10.0, 5.0, QVariant(), "Borgo"}};
};

}  // namespace

TEST_F(RecordsetFields, AreFoundByNameWithoutRegardToCase) {
    EXPECT_EQ(righe.intero("rid"), 1);
    EXPECT_EQ(righe.reale("Sconto3"), 5.0);
    EXPECT_EQ(righe.reale(QString("sconto2")), 10.0);
    EXPECT_TRUE(righe.campo("FK_Iva").isNull());
}

TEST_F(RecordsetFields, AreFoundByPosition) {
    EXPECT_EQ(righe.reale(2), 5.0);
    EXPECT_EQ(righe.campo(0).toInt(), 1);
}

TEST_F(RecordsetFields, WithAnAccentInTheNameAreFoundToo) {
    EXPECT_EQ(righe.testo(QString("CITTÀ")), "Borgo");
}

TEST_F(RecordsetFields, ThatAreNotThereAreARunTimeError) {
    for (const char* nome : {"", "RI", "RIDD", "SCONTO", "SCONTO4", "FK-IVA", "FK_IV\x01"})
        EXPECT_EQ(erroreDi(nome), RunTimeError::CampoInesistente) << nome;
}

TEST_F(RecordsetFields, OfNoRowAreARunTimeError) {
    righe.moveNext();
    EXPECT_EQ(erroreDi("RID"), RunTimeError::CampoInesistente);
}
