#include <QDir>
#include <QLineEdit>
#include <QMessageBox>

#include "counter/ui/style.h"
#include "counter_ui/journey.h"

namespace {

constexpr char nessuna[] = "Nessuna vendita trovata!";

// The go-to dialogue of the real window. The books hold sale 1/1 of today, 16/03/2026, with one VITE and sale
// 1/2 with two.
class GoToDialogue : public Percorso {
  protected:
    GoToDialogue() {
        for (int pezzi = 1; pezzi <= 2; ++pezzi) {
            for (int i = 0; i < pezzi; ++i)
                scansionaVite();
            batti(Qt::Key_F5);
            batti(Qt::Key_F2);
        }
        EXPECT_EQ(mostrata(), "0001/(Auto)");
    }
    // Alt+A, then that.
    void vaiA(const Gesto& gesto) {
        nelDialogo([&] { batti(Qt::Key_A, Qt::AltModifier); },
                   [&] {
                       EXPECT_EQ(QApplication::activeModalWidget()->objectName(), "frmVaiVendita");
                       gesto();
                   });
    }
    // The same, which ends in the box that says that there is none.
    void vaiANessuna(const Gesto& gesto) {
        bool detto = false;
        vaiA([&] {
            conRiquadro([&](QWidget& riquadro) {
                EXPECT_EQ(dynamic_cast<QMessageBox&>(riquadro).text(), nessuna);
                detto = true;
                tasto(Qt::Key_Return);
            });
            gesto();
        });
        EXPECT_TRUE(QTest::qWaitFor([&] { return detto && QApplication::activeModalWidget() == nullptr; }));
        EXPECT_EQ(mostrata(), "0001/(Auto)");
    }
    static QLineEdit& casella(const char* nome) {
        return *QApplication::activeModalWidget()->findChild<QLineEdit*>(nome);
    }
    void scriviIn(const char* nome, const QString& testo) {
        casella(nome).setFocus();
        batti(testo);
    }
    QString mostrata() const { return vendita().txtProg.testo() + "/" + vendita().txtSottoProg.testo(); }
};

// ---- Keyboard

TEST_F(GoToDialogue, WaitsForTheNumberOfThisYear) {
    vaiA([&] {
        EXPECT_TRUE(casella("txtProg").hasFocus());
        EXPECT_EQ(casella("txtAnno").text(), "2026");
        EXPECT_EQ(casella("txtData").text() + casella("txtProg").text() + casella("txtSottoProg").text(), "");
        batti(Qt::Key_Escape);
    });
}

TEST_F(GoToDialogue, NumberAndEnterShowItsLastSale) {
    vaiA([&] { batti("1", Qt::Key_Return); });
    EXPECT_EQ(mostrata(), "0001/0002");
}

TEST_F(GoToDialogue, TabWalksTheBoxesAndEnterConfirmsFromEach) {
    vaiA([&] {
        batti("1", Qt::Key_Tab);
        EXPECT_TRUE(casella("txtAnno").hasFocus());
        batti(Qt::Key_Tab);
        EXPECT_TRUE(casella("txtSottoProg").hasFocus());
        batti("1", Qt::Key_Return);
    });
    EXPECT_EQ(mostrata(), "0001/0001");
}

TEST_F(GoToDialogue, DayWithoutSeparatorsAndEnterShowsItsLastSale) {
    vaiA([&] {
        scriviIn("txtData", "16032026");
        batti(Qt::Key_Return);
    });
    EXPECT_EQ(mostrata(), "0001/0002");
}

TEST_F(GoToDialogue, DayOfTwoYearDigitsIsOfThisCentury) {
    vaiA([&] {
        scriviIn("txtData", "160326");
        tocca("cmdInvio");
    });
    EXPECT_EQ(mostrata(), "0001/0002");
}

TEST_F(GoToDialogue, EscShowsNothing) {
    vaiA([&] {
        batti("1");
        batti(Qt::Key_Escape);
    });
    EXPECT_EQ(mostrata(), "0001/(Auto)");
}

TEST_F(GoToDialogue, CloseBoxShowsNothing) {
    vaiA([&] {
        batti("1");
        QApplication::activeModalWidget()->close();
    });
    EXPECT_EQ(mostrata(), "0001/(Auto)");
}

TEST_F(GoToDialogue, LettersAndSignsAreNotTaken) {
    vaiA([&] {
        batti("a1-b+'%");
        EXPECT_EQ(casella("txtProg").text(), "1");
        scriviIn("txtData", "1x6/03/2026");
        EXPECT_EQ(casella("txtData").text(), "16/03/2026");
        batti(Qt::Key_Escape);
    });
}

TEST_F(GoToDialogue, DayThatIsNoneIsTold) {
    for (const char* giorno : {"31022026", "31/02/2026", "00000000", "1", "//"}) {
        vaiANessuna([&] {
            scriviIn("txtData", giorno);
            batti(Qt::Key_Return);
        });
    }
}

TEST_F(GoToDialogue, NumberThatIsNoneIsTold) {
    for (const char* numero : {"99", "0", "99999999999999999999"})
        vaiANessuna([&] { batti(numero, Qt::Key_Return); });
}

TEST_F(GoToDialogue, EmptyConfirmedIsTold) {
    vaiANessuna([&] { batti(Qt::Key_Return); });
}

// ---- Finger

TEST_F(GoToDialogue, FingerEntersTheNumber) {
    vaiA([&] {
        toccaTasti({"1"});
        tocca("cmdInvio");
    });
    EXPECT_EQ(mostrata(), "0001/0002");
}

TEST_F(GoToDialogue, FingersEnterConfirmsToo) {
    vaiA([&] { toccaTasti({"1", "INVIO"}); });
    EXPECT_EQ(mostrata(), "0001/0002");
}

TEST_F(GoToDialogue, KeypadFollowsTheBoxThatWasTouched) {
    vaiA([&] {
        toccaTasti({"1"});
        QTest::mouseClick(&casella("txtSottoProg"), Qt::LeftButton);
        toccaTasti({"1"});
        EXPECT_EQ(casella("txtProg").text() + "/" + casella("txtSottoProg").text(), "1/1");
        tocca("cmdInvio");
    });
    EXPECT_EQ(mostrata(), "0001/0001");
}

TEST_F(GoToDialogue, CmdDelTakesTheLastCharacterOfTheActiveBox) {
    vaiA([&] {
        toccaTasti({"1", "2", "3"});
        tocca("cmdDel");
        EXPECT_EQ(casella("txtProg").text(), "12");
        QTest::mouseClick(&casella("txtAnno"), Qt::LeftButton);
        tocca("cmdDel");
        EXPECT_EQ(casella("txtAnno").text(), "202");
        EXPECT_EQ(casella("txtProg").text(), "12");
        tocca("cmdEsci");
    });
}

TEST_F(GoToDialogue, CmdCEEmptiesTheBoxesBackToThisYear) {
    vaiA([&] {
        for (const char* nome : {"txtData", "txtProg", "txtAnno", "txtSottoProg"})
            scriviIn(nome, "1");
        tocca("cmdCE");
        EXPECT_EQ(casella("txtData").text() + casella("txtProg").text() + casella("txtSottoProg").text(), "");
        EXPECT_EQ(casella("txtAnno").text(), "2026");
        tocca("cmdEsci");
    });
}

TEST_F(GoToDialogue, CmdEsciShowsNothing) {
    vaiA([&] {
        toccaTasti({"1"});
        tocca("cmdEsci");
    });
    EXPECT_EQ(mostrata(), "0001/(Auto)");
}

// ---- Look

class GoToLook : public GoToDialogue, public testing::WithParamInterface<std::pair<bool, bool>> {
  protected:
    GoToLook() {
        applicaStile(*qApp, {.scuro = GetParam().first, .carattereGrande = GetParam().second});
        // The largest type that a wide screen gets.
        if (GetParam().second) {
            QFont carattere = QApplication::font();
            carattere.setPointSize(16);
            QApplication::setFont(carattere);
        }
    }
    ~GoToLook() override { applicaStile(*qApp, {}); }
    void salvaImmagine() const {
        QDir().mkpath("schermate");
        const QString aspetto =
            QString(GetParam().first ? "_scuro" : "") + (GetParam().second ? "_grande" : "");
        EXPECT_TRUE(QApplication::activeModalWidget()->grab().save("schermate/vai_a" + aspetto + ".png"));
    }
};

INSTANTIATE_TEST_SUITE_P(Schemes, GoToLook,
                         testing::Values(std::pair(false, false), std::pair(true, false),
                                         std::pair(false, true), std::pair(true, true)));

TEST_P(GoToLook, NothingIsCut) {
    vaiA([&] {
        scriviIn("txtData", "88/88/8888");
        const QWidget& dialogo = *QApplication::activeModalWidget();
        for (const QWidget* w : dialogo.findChildren<QWidget*>()) {
            const auto* scritta = qobject_cast<const QLineEdit*>(w);
            const int testo = scritta == nullptr ? 0 : w->fontMetrics().horizontalAdvance(scritta->text());
            if (w->isVisible()) {
                EXPECT_GE(w->width(), std::max(w->minimumSizeHint().width(), testo + 24))
                    << qPrintable(w->objectName());
                EXPECT_GE(w->height(), w->minimumSizeHint().height()) << qPrintable(w->objectName());
            }
        }
        salvaImmagine();
        batti(Qt::Key_Escape);
    });
}

TEST_P(GoToLook, TheBoxWithTheFocusStandsOut) {
    vaiA([&] {
        QLineEdit& prog = casella("txtProg");
        const QImage attiva = prog.grab().toImage();
        casella("txtAnno").setFocus();
        EXPECT_NE(prog.grab().toImage(), attiva);
        batti(Qt::Key_Escape);
    });
}

}  // namespace
