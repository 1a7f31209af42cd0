#pragma once

#include "rename_pictures.h"

namespace qublet {

// The windows of bookmarks: the one that keeps selected items, and the one that imports beside the list.
void TakeBookmarksPictures(MainWindow& window, const TakePicture& take);

}  // namespace qublet
