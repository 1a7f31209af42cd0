#pragma once

#include "platform/dialogs.h"

namespace qublet {

// Says that a command needs rows and the list has none.
inline void ShowNoItemsMessage(Dialogs& dialogs) {
  dialogs.ShowMessage(
      "The function cannot be performed because there are no Playlist items!\r"
      "Use Drag and Drop or 'Add Item' to add files/folders/m3us to the list.",
      MessageIcon::kExclamation, MessageButtons::kOk);
}

}  // namespace qublet
