#pragma once

#include <QHeaderView>

namespace qublet {

// The header of the list. A tip has the whole of a caption that its column cuts off. Captions on the right stand over
// their cells, a little off the next column.
class RowHeader : public QHeaderView {
  Q_OBJECT

 public:
  explicit RowHeader(QWidget* parent);

 protected:
  bool viewportEvent(QEvent* event) override;
  void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override;
};

// Between a cell whose text stands on the right and the next column, in the font's measure.
inline constexpr QChar kRoomOnTheRight = QChar(0x2002);

}  // namespace qublet
