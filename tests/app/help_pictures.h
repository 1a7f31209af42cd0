#pragma once

#include "rename_pictures.h"

namespace qublet {

// The window of the help at the book's contents and at a page, and the browser for folders.
void TakeHelpPictures(MainWindow& window, const TakePicture& take);

}  // namespace qublet
