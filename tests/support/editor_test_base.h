#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "engine/engine.h"
#include "media/tag_object.h"
#include "platform/background.h"
#include "support/fake_picture_codec.h"
#include "support/fake_services.h"
#include "support/recorders.h"
#include "support/tag_bytes.h"
#include "support/temporary_drives.h"

namespace qublet {

// A song with both tags.
inline std::string TaggedSong(const std::string& title) {
  return TagBytes(3, TextFrameBytes(3, "TIT2", title) + TextFrameBytes(3, "TPE1", "Artist") +
                         FrameBytes(3, "PRIV", "owner" + std::string(1, '\0') + "hidden")) +
         AudioBytes(20) + Id3v1Bytes(title.substr(0, 30), "Artist", "Album", "1999", "Comment", 17);
}

// What a TagEditor needs besides.
struct EditorSurroundings {
  FakePictureCodec codec;
  Background background;
};

// The program without a window, with files of the drive c: as rows.
class EditorTestBase : public testing::Test {
 protected:
  void SetUp() override { engine_.view.Show(window_); }

  void AddRows(const std::vector<std::string>& names) {
    for (const std::string& name : names) engine_.items.AddFile("c:\\" + name, 0, 0);
  }
  // "x" for a selected row, "-" for another.
  void Select(const std::string& letters) {
    Rows().SelectWhere([&](int index, const Row&) { return letters.at(static_cast<std::size_t>(index - 1)) == 'x'; });
  }
  std::string Selection() {
    std::string letters;
    for (int i = 1; i <= Rows().Count(); ++i) letters += Rows().At(i).selected ? 'x' : '-';
    return letters;
  }
  RowStore& Rows() { return engine_.document.ListView1; }
  void SetReadOnly(const std::string& name, bool read_only) const {
    std::filesystem::permissions(drives_.C() / name, std::filesystem::perms(read_only ? 0444 : 0644));
  }
  TagObject Loaded(const std::string& name) const {
    TagObject tag(*files_);
    tag.ReadTags("c:\\" + name, false);
    return tag;
  }

  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  RecordingFeedback feedback_;
  RecordingView window_;
  FakeServices fakes_;
  Engine engine_{fakes_.Over(*files_, feedback_), {"QUBLET2021", "c:\\program", ""}, ","};
};

}  // namespace qublet
