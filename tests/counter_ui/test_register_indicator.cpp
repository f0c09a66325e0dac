#include <QApplication>
#include <QPushButton>

#include "core/globals.h"
#include "counter_screen.h"
#include "register/failure.h"
#include "register/fake_socket.h"
#include "register/interface_link.h"

namespace {

class ContaDialoghi final : public DialoghiRegCassa {
  public:
    Scelta errore(const QString& descrizione, const QString&) override {
        descrizioni << descrizione;
        if (prima) prima();
        return Nessuna;
    }
    void mostraMonitor() override { ++monitorMostrato; }
    QStringList descrizioni;
    int monitorMostrato = 0;
    std::function<void()> prima;
};

class RegisterIndicator : public CounterScreen {
  protected:
    RegisterIndicator() {
        impostaFrmRegCassa(&link);
        impostaDialoghiRegCassa(&dialoghi);
        gRegCassa = "Prova";
        apri();
    }
    ~RegisterIndicator() override {
        impostaDialoghiRegCassa(nullptr);
        impostaFrmRegCassa(nullptr);
    }

    PresaFinta* presa = new PresaFinta;
    InterfacciaRegCassa link{std::unique_ptr<PresaRegCassa>(presa)};
    ContaDialoghi dialoghi;
};

}  // namespace

TEST_F(RegisterIndicator, WordsAndLampFollowTheLink) {
    EXPECT_EQ(widget<QPushButton>("lblRegCassa").text(), "REG. CASSA (scollegato)");
    EXPECT_TRUE(widget<QWidget>("shRegCassa").isVisible());
    presa->apri();
    EXPECT_EQ(widget<QPushButton>("lblRegCassa").text(), "REG. CASSA (pronto)");
    const QImage lampada = widget<QWidget>("shRegCassa").grab().toImage();
    EXPECT_EQ(lampada.pixelColor(lampada.rect().center()).rgb() & 0xFFFFFFu,
              coloreStato(StatoRegCassa::Pronto));
}

TEST_F(RegisterIndicator, PressOnTheWordsOpensTheMonitor) {
    QTest::mouseClick(&widget<QPushButton>("lblRegCassa"), Qt::LeftButton);
    EXPECT_EQ(dialoghi.monitorMostrato, 1);
}

TEST_F(RegisterIndicator, FieldBeingTypedInKeepsTheFocusWhenTheMonitorIsAskedFor) {
    QWidget* prima = QApplication::focusWidget();
    QTest::mouseClick(&widget<QPushButton>("lblRegCassa"), Qt::LeftButton);
    EXPECT_EQ(QApplication::focusWidget(), prima);
}

TEST_F(RegisterIndicator, RefusalReachesTheScreen) {
    presa->apri();
    presa->arriva("\x15");
    EXPECT_EQ(dialoghi.descrizioni.size(), 1);
}

TEST_F(RegisterIndicator, ScreenThatClosesUnderItsFailureDialogueOutlivesIt) {
    presa->apri();
    dialoghi.prima = [this] {
        gConti[0]->scarica();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    presa->arriva("\x15");
    EXPECT_EQ(dialoghi.descrizioni.size(), 1);
    EXPECT_TRUE(negozio.terminato);
}
