#pragma once

#include "editor_pictures.h"

namespace qublet {

// The purge window on both tabs, and in the steps of a restoration. The list of `window` is another one afterwards.
void TakePurgePictures(MainWindow& window, const TakePicture& take);

}  // namespace qublet
