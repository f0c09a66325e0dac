#include "kit/ui/touch_widgets.h"

#include <QApplication>

QFont carattereIngrandito(double fattore) {
    QFont carattere = QApplication::font();
    // A font given in pixels has no point size.
    if (carattere.pointSizeF() > 0) {
        carattere.setPointSizeF(carattere.pointSizeF() * fattore);
    } else {
        carattere.setPixelSize(static_cast<int>(carattere.pixelSize() * fattore));
    }
    return carattere;
}

QPushButton* pulsanteGrande(const QString& testo, const QString& nome, QWidget* genitore) {
    auto* pulsante = new QPushButton(testo, genitore);
    pulsante->setObjectName(nome);
    pulsante->setFont(carattereIngrandito(1.2));
    pulsante->setMinimumHeight(altezzaTocco);
    pulsante->setMinimumWidth(110);
    return pulsante;
}

QLabel* etichetta(const QString& testo, const QString& nome, QWidget* genitore) {
    auto* label = new QLabel(genitore);
    label->setTextFormat(Qt::PlainText);
    label->setText(testo);
    label->setObjectName(nome);
    return label;
}
