#pragma once

#include <algorithm>
#include <set>
#include <string>

#include "platform/code_page.h"
#include "playlist/paths/text_files.h"
#include "playlist/playlist_files.h"
#include "support/fake_services.h"
#include "support/temporary_drives.h"

namespace qublet {

// A playlist that is opened and saved over itself, in "c:\" with a small tree around it.
class SavedOver {
 public:
  SavedOver() {
    for (const char* name :
         {"a.mp3", "sub/b.mp3", "sub/deeper/\u00F6.ogg", "\u97F3.wav", "x y.wma", "#c.mp3", "UP.MP3"})
      drives_.Write(name, "abc");
    TemporaryDrives::WriteAt(drives_.D() / "d.mp3", "abc");
  }

  // What goes wrong with a playlist of these bytes; "" when nothing does. `name` is "list.m3u" or "list.m3u8".
  std::string FaultOf(const std::string& bytes, const std::string& name) {
    drives_.Write(name, bytes);
    const std::string path = "c:\\" + name;
    if (!Open(path)) return "";
    const List before = Look();
    if (before.count == RowStore::MaxRows) return "";
    fakes_.dialogs.answers = {MessageAnswer::kYes};
    if (!playlist_files_.SaveTo(path, PlaylistFiles::LineForm::kFull)) return "it can't be saved";
    const Collection lines = SplitLines(std::string(WithoutMark(drives_.Read(name))));
    if (lines.size() != static_cast<std::size_t>(before.count)) return "a line is too many or too few";
    const Collection old_lines = SplitLines(std::string(WithoutMark(bytes)));
    const std::set<std::string> old(old_lines.begin(), old_lines.end());
    for (int i = 1; i <= before.count; ++i) {
      const KeptLine* kept = document_.ListView1.At(i).kept.get();
      if (kept == nullptr) continue;
      if (lines[static_cast<std::size_t>(i - 1)] != kept->bytes) return "a missing line has changed: " + kept->bytes;
      if (!old.contains(kept->bytes)) return "a missing line isn't what came: " + kept->bytes;
    }
    if (!Open(path)) return "it can't be opened again";
    const List after = Look();
    if (after.count < RowStore::MaxRows && after.missing != before.missing) return "other lines are missing";
    for (const std::string& there : before.there) {
      if (after.count < RowStore::MaxRows && !after.there.contains(there)) return "a row has lost its file: " + there;
    }
    return "";
  }

 private:
  struct List {
    int count = 0;
    std::set<std::string> missing;  // their lines
    std::set<std::string> there;    // the places of their files
  };

  bool Open(const std::string& path) {
    fakes_.dialogs.answers = {MessageAnswer::kNo};
    document_.PlaylistChanged = false;
    fakes_.dialogs.open_names = {path};
    playlist_files_.MFileOpen_Click();
    return document_.ListView1.Count() > 0;
  }

  // Some ways into a list leave "." and ".." in a path.
  std::string Place(const std::string& path) const {
    return std::filesystem::path(files_->ToNative(path)).lexically_normal().string();
  }

  List Look() const {
    List list;
    list.count = document_.ListView1.Count();
    for (int i = 1; i <= list.count; ++i) {
      const Row& row = document_.ListView1.At(i);
      row.kept ? list.missing.insert(row.kept->bytes) : list.there.insert(Place(row.FullPath()));
    }
    return list;
  }

  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  Document document_;
  Feedback feedback_;
  MainView view_;
  FakeServices fakes_;
  Services services_ = fakes_.Over(*files_, feedback_);
  AppSettings settings_;
  Items items_{document_, *files_, feedback_, view_, ","};
  PlaylistFiles playlist_files_{document_, items_, settings_, services_, view_};
};

}  // namespace qublet
