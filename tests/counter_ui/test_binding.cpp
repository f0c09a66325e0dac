#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSet>

#include "counter/ui/command_button.h"
#include "counter_screen.h"
#include "sale/document_info.h"

namespace {

// Fields that keep a value and are not for reading.
const QSet<QString> nascosti = {
    "lblRID",
    "lblCodProdotto",
    "lblTaglio",
    "lblCodIva",
    "lblIDIva",
    "lblDescIva",
    "lblValoraIva",
    "lblSconto1",
    "lblSconto2",
    "lblSconto3",
    "lblScNetto",
    "lblTotPrezzoNetto",
    "lblTotIVA",
    "lblTotRiga",
    "lblPos",
    "lblPrezzoAcquisto",
    "lblIvaProdotto",
    "lblPrezzoListino",
    "lblPrezzoListinoLordo",
    "lblPrezzoNetto",
};

// What a screen reader says of a widget.
QString nomeDetto(QWidget* widget) {
    if (!widget->accessibleName().isEmpty()) return widget->accessibleName();
    if (auto* pulsante = qobject_cast<QAbstractButton*>(widget)) return pulsante->text();
    if (auto* etichetta = qobject_cast<QLabel*>(widget)) return etichetta->text();
    return {};
}

class Binding : public CounterScreen {
  protected:
    Binding() { apri(); }
};

TEST_F(Binding, EveryFieldAPersonReadsHasAWidgetOfItsName) {
    for (const Campo* campo : vendita().elenco.tutti()) {
        if (nascosti.contains(campo->nome())) continue;
        EXPECT_EQ(schermo().findChildren<QWidget*>(campo->nome()).size(), 1) << qPrintable(campo->nome());
    }
}

TEST_F(Binding, FieldsThatOnlyKeepAValueAreNotOnTheScreen) {
    for (const QString& nome : nascosti) {
        EXPECT_EQ(schermo().findChild<QWidget*>(nome), nullptr) << qPrintable(nome);
    }
}

TEST_F(Binding, EveryFieldAndButtonHasANameForAScreenReader) {
    for (const Campo* campo : vendita().elenco.tutti()) {
        if (nascosti.contains(campo->nome()) || campo == &vendita().pctIVA) continue;
        EXPECT_FALSE(nomeDetto(&widget(*campo)).isEmpty()) << qPrintable(campo->nome());
    }
}

TEST_F(Binding, ALabelShowsMarkupAsItIs) {
    vendita().lblDescCliente.testo("<b>Rossi</b> & figli");
    EXPECT_EQ(widget<QLabel>(vendita().lblDescCliente).text(), "<b>Rossi</b> & figli");
    EXPECT_EQ(widget<QLabel>(vendita().lblDescCliente).textFormat(), Qt::PlainText);
}

TEST_F(Binding, ACommandsTextIsItsWholeCaption) {
    EXPECT_EQ(widget<QPushButton>("cmdComando_9").text(), "SA&LVA VND (F5)");
    EXPECT_EQ(widget<QPushButton>("cmdComando_1").text(), "PR&ECED. (SHF <~)");
    EXPECT_EQ(widget<QPushButton>("cmdConto_8").text(), "&Q.TA'");
}

TEST_F(Binding, ALockedFieldIsReadOnly) {
    vendita().txtQta.bloccato(true);
    EXPECT_TRUE(widget<QLineEdit>(vendita().txtQta).isReadOnly());
}

TEST_F(Binding, ADisabledCommandCannotBePressed) {
    vendita().cmdComando[6].abilitato(false);
    EXPECT_FALSE(widget<QPushButton>("cmdComando_6").isEnabled());
}

TEST_F(Binding, OnlyThePriceBoxThatEndsARowIsShown) {
    const Vendita& v = vendita();
    const int mostrati = widget(v.txtPrezzoNetto).isVisible() + widget(v.txtPrezzoFinito).isVisible() +
                         widget(v.TxtPrezzoRiga).isVisible();
    EXPECT_EQ(mostrati, 1);
}

TEST_F(Binding, TheVatFieldsComeWithTheViewForPricesWithVat) {
    ASSERT_FALSE(widget(vendita().txtIVA).isVisible());
    setViewMode(vendita(), true);
    EXPECT_TRUE(widget(vendita().txtIVA).isVisible());
    EXPECT_TRUE(widget(vendita().cmdAddRow).isVisible());
}

TEST_F(Binding, ATickOfTheOperatorGoesIntoItsField) {
    vendita().chkCodiceProdotto.valore(0);
    clic(vendita().chkCodiceProdotto);
    EXPECT_EQ(vendita().chkCodiceProdotto.valore(), 1);
}

TEST_F(Binding, ACommandStillToComeSaysSoAndDoesNothing) {
    auto& stampa = widget<PulsanteComando>("cmdComando_8");
    EXPECT_TRUE(stampa.isEnabled());
    EXPECT_TRUE(stampa.toolTip().startsWith("In arrivo: "));
    bool premuto = false;
    QObject::connect(&stampa, &PulsanteComando::premuto, &stampa, [&] { premuto = true; });
    stampa.click();
    EXPECT_FALSE(premuto);
}

TEST_F(Binding, ABlinkingLightLeavesItsPlaceFree) {
    vendita().pctFido.visibile(true);
    QApplication::processEvents();
    const QRect prima = widget(vendita().lblFido).geometry();
    vendita().pctFido.visibile(false);
    QApplication::processEvents();
    EXPECT_EQ(widget(vendita().lblFido).geometry(), prima);
}

}  // namespace
