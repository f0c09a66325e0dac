#include "counter_ui/journey.h"

#include <bit>

#include <QLabel>
#include <QMessageBox>
#include <QTableView>

Percorso::Percorso()
    : rossi(negozio.cliente(7, "ROSSI")),
      bianchi(negozio.cliente(8, "BIANCHI")),
      verdi(negozio.cliente(9, "VERDI")) {
    negozio.sql("INSERT INTO Venditori (CODICE, DESCRIZIONE) VALUES ('2', 'Giulio')");
    apriFinestra();
}

// ---- Whom keys and fingers reach

QWidget& Percorso::davanti() const {
    QWidget* dialogo = QApplication::activeModalWidget();
    return dialogo != nullptr ? *dialogo : *finestra->davanti();
}

QWidget& Percorso::fuoco() const {
    if (QApplication::activeModalWidget() == nullptr && !finestra->isActiveWindow()) {
        finestra->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(finestra.get()));
    }
    QWidget* fuoco = QApplication::focusWidget();
    EXPECT_NE(fuoco, nullptr);
    return fuoco != nullptr ? *fuoco : davanti();
}

void Percorso::scansiona(const QString& codice) const {
    fuoco();
    WindowShop::scansiona(codice);
}

// ---- Keyboard

void Percorso::batti(const QString& testo) {
    aspettaCheSenta();
    for (const QChar c : testo) {
        ++mTasti;
        QTest::keyClicks(&fuoco(), QString(c));
    }
}

void Percorso::batti(Qt::Key tasto, Qt::KeyboardModifiers modificatori) {
    mTasti += 1 + std::popcount(modificatori.toInt());
    // A hand takes longer than this to the next command.
    aspettaCheSenta();
    QTest::keyClick(&fuoco(), tasto, modificatori);
}

void Percorso::batti(const QString& testo, Qt::Key poi) {
    batti(testo);
    batti(poi);
}

// ---- Finger

void Percorso::tocca(const QString& nome) const {
    aspettaCheSenta();
    auto* pulsante = davanti().findChild<QWidget*>(nome);
    ASSERT_NE(pulsante, nullptr) << qPrintable(nome);
    ASSERT_TRUE(pulsante->isVisible()) << qPrintable(nome);
    QTest::mouseClick(pulsante, Qt::LeftButton);
}

void Percorso::toccaTasti(const QStringList& didascalie) const {
    for (const QString& didascalia : didascalie) {
        QPushButton* trovato = nullptr;
        for (auto* pulsante : davanti().findChildren<QPushButton*>()) {
            if (pulsante->text() == didascalia && pulsante->isVisible()) trovato = pulsante;
        }
        ASSERT_NE(trovato, nullptr) << qPrintable(didascalia);
        QTest::mouseClick(trovato, Qt::LeftButton);
    }
}

void Percorso::toccaRiga(const QString& testo) const {
    auto* griglia = davanti().findChild<QTableView*>("flxRicerca");
    ASSERT_NE(griglia, nullptr);
    QModelIndex cella;
    ASSERT_TRUE(QTest::qWaitFor([&] {
        for (int r = 0; r < griglia->model()->rowCount(); ++r) {
            for (int c = 0; c < griglia->model()->columnCount(); ++c) {
                const QModelIndex questa = griglia->model()->index(r, c);
                if (questa.data().toString() == testo && !griglia->isColumnHidden(c)) cella = questa;
            }
        }
        return cella.isValid();
    })) << qPrintable(testo);
    QTest::mouseClick(griglia->viewport(), Qt::LeftButton, {}, griglia->visualRect(cella).center());
}

// ---- Dialogues

void Percorso::nelDialogo(const Gesto& apre, const Gesto& gesto) {
    bool fatto = false;
    conRiquadro([&](QWidget& dialogo) {
        const QPointer<QWidget> questo = &dialogo;
        gesto();
        fatto = true;
        if (questo == nullptr || !questo->isVisible()) return;
        ADD_FAILURE() << "the dialogue is still open";
        QTest::keyClick(questo, Qt::Key_Escape);
    });
    apre();
    EXPECT_TRUE(QTest::qWaitFor([&] { return fatto && QApplication::activeModalWidget() == nullptr; }));
}

void Percorso::nelRiquadro(const QString& testo, const Gesto& apre, const Gesto& gesto) {
    nelDialogo(apre, [&] {
        const auto* riquadro = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(riquadro, nullptr);
        EXPECT_EQ(riquadro->text(), testo);
        gesto();
    });
}

// ---- Steps

void Percorso::battiConto(int numero) {
    batti(static_cast<Qt::Key>(Qt::Key_0 + numero), Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] {
        const ContoAperto& conto = gConti[static_cast<size_t>(numero - 1)];
        return conto && finestra->davanti() == &schermo(numero - 1);
    }));
}

void Percorso::vendeAlConto(int numero, const QString& cliente) {
    battiConto(numero);
    batti(cliente, Qt::Key_Return);
    scansionaVite();
}

void Percorso::battiVaiA(const QString& progressivo) {
    nelDialogo([&] { batti(Qt::Key_A, Qt::AltModifier); }, [&] { batti(progressivo, Qt::Key_Return); });
}

QString Percorso::mostrato(const char* nome) const {
    auto* etichetta = davanti().findChild<QLabel*>(nome);
    EXPECT_NE(etichetta, nullptr) << nome;
    return etichetta == nullptr ? QString() : etichetta->text();
}
