#pragma once

#include <QWidget>
#include <functional>
#include <string>

#include "support/main_window.h"

namespace qublet {

// Writes a picture of a window that stands over the main one.
using TakePicture = std::function<void(const std::string& name, QWidget* window)>;

// The tag editor on every page, with files of every kind. The list of `window` is another one afterwards.
void TakeEditorPictures(MainWindow& window, const TakePicture& take);

}  // namespace qublet
