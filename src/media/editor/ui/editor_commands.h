#pragma once

#include <array>

#include "media/editor/tag_editor.h"

namespace qublet {

// A command of the tag editor, in the order of its toolbar.
struct EditorCommand {
  const char* name = "";  // of its push button, which an action of the toolbar stands beside; "" for a separator
  const char* caption = "";
  const char* picture = "";
  const char* shortcut = "";  // portable text
  void (TagEditor::*run)() = nullptr;
  bool EditorView::*enabled = nullptr;  // always, where there is none
};

inline constexpr const char* kUpdateCommand = "CmdUpdate";  // the window runs it itself

extern const std::array<EditorCommand, 11> kEditorCommands;

}  // namespace qublet
