#pragma once

#include "playlist/paths/path_text.h"
#include "playlist/playlist_files.h"
#include "support/list_test_base.h"
#include "support/scripted_dialogs.h"
#include "support/stopped_clock.h"

namespace qublet {

using Message = ScriptedDialogs::Message;
using Messages = std::vector<Message>;
using Shown = std::vector<std::string>;

inline constexpr const char* kFilter = "M3U Playlist Files (*.m3u)|*.m3u|M3U8 Playlist Files (*.m3u8)|*.m3u8|";

inline Message SaveFirst() {
  return {"Do you want to save the current playlist first?", MessageIcon::kQuestion, MessageButtons::kYesNoCancel};
}

class PlaylistFilesTest : public ListTestBase {
 protected:
  PlaylistFilesTest() {
    LoadDefaultSettings(settings_, {});
    Touch({"m/a/1.mp3", "m/b/2.mp3", "x/3.mp3"});
    TemporaryDrives::WriteAt(drives_.D() / "4.mp3", "abc");
    drives_.Write("one.m3u", "c:\\m\\a\\1.mp3\r\n");
    drives_.Write("two.m3u", "c:\\m\\a\\1.mp3\r\nc:\\m\\b\\2.mp3\r\n");
    drives_.Write("none.m3u", "#EXTM3U\r\n");
  }

  void Add(const std::string& path) { ASSERT_TRUE(items_.AddStuff(path, false)); }
  bool Open(const std::string& path) {
    dialogs_.open_names.emplace_back(path);
    playlist_files_.MFileOpen_Click();
    return document_.CurrentPlaylist == NormalizedPath(path);
  }
  bool Import(const std::string& path) {
    dialogs_.open_names.emplace_back(path);
    return playlist_files_.OpenPlaylistFile(true);
  }
  // Saves under a name that the dialog gives.
  bool SaveAs(const std::string& path, bool relative = false) {
    dialogs_.save_names.emplace_back(path);
    return playlist_files_.SavePlaylistFile(true, relative);
  }
  bool Save() { return playlist_files_.SavePlaylistFile(false, false); }
  // What a save dialog starts from, which is then cancelled.
  std::string Proposed(bool as_new, bool relative) {
    EXPECT_FALSE(playlist_files_.SavePlaylistFile(as_new, relative));
    return dialogs_.save_requests.empty() ? "no dialog" : dialogs_.save_requests.back().file_name;
  }
  void MakeReadOnly(const std::string& name) const {
    std::filesystem::permissions(drives_.C() / name, std::filesystem::perms::owner_read);
  }

  AppSettings settings_;
  ScriptedDialogs& dialogs_ = fakes_.dialogs;
  PlaylistFiles playlist_files_{document_, items_, settings_, services_, view_};
};

}  // namespace qublet
