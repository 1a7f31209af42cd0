#pragma once

#include <QWidget>

#include "media/editor/tag_editor.h"

namespace qublet {

// What a double click into the boxes of the editor's window does: fills them from the file's name or folder, opens
// their address, or searches for their text.
void BindDoubleClicks(QWidget& window, TagEditor& editor);

}  // namespace qublet
