#pragma once

#include "rename_pictures.h"

namespace qublet {

// The wizard for playlists of folders on every step, and where it has nothing to work with.
void TakeAutoCreatePictures(MainWindow& window, const TakePicture& take);

}  // namespace qublet
