#include <gtest/gtest.h>

#include <QVBoxLayout>

#include "kit/ui/labels.h"

namespace {

// One label over another, in a place higher than both need.
class StackedLabels : public testing::Test {
  protected:
    StackedLabels() {
        auto* colonna = new QVBoxLayout(&posto);
        colonna->setContentsMargins({});
        colonna->setSpacing(0);
        colonna->addStretch();
        colonna->addWidget(&sopra);
        colonna->addWidget(&sotto);
        colonna->addStretch();
        sopra.setText("Da stampare");
        posto.resize(200, 100);
        posto.show();
    }
    // How far the upper label stands from the middle, in pixels.
    int fuoriCentro() {
        posto.layout()->activate();
        return qAbs(sopra.geometry().center().y() - posto.rect().center().y());
    }

    QWidget posto;
    EtichettaElisa sopra{&posto};
    EtichettaElisa sotto{&posto};
};

}  // namespace

TEST_F(StackedLabels, EmptyOneThatGivesItsPlaceAwayLeavesTheOtherInTheMiddle) {
    sotto.cedeIlPosto();
    EXPECT_LE(fuoriCentro(), 1);
    sotto.setText("22/11/2026");
    EXPECT_GT(fuoriCentro(), 4);
    sotto.clear();
    EXPECT_LE(fuoriCentro(), 1);
}

TEST_F(StackedLabels, EmptyOneKeepsItsHeightOtherwise) {
    EXPECT_GT(fuoriCentro(), 4);
}
