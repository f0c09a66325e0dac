#pragma once

#include <functional>
#include <optional>

#include <QLineEdit>

#include "kit/CTextBox.h"
#include "kit/ui/touch_widgets.h"

// The box of a field. Text, lock, enabling, visibility and colours follow the Campo; what is typed goes
// back to it. A text too long for the box is shown in smaller letters. Each character first passes the
// screen's rules, one by one; pasted text does not, and loses its line breaks and control characters.
class CampoEdit final : public QLineEdit, public CTextBox::Casella {
    Q_OBJECT
  public:
    // Answers the character to be written, nothing when it is swallowed. Enter '\r', Backspace '\b'.
    using FiltroTasti = std::function<std::optional<QChar>(QChar)>;

    // `casella` is the typed box over the field, or none. `nomeAccessibile` is what a screen reader says.
    CampoEdit(Campo& campo, CTextBox* casella, const QString& nomeAccessibile, QWidget* padre);
    ~CampoEdit() override;

    Campo& campo() const { return mCampo; }
    void filtroTasti(FiltroTasti filtro) { mFiltro = std::move(filtro); }

    // ---- CTextBox::Casella
    void selezionaTutto() override { selectAll(); }
    void cursoreAllaFine() override { end(false); }
    void inserisci(const QString& testo) override;
    void prendiFuoco() override { setFocus(Qt::OtherFocusReason); }
    void tab() override { focusNextPrevChild(true); }
    void invio() override;

    QSize sizeHint() const override { return mMisura; }

  protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void inputMethodEvent(QInputMethodEvent* evento) override;
    void focusInEvent(QFocusEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;
    void paintEvent(QPaintEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    void changeEvent(QEvent* evento) override;

  private:
    void mostra();
    void adattaCarattere();
    // A colour that the rules gave the box.
    std::optional<QColor> fondoProprio() const;
    QColor inchiostro() const;
    void coloraTesto();
    std::optional<QChar> filtrato(QChar tasto) const;
    void digita(const QString& testo);

    Campo& mCampo;
    CTextBox* mCasella;
    FiltroTasti mFiltro;
    QFont mIntero;  // what the box is given; the letters it shows may be smaller
    QSize mMisura;  // asked for with these
    bool mAdattando = false;
    bool mFuocoDalMouse = false;
};
