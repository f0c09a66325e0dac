#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>

#include "counter/ui/style.h"
#include "counter_ui/journey.h"

namespace {

// The list of a movement's rows in the real window: sale 1/1 holds one VITE, sale 1/2, on the screen, one
// VITE and one CHIODO.
class MovementDialogue : public Percorso {
  protected:
    MovementDialogue() {
        scansionaVite();
        batti(Qt::Key_F5);
        batti(Qt::Key_F2);
        scansionaVite();
        scansiona("$8009999999999");
        batti(Qt::Key_F5);
        EXPECT_EQ(mostrata(), "0001/0002");
    }
    // Alt+G, then that.
    void elenco(const Gesto& gesto) {
        nelDialogo([&] { batti(Qt::Key_G, Qt::AltModifier); },
                   [&] {
                       EXPECT_EQ(QApplication::activeModalWidget()->objectName(),
                                 "frmElencoProdottiMovimento");
                       gesto();
                   });
    }
    static QTableWidget& griglia() {
        return *QApplication::activeModalWidget()->findChild<QTableWidget*>("flxVB");
    }
    static void doppioClic(int riga) {
        const QPoint dove = griglia().visualItemRect(griglia().item(riga, 2)).center();
        QTest::mouseClick(griglia().viewport(), Qt::LeftButton, {}, dove);
        QTest::mouseDClick(griglia().viewport(), Qt::LeftButton, {}, dove);
    }
    QString mostrata() const { return vendita().txtProg.testo() + "/" + vendita().txtSottoProg.testo(); }
};

TEST_F(MovementDialogue, ShowsTheRowsOfAllSalesOfTheNumber) {
    elenco([&] {
        EXPECT_TRUE(griglia().hasFocus());
        ASSERT_EQ(griglia().rowCount(), 3);
        EXPECT_EQ(griglia().item(2, 0)->text(), "0002");
        EXPECT_EQ(griglia().item(2, 1)->text(), "CHIODO");
        EXPECT_EQ(mostrato("lblTotale"), "25,62");
        batti(Qt::Key_Escape);
    });
}

TEST_F(MovementDialogue, EnterPicksTheRow) {
    elenco([&] {
        batti(Qt::Key_Down);
        batti(Qt::Key_Down);
        batti(Qt::Key_Return);
    });
    EXPECT_EQ(mostrata(), "0001/0002");
    EXPECT_EQ(vendita().flxVB.selezionata(), 2);
}

TEST_F(MovementDialogue, EnterOnTheFirstRowBringsItsSale) {
    elenco([&] { batti(Qt::Key_Return); });
    EXPECT_EQ(mostrata(), "0001/0001");
    EXPECT_EQ(vendita().flxVB.selezionata(), 1);
}

TEST_F(MovementDialogue, DoubleClickPicksTheRow) {
    elenco([&] { doppioClic(0); });
    EXPECT_EQ(mostrata(), "0001/0001");
}

TEST_F(MovementDialogue, OneClickOnlyMarksIt) {
    elenco([&] {
        QTest::mouseClick(griglia().viewport(), Qt::LeftButton, {},
                          griglia().visualItemRect(griglia().item(1, 2)).center());
        EXPECT_TRUE(griglia().isVisible());
        EXPECT_EQ(griglia().currentRow(), 1);
        batti(Qt::Key_Escape);
    });
    EXPECT_EQ(mostrata(), "0001/0002");
}

TEST_F(MovementDialogue, EscPicksNothing) {
    elenco([&] { batti(Qt::Key_Escape); });
    EXPECT_EQ(mostrata(), "0001/0002");
    EXPECT_EQ(vendita().flxVB.ultima(), 2);
}

TEST_F(MovementDialogue, CmdEsciPicksNothing) {
    elenco([&] { tocca("cmdEsci"); });
    EXPECT_EQ(mostrata(), "0001/0002");
}

TEST_F(MovementDialogue, CmdEsciIsReachedAndPressedByKey) {
    elenco([&] {
        batti(Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget()->objectName(), "cmdEsci");
        batti(Qt::Key_Return);
    });
    EXPECT_EQ(mostrata(), "0001/0002");
}

TEST_F(MovementDialogue, TypingChangesNothing) {
    elenco([&] {
        batti("9");
        batti(Qt::Key_F2);
        EXPECT_EQ(griglia().item(0, 1)->text(), "VITE");
        EXPECT_TRUE(griglia().findChildren<QLineEdit*>().isEmpty());
        batti(Qt::Key_Escape);
    });
}

TEST_F(MovementDialogue, WithoutRowsEnterAndClicksPickNothing) {
    negozio.sql("DELETE FROM DettagliMovimento");
    elenco([&] {
        EXPECT_EQ(griglia().rowCount(), 0);
        batti(Qt::Key_Return);
        QTest::mouseDClick(griglia().viewport(), Qt::LeftButton, {}, QPoint(20, 20));
        EXPECT_TRUE(griglia().isVisible());
        batti(Qt::Key_Escape);
    });
    EXPECT_EQ(mostrata(), "0001/0002");
}

// ---- Look

class MovementLook : public MovementDialogue, public testing::WithParamInterface<std::pair<bool, bool>> {
  protected:
    MovementLook() { applicaStile(*qApp, {.scuro = GetParam().first, .carattereGrande = GetParam().second}); }
    ~MovementLook() override { applicaStile(*qApp, {}); }
    void salvaImmagine() const {
        QDir().mkpath("schermate");
        const QString aspetto =
            QString(GetParam().first ? "_scuro" : "") + (GetParam().second ? "_grande" : "");
        EXPECT_TRUE(
            QApplication::activeModalWidget()->grab().save("schermate/righe_movimento" + aspetto + ".png"));
    }
};

INSTANTIATE_TEST_SUITE_P(Schemes, MovementLook,
                         testing::Values(std::pair(false, false), std::pair(true, false),
                                         std::pair(false, true), std::pair(true, true)));

TEST_P(MovementLook, NothingIsCut) {
    negozio.sql("UPDATE Anagrafiche SET DENOMINAZIONE = 'Ferramenta e Casalinghi Bianchi & Figli di Borgo'");
    elenco([&] {
        for (const QLabel* l : QApplication::activeModalWidget()->findChildren<QLabel*>()) {
            EXPECT_GE(l->width(), l->minimumSizeHint().width()) << qPrintable(l->text());
            EXPECT_GE(l->height(), l->minimumSizeHint().height()) << qPrintable(l->text());
        }
        for (int c = 0; c < griglia().columnCount(); ++c) {
            const int testo = griglia().fontMetrics().horizontalAdvance(griglia().item(1, c)->text());
            EXPECT_GT(griglia().columnWidth(c), testo) << c;
        }
        salvaImmagine();
        batti(Qt::Key_Escape);
    });
}

TEST_P(MovementLook, TheGridShowsThatItHasTheFocus) {
    elenco([&] {
        const QImage attiva = griglia().grab().toImage();
        QApplication::activeModalWidget()->findChild<QWidget*>("cmdEsci")->setFocus();
        EXPECT_NE(griglia().grab().toImage(), attiva);
        batti(Qt::Key_Escape);
    });
}

}  // namespace
