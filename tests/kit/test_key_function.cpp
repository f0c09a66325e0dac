#include <gtest/gtest.h>

#include <Qt>

#include "kit/cKeyFunction.h"
#include "kit/campo.h"

namespace {

class KeyFunction : public testing::Test {
  protected:
    KeyFunction() {
        funzioni.evtFunctionKey([this](int keyCode, int shift, Campo* source) {
            tasti << keyCode;
            ultimoShift = shift;
            ultimaOrigine = source;
        });
    }

    ElencoCampi elenco;
    Campo campo{elenco, "txtCodProdotto"};
    cKeyFunction funzioni;
    QList<int> tasti;
    int ultimoShift = -1;
    Campo* ultimaOrigine = nullptr;
};

}  // namespace

TEST_F(KeyFunction, PassesF3ToF7OnAndNoOther) {
    for (int tasto = Qt::Key_F1; tasto <= Qt::Key_F12; ++tasto)
        funzioni.setFunctionKey(tasto, Qt::NoModifier, nullptr);
    for (const int tasto : {int(Qt::Key_A), int(Qt::Key_Return), int(Qt::Key_Escape), 0, -1, 114})
        funzioni.setFunctionKey(tasto, Qt::NoModifier, nullptr);
    EXPECT_EQ(tasti, QList<int>({Qt::Key_F3, Qt::Key_F4, Qt::Key_F5, Qt::Key_F6, Qt::Key_F7}));
}

TEST_F(KeyFunction, TellsTheModifiersAndTheField) {
    funzioni.setFunctionKey(Qt::Key_F6, Qt::ShiftModifier, &campo);
    EXPECT_EQ(ultimoShift, int(Qt::ShiftModifier));
    EXPECT_EQ(ultimaOrigine, &campo);
}

TEST_F(KeyFunction, WithoutAListenerNothingHappens) {
    const cKeyFunction muta;
    muta.setFunctionKey(Qt::Key_F3, Qt::NoModifier, &campo);
    EXPECT_TRUE(tasti.isEmpty());
}
