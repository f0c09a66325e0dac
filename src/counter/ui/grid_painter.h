#pragma once

#include <QStyledItemDelegate>

// Distance of a cell's text from its edges, in pixels.
constexpr int margineCella = 5;

// Paints a cell of the sale's rows as the row's state asks: selected, shaded, in a colour of its own; a
// kit's head with its fold mark and its components under it; a price that is locked, changed by hand or 0.
class PittoreCelle final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* pittore, const QStyleOptionViewItem& opzioni,
               const QModelIndex& indice) const override;
};
