#pragma once

#include <optional>
#include <string>
#include <vector>

#include "media/editor/tag_editor.h"
#include "support/editor_test_base.h"

namespace qublet {

// The lists of the tag editor: comments, pictures, places in time.
class EditorListsTestBase : public EditorTestBase {
 protected:
  void SetUp() override {
    EditorTestBase::SetUp();
    drives_.Write("a.mp3", TaggedSong("Title"));
    AddRows({"a.mp3"});
    Select("x");
    editor_.LoadSelection();
  }
  void Update() { editor_.CmdUpdate_Click({}); }
  void ShowComments(std::vector<TagComment> rows) {
    comments_.Show(std::move(rows));
    positions_.LoadTpsi();
  }
  void AddPosition(int hours, int minutes, int seconds) {
    positions_.TPSIhour = hours;
    positions_.TPSImin = minutes;
    positions_.TPSIsec = seconds;
    positions_.TPSIadd_Click();
  }
  void AddPicture(const std::string& name, const std::optional<std::string>& description) {
    fakes_.dialogs.open_names.push_back("c:\\" + name);
    fakes_.dialogs.texts.push_back(description);
    pictures_.ID3v2ImageAdd_Click();
  }
  std::vector<ScriptedDialogs::Message>& Messages() { return fakes_.dialogs.messages; }

  EditorSurroundings around_;
  TagEditor editor_{engine_, around_.codec, around_.background};
  CommentRows& comments_ = editor_.comments;
  PictureRows& pictures_ = editor_.pictures;
  TimePositions& positions_ = editor_.positions;
  EditorView& view_ = editor_.view;
};

using Comments = std::vector<TagComment>;

}  // namespace qublet
