#pragma once

#include <string>
#include <vector>

#include "support/editor_test_base.h"

namespace qublet {

// The program without a window, over songs that lie in c:\m; its bookmarks stand in c:\program\Bookmarks.
class BookmarksTestBase : public EditorTestBase {
 protected:
  BookmarksTestBase() {
    std::filesystem::create_directory(drives_.C() / "program");
    for (const char* name : {"m/a.mp3", "m/b.mp3", "m/c.mp3"}) drives_.Write(name, "abc");
  }

  using Messages = std::vector<ScriptedDialogs::Message>;
  static ScriptedDialogs::Message Told(const std::string& text, MessageIcon icon) {
    return {text, icon, MessageButtons::kOk};
  }

  // The three songs, of which those with an "x" are selected.
  void FillList(const std::string& selection) {
    AddRows({"m\\a.mp3", "m\\b.mp3", "m\\c.mp3"});
    Select(selection);
    engine_.document.PlaylistChanged = false;
  }
  std::string Names() {
    std::string names;
    for (int i = 1; i <= Rows().Count(); ++i) names += (i > 1 ? " " : "") + Rows().At(i).cells[kFileName];
    return names;
  }
  void WriteCategory(const std::string& name, const std::string& content) const {
    drives_.Write("program/Bookmarks/" + name + ".bm", content);
  }
  std::string ReadCategory(const std::string& name) const {
    return drives_.Read("program/Bookmarks/" + name + ".bm");
  }
  bool HasCategory(const std::string& name) const {
    return std::filesystem::exists(drives_.C() / "program/Bookmarks" / (name + ".bm"));
  }

  ScriptedDialogs& dialogs_ = fakes_.dialogs;
};

}  // namespace qublet
