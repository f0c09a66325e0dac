#include <map>
#include <set>

#include <QApplication>
#include <QRegularExpression>

#include "counter/ui/command_button.h"
#include "counter/ui/command_table.h"
#include "counter_screen.h"
#include "sale/document_info.h"

// Every command of the counter is on a key, and every key on one command.

namespace {

class CommandKeys : public CounterScreen {
  protected:
    CommandKeys() {
        apri();
        setViewMode(vendita(), true);
    }

    // The buttons that are there, by name.
    std::map<QString, PulsanteComando*> pronti() const {
        std::map<QString, PulsanteComando*> trovati;
        for (auto* pulsante : schermo().findChildren<PulsanteComando*>()) {
            if (pulsante->isVisible() && !pulsante->inArrivo()) trovati[pulsante->objectName()] = pulsante;
        }
        return trovati;
    }
    static QString lettera(const PulsanteComando& pulsante) {
        const qsizetype segno = pulsante.text().indexOf('&');
        return segno < 0 ? QString() : pulsante.text().mid(segno + 1, 1);
    }
    // As it is painted below the words.
    static QString tastoFunzione(const Campo& campo, const VoceComando& voce) {
        const auto traParentesi = QRegularExpression("\\((.+)\\)").match(campo.testo());
        return traParentesi.hasMatch() ? traParentesi.captured(1) : voce.tasto;
    }
    // Every command and every field or account, with what is known of it.
    void perOgnuno(const std::function<void(const Campo&, const VoceComando&)>& guarda) const {
        const Vendita& v = vendita();
        for (int i = 0; i < CampiVendita::numeroComandi; ++i) {
            guarda(v.cmdComando[static_cast<size_t>(i)], voceComando(i));
        }
        for (int i = 0; i < CampiVendita::numeroConti; ++i) {
            guarda(v.cmdConto[static_cast<size_t>(i)], voceConto(i));
        }
    }
};

// What Alt and a letter reaches.
const std::map<QString, QString> lettere{
    {"N", "cmdComando_0"}, {"E", "cmdComando_1"}, {"A", "cmdComando_3"}, {"U", "cmdComando_5"},
    {"R", "cmdComando_6"}, {"H", "cmdComando_7"}, {"L", "cmdComando_9"}, {"O", "cmdOperatore"},
    {"1", "cmdConto_0"},   {"2", "cmdConto_1"},   {"3", "cmdConto_2"},   {"4", "cmdConto_3"},
    {"D", "cmdConto_4"},   {"C", "cmdConto_5"},   {"G", "cmdConto_6"},   {"P", "cmdConto_7"},
    {"Q", "cmdConto_8"},   {"I", "cmdConto_13"},
};

}  // namespace

TEST_F(CommandKeys, EveryReadyCommandHasAKeyThatItsButtonShows) {
    perOgnuno([](const Campo& campo, const VoceComando& voce) {
        if (voce.presto) return;
        EXPECT_TRUE(campo.testo().contains('&') || !tastoFunzione(campo, voce).isEmpty())
            << qPrintable(voce.nomeAccessibile);
    });
}

TEST_F(CommandKeys, NoFunctionKeyStandsOnTwoButtons) {
    std::set<QString> visti;
    perOgnuno([&](const Campo& campo, const VoceComando& voce) {
        const QString tasto = tastoFunzione(campo, voce);
        if (tasto.isEmpty()) return;
        EXPECT_TRUE(visti.insert(tasto).second) << qPrintable(tasto);
    });
}

TEST_F(CommandKeys, EveryLetterOfAReadyButtonIsInTheTableOnce) {
    std::map<QString, QString> sullaTastiera;
    for (const auto& [nome, pulsante] : pronti()) {
        if (lettera(*pulsante).isEmpty()) continue;
        EXPECT_TRUE(sullaTastiera.emplace(lettera(*pulsante), nome).second) << qPrintable(nome);
    }
    EXPECT_EQ(sullaTastiera, lettere);
}

TEST_F(CommandKeys, AltAndItsLetterPressesThatButtonAlone) {
    QStringList premuti;
    for (auto* pulsante : schermo().findChildren<PulsanteComando*>()) {
        // The command itself would change the screen under the next letter.
        pulsante->disconnect(SIGNAL(premuto()));
        QObject::connect(pulsante, &PulsanteComando::premuto, pulsante,
                         [&premuti, pulsante] { premuti << pulsante->objectName(); });
    }
    for (const auto& [lettera, nome] : lettere) {
        premuti.clear();
        const auto codice = static_cast<Qt::Key>(lettera[0].unicode());
        tasto(codice, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !premuti.isEmpty(); })) << qPrintable(lettera);
        EXPECT_EQ(premuti, QStringList{nome}) << qPrintable(lettera);
    }
}
