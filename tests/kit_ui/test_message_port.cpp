#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <memory>

#include <QAbstractEventDispatcher>
#include <QElapsedTimer>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QThread>

#include "kit/ui/frmInfo.h"
#include "kit/ui/message_port.h"
#include "kit_ui/modal.h"

namespace {

using Icona = OperatorPort::Icona;
using Pulsanti = OperatorPort::Pulsanti;
using Risposta = OperatorPort::Risposta;

// Deals with timers alone, and sees which events a loop asks for.
class SmistatoreDiProva final : public QAbstractEventDispatcher {
  public:
    struct Visto {
        int giri = 0;
        int conInput = 0;
    };
    explicit SmistatoreDiProva(Visto& visto) : mVisto(visto) { mTempo.start(); }

    bool processEvents(QEventLoop::ProcessEventsFlags quali) override {
        ++mVisto.giri;
        if (!quali.testFlag(QEventLoop::ExcludeUserInputEvents)) ++mVisto.conInput;
        QCoreApplication::sendPostedEvents();
        const auto scaduta = std::find_if(mSveglie.begin(), mSveglie.end(), [this](const auto& sveglia) {
            return mTempo.elapsed() >= sveglia.second.ora;
        });
        if (scaduta == mSveglie.end()) return false;
        QTimerEvent evento(scaduta->first);
        return QCoreApplication::sendEvent(scaduta->second.chi, &evento);
    }
    void registerTimer(int id, qint64 intervallo, Qt::TimerType, QObject* chi) override {
        mSveglie[id] = {mTempo.elapsed() + intervallo, chi};
    }
    bool unregisterTimer(int id) override { return mSveglie.erase(id) > 0; }
    bool unregisterTimers(QObject* chi) override {
        return std::erase_if(mSveglie, [chi](const auto& sveglia) { return sveglia.second.chi == chi; }) > 0;
    }
    QList<TimerInfo> registeredTimers(QObject*) const override { return {}; }
    int remainingTime(int) override { return 0; }
    void registerSocketNotifier(QSocketNotifier*) override {}
    void unregisterSocketNotifier(QSocketNotifier*) override {}
    void wakeUp() override {}
    void interrupt() override {}

  private:
    struct Sveglia {
        qint64 ora;
        QObject* chi;
    };
    Visto& mVisto;
    QElapsedTimer mTempo;
    std::map<int, Sveglia> mSveglie;
};

Risposta domandaCon(Pulsanti pulsanti, std::function<void(QWidget*)> azione) {
    QtOperatorPort operatore;
    quandoModale(std::move(azione));
    return operatore.domanda("Eliminare?", pulsanti, Icona::Domanda);
}

std::function<void(QWidget*)> tasto(Qt::Key quale) {
    return [quale](QWidget* finestra) { QTest::keyClick(finestra, quale); };
}

std::function<void(QWidget*)> pulsante(const char* nome) {
    return
        [nome](QWidget* finestra) { QTest::mouseClick(trova<QPushButton>(finestra, nome), Qt::LeftButton); };
}

}  // namespace

TEST(MessagePort, AMessageIsPlainTextUnderTheApplicationsName) {
    QtOperatorPort operatore;
    quandoModale([](QWidget* finestra) {
        auto* riquadro = qobject_cast<QMessageBox*>(finestra);
        ASSERT_NE(riquadro, nullptr);
        EXPECT_EQ(riquadro->text(), "<b>&x\nriga %1");
        EXPECT_EQ(riquadro->textFormat(), Qt::PlainText);
        EXPECT_EQ(riquadro->icon(), QMessageBox::Warning);
        EXPECT_EQ(riquadro->windowTitle(), "Bottegon");
        QTest::keyClick(finestra, Qt::Key_Return);
    });
    operatore.messaggio("<b>&x\nriga %1", Icona::Esclamazione);
}

TEST(MessagePort, AMessageClosesByEscape) {
    QtOperatorPort operatore;
    quandoModale(tasto(Qt::Key_Escape));
    operatore.messaggio("testo", Icona::Informazione);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(MessagePort, EnterIsTheFirstButton) {
    EXPECT_EQ(domandaCon(Pulsanti::SiNo, tasto(Qt::Key_Return)), Risposta::Si);
    EXPECT_EQ(domandaCon(Pulsanti::SiNoAnnulla, tasto(Qt::Key_Return)), Risposta::Si);
}

TEST(MessagePort, EnterRefusesWhatIsBetterNotDone) {
    EXPECT_EQ(domandaCon(Pulsanti::NoSi, tasto(Qt::Key_Return)), Risposta::No);
    EXPECT_EQ(domandaCon(Pulsanti::NoSi, pulsante("cmdSi")), Risposta::Si);
    EXPECT_EQ(domandaCon(Pulsanti::NoSi, tasto(Qt::Key_Escape)), Risposta::No);
}

TEST(MessagePort, EscapeIsTheRefusal) {
    EXPECT_EQ(domandaCon(Pulsanti::SiNo, tasto(Qt::Key_Escape)), Risposta::No);
    EXPECT_EQ(domandaCon(Pulsanti::SiNoAnnulla, tasto(Qt::Key_Escape)), Risposta::Annulla);
}

TEST(MessagePort, EveryButtonIsItsAnswer) {
    EXPECT_EQ(domandaCon(Pulsanti::SiNoAnnulla, pulsante("cmdSi")), Risposta::Si);
    EXPECT_EQ(domandaCon(Pulsanti::SiNoAnnulla, pulsante("cmdNo")), Risposta::No);
    EXPECT_EQ(domandaCon(Pulsanti::SiNoAnnulla, pulsante("cmdAnnulla")), Risposta::Annulla);
}

TEST(MessagePort, ButtonsAreItalianAndLarge) {
    domandaCon(Pulsanti::SiNoAnnulla, [](QWidget* finestra) {
        EXPECT_EQ(trova<QPushButton>(finestra, "cmdSi")->text(), "Sì");
        EXPECT_EQ(trova<QPushButton>(finestra, "cmdNo")->text(), "No");
        EXPECT_EQ(trova<QPushButton>(finestra, "cmdAnnulla")->text(), "Annulla");
        EXPECT_GE(trova<QPushButton>(finestra, "cmdSi")->height(), 44);
        QTest::keyClick(finestra, Qt::Key_Escape);
    });
}

TEST(MessagePort, AScannedLetterAnswersNothing) {
    EXPECT_EQ(domandaCon(Pulsanti::SiNo,
                         [](QWidget* finestra) {
                             QTest::keyClicks(finestra, "sS");
                             EXPECT_TRUE(finestra->isVisible());
                             QTest::keyClick(finestra, Qt::Key_Escape);
                         }),
              Risposta::No);
}

TEST(MessagePort, TheWarningDialogueAnswersWhetherToGoOn) {
    QtOperatorPort operatore;
    quandoModale(pulsante("cmdOk"));
    EXPECT_TRUE(operatore.avviso({}));
    quandoModale(pulsante("cmdAnnulla"));
    EXPECT_FALSE(operatore.avviso({}));
}

TEST(MessagePort, TheHourglassNests) {
    QtOperatorPort operatore;
    operatore.clessidra(true);
    operatore.clessidra(true);
    operatore.clessidra(false);
    EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
    operatore.clessidra(false);
    operatore.clessidra(false);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(MessagePort, AQuestionUnderTheHourglassShowsTheArrow) {
    QtOperatorPort operatore;
    operatore.clessidra(true);
    domandaCon(Pulsanti::SiNo, [](QWidget* finestra) {
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::ArrowCursor);
        QTest::keyClick(finestra, Qt::Key_Escape);
    });
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    operatore.clessidra(false);
}

TEST(MessagePort, APauseLastsAsLongAsAsked) {
    QtOperatorPort operatore;
    QElapsedTimer tempo;
    tempo.start();
    operatore.pausa(30);
    EXPECT_GE(tempo.elapsed(), 29);
}

// A save waits so in the middle of its transaction: keys and touches stay in their queue.
TEST(MessagePort, APauseTakesNoInputIn) {
    QtOperatorPort operatore;
    SmistatoreDiProva::Visto visto;
    const std::unique_ptr<QThread> filo(QThread::create([&operatore] { operatore.pausa(2); }));
    filo->setEventDispatcher(new SmistatoreDiProva(visto));
    filo->start();
    ASSERT_TRUE(filo->wait());
    EXPECT_GT(visto.giri, 0);
    EXPECT_EQ(visto.conInput, 0);
}

TEST(MessagePort, TheNoticeOfWaitingLiesOverTheWindowUntilItIsTakenAway) {
    QWidget finestra;
    finestra.resize(600, 400);
    finestra.show();
    QtOperatorPort operatore(&finestra);
    operatore.avvisoAttesa("Un'altra cassa sta salvando...");
    auto* avviso = trova<QLabel>(&finestra, "lblAttesa");
    ASSERT_NE(avviso, nullptr);
    EXPECT_TRUE(avviso->isVisible());
    EXPECT_EQ(avviso->text(), "Un'altra cassa sta salvando...");
    operatore.avvisoAttesa({});
    EXPECT_EQ(trova<QLabel>(&finestra, "lblAttesa"), nullptr);
}

TEST(FrmInfo, ShowsItsTextAtOnceAndTakesNoFocus) {
    frmInfo info;
    info.startMe("Connessione al Server in corso...");
    EXPECT_TRUE(info.isVisible());
    EXPECT_EQ(trova<QLabel>(&info, "lblInfo")->text(), "Connessione al Server in corso...");
    EXPECT_TRUE(info.testAttribute(Qt::WA_ShowWithoutActivating));
}

TEST(FrmInfo, MakesWayForADialogue) {
    frmInfo info;
    info.startMe("Connessione al Server in corso...");
    bool coperto = true;
    quandoModale([&](QWidget* dialogo) {
        coperto = info.isVisible();
        dialogo->close();
    });
    QDialog().exec();
    EXPECT_FALSE(coperto);
}
