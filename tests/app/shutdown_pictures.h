#pragma once

#include "rename_pictures.h"

namespace qublet {

// The window that watches the player: while it plays, while it is silent, and halted.
void TakeShutdownPictures(MainWindow& window, const TakePicture& take);

}  // namespace qublet
