#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include "core/errors.h"
#include "doubles/operatore_scritto.h"
#include "kit/ui/campo_edit.h"
#include "kit/ui/frmPagamento.h"
#include "kit_ui/modal.h"

namespace {

class TenderForm : public testing::Test {
  protected:
    TenderForm() { gErr.imposta(cartella.path(), &operatore); }
    ~TenderForm() override { gErr.imposta({}, nullptr); }

    EsitoIncasso apri(std::function<void()> gesto, double totale = 12.2) {
        frmPagamento finestra(nullptr);
        finestra.sordaPer(sordita);
        quandoModale([&](QWidget* aperta) {
            form = aperta;
            ASSERT_TRUE(QTest::qWaitForWindowActive(form));
            gesto();
            if (form->isVisible()) tasto(Qt::Key_Escape);
        });
        return finestra.startMe(Currency::daDouble(totale));
    }
    void tasto(Qt::Key tasto) const { QTest::keyClick(QApplication::focusWidget(), tasto); }
    void digita(const QString& testo) const { QTest::keyClicks(QApplication::focusWidget(), testo); }
    CampoEdit& box(const char* nome) const { return *trova<CampoEdit>(form, nome); }
    QString resto() const { return trova<QLabel>(form, "lblResto")->text(); }
    // The key of the on-screen keypad with that caption.
    void premi(const QString& didascalia) const {
        for (auto* pulsante : form->findChildren<QPushButton*>()) {
            if (pulsante->text() == didascalia) return QTest::mouseClick(pulsante, Qt::LeftButton);
        }
        FAIL() << qPrintable(didascalia);
    }

    QTemporaryDir cartella;
    OperatoreScritto operatore;
    int sordita = 0;
    QWidget* form = nullptr;
};

// A customer's card, scanned where an amount is asked for.
const QString tessera = "400012345678901234";

}  // namespace

TEST_F(TenderForm, WaitsForTheAmountTendered) {
    apri([&] {
        EXPECT_EQ(QApplication::focusWidget(), &box("txtPagato"));
        EXPECT_EQ(box("txtTotale").text(), "12,20");
    });
}

TEST_F(TenderForm, TypedAmountAndEnterShowTheChange) {
    const EsitoIncasso esito = apri([&] {
        digita("20");
        EXPECT_EQ(resto(), "");
        tasto(Qt::Key_Return);
        EXPECT_EQ(resto(), "7,80");
        EXPECT_EQ(QApplication::focusWidget(), &box("txtPagato"));
    });
    EXPECT_EQ(esito.resto, "7,80");
    EXPECT_EQ(esito.totale, Currency::daDouble(12.2));
}

TEST_F(TenderForm, FingerDoesTheSame) {
    apri([&] {
        for (const char* cifra : {"5", "0", ",", "5"})
            premi(cifra);
        EXPECT_EQ(box("txtPagato").text(), "50,5");
        premi("INVIO");
        EXPECT_EQ(resto(), "38,30");
        premi("RITORNA ALLA VENDITA <<<<");
        EXPECT_FALSE(form->isVisible());
    });
}

TEST_F(TenderForm, TheSaveKeyGoesOnWithTheSave) {
    apri([&] {
        tasto(Qt::Key_F5);
        EXPECT_FALSE(form->isVisible());
    });
}

TEST_F(TenderForm, BouncedSaveKeyThatBroughtItUpDoesNotLeaveIt) {
    constexpr int unOra = 3'600'000;
    sordita = unOra;
    apri([&] {
        tasto(Qt::Key_F5);
        EXPECT_TRUE(form->isVisible());
        tasto(Qt::Key_Escape);
        EXPECT_FALSE(form->isVisible());
    });
}

TEST_F(TenderForm, SaveKeyIsHeardAfterAQuarterOfASecond) {
    frmPagamento finestra(nullptr);
    EXPECT_FALSE(finestra.sorda());
    QElapsedTimer aperta;
    aperta.start();
    finestra.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !finestra.sorda(); }));
    EXPECT_GE(aperta.elapsed(), 250);
}

TEST_F(TenderForm, CorrectedTotalGoesBack) {
    const EsitoIncasso esito = apri([&] {
        box("txtTotale").setFocus();
        box("txtTotale").selectAll();
        digita("10");
    });
    EXPECT_EQ(esito.totale, Currency::daDouble(10));
}

TEST_F(TenderForm, AmountsAreNotCut) {
    apri(
        [&] {
            for (const char* nome : {"txtTotale", "txtPagato"}) {
                EXPECT_GE(box(nome).height(), box(nome).fontMetrics().height()) << nome;
            }
        },
        123456.78);
}

TEST_F(TenderForm, CardScannedAsTheAmountTenderedIsToldAndTheTenderGoesOn) {
    operatore.attendiAvviso("frmPagamento.calcolaResto");
    const EsitoIncasso esito = apri([&] {
        digita(tessera);
        tasto(Qt::Key_Return);
        EXPECT_TRUE(operatore.esaurito());
        box("txtPagato").selectAll();
        digita("20");
        tasto(Qt::Key_Return);
        EXPECT_EQ(resto(), "7,80");
    });
    EXPECT_EQ(esito.totale, Currency::daDouble(12.2));
}

TEST_F(TenderForm, TotalBeyondAllMoneyIsToldAndLeavesTheOneThatWasDue) {
    operatore.attendiAvviso("frmPagamento.Form_Unload");
    const EsitoIncasso esito = apri([&] {
        box("txtTotale").setFocus();
        box("txtTotale").selectAll();
        digita(tessera);
    });
    EXPECT_EQ(esito.totale, Currency::daDouble(12.2));
    EXPECT_EQ(esito.resto, "");
}
