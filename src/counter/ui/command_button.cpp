#include "counter/ui/command_button.h"

#include <QEvent>
#include <QPainter>
#include <QStyleOptionButton>

#include "kit/ui/campo_edit.h"

namespace {

constexpr char proprietaPresto[] = "presto";
constexpr int margine = 5;
constexpr int bordo = 2;
constexpr int puntiTasto = 10;
constexpr int disegno = Qt::AlignCenter | Qt::TextWordWrap | Qt::TextShowMnemonic;

QString senzaMnemonico(const QString& testo) {
    return QString(testo).remove('&');
}

int parolaPiuLunga(const QString& testo, const QFontMetrics& misure) {
    int larghezza = 0;
    for (const QString& parola : senzaMnemonico(testo).split(' ')) {
        larghezza = std::max(larghezza, misure.horizontalAdvance(parola));
    }
    return larghezza;
}

}  // namespace

void segnaInArrivo(QWidget& widget, const QString& cosa) {
    widget.setProperty(proprietaPresto, true);
    widget.setToolTip("In arrivo: " + cosa);
}

PulsanteComando::PulsanteComando(QWidget* padre) : QPushButton(padre) {
    // The fields keep the focus: a command acts on what is being typed in.
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    connect(this, &QPushButton::clicked, this, [this] {
        if (!inArrivo()) emit premuto();
    });
}

void PulsanteComando::presto(const QString& cosa) {
    segnaInArrivo(*this, cosa);
    setShortcut({});
}

bool PulsanteComando::inArrivo() const {
    return property(proprietaPresto).toBool();
}

void PulsanteComando::sottotitolo(const QString& testo) {
    mSottotitolo = testo;
    update();
}

PulsanteComando::Didascalia PulsanteComando::didascalia() const {
    const QString intera = text().isEmpty() ? mSegnaposto : text();
    const qsizetype parentesi = intera.indexOf('(');
    if (parentesi < 0) return {intera, mSottotitolo};
    return {intera.left(parentesi).trimmed(), intera.mid(parentesi + 1).chopped(1)};
}

QFont PulsanteComando::carattereTasto() const {
    QFont carattere = font();
    carattere.setPointSize(puntiTasto);
    carattere.setBold(false);
    return carattere;
}

QSize PulsanteComando::sizeHint() const {
    const Didascalia due = didascalia();
    const QFontMetrics tasto(carattereTasto());
    const int larghezza =
        std::max(parolaPiuLunga(due.parole, fontMetrics()), tasto.horizontalAdvance(due.tasto));
    return QSize(larghezza + 2 * margine, fontMetrics().height() + altezzaTasto(due.tasto) + 2 * bordo)
        .expandedTo({altezzaTocco, altezzaTocco});
}

int PulsanteComando::altezzaParole(const QString& parole, int larghezza) const {
    return fontMetrics()
        .boundingRect(QRect(0, 0, larghezza - 2 * margine, QWIDGETSIZE_MAX), disegno, parole)
        .height();
}

int PulsanteComando::altezzaTasto(const QString& tasto) const {
    return tasto.isEmpty() ? 0 : QFontMetrics(carattereTasto()).height();
}

int PulsanteComando::heightForWidth(int larghezza) const {
    const Didascalia due = didascalia();
    return altezzaParole(due.parole, larghezza) + altezzaTasto(due.tasto) + 2 * bordo;
}

void PulsanteComando::paintEvent(QPaintEvent*) {
    QStyleOptionButton opzioni;
    initStyleOption(&opzioni);
    opzioni.text.clear();
    QPainter pittore(this);
    style()->drawControl(QStyle::CE_PushButtonBevel, &opzioni, &pittore, this);

    const Didascalia due = didascalia();
    const int parole = altezzaParole(due.parole, width());
    const int tasto = altezzaTasto(due.tasto);
    QRect spazio(margine, (height() - parole - tasto) / 2, width() - 2 * margine, parole);
    const bool premuto = isDown() && isEnabled() && !inArrivo();
    const auto gruppo = isEnabled() ? QPalette::Active : QPalette::Disabled;
    pittore.setPen(premuto ? Qt::white : palette().color(gruppo, QPalette::ButtonText));
    pittore.drawText(spazio, disegno, due.parole);
    spazio = QRect(spazio.left(), spazio.top() + parole, spazio.width(), tasto);
    pittore.setFont(carattereTasto());
    pittore.drawText(spazio, Qt::AlignCenter, due.tasto);
}

void PulsanteComando::changeEvent(QEvent* evento) {
    QPushButton::changeEvent(evento);
    if (evento->type() == QEvent::StyleChange || evento->type() == QEvent::FontChange) updateGeometry();
}
