#include <gtest/gtest.h>

#include <QJsonDocument>

#include "counter/uncertain_save_record.h"

namespace {

// As it comes back from a file.
SalvataggioIncerto riletto(const SalvataggioIncerto& salvataggio) {
    return salvataggioDa(QJsonDocument::fromJson(QJsonDocument(jsonDi(salvataggio)).toJson()).object());
}

SalvataggioIncerto esempio() {
    SalvataggioIncerto s{12, 3, {{"TOTDOCUMENTO", "24.4"}, {"FK_PAGAMENTO", "NULL"}}, {}, {}};
    s.righe.cancellate = {7};
    s.righe.mutate = {{6, {{"QUANTITA", "2"}, {"DESCPRODOTTO", "'perché ''漢''\\'"}}}};
    s.righe.nuove = {{8, {{"QUANTITA", "1"}}}, {9, {{"QUANTITA", "-1"}}}};
    s.schermo = QStringList{"una riga", ""};
    return s;
}

}  // namespace

TEST(UncertainSaveRecord, HeaderAndRowsComeBack) {
    const SalvataggioIncerto prima = esempio();
    const SalvataggioIncerto dopo = riletto(prima);
    EXPECT_EQ(dopo.idMovimento, 12);
    EXPECT_EQ(dopo.extraProg, 3);
    EXPECT_EQ(dopo.testata, prima.testata);
    EXPECT_EQ(dopo.righe.cancellate, prima.righe.cancellate);
    EXPECT_EQ(dopo.righe.mutate, prima.righe.mutate);
    EXPECT_EQ(dopo.righe.nuove, prima.righe.nuove);
    EXPECT_EQ(dopo.schermo, prima.schermo);
}

TEST(UncertainSaveRecord, WhatOfItWasWrittenComesBack) {
    using Parte = SalvataggioIncerto::Parte;
    for (const Parte parte : {Parte::Tutto, Parte::TestataERighe, Parte::SolaTestata}) {
        SalvataggioIncerto s = esempio();
        s.parte = parte;
        EXPECT_EQ(riletto(s).parte, parte);
    }
}

TEST(UncertainSaveRecord, RecordOfAnEarlierProgramIsOfAWholeSave) {
    QJsonObject vecchio = jsonDi(esempio());
    vecchio.remove("parte");
    EXPECT_EQ(salvataggioDa(vecchio).parte, SalvataggioIncerto::Parte::Tutto);
}

TEST(UncertainSaveRecord, ReceiptBelongsToThisRunAlone) {
    SalvataggioIncerto s = esempio();
    s.scontrino = 4;
    EXPECT_EQ(riletto(s).scontrino, 0);
}
