#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTest>

#include "ecr/simulator.h"
#include "ecr/ui/strip_window.h"

namespace {

class StripWindow : public testing::Test {
  protected:
    Scontrino scontrino() const {
        Scontrino s;
        s.righe.push_back({"A", "Vite <b>4x40</b>", 3, Currency::daScalato(12200), "22"});
        s.totale = Currency::daScalato(36600);
        s.numero = 12;
        s.ora = QDateTime(QDate(2026, 3, 16), QTime(10, 30));
        return s;
    }
    void scegli(Guasto guasto) {
        auto* scelta = finestra.findChild<QComboBox*>("cmbGuasto");
        scelta->setCurrentIndex(scelta->findData(static_cast<int>(guasto)));
        emit scelta->activated(scelta->currentIndex());
    }

    Simulatore simulatore;
    FinestraStriscia finestra{simulatore};
};

}  // namespace

TEST_F(StripWindow, ReceiptComesOutOnTheStrip) {
    emit simulatore.stampato(scontrino());
    const QString testo = finestra.findChild<QPlainTextEdit*>("txtStriscia")->toPlainText();
    EXPECT_TRUE(testo.contains("Vite <b>4x40</b>"));
    EXPECT_TRUE(testo.contains("TOTALE EURO"));
    finestra.show();
    QDir().mkpath("schermate");
    EXPECT_TRUE(finestra.grab().save("schermate/striscia.png"));
}

TEST_F(StripWindow, MinimisedWindowComesBackWithAReceipt) {
    finestra.showMinimized();
    emit simulatore.stampato(scontrino());
    EXPECT_FALSE(finestra.isMinimized());
    EXPECT_TRUE(finestra.isVisible());
}

TEST_F(StripWindow, ChosenFaultIsInForce) {
    scegli(Guasto::Carta);
    EXPECT_EQ(simulatore.guastoInForza(), Guasto::Carta);
}

TEST_F(StripWindow, FaultThatHasPassedIsShownAsPassed) {
    simulatore.guasto(Guasto::Rifiuta, true);
    EXPECT_EQ(finestra.findChild<QComboBox*>("cmbGuasto")->currentText(), "Rifiuta (NAK)");
    simulatore.guasto(Guasto::Nessuno, false);
    EXPECT_EQ(finestra.findChild<QComboBox*>("cmbGuasto")->currentText(), "Funziona");
}

TEST_F(StripWindow, WarningStandsBesideTheStateUntilItIsTakenBack) {
    auto* stato = finestra.findChild<QLabel*>("lblStato");
    finestra.avviso("Disco pieno");
    EXPECT_EQ(stato->text(), "In attesa della cassa\nDisco pieno");
    emit simulatore.collegato(true);
    EXPECT_EQ(stato->text(), "Collegato con la cassa\nDisco pieno");
    finestra.avviso({});
    EXPECT_EQ(stato->text(), "Collegato con la cassa");
}

TEST_F(StripWindow, ConnectionIsSaid) {
    auto* stato = finestra.findChild<QLabel*>("lblStato");
    EXPECT_EQ(stato->text(), "In attesa della cassa");
    emit simulatore.collegato(true);
    EXPECT_EQ(stato->text(), "Collegato con la cassa");
}
