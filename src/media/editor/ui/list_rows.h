#pragma once

#include <QTreeWidget>

namespace qublet {

// Rows of the pages' lists, from 1; 0 is none.

inline int CurrentRow(const QTreeWidget& list) {
  return list.indexOfTopLevelItem(list.currentItem()) + 1;
}
inline void SetCurrentRow(QTreeWidget& list, int row) {
  list.setCurrentItem(list.topLevelItem(row - 1));
}

}  // namespace qublet
