#pragma once

#include "editor_pictures.h"

namespace qublet {

// The preferences on every page, and the page of the list's look in every scheme.
void TakeOptionsPictures(MainWindow& window, const TakePicture& take);

}  // namespace qublet
