#pragma once

#include <QLabel>

// A label that shortens a text too long for it with "…" and tells the whole in its tip.
class EtichettaElisa final : public QLabel {
    Q_OBJECT
  public:
    using QLabel::QLabel;
    // Without a text it takes no height: what stands over it moves to the middle.
    void cedeIlPosto() {
        mCedevole = true;
        updateGeometry();
    }
    QSize sizeHint() const override { return {QLabel::sizeHint().width(), altezza()}; }
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* evento) override;

  private:
    int altezza() const { return mCedevole && text().isEmpty() ? 0 : QLabel::minimumSizeHint().height(); }

    bool mCedevole = false;
};

// A label in the largest type, between two sizes in points, that its text fits in. It keeps the height of
// the largest.
class EtichettaAdattata final : public QLabel {
    Q_OBJECT
  public:
    EtichettaAdattata(int puntiMinimi, int puntiMassimi, QWidget* padre);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    // The size that the text is painted in now.
    int punti() const { return caratterePer(contentsRect().width()).pointSize(); }

  protected:
    void paintEvent(QPaintEvent* evento) override;

  private:
    QFont caratterePer(int larghezza) const;

    int mMinimi;
    int mMassimi;
};
