#pragma once

#include "rename_pictures.h"

namespace qublet {

// The tip of the day, with and without its file, and the window about the program.
void TakeTipsPictures(MainWindow& window, const TakePicture& take);

}  // namespace qublet
