#pragma once

#include "editor_pictures.h"

namespace qublet {

// The steps of the wizard for music discs.
void TakeDiscPictures(MainWindow& window, const TakePicture& take);

}  // namespace qublet
