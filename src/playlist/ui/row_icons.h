#pragma once

#include <QIcon>
#include <array>

#include "platform/qt/pictures.h"
#include "playlist/row_store.h"

namespace qublet {

// The five small pictures of a row's state. They can be told apart on every colour that a list may have.
class RowIcons {
 public:
  const QIcon& For(RowIcon icon) const { return icons_[static_cast<std::size_t>(icon) - 1]; }

 private:
  std::array<QIcon, 5> icons_{Picture(QStringLiteral("row-normal")), Picture(QStringLiteral("row-missing")),
                              Picture(QStringLiteral("row-blue")), Picture(QStringLiteral("row-green")),
                              Picture(QStringLiteral("row-red"))};
};

}  // namespace qublet
