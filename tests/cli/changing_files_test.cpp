#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

#include "generators/disc/icon_file.h"
#include "media/media_info.h"
#include "media/tag_change.h"
#include "media/vorbis_comments.h"
#include "media/wav_header.h"
#include "playlist/m3u_lines.h"
#include "playlist/paths/text_files.h"
#include "support/tag_bytes.h"
#include "support/temporary_drives.h"
#include "support/vorbis_bytes.h"

// Files that another program cuts and writes anew all the time while they are read and changed.

namespace qublet {
namespace {

// Rewrites files in turn for as long as it lives: cut to a part of their length, then whole again.
class Rewriting {
 public:
  Rewriting(std::filesystem::path place, std::vector<std::string> contents)
      : place_(std::move(place)), contents_(std::move(contents)), thread_([this] { Work(); }) {}
  ~Rewriting() { ended_ = true; }

 private:
  void Work() {
    for (unsigned turn = 0; !ended_; ++turn) {
      const std::string& content = contents_[turn % contents_.size()];
      const int file = open(place_.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
      const std::size_t left = turn % 7 * 100 % (content.size() / 2 + 1);
      const bool written =
          ftruncate(file, static_cast<off_t>(left)) == 0 && pwrite(file, content.data(), content.size(), 0) > 0;
      close(file);
      if (!written) return;
    }
  }

  const std::filesystem::path place_;
  const std::vector<std::string> contents_;
  std::atomic<bool> ended_ = false;
  std::jthread thread_;
};

class ChangingFilesTest : public testing::Test {
 protected:
  // Whatever comes of it, nothing but a failure may leave it.
  void ReadMeanwhile(const std::string& name, const std::vector<std::string>& contents,
                     const std::function<void(const std::string& path)>& read) {
    drives_.Write(name, contents.front());
    const Rewriting rewriting(drives_.C() / name, contents);
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(500);
    while (std::chrono::steady_clock::now() < end) ResumeNext([&] { read("c:\\" + name); });
  }

  static std::vector<std::string> Songs() {
    const std::string large = TagBytes(4, TextFrameBytes(4, "TIT2", std::string(200'000, 'x')));
    const std::string small = TagBytes(3, TextFrameBytes(3, "TIT2", "Title") + CommentBytes(3, "eng", "a", "b"));
    return {large + AudioBytes(200) + Id3v1Bytes("Old"), small + AudioBytes(20), AudioBytes(100) + Id3v1Bytes("New"),
            std::string(3000, '\0') + small + AudioBytes(50)};
  }

  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
};

TEST_F(ChangingFilesTest, EndNoReader) {
  ReadMeanwhile("a.mp3", Songs(), [&](const std::string& path) {
    MediaInfo info;
    GetMediaInfo(*files_, path, info);
    TagObject(*files_).ReadTags(path, true);
  });
  ReadMeanwhile("a.wav", {"RIFF1234WAVEfmt " + std::string(100'000, '\1')}, [&](const std::string& path) {
    MediaInfo info;
    GetMediaInfo(*files_, path, info);
  });
  ReadMeanwhile("a.ogg", {VorbisFile({"TITLE=Title", "ARTIST=Artist"}, 9000)}, [&](const std::string& path) {
    VorbisComments comments;
    ReadVorbisComments(*files_, path, comments);
  });
  std::string lines;
  for (int i = 0; i < 5000; ++i) lines += "c:\\m\\" + std::to_string(i) + ".mp3\r\n";
  ReadMeanwhile("a.m3u", {lines}, [&](const std::string& path) {
    Collection found;
    ReadPlaylistLines(*files_, path, found);
  });
  IconPicture picture;
  picture.width = picture.height = 48;
  picture.pixels.resize(48 * 48);
  ReadMeanwhile("a.ico", {IconFileOf(std::vector{picture, picture}).value()}, [&](const std::string& path) {
    std::string bytes;
    ReadTextFile(*files_, path, bytes);
    ReadIcon(bytes, 32);
  });
}

TEST_F(ChangingFilesTest, EndNoChangeOfTagsAndLeaveNothingBehind) {
  TagChange change;
  change.settings.emplace_back(FindTagField("TIT2"), "New title");
  ReadMeanwhile("a.mp3", Songs(), [&](const std::string& path) { ChangeTags(*files_, path, change); });
  EXPECT_EQ(files_->ReadFolder("c:\\").size(), 1u);
}

}  // namespace
}  // namespace qublet
