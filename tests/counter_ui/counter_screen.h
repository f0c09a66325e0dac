#pragma once

#include <gtest/gtest.h>
#include <memory>

#include <QApplication>
#include <QTest>

#include "counter/ui/finestra_conti.h"
#include "counter/ui/frmMain.h"
#include "doubles/negozio.h"
#include "kit/ui/frmPagamento.h"

// The real window over the rules, with a shop of its own: keys and clicks in, widgets out.
class CounterScreen : public testing::Test {
  protected:
    CounterScreen();
    ~CounterScreen() override;

    // Opens the first account in a window of that size, active.
    void apri(QSize misura = {1280, 800});
    frmMain& schermo(int indice = 0) const;
    Vendita& vendita(int indice = 0) const { return schermo(indice).vendita(); }

    // The widget of that field in the front screen.
    template <class Widget = QWidget>
    Widget& widget(const Campo& campo) const {
        return widget<Widget>(campo.nome());
    }
    template <class Widget = QWidget>
    Widget& widget(const QString& nome) const {
        auto* trovato = finestra->davanti()->findChild<Widget*>(nome);
        EXPECT_NE(trovato, nullptr) << qPrintable(nome);
        return *trovato;
    }
    // Keys to whatever has the focus.
    void digita(const QString& testo) const;
    void tasto(Qt::Key tasto, Qt::KeyboardModifiers modificatori = Qt::NoModifier) const;
    void clic(const Campo& campo) const;
    bool haFuoco(const Campo& campo) const;

    // After a save or the end of an account, and when the tender has just come up.
    void aspettaCheSenta() const {
        ASSERT_TRUE(QTest::qWaitFor([this] {
            const auto* incasso = qobject_cast<frmPagamento*>(QApplication::activeModalWidget());
            return !finestra->sorda() && (incasso == nullptr || !incasso->sorda());
        }));
    }

    // A sale with rows and every field full, as on a busy day.
    void riempi() const;

    Negozio negozio;
    std::unique_ptr<FinestraConti> finestra;
};
