#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "media/tag_object.h"
#include "support/temporary_drives.h"

namespace qublet {

constexpr char kSong[] = "c:\\song.mp3";

// One file with tags, alone in its folder.
class SongTagsTest : public testing::Test {
 protected:
  void Write(const std::string& content) { drives_.Write("song.mp3", content); }
  std::string Content() const { return drives_.Read("song.mp3"); }
  TagObject Loaded() const {
    TagObject tag(*files_);
    tag.ReadTags(kSong, false);
    return tag;
  }
  std::size_t FilesInFolder() const {
    const auto entries = std::filesystem::directory_iterator(drives_.C());
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
  }

  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
};

}  // namespace qublet
