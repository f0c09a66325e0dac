#pragma once

#include <QFont>
#include <QStringList>
#include <QStyledItemDelegate>

// Distance of a cell's text from its edges, in pixels.
constexpr int margineCella = 5;

// What a cell shows of its text.
struct TestoInCella {
    QStringList righe;
    QFont carattere;
};
// A text too long for `larghezza` pixels takes smaller letters, then two lines, of which the second is elided
// where even that is too short; a figure is never parted: its digits become smaller, down to
// half, and what is too long even so shows its end behind an ellipsis.
TestoInCella testoInCella(const QString& testo, const QFont& carattere, int larghezza);
TestoInCella cifraInCella(const QString& cifra, const QFont& carattere, int larghezza);

// Paints a cell of the sale's rows as the row's state asks: selected, shaded, in a colour of its own; a
// kit's head with its fold mark and its components under it; a price that is locked, changed by hand or 0.
class PittoreCelle final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* pittore, const QStyleOptionViewItem& opzioni,
               const QModelIndex& indice) const override;
};
