#include "playlist/selection.h"

namespace qublet {

void RemoveSelectedRows(Document& document) {
  const int gone = document.ListView1.RemoveIf([](const Row& row) { return row.selected; });
  if (gone > 0) document.PlaylistChanged = true;
}

}  // namespace qublet
