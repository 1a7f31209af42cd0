#pragma once

#include <QStyledItemDelegate>

namespace qublet {

// Marks the letters of a name that change, by weight and a line.
class NameDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace qublet
