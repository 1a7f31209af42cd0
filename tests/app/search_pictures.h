#pragma once

#include "rename_pictures.h"

namespace qublet {

// The search window beside the list that it has found rows in, and with its menu.
void TakeSearchPictures(MainWindow& window, const TakePicture& take);

}  // namespace qublet
