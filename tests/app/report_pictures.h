#pragma once

#include "editor_pictures.h"

namespace qublet {

// The steps of the report wizard, for a page and for a text. The list of `window` stays as it is.
void TakeReportPictures(MainWindow& window, const TakePicture& take);

}  // namespace qublet
