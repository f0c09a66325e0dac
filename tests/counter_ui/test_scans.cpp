#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTableView>

#include "counter_ui/window_shop.h"
#include "data/server_driver.h"

namespace {

constexpr auto ean = "8001234567890";

class Scans : public WindowShop {
  protected:
    Scans() { apriFinestra(); }

    // The row of the first product is to be deleted: a question.
    void chiediDiCancellare() {
        scansiona(QString("$") + ean);
        ASSERT_EQ(codici(), QStringList{"VITE"});
        tasto(Qt::Key_F9);
    }
};

TEST_F(Scans, FiftyCodesAMillisecondApartLoseNone) {
    for (int i = 0; i < 50; ++i) {
        negozio.prodotto(
            {.codice = QString("P%1").arg(i), .listino1 = 1.0, .barcode = QString::number(2000 + i)});
    }
    QStringList attesi;
    for (int i = 0; i < 50; ++i) {
        scansiona("$" + QString::number(2000 + i), 1);
        attesi << QString("P%1").arg(i);
    }
    EXPECT_EQ(codici(), attesi);
    EXPECT_EQ(vendita().lblMainDisplay.testo(), "61,00");
}

TEST_F(Scans, ScanWhileAQuestionStandsDoesNotAnswerIt) {
    bool ancoraAperto = false;
    conRiquadro([&](QWidget& riquadro) {
        scansiona("$8009999999999");
        ancoraAperto = riquadro.isVisible();
        premi(riquadro, "cmdNo");
    });
    chiediDiCancellare();
    EXPECT_TRUE(ancoraAperto);
    EXPECT_TRUE(codici().contains("VITE"));
}

TEST_F(Scans, ScansWhileAQuestionStandsAreEnteredAfterItInTheirOrder) {
    conRiquadro([&](QWidget& riquadro) {
        scansiona("$8009999999999");
        scansiona("$STAFFA");
        premi(riquadro, "cmdNo");
    });
    chiediDiCancellare();
    aspettaCodici({"VITE", "CHIODO", "STAFFA"});
    EXPECT_EQ(vendita().flxVB.cella(2, Colonna::Quantita), "1,00");
}

TEST_F(Scans, ScansWithoutEnterWhileAQuestionStandsAreKept) {
    conRiquadro([&](QWidget& riquadro) {
        digita("$8009999999999$STAFFA");
        EXPECT_TRUE(QTest::qWaitFor([&] { return coda().size() == 2; }));
        premi(riquadro, "cmdNo");
    });
    chiediDiCancellare();
    aspettaCodici({"VITE", "CHIODO", "STAFFA"});
}

TEST_F(Scans, BurstWithoutPrefixDoesNotAnswerAQuestionEither) {
    bool ancoraAperto = false;
    conRiquadro([&](QWidget& riquadro) {
        scansiona("8009999999999");
        ancoraAperto = riquadro.isVisible();
        premi(riquadro, "cmdNo");
    });
    chiediDiCancellare();
    EXPECT_TRUE(ancoraAperto);
    aspettaCodici({"VITE", "CHIODO"});
}

TEST_F(Scans, ScanThatRaisesAQuestionIsFollowedByThoseBehindIt) {
    const int nuovo = negozio.prodotto({.codice = "NUOVO", .listino1 = 3.0, .descrizione = "Nuovo"});
    negozio.prodotto({.codice = "DISMESSO", .listino1 = 2.0, .barcode = "8007", .idSostituito = nuovo});
    conRiquadro([&](QWidget& riquadro) {
        scansiona("$DISMESSO");  // raises its own question once it is entered
        conRiquadro([](QWidget& altro) { premi(altro, "cmdSi"); });
        scansiona("$STAFFA");
        premi(riquadro, "cmdNo");
    });
    chiediDiCancellare();
    aspettaCodici({"VITE", "NUOVO", "STAFFA"});
}

// ---- Keys that the window system has taken in and the screen has not seen yet

TEST_F(Scans, AScanRightBehindOneThatRaisesAQuestionIsKept) {
    const int nuovo = negozio.prodotto({.codice = "NUOVO", .listino1 = 3.0, .descrizione = "Nuovo"});
    negozio.prodotto({.codice = "DISMESSO", .listino1 = 2.0, .barcode = "8007", .idSostituito = nuovo});
    QStringList tenuti;
    conRiquadro([&](QWidget& riquadro) {
        tenuti = coda();
        premi(riquadro, "cmdSi");
    });
    arriva("$DISMESSO\r$STAFFA\r$8009999999999\r");
    aspettaCodici({"NUOVO", "STAFFA", "CHIODO"});
    EXPECT_EQ(tenuti, (QStringList{"STAFFA", "8009999999999"}));
    EXPECT_EQ(vendita().flxVB.cella(2, Colonna::Quantita), "1,00");
}

TEST_F(Scans, AScanDuringNotFoundKeepsTheNextOne) {
    arriva("$999\r");
    QTimer::singleShot(200, finestra.get(), [this] { arriva("$8009999999999\r$STAFFA\r"); });
    aspettaCodici({"CHIODO", "STAFFA"});
    EXPECT_EQ(vendita().lblMainDisplay.testo(), "4,27");
}

TEST_F(Scans, FiftyCodesThatCameAtOnceAreAllThere) {
    QString tasti;
    QStringList attesi;
    for (int i = 0; i < 50; ++i) {
        negozio.prodotto(
            {.codice = QString("P%1").arg(i), .listino1 = 1.0, .barcode = QString::number(2000 + i)});
        tasti += "$" + QString::number(2000 + i) + "\r";
        attesi << QString("P%1").arg(i);
    }
    arriva(tasti);
    aspettaCodici(attesi);
}

TEST_F(Scans, EnterOfAHandStillAnswersAQuestion) {
    bool aperto = false;
    conRiquadro([&](QWidget&) {
        aperto = true;
        tasto(Qt::Key_Return);
    });
    chiediDiCancellare();
    EXPECT_TRUE(aperto);
    EXPECT_EQ(codici(), QStringList{});
}

// A dialogue with a field that is typed into.
struct Dialogo {
    explicit Dialogo(QWidget* padre) : finestra(padre), campo(&finestra) {
        finestra.setModal(true);
        finestra.show();
        campo.setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&finestra));
        EXPECT_TRUE(QTest::qWaitFor([this] { return campo.hasFocus(); }));
    }
    QDialog finestra;
    QLineEdit campo;
};

TEST_F(Scans, ScanWhileADialogueIsTypedIntoIsKeptToo) {
    {
        Dialogo dialogo(finestra.get());
        scansiona("$8009999999999");
        EXPECT_EQ(dialogo.campo.text(), "");
        EXPECT_TRUE(dialogo.finestra.isVisible());
    }
    aspettaCodici({"CHIODO"});
}

TEST_F(Scans, PrefixTypedByAHandReachesTheDialogue) {
    Dialogo dialogo(finestra.get());
    digita("$");
    EXPECT_TRUE(QTest::qWaitFor([&] { return dialogo.campo.text() == "$"; }));
    digita("5");
    EXPECT_EQ(dialogo.campo.text(), "$5");
}

// The dialogue was answered by a finger right behind it.
TEST_F(Scans, PrefixTypedByAHandDoesNotReachASaleThatIsBeingSaved) {
    scansiona(QString("$") + ean);
    {
        Dialogo dialogo(finestra.get());
        digita("$");
    }
    finestra->activateWindow();
    schermo().fuoco(vendita().txtCodProdotto);
    ASSERT_TRUE(QTest::qWaitFor([this] { return haFuoco(vendita().txtCodProdotto); }));
    bool giunto = true;
    sondaIstruzioni() = [&](const QString& sql) -> std::optional<ErroreServer> {
        if (sql != "COMMIT") return std::nullopt;
        porta.pausa(250);
        giunto = vendita().mDaLaser;
        return std::nullopt;
    };
    tasto(Qt::Key_F5);
    sondaIstruzioni() = {};
    EXPECT_EQ(negozio.conta("Movimenti"), 1);
    EXPECT_FALSE(giunto);
}

TEST_F(Scans, FastTypingInADialogueIsTyping) {
    Dialogo dialogo(finestra.get());
    digita("8009999999999");
    EXPECT_EQ(dialogo.campo.text(), "8009999999999");
}

TEST_F(Scans, BurstInTheQuantityIsARowOfItsOwn) {
    scansiona(QString("$") + ean);
    schermo().fuoco(vendita().txtQta);
    scansiona("8009999999999");
    EXPECT_EQ(codici(), (QStringList{"VITE", "CHIODO"}));
    EXPECT_EQ(vendita().flxVB.cella(1, Colonna::Quantita), "1,00");
}

TEST_F(Scans, BurstWhileTheRowsHaveTheFocusIsARow) {
    scansiona(QString("$") + ean);
    widget("flxVB").setFocus();
    scansiona("8009999999999");
    EXPECT_EQ(codici(), (QStringList{"VITE", "CHIODO"}));
}

TEST_F(Scans, WhereTheDeskSaysSoABurstWithoutPrefixIsTyping) {
    schermo().raffica.attiva = false;
    scansiona(QString("$") + ean);
    schermo().fuoco(vendita().txtQta);
    scansiona("12345678");
    EXPECT_EQ(codici(), QStringList{"VITE"});
    EXPECT_NE(vendita().flxVB.cella(1, Colonna::Quantita), "1,00");
}

TEST_F(Scans, RowJustAddedIsInSight) {
    for (int i = 0; i < 60; ++i) {
        negozio.prodotto({.codice = QString("P%1").arg(i), .listino1 = 1.0});
        scansiona(QString("$P%1").arg(i));
    }
    auto& griglia = widget<QTableView>(QString("flxVB"));
    EXPECT_TRUE(griglia.updatesEnabled());
    EXPECT_TRUE(griglia.viewport()->rect().contains(
        griglia.visualRect(griglia.model()->index(59, static_cast<int>(Colonna::Codice)))));
}

}  // namespace
