#pragma once

#include <QPushButton>

// Marks a widget as still to come, in its look and in its tip; `cosa` is what it will do.
void segnaInArrivo(QWidget& widget, const QString& cosa);

// A button of the till. Its text is the whole caption, as "&NUOVA VND (F2)"; it is painted in two lines,
// the words and below them the key. A button whose command is still to come says so in its tip and look,
// and a press of it does nothing.
class PulsanteComando final : public QPushButton {
    Q_OBJECT
  public:
    explicit PulsanteComando(QWidget* padre);

    // The command is still to come; `cosa` is the tip that says what it will do.
    void presto(const QString& cosa);
    bool inArrivo() const;
    // Painted where there is no caption.
    void segnaposto(const QString& testo) { mSegnaposto = testo; }
    // Painted where the caption names no key.
    void sottotitolo(const QString& testo);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    // What the words, wrapped, and the key need.
    int heightForWidth(int larghezza) const override;

  signals:
    // A press by mouse, finger or Alt and letter, of a command that is there.
    void premuto();

  protected:
    void paintEvent(QPaintEvent* evento) override;
    void changeEvent(QEvent* evento) override;

  private:
    struct Didascalia {
        QString parole;
        QString tasto;
    };
    Didascalia didascalia() const;
    QFont carattereTasto() const;
    int altezzaParole(const QString& parole, int larghezza) const;
    int altezzaTasto(const QString& tasto) const;

    QString mSegnaposto;
    QString mSottotitolo;
};
