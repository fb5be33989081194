#pragma once

#include <QStyledItemDelegate>

namespace orvex {

/// Draws the letters of a question's codes beneath each other's, in cells of the same width. Those
/// that the observers do not agree on are bold and in a frame.
class CodesDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
};

}  // namespace orvex
