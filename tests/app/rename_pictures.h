#pragma once

#include "editor_pictures.h"

namespace qublet {

// The rename window on every tab. The list of `window` is another one afterwards.
void TakeRenamePictures(MainWindow& window, const TakePicture& take);

}  // namespace qublet
