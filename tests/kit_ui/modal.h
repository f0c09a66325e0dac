#pragma once

#include <functional>

#include <QApplication>
#include <QTimer>

// Does something to the modal window that comes up next, once it is there.
inline void quandoModale(std::function<void(QWidget*)> azione) {
    auto* attesa = new QTimer(qApp);
    QObject::connect(attesa, &QTimer::timeout, qApp, [attesa, azione = std::move(azione)] {
        QWidget* finestra = QApplication::activeModalWidget();
        if (finestra == nullptr || !finestra->isVisible()) return;
        attesa->stop();
        attesa->deleteLater();
        azione(finestra);
    });
    attesa->start(0);
}

template <class Widget>
Widget* trova(QWidget* finestra, const char* nome) {
    return finestra->findChild<Widget*>(nome);
}
