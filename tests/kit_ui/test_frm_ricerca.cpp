#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include "data/schema_archive.h"
#include "kit/CTextBox.h"
#include "kit/ui/frmRicerca.h"
#include "kit/ui/search_grid.h"
#include "kit_ui/modal.h"

namespace {

class SearchForm : public testing::Test {
  protected:
    // Ten of them: C01 "voce 01" to C10 "voce 10", and one "altro".
    SearchForm() {
        QStringList righe;
        for (int i = 1; i <= 10; ++i) {
            const QString numero = QString::number(i).rightJustified(2, '0');
            righe << "(" + QString::number(i) + ", 'C" + numero + "', 'voce " + numero + "')";
        }
        archivio.sql("DELETE FROM Pagamenti");
        archivio.sql("INSERT INTO Pagamenti (RID, CODICE, DESCRIZIONE) VALUES " + righe.join(", "));
    }

    // Opens the search, runs `gesto` while it is up, and answers its result.
    QString apri(std::function<void()> gesto, bool multi = false, bool nuovo = false,
                 const QString& colonne = {}) {
        gMultiSel = multi ? 1 : 0;
        frmRicerca ricerca(archivio.operatore, nullptr);
        quandoModale([&](QWidget* finestra) {
            form = finestra;
            ASSERT_TRUE(QTest::qWaitForWindowActive(form));
            gesto();
            if (form->isVisible()) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        });
        ricerca.startMe({.sql = "SELECT TOP 4 RID, CODICE, DESCRIZIONE FROM Pagamenti ",
                         .campoChiave = "DESCRIZIONE",
                         .multi = multi,
                         .nuovo = nuovo,
                         .colonne = colonne});
        return ricerca.risultato();
    }

    template <class Widget = QWidget>
    Widget& w(const char* nome) const {
        auto* trovato = form->findChild<Widget*>(nome);
        EXPECT_NE(trovato, nullptr) << nome;
        return *trovato;
    }
    void premi(const char* nome) const { QTest::mouseClick(&w<QPushButton>(nome), Qt::LeftButton); }
    void digita(const QString& testo) const {
        for (const QChar c : testo) {
            QTest::keyClicks(QApplication::focusWidget(), QString(c));
        }
    }
    void tasto(Qt::Key quale, Qt::KeyboardModifiers modificatori = {}) const {
        QTest::keyClick(QApplication::focusWidget(), quale, modificatori);
    }
    GrigliaRicerca& griglia() const { return w<GrigliaRicerca>("flxRicerca"); }
    QLineEdit& testo() const { return w<QLineEdit>("txtRicerca"); }
    QString prima() const { return griglia().model()->index(0, 2).data().toString(); }
    int righe() const { return griglia().model()->rowCount(); }
    void clicRiga(int riga) const {
        const QPoint dove = griglia().visualRect(griglia().model()->index(riga, 3)).center();
        QTest::mouseClick(griglia().viewport(), Qt::LeftButton, {}, dove);
    }
    QRect titolo(int colonna) const {
        const QHeaderView& titoli = *griglia().horizontalHeader();
        return {titoli.sectionViewportPosition(colonna), 0, titoli.sectionSize(colonna), titoli.height()};
    }
    void premiTitolo(int colonna) const {
        QTest::mouseClick(griglia().horizontalHeader()->viewport(), Qt::LeftButton, {},
                          titolo(colonna).center());
    }
    // Behind the words.
    QColor coloreTitolo(int colonna) const {
        const QImage immagine = griglia().horizontalHeader()->viewport()->grab().toImage();
        return immagine.pixelColor(titolo(colonna).topLeft() + QPoint(3, 3));
    }
    void dopoIlRiposo(const QString& primaRiga) const {
        EXPECT_TRUE(QTest::qWaitFor([&] { return prima() == primaRiga; }, 2000)) << qPrintable(prima());
    }

    LibriDiProva archivio;
    QWidget* form = nullptr;
};

TEST_F(SearchForm, OpensOnTheFirstPageWithTheFocusInTheText) {
    apri([&] {
        EXPECT_EQ(form->windowTitle(), "Ricerca");
        EXPECT_EQ(prima(), "C01");
        EXPECT_TRUE(testo().hasFocus());
        EXPECT_TRUE(form->windowFlags() & Qt::WindowStaysOnTopHint);
    });
}

TEST_F(SearchForm, TypingNarrowsAfterAShortRestAndLeavesTheTextUnselected) {
    apri([&] {
        digita("voce 1");
        dopoIlRiposo("C10");
        EXPECT_EQ(righe(), 1);
        EXPECT_TRUE(testo().hasFocus());
        EXPECT_FALSE(testo().hasSelectedText());
        EXPECT_FALSE(w<QLabel>("pctNessuna").isVisible());
    });
}

TEST_F(SearchForm, EnterAsksAtOnceAndANoticeTellsThatNothingWasFound) {
    apri([&] {
        digita("xyz");
        tasto(Qt::Key_Return);
        EXPECT_TRUE(w<QLabel>("pctNessuna").isVisible());
        EXPECT_EQ(w<QLabel>("pctNessuna").text(), "NESSUNA CORRISPONDENZA TROVATA!");
        EXPECT_EQ(testo().selectedText(), "xyz");
        EXPECT_EQ(righe(), 4);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !w<QLabel>("pctNessuna").isVisible(); }, 4000));
    });
}

TEST_F(SearchForm, PageKeysTurnThePagesFromTheText) {
    apri([&] {
        tasto(Qt::Key_PageDown);
        EXPECT_EQ(prima(), "C05");
        tasto(Qt::Key_PageUp);
        EXPECT_EQ(prima(), "C01");
        EXPECT_TRUE(testo().hasFocus());
    });
}

TEST_F(SearchForm, AnArrowGoesToTheGridAndEnterChoosesThere) {
    EXPECT_EQ(apri([&] {
                  tasto(Qt::Key_Down);
                  EXPECT_TRUE(griglia().hasFocus());
                  tasto(Qt::Key_Down);
                  tasto(Qt::Key_Return);
              }),
              "2|");
}

TEST_F(SearchForm, ArrowsTurnThePageAtItsEnd) {
    EXPECT_EQ(apri([&] {
                  for (int i = 0; i < 5; ++i) {
                      tasto(Qt::Key_Down);
                  }
                  EXPECT_EQ(prima(), "C05");
                  tasto(Qt::Key_Up);
                  EXPECT_EQ(prima(), "C01");
                  tasto(Qt::Key_Return);
              }),
              "4|");
}

TEST_F(SearchForm, TypingInTheGridGoesOnInTheText) {
    apri([&] {
        digita("vo");
        tasto(Qt::Key_Down);
        digita("c");
        EXPECT_TRUE(testo().hasFocus());
        EXPECT_EQ(testo().text(), "voc");
        tasto(Qt::Key_Down);
        tasto(Qt::Key_Backspace);
        EXPECT_EQ(testo().text(), "vo");
    });
}

TEST_F(SearchForm, ShiftAloneInTheGridIsNoTyping) {
    apri([&] {
        tasto(Qt::Key_Down);
        tasto(Qt::Key_Shift);
        EXPECT_TRUE(griglia().hasFocus());
    });
}

TEST_F(SearchForm, EscapeChoosesNothing) {
    EXPECT_EQ(apri([&] { tasto(Qt::Key_Escape); }), "");
    EXPECT_EQ(apri([&] {
                  tasto(Qt::Key_Down);
                  tasto(Qt::Key_Escape);
              }),
              "");
    EXPECT_EQ(apri([&] { premi("cmdEsci"); }), "");
}

TEST_F(SearchForm, ATapOnARowChoosesIt) {
    EXPECT_EQ(apri([&] { clicRiga(2); }), "3|");
}

TEST_F(SearchForm, TheSecondClickOfADoubleOnePressesNothingBelow) {
    QPushButton sotto("SALVA");
    sotto.resize(800, 600);
    sotto.show();
    int premuto = 0;
    QObject::connect(&sotto, &QPushButton::clicked, [&] { ++premuto; });
    const QPoint dove = sotto.rect().center();
    QCursor::setPos(sotto.mapToGlobal(dove));
    apri([&] { clicRiga(2); });
    QTest::mouseClick(&sotto, Qt::LeftButton, {}, dove);
    EXPECT_EQ(premuto, 0);
    QTest::mouseClick(&sotto, Qt::LeftButton, {}, QPoint(20, 20));
    EXPECT_EQ(premuto, 1);
    EXPECT_TRUE(QTest::qWaitFor([&] {
        QTest::mouseClick(&sotto, Qt::LeftButton, {}, dove);
        return premuto == 2;
    }));
}

TEST_F(SearchForm, TheButtonsDoWhatTheKeysDo) {
    EXPECT_EQ(apri([&] {
                  premi("cmdDown");
                  EXPECT_EQ(prima(), "C05");
                  premi("cmdSu");
                  EXPECT_EQ(prima(), "C01");
                  premi("cmdSelect");
              }),
              "1|");
}

TEST_F(SearchForm, ANewElementIsItsOwnAnswer) {
    EXPECT_EQ(apri([&] { premi("cmdNuovoElemento"); }, false, true), ricercaNuovo);
}

TEST_F(SearchForm, ANewElementIsOfferedOnlyWhenTheCallerAllowsIt) {
    apri([&] { EXPECT_FALSE(w<QPushButton>("cmdNuovoElemento").isEnabled()); });
}

TEST_F(SearchForm, CtrlAndADigitChooseTheSearchColumn) {
    apri([&] {
        EXPECT_EQ(w<QLabel>("lblDesc").text(), "DESCRIZIONE");
        tasto(Qt::Key_Down);
        tasto(Qt::Key_1, Qt::ControlModifier);
        EXPECT_EQ(w<QLabel>("lblDesc").text(), "CODICE");
        EXPECT_TRUE(testo().hasFocus());
        digita("c07");
        dopoIlRiposo("C07");
    });
}

TEST_F(SearchForm, ATapOnAHeaderChoosesTheSearchColumn) {
    apri([&] {
        premiTitolo(2);
        EXPECT_EQ(w<QLabel>("lblDesc").text(), "CODICE");
        EXPECT_TRUE(testo().hasFocus());
        digita("c07");
        dopoIlRiposo("C07");
    });
}

TEST_F(SearchForm, TheChosenColumnStandsOutInTheHeader) {
    apri([&] {
        const QColor prima = coloreTitolo(2);
        EXPECT_NE(coloreTitolo(3), prima);
        premiTitolo(2);
        EXPECT_NE(coloreTitolo(2), prima);
        EXPECT_EQ(coloreTitolo(3), prima);
    });
}

TEST_F(SearchForm, CtrlAndAnArrowScrollToTheSideAndReturnToTheText) {
    const QString larghe = "<CODICE¤9500|<DESCRIZIONE¤20000";
    apri(
        [&] {
            tasto(Qt::Key_Down);
            QScrollBar* barra = griglia().horizontalScrollBar();
            ASSERT_GT(barra->maximum(), 0);
            tasto(Qt::Key_Right, Qt::ControlModifier);
            const int aDestra = barra->value();
            EXPECT_GT(aDestra, 0);
            EXPECT_TRUE(testo().hasFocus());
            tasto(Qt::Key_Left, Qt::ControlModifier);
            EXPECT_LT(barra->value(), aDestra);
        },
        false, false, larghe);
}

TEST_F(SearchForm, FastHandsChooseFromTheRowsOfWhatTheyTyped) {
    EXPECT_EQ(apri([&] {
                  digita("voce 07");
                  tasto(Qt::Key_Down);
                  tasto(Qt::Key_Return);
              }),
              "7|");
}

TEST_F(SearchForm, FastHandsThatFoundNothingChooseNothing) {
    EXPECT_EQ(apri([&] {
                  digita("xyz");
                  tasto(Qt::Key_Down);
                  EXPECT_TRUE(testo().hasFocus());
                  tasto(Qt::Key_Return);
                  EXPECT_TRUE(w<QLabel>("pctNessuna").isVisible());
              }),
              "");
}

TEST_F(SearchForm, TheButtonTooChoosesFromTheRowsOfWhatWasTyped) {
    EXPECT_EQ(apri([&] {
                  digita("voce 07");
                  premi("cmdSelect");
              }),
              "7|");
}

TEST_F(SearchForm, EachEmptyPageShowsItsNoticeForItsWholeTime) {
    apri([&] {
        digita("xyz");
        tasto(Qt::Key_Return);
        QTest::qWait(1200);
        tasto(Qt::Key_Return);
        QTest::qWait(1200);
        EXPECT_TRUE(w<QLabel>("pctNessuna").isVisible());
    });
}

TEST_F(SearchForm, CtrlNineChangesNoColumnButReturnsToTheText) {
    apri([&] {
        tasto(Qt::Key_Down);
        tasto(Qt::Key_9, Qt::ControlModifier);
        EXPECT_EQ(w<QLabel>("lblDesc").text(), "DESCRIZIONE");
        EXPECT_TRUE(testo().hasFocus());
    });
}

TEST_F(SearchForm, F4LooksAnywhereInTheField) {
    apri([&] {
        digita("ce 09");
        tasto(Qt::Key_F4);
        EXPECT_TRUE(w<QCheckBox>("chkCodiceProdotto").isChecked());
        dopoIlRiposo("C09");
        QTest::mouseClick(&w<QCheckBox>("chkCodiceProdotto"), Qt::LeftButton, {}, QPoint(12, 22));
        EXPECT_FALSE(w<QCheckBox>("chkCodiceProdotto").isChecked());
        EXPECT_TRUE(testo().hasFocus());
    });
}

TEST_F(SearchForm, TheOnScreenKeyboardTypesAndNarrows) {
    apri([&] {
        for (const char* lettera : {"V", "O", "C", "E", "SPAZIO", "1"}) {
            for (auto* pulsante : form->findChildren<QPushButton*>()) {
                if (pulsante->text() == lettera && pulsante->objectName().startsWith("tasto_"))
                    QTest::mouseClick(pulsante, Qt::LeftButton);
            }
        }
        EXPECT_EQ(testo().text(), "VOCE 1");
        dopoIlRiposo("C10");
        premi("cmdDel");
        EXPECT_EQ(testo().text(), "VOCE ");
        premi("cmdNuovo");
        EXPECT_EQ(testo().text(), "");
        dopoIlRiposo("C01");
        EXPECT_TRUE(testo().hasFocus());
    });
}

TEST_F(SearchForm, WhereSeveralAreKeptATapMarksAndTheButtonChooses) {
    EXPECT_EQ(apri(
                  [&] {
                      clicRiga(0);
                      clicRiga(2);
                      EXPECT_EQ(w<QPushButton>("cmdSelect").text(), "SELEZIONA\n(2)");
                      premi("cmdSelect");
                  },
                  true),
              "1|3|");
}

TEST_F(SearchForm, SpaceTogglesTheMarkOfTheCurrentRow) {
    EXPECT_EQ(apri(
                  [&] {
                      tasto(Qt::Key_Down);
                      tasto(Qt::Key_Space);
                      tasto(Qt::Key_Down);
                      tasto(Qt::Key_Space);
                      tasto(Qt::Key_Space);
                      tasto(Qt::Key_Return);
                  },
                  true),
              "1|");
}

TEST_F(SearchForm, ADoubleClickWhereSeveralAreKeptChoosesTheMarkedRows) {
    EXPECT_EQ(apri(
                  [&] {
                      clicRiga(3);
                      const QPoint dove = griglia().visualRect(griglia().model()->index(1, 3)).center();
                      QTest::mouseClick(griglia().viewport(), Qt::LeftButton, {}, dove);
                      QTest::mouseDClick(griglia().viewport(), Qt::LeftButton, {}, dove);
                  },
                  true),
              "2|4|");
}

TEST_F(SearchForm, PastedLineBreaksAndALongTextDoNoHarm) {
    apri([&] {
        QGuiApplication::clipboard()->setText("voce\r\n 0\t5");
        tasto(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(testo().text(), "voce 05");
        dopoIlRiposo("C05");
        testo().selectAll();
        QGuiApplication::clipboard()->setText(QString(1000, 'x'));
        tasto(Qt::Key_V, Qt::ControlModifier);
        tasto(Qt::Key_Return);
        EXPECT_TRUE(w<QLabel>("pctNessuna").isVisible());
        EXPECT_TRUE(archivio.operatore.avvisi.empty());
    });
}

TEST_F(SearchForm, EveryTargetIsLargeEnoughForAFinger) {
    apri([&] {
        for (auto* pulsante : form->findChildren<QPushButton*>()) {
            EXPECT_GE(pulsante->height(), 44) << qPrintable(pulsante->objectName());
            EXPECT_GE(pulsante->width(), 44) << qPrintable(pulsante->objectName());
            EXPECT_FALSE(pulsante->accessibleName().isEmpty()) << qPrintable(pulsante->objectName());
        }
        EXPECT_GE(griglia().rowHeight(0), 44);
        EXPECT_GE(w<QCheckBox>("chkCodiceProdotto").height(), 44);
    });
}

TEST_F(SearchForm, ItsTextNoLongerHasTheKeypadsFocusOnceItIsClosed) {
    apri([&] { EXPECT_NE(mTextBoxCorrente, nullptr); });
    EXPECT_EQ(mTextBoxCorrente, nullptr);
}

}  // namespace
