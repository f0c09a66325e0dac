#include "kit/ui/labels.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

#include "kit/ui/fitting_font.h"

namespace {

// Background and border as the style sheet says, without the text.
void dipingiFondo(QLabel& etichetta, QPainter& pittore) {
    QStyleOption opzioni;
    opzioni.initFrom(&etichetta);
    etichetta.style()->drawPrimitive(QStyle::PE_Widget, &opzioni, &pittore, &etichetta);
    pittore.setPen(etichetta.palette().color(etichetta.foregroundRole()));
}

}  // namespace

QSize EtichettaElisa::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 3, altezza()};
}

void EtichettaElisa::paintEvent(QPaintEvent*) {
    QPainter pittore(this);
    dipingiFondo(*this, pittore);
    const QRect spazio = contentsRect();
    const QString breve = fontMetrics().elidedText(text(), Qt::ElideRight, spazio.width());
    setToolTip(breve == text() ? QString() : text());
    pittore.drawText(spazio, static_cast<int>(alignment()), breve);
}

EtichettaAdattata::EtichettaAdattata(int puntiMinimi, int puntiMassimi, QWidget* padre)
    : QLabel(padre), mMinimi(puntiMinimi), mMassimi(puntiMassimi) {}

QFont EtichettaAdattata::caratterePer(int larghezza) const {
    QFont grande = font();
    grande.setPointSize(mMassimi);
    return carattereAdatto(grande, text(), larghezza, mMinimi);
}

QSize EtichettaAdattata::sizeHint() const {
    QFont grande = font();
    grande.setPointSize(mMassimi);
    return {minimumSizeHint().width(), QFontMetrics(grande).height()};
}

QSize EtichettaAdattata::minimumSizeHint() const {
    QFont piccolo = font();
    piccolo.setPointSize(mMinimi);
    const QFontMetrics misure(piccolo);
    return {misure.horizontalAdvance(text()), misure.height()};
}

void EtichettaAdattata::paintEvent(QPaintEvent*) {
    QPainter pittore(this);
    dipingiFondo(*this, pittore);
    const QRect spazio = contentsRect();
    pittore.setFont(caratterePer(spazio.width()));
    pittore.drawText(spazio, static_cast<int>(alignment()), text());
}
