#pragma once

#include <QHeaderView>

namespace qublet {

// The header of the list. A caption that its column cuts off ends in dots, and a tip has it whole.
class RowHeader : public QHeaderView {
  Q_OBJECT

 public:
  explicit RowHeader(QWidget* parent);

 protected:
  bool viewportEvent(QEvent* event) override;
};

}  // namespace qublet
