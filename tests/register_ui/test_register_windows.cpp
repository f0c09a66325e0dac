#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QWindow>

#include "core/clock.h"
#include "core/globals.h"
#include "doubles/operatore_scritto.h"
#include "kit_ui/modal.h"
#include "register/fake_socket.h"
#include "register/interface_link.h"
#include "register/ui/frmBuffer.h"
#include "register/ui/frmErrRegCassa.h"
#include "register/ui/frmRegCassa.h"
#include "register/ui/register_windows.h"

namespace {

class RegisterWindows : public testing::Test {
  protected:
    static void premi(QWidget& finestra, const char* nome) {
        QTest::mouseClick(finestra.findChild<QPushButton*>(nome), Qt::LeftButton);
    }
    static void spunta(QWidget& finestra, const char* nome) { finestra.findChild<QCheckBox*>(nome)->click(); }
    static QString testo(QWidget& finestra, const char* nome) {
        return finestra.findChild<QPlainTextEdit*>(nome)->toPlainText();
    }
    static QString scritta(QWidget& finestra, const char* nome) {
        return finestra.findChild<QPushButton*>(nome)->text();
    }
    static void fotografa(QWidget& finestra, const QString& nome) {
        QDir().mkpath("schermate");
        EXPECT_TRUE(finestra.grab().save("schermate/" + nome + ".png"));
    }

    // A failure now; its dialogue stands over that window, also while it shows the queue.
    static void erroreSopra(QWidget* sotto, QWidget* genitore = nullptr) {
        FinestreRegCassa finestre(genitore);
        quandoModale([&](QWidget* f) {
            EXPECT_EQ(f->objectName(), "frmErrRegCassa");
            EXPECT_EQ(f->parentWidget(), sotto);
            quandoModale([&](QWidget* buffer) {
                EXPECT_EQ(buffer, &gFrmBuffer());
                EXPECT_EQ(buffer->windowHandle()->transientParent(), f->windowHandle());
                buffer->close();
            });
            premi(*f, "cmdBuffer");
            EXPECT_TRUE(f->isVisible());
            f->close();
        });
        finestre.errore("Errore 5 - Carta finita", "");
    }

    PresaFinta* presa = new PresaFinta;
    InterfacciaRegCassa link{std::unique_ptr<PresaRegCassa>(presa)};
};

DialoghiRegCassa::Scelta decide(std::function<void(QWidget*)> azione) {
    frmErrRegCassa finestra;
    quandoModale(std::move(azione));
    finestra.startMe("Errore 5 - Carta finita", "\2TOT196\3");
    return finestra.risultato();
}

}  // namespace

TEST_F(RegisterWindows, EachButtonOfTheFailureDialogueIsItsChoice) {
    EXPECT_EQ(decide([](QWidget* f) { premi(*f, "cmdRiprova"); }), DialoghiRegCassa::Riprova);
    EXPECT_EQ(decide([](QWidget* f) { premi(*f, "cmdAnnulla"); }), DialoghiRegCassa::AnnullaTutto);
    EXPECT_EQ(decide([](QWidget* f) { premi(*f, "cmdInterrompi"); }), DialoghiRegCassa::Interrompi);
}

TEST_F(RegisterWindows, ClosedFailureDialogueChoosesNothing) {
    EXPECT_EQ(decide([](QWidget* f) { f->close(); }), DialoghiRegCassa::Nessuna);
    EXPECT_EQ(decide([](QWidget* f) { QTest::keyClick(f, Qt::Key_Escape); }), DialoghiRegCassa::Nessuna);
}

TEST_F(RegisterWindows, AScanUnderTheFailureDialogueChoosesNothing) {
    EXPECT_EQ(decide([](QWidget* f) {
                  ASSERT_TRUE(QTest::qWaitForWindowActive(f));
                  QWidget* fuoco = QApplication::focusWidget();
                  ASSERT_NE(fuoco, nullptr);
                  QTest::keyClicks(fuoco, "$8001234567890");
                  QTest::keyClick(fuoco, Qt::Key_Return);
                  QTest::keyClick(fuoco, Qt::Key_Enter);
                  EXPECT_TRUE(f->isVisible());
                  f->close();
              }),
              DialoghiRegCassa::Nessuna);
}

TEST_F(RegisterWindows, FailureDialogueShowsTheErrorAsPlainText) {
    frmErrRegCassa finestra;
    quandoModale([](QWidget* f) {
        EXPECT_EQ(f->windowTitle(), "Registratore di Cassa");
        EXPECT_EQ(testo(*f, "lblDesc"), "Errore 7 - <b>x</b>\nseconda riga");
        fotografa(*f, "frmErrRegCassa");
        f->close();
    });
    finestra.startMe("Errore 7 - <b>x</b>\nseconda riga", "");
}

TEST_F(RegisterWindows, HugeErrorTextIsCutAndLeavesTheDialogueItsSize) {
    frmErrRegCassa finestra;
    quandoModale([](QWidget* f) {
        EXPECT_EQ(testo(*f, "lblDesc").size(), 4001);
        EXPECT_LT(f->height(), 400);
        EXPECT_LT(f->width(), 1000);
        f->close();
    });
    finestra.startMe(QString(100000, u'x'), "");
}

TEST_F(RegisterWindows, ButtonsOfTheFailureDialogueSayWhatTheyDo) {
    decide([](QWidget* f) {
        EXPECT_EQ(scritta(*f, "cmdRiprova"), "Riprova");
        EXPECT_EQ(scritta(*f, "cmdAnnulla"), "Annulla tutto");
        EXPECT_EQ(scritta(*f, "cmdInterrompi"), "Interrompi");
        EXPECT_EQ(scritta(*f, "cmdBuffer"), "Visualizza il buffer");
        f->close();
    });
}

TEST_F(RegisterWindows, LongQueueIsCut) {
    QWidget sotto;
    gFrmBuffer().startMe(QString(1000000, u'x'), false, &sotto);
    EXPECT_EQ(testo(gFrmBuffer(), "txtBuffer").size(), 20001);
    gFrmBuffer().hide();
}

TEST_F(RegisterWindows, QueueIsShownAndTheDialogueStaysOpen) {
    decide([](QWidget* f) {
        quandoModale([](QWidget* buffer) {
            EXPECT_EQ(buffer->windowTitle(), "Buffer");
            EXPECT_EQ(testo(*buffer, "txtBuffer"), "<STX>TOT196<ETX>");
            buffer->close();
        });
        premi(*f, "cmdBuffer");
        EXPECT_TRUE(f->isVisible());
        f->close();
    });
}

TEST_F(RegisterWindows, EmptyQueueIsAnEmptyBoxAndTheDialogueStaysOpen) {
    frmErrRegCassa finestra;
    quandoModale([](QWidget* f) {
        quandoModale([](QWidget* buffer) {
            EXPECT_EQ(buffer->windowTitle(), "Buffer");
            EXPECT_EQ(testo(*buffer, "txtBuffer"), "");
            buffer->close();
        });
        premi(*f, "cmdBuffer");
        EXPECT_TRUE(f->isVisible());
        f->close();
    });
    finestra.startMe("Errore 5 - Carta finita", "");
    EXPECT_EQ(finestra.risultato(), DialoghiRegCassa::Nessuna);
}

TEST_F(RegisterWindows, QueueOfASecondFailureTakesTheFormOfTheFirst) {
    QWidget* primoForm = nullptr;
    decide([&](QWidget* primo) {
        quandoModale([&](QWidget* buffer) {
            primoForm = buffer;
            decide([&](QWidget* secondo) {
                quandoModale([&](QWidget* ancora) {
                    EXPECT_EQ(ancora, primoForm);
                    ancora->close();
                });
                premi(*secondo, "cmdBuffer");
                EXPECT_FALSE(primoForm->isVisible());
                secondo->close();
            });
        });
        premi(*primo, "cmdBuffer");
        EXPECT_TRUE(primo->isVisible());
        primo->close();
    });
    EXPECT_EQ(primoForm, &gFrmBuffer());
}

TEST_F(RegisterWindows, FailureUnderTheQueueStandsOverTheWindowBeneathIt) {
    frmRegCassa monitor(link);
    monitor.mostra();
    premi(monitor, "Command1");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&gFrmBuffer()));
    erroreSopra(&monitor);
    gFrmBuffer().hide();
}

TEST_F(RegisterWindows, FailureUnderTheQueueOfAnotherFailureStandsOverThatOne) {
    decide([this](QWidget* primo) {
        quandoModale([&](QWidget* buffer) {
            ASSERT_EQ(buffer, &gFrmBuffer());
            erroreSopra(primo);
        });
        premi(*primo, "cmdBuffer");
        primo->close();
    });
}

TEST_F(RegisterWindows, FailureUnderTheQueueOfAHiddenMonitorStandsOverTheTill) {
    QWidget cassa;
    cassa.show();
    frmRegCassa monitor(link);
    monitor.mostra();
    premi(monitor, "Command1");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&gFrmBuffer()));
    monitor.hide();
    ASSERT_EQ(QApplication::activeWindow(), &gFrmBuffer());
    erroreSopra(&cassa, &cassa);
    gFrmBuffer().hide();
}

// ---- The monitor

TEST_F(RegisterWindows, WordsOfTheMonitorAreItsOwn) {
    frmRegCassa finestra(link);
    EXPECT_EQ(finestra.findChild<QLabel*>("Label1")->text(), "Messaggi:");
    EXPECT_EQ(finestra.findChild<QCheckBox*>("chkMonitor")->text(), "Monitor");
    EXPECT_EQ(finestra.findChild<QCheckBox*>("chkConnessione")->text(), "Attiva");
    EXPECT_EQ(scritta(finestra, "cmdConnect"), "Connetti");
    EXPECT_EQ(scritta(finestra, "Command1"), "Buffer");
    EXPECT_EQ(scritta(finestra, "cmdHide"), "Nascondi");
}

TEST_F(RegisterWindows, MonitorShowsTheQueueWithoutWaiting) {
    frmRegCassa finestra(link);
    finestra.mostra();
    link.sendData("REPa¥TOT1");
    premi(finestra, "Command1");
    EXPECT_TRUE(gFrmBuffer().isVisible());
    EXPECT_FALSE(gFrmBuffer().isModal());
    EXPECT_EQ(testo(gFrmBuffer(), "txtBuffer"), "<STX>RST49<ETX><STX>REPa28<ETX><STX>TOT196<ETX>");
    gFrmBuffer().hide();
}

TEST_F(RegisterWindows, MonitorFollowsTheWireWhileItIsSeen) {
    frmRegCassa finestra(link);
    finestra.mostra();
    spunta(finestra, "chkMonitor");
    presa->apri();
    presa->arriva("\2XYZ\3");
    EXPECT_EQ(testo(finestra, "txtMonitor"), "INF: Connessione Aperta\nREC: <STX>XYZ<ETX>\n");
}

TEST_F(RegisterWindows, MonitorShowsWhatWasWrittenBeforeItCameUp) {
    frmRegCassa finestra(link);
    presa->apri();
    finestra.mostra();
    EXPECT_EQ(testo(finestra, "txtMonitor"), "INF: Connessione Aperta\n");
}

TEST_F(RegisterWindows, MonitorDropsItsOldestLinesWithTheLink) {
    frmRegCassa finestra(link);
    finestra.mostra();
    for (int i = 10; i < 33; ++i) {
        link.monitor.scriviMonitor(QString::number(i) + "\n" + QString(250000, u'x'), true);
    }
    const QString mostrato = testo(finestra, "txtMonitor");
    EXPECT_TRUE(mostrato.startsWith(link.monitor.righe().front().left(2))) << mostrato.left(5).toStdString();
    EXPECT_FALSE(mostrato.startsWith("10"));
}

TEST_F(RegisterWindows, ConnectIsOfferedOnlyWithoutAConnection) {
    frmRegCassa finestra(link);
    finestra.mostra();
    auto* cmdConnect = finestra.findChild<QPushButton*>("cmdConnect");
    EXPECT_TRUE(cmdConnect->isEnabled());
    QTest::mouseClick(cmdConnect, Qt::LeftButton);
    EXPECT_EQ(presa->tentativi, 1);
    presa->apri();
    EXPECT_FALSE(cmdConnect->isEnabled());
}

TEST_F(RegisterWindows, TickOfTheLinkSuspendsAndTakesBack) {
    frmRegCassa finestra(link);
    finestra.mostra();
    spunta(finestra, "chkConnessione");
    EXPECT_FALSE(link.attiva());
    spunta(finestra, "chkConnessione");
    EXPECT_TRUE(link.attiva());
}

TEST_F(RegisterWindows, TickFollowsASuspensionFromTheDialogue) {
    frmRegCassa finestra(link);
    finestra.mostra();
    link.interrompi();
    EXPECT_FALSE(finestra.findChild<QCheckBox*>("chkConnessione")->isChecked());
}

TEST_F(RegisterWindows, HideAndTheCloseBoxLeaveTheLinkAlive) {
    frmRegCassa finestra(link);
    presa->apri();
    finestra.mostra();
    premi(finestra, "cmdHide");
    EXPECT_FALSE(finestra.isVisible());
    finestra.mostra();
    finestra.close();
    EXPECT_FALSE(finestra.isVisible());
    EXPECT_TRUE(link.statoConnessione());
}

TEST_F(RegisterWindows, TitleNamesTheRegister) {
    OperatoreScritto operatore;
    gRegCassa = "Prova";
    link.startMe(operatore, [](const QString&) { return true; });
    ripristinaGlobali();
    frmRegCassa finestra(link);
    finestra.mostra();
    EXPECT_EQ(finestra.windowTitle(), "Interfaccia Registratore di Cassa: Prova");
}

TEST_F(RegisterWindows, CaretFollowsTheLastLineOfTheMonitor) {
    frmRegCassa finestra(link);
    finestra.mostra();
    auto* monitor = finestra.findChild<QPlainTextEdit*>("txtMonitor");
    for (int i = 0; i < 3; ++i) {
        monitor->moveCursor(QTextCursor::Start);
        link.monitor.scriviMonitor("INF: riga " + QString::number(i), true);
        EXPECT_TRUE(monitor->textCursor().atEnd());
    }
}

TEST_F(RegisterWindows, SalesWithoutAReceiptAreListed) {
    const struct : Clock {
        QDateTime adesso() const override { return {QDate(2026, 3, 16), QTime(17, 4, 5)}; }
    } fermo;
    impostaOrologio(&fermo);
    frmRegCassa finestra(link);
    finestra.mostra();
    link.scontrini.inizia("N° 0001/0003 del 16/03/2026, € 12,20");
    link.scontrini.nonConsegnato(RegistroScontrini::Esito::Scollegato);
    link.scontrini.salvataggioConcluso(true);
    impostaOrologio(nullptr);
    auto* elenco = finestra.findChild<QTableWidget*>("lswSenzaScontrino");
    ASSERT_EQ(elenco->rowCount(), 1);
    EXPECT_EQ(elenco->item(0, 1)->text(), "N° 0001/0003 del 16/03/2026, € 12,20");
    EXPECT_EQ(elenco->item(0, 2)->text(), "registratore scollegato");
    EXPECT_EQ(finestra.findChild<QLabel*>("lblSenzaScontrino")->text(),
              "Vendite da controllare dall'avvio: 1");
    EXPECT_EQ(elenco->item(0, 0)->text(), "16/03 17:04:05");
    presa->apri();
    link.monitor.acceso(true);
    presa->arriva("\x06");
    fotografa(finestra, "frmRegCassa");
}

TEST_F(RegisterWindows, PortShowsTheMonitorOfTheLinkInForce) {
    impostaFrmRegCassa(&link);
    {
        FinestreRegCassa finestre;
        finestre.mostraMonitor();
        const auto aperte = QApplication::topLevelWidgets();
        EXPECT_TRUE(std::any_of(aperte.begin(), aperte.end(), [](QWidget* w) {
            return w->objectName() == "frmRegCassa" && w->isVisible();
        }));
    }
    impostaFrmRegCassa(nullptr);
}
