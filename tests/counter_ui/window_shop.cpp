#include "counter_ui/window_shop.h"

#include <QKeyEvent>

WindowShop::WindowShop() {
    negozio.prodotto({.codice = "CHIODO", .listino1 = 1.0, .barcode = "8009999999999"});
}

void WindowShop::apriFinestra() {
    finestra = std::make_unique<FinestraConti>("Bottegon");
    porta.impostaGenitore(finestra.get());
    impostaFabbricaConti([this](int indice) { return new frmMain(indice, *finestra, porta); });
    finestra->setGeometry(QRect(0, 0, 1280, 800));
    finestra->show();
    getConto(0, false);
    EXPECT_TRUE(QTest::qWaitForWindowActive(finestra.get()));
}

void WindowShop::scansiona(const QString& codice, int passo) const {
    for (const QChar c : codice)
        QTest::keyClicks(QApplication::focusWidget(), c, Qt::NoModifier, passo);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return, Qt::NoModifier, passo);
}

void WindowShop::arriva(const QString& tasti) {
    for (const QChar c : tasti) {
        const int tasto = c == u'\r' ? int{Qt::Key_Return} : int{c.toUpper().unicode()};
        ++mIstante;
        for (const auto tipo : {QEvent::KeyPress, QEvent::KeyRelease}) {
            auto* evento = new QKeyEvent(tipo, tasto, Qt::NoModifier, c);
            evento->setTimestamp(mIstante);
            QCoreApplication::postEvent(finestra->windowHandle(), evento);
        }
    }
}

void WindowShop::conRiquadro(const std::function<void(QWidget&)>& gesto) {
    auto* attesa = new QTimer(finestra.get());
    attesa->setInterval(5);
    QObject::connect(attesa, &QTimer::timeout, attesa, [attesa, gesto] {
        QWidget* riquadro = QApplication::activeModalWidget();
        if (riquadro == nullptr || !riquadro->isAncestorOf(QApplication::focusWidget())) return;
        attesa->stop();
        gesto(*riquadro);
    });
    attesa->start();
}

void WindowShop::premi(QWidget& riquadro, const char* pulsante) {
    auto* trovato = riquadro.findChild<QPushButton*>(pulsante);
    ASSERT_NE(trovato, nullptr) << pulsante;
    QTest::mouseClick(trovato, Qt::LeftButton);
}

QStringList WindowShop::codici() const {
    QStringList testi;
    for (int r = 1; r <= vendita().flxVB.ultima(); ++r) {
        if (vendita().flxVB.viva(r)) testi << vendita().flxVB.cella(r, Colonna::Codice);
    }
    return testi;
}

void WindowShop::aspettaCodici(const QStringList& attesi) const {
    EXPECT_TRUE(QTest::qWaitFor([&] { return codici() == attesi; })) << codici().join(' ').toStdString();
}

QStringList WindowShop::coda() const {
    return finestra->findChild<ScansioniInAttesa*>("ScansioniInAttesa")->inAttesa();
}
