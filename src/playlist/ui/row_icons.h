#pragma once

#include <QIcon>
#include <array>

#include "playlist/row_store.h"

namespace qublet {

// The five small pictures of a row's state, drawn here in the colours that their names say.
class RowIcons {
 public:
  RowIcons();
  const QIcon& For(RowIcon icon) const { return icons_[static_cast<std::size_t>(icon) - 1]; }

 private:
  std::array<QIcon, 5> icons_;
};

}  // namespace qublet
