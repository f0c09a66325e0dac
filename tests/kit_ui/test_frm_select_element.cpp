#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include "data/recordset.h"
#include "kit/ui/frmSelectElement.h"

namespace {

const char colonne[] = "Marca¤800¤CODMARCA|Codice¤1800¤CODICE|Num.¤0¤NUMERO|Escluso¤900¤DATA";

class SelectElement : public testing::Test {
  protected:
    // Opens the list and runs `gesto` on it while it is open.
    void apri(std::function<void()> gesto, bool nuovo = false, bool multi = false) {
        QTimer::singleShot(0, &dialogo, [gesto] { gesto(); });
        dialogo.startMe(righe, colonne, nuovo, multi);
    }
    QTreeWidget* elenco() { return dialogo.findChild<QTreeWidget*>("lswElenco"); }
    QPushButton* pulsante(const char* nome) { return dialogo.findChild<QPushButton*>(nome); }
    void scegli(int riga) { elenco()->setCurrentItem(elenco()->topLevelItem(riga)); }

    Recordset righe{{"RID", "CODMARCA", "CODICE", "NUMERO", "DATA"},
                    {11, "FIS", "A1", 1, "x", 12, "BOS", "B2", 2, "y", 13, "MAK", "C3", 1.5, "z"}};
    frmSelectElement dialogo{nullptr};
};

TEST_F(SelectElement, TheRecordsetStandsOnTheChosenRecord) {
    apri([this] {
        scegli(1);
        pulsante("cmdOk")->click();
    });
    EXPECT_TRUE(dialogo.elementoSelezionato());
    EXPECT_EQ(righe.intero("RID"), 12);
}

TEST_F(SelectElement, EnterTakesTheFirstRecord) {
    apri([this] { QTest::keyClick(elenco(), Qt::Key_Return); });
    EXPECT_TRUE(dialogo.elementoSelezionato());
    EXPECT_EQ(righe.intero("RID"), 11);
}

TEST_F(SelectElement, ADoubleClickChooses) {
    apri([this] {
        const QPoint terzo = elenco()->visualItemRect(elenco()->topLevelItem(2)).center();
        QTest::mouseClick(elenco()->viewport(), Qt::LeftButton, {}, terzo);
        QTest::mouseDClick(elenco()->viewport(), Qt::LeftButton, {}, terzo);
    });
    EXPECT_EQ(righe.intero("RID"), 13);
}

TEST_F(SelectElement, EscapeChoosesNothing) {
    apri([this] { QTest::keyClick(elenco(), Qt::Key_Escape); });
    EXPECT_FALSE(dialogo.elementoSelezionato());
    EXPECT_FALSE(dialogo.elementoNuovo());
}

TEST_F(SelectElement, WhatStandsAfterTheLastBarMakesNoColumn) {
    apri([this] { dialogo.reject(); });
    EXPECT_EQ(elenco()->columnCount(), 3);
}

TEST_F(SelectElement, AColumnOfWidthZeroIsThereAndHidden) {
    apri([this] { dialogo.reject(); });
    EXPECT_TRUE(elenco()->isColumnHidden(2));
    EXPECT_EQ(elenco()->topLevelItem(2)->text(2), "1,5");
}

TEST_F(SelectElement, EachItemHasTheRecordsKey) {
    apri([this] { dialogo.reject(); });
    EXPECT_EQ(elenco()->topLevelItem(0)->data(0, Qt::UserRole).toString(), "E_11");
}

TEST_F(SelectElement, ANewElementIsOfferedOnlyWhenAsked) {
    bool offerto = true;
    apri([&] {
        offerto = pulsante("cmdNew")->isEnabled();
        dialogo.reject();
    });
    EXPECT_FALSE(offerto);
}

TEST_F(SelectElement, ItsButtonIsThereAllTheSame) {
    bool inVista = false;
    apri([&] {
        inVista = pulsante("cmdNew")->isVisible();
        dialogo.reject();
    });
    EXPECT_TRUE(inVista);
}

TEST_F(SelectElement, ANewElementIsItsOwnOutcome) {
    apri([this] { pulsante("cmdNew")->click(); }, true);
    EXPECT_TRUE(dialogo.elementoNuovo());
    EXPECT_FALSE(dialogo.elementoSelezionato());
}

TEST_F(SelectElement, OfSeveralTheFirstCounts) {
    apri(
        [this] {
            elenco()->clearSelection();
            elenco()->topLevelItem(2)->setSelected(true);
            elenco()->topLevelItem(1)->setSelected(true);
            pulsante("cmdOk")->click();
        },
        false, true);
    EXPECT_EQ(righe.intero("RID"), 12);
}

TEST_F(SelectElement, AnEmptyListCannotBeConfirmed) {
    righe = Recordset({"RID", "CODMARCA", "CODICE", "NUMERO", "DATA"}, {});
    bool confermabile = true;
    apri([&] {
        confermabile = pulsante("cmdOk")->isEnabled();
        dialogo.reject();
    });
    EXPECT_FALSE(confermabile);
}

}  // namespace
