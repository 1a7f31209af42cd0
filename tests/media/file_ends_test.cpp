#include "media/file_ends.h"

#include <gtest/gtest.h>

#include "media/tag_object.h"
#include "platform/forwarding_file_system.h"
#include "support/memory_file.h"
#include "support/tag_bytes.h"
#include "support/temporary_drives.h"

namespace qublet {
namespace {

constexpr char kSong[] = "c:\\song.mp3";

// A folder that can't be written, and a file in it whose n-th change goes wrong; of a write half has been done then.
class FailingInPlace : public ForwardingFileSystem {
 public:
  FailingInPlace(FileSystem& files, int failing_call) : ForwardingFileSystem(files), calls_left_(failing_call) {}

  bool IsReadOnly(const std::string& path) const override { return path == "c:\\"; }
  std::unique_ptr<FileReplacement> BeginReplacement(const std::string& /*path*/) const override {
    throw FolderRefusesWriting("no access to the folder");
  }
  std::unique_ptr<InPlaceFile> OpenInPlace(const std::string& path) const override {
    return std::make_unique<File>(files_.OpenInPlace(path), calls_left_);
  }

 private:
  class File : public InPlaceFile {
   public:
    File(std::unique_ptr<InPlaceFile> file, int& calls_left) : file_(std::move(file)), calls_left_(calls_left) {}
    std::int64_t Size() const override { return file_->Size(); }
    void WriteAt(std::int64_t offset, std::span<const std::uint8_t> bytes) override {
      const bool fails = --calls_left_ == 0;
      file_->WriteAt(offset, fails ? bytes.first(bytes.size() / 2) : bytes);
      if (fails) throw Failure("input/output error");
    }
    void Truncate(std::int64_t size) override {
      if (--calls_left_ == 0) throw Failure("input/output error");
      file_->Truncate(size);
    }
    void Flush() override {
      if (--calls_left_ == 0) throw Failure("input/output error");
      file_->Flush();
    }

   private:
    std::unique_ptr<InPlaceFile> file_;
    int& calls_left_;
  };

  mutable int calls_left_;
};

class FileEndsTest : public testing::Test {
 protected:
  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
};

TEST_F(FileEndsTest, PutsTheOldBytesBackWhenAChangeInPlaceFails) {
  const std::string padded = TagBytes(3, TextFrameBytes(3, "TIT2", "Title") + std::string(200, '\0'));
  const std::string before = padded + AudioBytes() + Id3v1Bytes("Old");
  int failures = 0;
  for (const bool v1 : {false, true}) {
    for (int call = 1; call <= 3; ++call) {
      drives_.Write("song.mp3", before);
      const FailingInPlace failing(*files_, call);
      TagObject tag(failing);
      tag.ReadTags(kSong, false);
      tag.SetFrame("TIT2", "Another title");
      tag.SetV1Title("New");
      failures += Guarded([&] { v1 ? tag.WriteID3v1(kSong) : tag.WriteID3v2(kSong); }) ? 0 : 1;
      EXPECT_EQ(drives_.Read("song.mp3"), before);
    }
  }
  EXPECT_EQ(failures, 6);
}

TEST_F(FileEndsTest, TakesAnAddedTailBackWhenItFails) {
  for (int call = 1; call <= 3; ++call) {
    drives_.Write("song.mp3", AudioBytes());
    const FailingInPlace failing(*files_, call);
    TagObject tag(failing);
    EXPECT_THROW(tag.WriteID3v1(kSong), Failure);
    EXPECT_EQ(drives_.Read("song.mp3"), AudioBytes());
  }
}

TEST_F(FileEndsTest, DoesNotChangeAFileInPlaceThatIsNoLongerTheOneThatWasOpened) {
  constexpr int kNever = 100;
  const FailingInPlace in_place(*files_, kNever);
  for (const std::string& now : {AudioBytes() + "more", AudioBytes().substr(0, 500), std::string()}) {
    drives_.Write("song.mp3", now);
    MemoryFile present(AudioBytes());
    EndsChange change;
    change.tail = BytesOf(Id3v1Bytes("New"));
    EXPECT_THROW(ReplaceEnds(in_place, kSong, present, change), Failure);
    EXPECT_TRUE(drives_.Read("song.mp3") == now);
  }
}

TEST_F(FileEndsTest, DoesNotChangeAFileInPlaceWhoseOldEndCannotBeRead) {
  class EndsEarly : public MemoryFile {
   public:
    using MemoryFile::MemoryFile;
    std::size_t ReadAt(std::int64_t offset, std::span<std::uint8_t> buffer) override {
      return MemoryFile::ReadAt(offset, buffer.first(buffer.size() / 2));
    }
  };
  const std::string before = AudioBytes() + Id3v1Bytes("Old");
  for (int call = 1; call <= 3; ++call) {
    drives_.Write("song.mp3", before);
    const FailingInPlace failing(*files_, call);
    EndsEarly present(before);
    EndsChange change;
    change.old_tail = 128;
    change.tail = BytesOf(Id3v1Bytes("New"));
    EXPECT_THROW(ReplaceEnds(failing, kSong, present, change), Failure);
    EXPECT_EQ(drives_.Read("song.mp3"), before);
  }
}

TEST_F(FileEndsTest, DoesNotChangeInPlaceWhereTheFolderIsNotToBlame) {
  class DiskFull : public ForwardingFileSystem {
   public:
    using ForwardingFileSystem::ForwardingFileSystem;
    std::unique_ptr<FileReplacement> BeginReplacement(const std::string& /*path*/) const override {
      throw Failure("no space");
    }
  };
  drives_.Write("song.mp3", AudioBytes());
  const DiskFull full(*files_);
  TagObject tag(full);
  EXPECT_THROW(tag.WriteID3v1(kSong), Failure);
  EXPECT_EQ(drives_.Read("song.mp3"), AudioBytes());
}

// What was written is another file than what is read back.
class LyingReplacement : public FileReplacement {
 public:
  explicit LyingReplacement(std::unique_ptr<FileReplacement> real) : real_(std::move(real)) {}
  void Write(std::span<const std::uint8_t> bytes) override { real_->Write(bytes); }
  void CopyFrom(InputFile& source, std::int64_t offset, std::int64_t length) override {
    real_->CopyFrom(source, offset, length - 1);
    const std::uint8_t other = 7;
    real_->Write({&other, 1});
  }
  std::unique_ptr<InputFile> OpenWritten() override { return real_->OpenWritten(); }
  void Commit() override { real_->Commit(); }

 private:
  std::unique_ptr<FileReplacement> real_;
};

TEST_F(FileEndsTest, ComparesTheAudioBeforeItReplacesTheFile) {
  class Lying : public ForwardingFileSystem {
   public:
    using ForwardingFileSystem::ForwardingFileSystem;
    std::unique_ptr<FileReplacement> BeginReplacement(const std::string& path) const override {
      return std::make_unique<LyingReplacement>(files_.BeginReplacement(path));
    }
  };
  drives_.Write("song.mp3", AudioBytes());
  const Lying lying(*files_);
  TagObject tag(lying);
  EXPECT_THROW(tag.WriteID3v1(kSong), Failure);
  EXPECT_EQ(drives_.Read("song.mp3"), AudioBytes());
}

TEST_F(FileEndsTest, TakesNoTextOfTheTagAtTheEndForATag) {
  drives_.Write("song.mp3", "a short text" + Id3v1Bytes(std::string("ID3\x03\0\0\0\0\0\x20", 10)));
  TagObject tag(*files_);
  tag.ReadTags(kSong, false);
  EXPECT_TRUE(tag.HasID3v1());
  EXPECT_FALSE(tag.HasID3v2());
}

TEST_F(FileEndsTest, TakesNoMarkInFrontOfTheTagAtTheEndForATag) {
  const std::string tag = TagBytes(3, TextFrameBytes(3, "TIT2", "Title"));
  for (const std::string& front : {std::string(), tag}) {
    drives_.Write("song.mp3", front + "ID3" + Id3v1Bytes("", "An artist"));
    TagObject object(*files_);
    object.ReadTags(kSong, false);
    EXPECT_TRUE(object.HasID3v1());
    EXPECT_EQ(object.HasID3v2(), !front.empty());
    object.RemoveID3v2(kSong);
    EXPECT_EQ(drives_.Read("song.mp3"), "ID3" + Id3v1Bytes("", "An artist"));
  }
}

TEST_F(FileEndsTest, ReadsNoMoreThanTheFileHolds) {
  drives_.Write("song.mp3", std::string("ID3\x04\0\0\x7F\x7F\x7F\x7F", 10) + std::string(1000, 'x'));
  const auto file = files_->OpenForReading(kSong);
  const FileEnds ends = FindEnds(*file);
  EXPECT_FALSE(ends.HeadFits());
  const auto tag = ReadHead(*file, ends);
  ASSERT_TRUE(tag.has_value());
  EXPECT_EQ(tag->tail.size(), 1000u);
  EXPECT_LE(tag->tail.capacity(), 2000u);
}

}  // namespace
}  // namespace qublet
