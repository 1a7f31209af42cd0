#include "media/editor/ui/editor_commands.h"

namespace qublet {

const std::array<EditorCommand, 11> kEditorCommands{{
    {"CmdRefresh", "Refresh", "refresh", "", &TagEditor::CmdRefresh_Click, nullptr},
    {"CmdCopy", "Copy", "copy", "", &TagEditor::CmdCopy_Click, &EditorView::copy},
    {"CmdPaste", "Paste", "paste", "", &TagEditor::CmdPaste_Click, &EditorView::paste},
    {kUpdateCommand, "Update", "save", "Ctrl+Return", nullptr, &EditorView::update},
    {},
    {"CmdListen", "Preview", "play", "", &TagEditor::CmdListen_Click, nullptr},
    {"CmdInfo", "Req Info", "search", "", &TagEditor::CmdInfo_Click, nullptr},
    {},
    {"CmdPrev", "Previous", "previous", "Alt+Left", &TagEditor::CmdPrev_Click, &EditorView::prev},
    {"CmdNext", "Next", "next", "Alt+Right", &TagEditor::CmdNext_Click, &EditorView::next},
    {"CmdUndo", "Undo Update", "undo", "Ctrl+Alt+Z", &TagEditor::CmdUndo_Click, &EditorView::undo},
}};

}  // namespace qublet
