#include "kit/ui/campo_edit.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QValidator>

#include "kit/ui/campo_widgets.h"
#include "kit/ui/contrast.h"
#include "kit/ui/fitting_font.h"

namespace {

constexpr unsigned bianco = 0xFFFFFF;  // as good as no colour: that of every box
constexpr int margineTesto = 8;
constexpr int margineCursore = 3;  // left by the box beside its text margins
constexpr qreal scalaMinima = 0.7;
constexpr qreal raggio = 6.0;
constexpr qreal bordoFuoco = 3.0;

bool scrivibile(QChar c) {
    return c.category() != QChar::Other_Control && c != QChar::LineSeparator &&
           c != QChar::ParagraphSeparator;
}

// A field has one line: what the clipboard brings beyond that is dropped.
class UnaRiga final : public QValidator {
  public:
    using QValidator::QValidator;
    State validate(QString& testo, int& cursore) const override {
        for (qsizetype i = testo.size() - 1; i >= 0; --i) {
            if (scrivibile(testo[i])) continue;
            testo.remove(i, 1);
            if (i < cursore) --cursore;
        }
        return Acceptable;
    }
};

// A key that writes, and no command of the box such as Ctrl+C. AltGr, which writes too, is no Alt.
bool tastoDiTesto(const QKeyEvent& evento) {
    const auto comando = evento.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return comando == Qt::NoModifier && !evento.text().isEmpty() && scrivibile(evento.text().front());
}

}  // namespace

CampoEdit::CampoEdit(Campo& campo, CTextBox* casella, const QString& nomeAccessibile, QWidget* padre)
    : QLineEdit(padre), mCampo(campo), mCasella(casella), mIntero(font()) {
    setObjectName(campo.nome());
    setAccessibleName(nomeAccessibile);
    setFrame(false);
    setTextMargins(margineTesto, 0, margineTesto, 0);
    setMinimumHeight(altezzaTocco);
    mMisura = QLineEdit::sizeHint();
    setValidator(new UnaRiga(this));
    QPalette trasparente = palette();
    trasparente.setColor(QPalette::Base, Qt::transparent);
    setPalette(trasparente);
    if (casella != nullptr) {
        casella->casella(this);
        if (casella->allineatoADestra()) setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        if (casella->lunghezzaMassima() > 0) setMaxLength(casella->lunghezzaMassima());
    }
    mCampo.osserva([this](const Campo&) { mostra(); });
    mostra();
    connect(this, &QLineEdit::textChanged, this, [this](const QString& testo) {
        adattaCarattere();
        mCampo.testo(testo);
    });
}

CampoEdit::~CampoEdit() {
    mCampo.osserva({});
    if (mCasella != nullptr) mCasella->casella(nullptr);
}

void CampoEdit::mostra() {
    if (text() != mCampo.testo()) {
        // The field's own text stands as it is, even where the box shows less of it.
        const QSignalBlocker zitto(this);
        setText(mCampo.testo());
        adattaCarattere();
        if (!hasFocus()) setCursorPosition(0);
    }
    setReadOnly(mCampo.bloccato());
    setEnabled(mCampo.abilitato());
    mostraVisibilita(*this, mCampo);
    coloraTesto();
    update();
}

void CampoEdit::adattaCarattere() {
    const int spazio = width() - 2 * (margineTesto + margineCursore);
    const QFont adatto = carattereAdatto(mIntero, text(), spazio, mIntero.pointSizeF() * scalaMinima);
    if (adatto == font()) return;
    const QScopedValueRollback adattando(mAdattando, true);
    setFont(adatto);
}

void CampoEdit::resizeEvent(QResizeEvent* evento) {
    QLineEdit::resizeEvent(evento);
    adattaCarattere();
}

void CampoEdit::changeEvent(QEvent* evento) {
    QLineEdit::changeEvent(evento);
    if (evento->type() != QEvent::FontChange || mAdattando) return;
    mIntero = font();
    mMisura = QLineEdit::sizeHint();
    adattaCarattere();
}

std::optional<QColor> CampoEdit::fondoProprio() const {
    if (!mCampo.coloreFondo() || *mCampo.coloreFondo() == bianco) return std::nullopt;
    return QColor::fromRgb(*mCampo.coloreFondo());
}

QColor CampoEdit::inchiostro() const {
    if (mCampo.coloreTesto()) return QColor::fromRgb(*mCampo.coloreTesto());
    if (const auto fondo = fondoProprio()) return inchiostroSu(*fondo);
    return QGuiApplication::palette().color(QPalette::Text);
}

void CampoEdit::coloraTesto() {
    const QColor colore = inchiostro();
    if (palette().color(QPalette::Active, QPalette::Text) == colore) return;
    QPalette nuova = palette();
    nuova.setColor(QPalette::Active, QPalette::Text, colore);
    nuova.setColor(QPalette::Inactive, QPalette::Text, colore);
    setPalette(nuova);
}

void CampoEdit::inserisci(const QString& testo) {
    if (!isReadOnly()) insert(testo);
}

void CampoEdit::invio() {
    // A real key, so that whoever sees the keys before this box sees it too.
    for (const auto tipo : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent tasto(tipo, Qt::Key_Return, Qt::NoModifier, "\r");
        QCoreApplication::sendEvent(this, &tasto);
    }
}

std::optional<QChar> CampoEdit::filtrato(QChar tasto) const {
    return mFiltro ? mFiltro(tasto) : tasto;
}

void CampoEdit::digita(const QString& testo) {
    QString accettato;
    for (const QChar c : testo) {
        if (!scrivibile(c)) continue;
        if (const auto scritto = filtrato(c)) accettato += *scritto;
    }
    if (!accettato.isEmpty()) inserisci(accettato);
}

void CampoEdit::keyPressEvent(QKeyEvent* evento) {
    const bool invio = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
    if (invio) {
        filtrato(u'\r');
    } else if (tastoDiTesto(*evento)) {
        digita(evento->text());
    } else if (evento->modifiers() & Qt::AltModifier) {
        evento->ignore();  // a letter that reaches a button, or none
        return;
    } else if (evento->key() != Qt::Key_Backspace || filtrato(u'\b')) {
        QLineEdit::keyPressEvent(evento);
        return;
    }
    evento->accept();
}

void CampoEdit::inputMethodEvent(QInputMethodEvent* evento) {
    // Composed letters come whole: they pass the same rules as keys do.
    const QString testo = evento->commitString();
    if (testo.isEmpty()) {
        QLineEdit::inputMethodEvent(evento);
        return;
    }
    QInputMethodEvent fineComposizione;
    QLineEdit::inputMethodEvent(&fineComposizione);
    digita(testo);
    evento->accept();
}

void CampoEdit::focusInEvent(QFocusEvent* evento) {
    mFuocoDalMouse = evento->reason() == Qt::MouseFocusReason;
    QLineEdit::focusInEvent(evento);
}

void CampoEdit::mouseReleaseEvent(QMouseEvent* evento) {
    QLineEdit::mouseReleaseEvent(evento);
    // The tap that enters a field selects it, so that the next key replaces the old value.
    if (mFuocoDalMouse && !hasSelectedText()) selectAll();
    mFuocoDalMouse = false;
}

void CampoEdit::paintEvent(QPaintEvent* evento) {
    QPainter pittore(this);
    pittore.setRenderHint(QPainter::Antialiasing);
    const QPalette colori = QGuiApplication::palette();
    const bool chiuso = isReadOnly() || !isEnabled();
    const QColor fondo = fondoProprio().value_or(colori.color(chiuso ? QPalette::Window : QPalette::Base));
    const qreal bordo = hasFocus() ? bordoFuoco : 1.0;
    pittore.setPen(QPen(colori.color(hasFocus() ? QPalette::Highlight : QPalette::Mid), bordo));
    pittore.setBrush(fondo);
    const qreal dentro = bordo / 2;
    pittore.drawRoundedRect(QRectF(rect()).adjusted(dentro, dentro, -dentro, -dentro), raggio, raggio);
    pittore.end();
    QLineEdit::paintEvent(evento);
}
