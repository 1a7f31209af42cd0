#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <thread>

#include "media/tag_change.h"
#include "media/tag_fields.h"
#include "platform/forwarding_file_system.h"
#include "support/song_tags_test_base.h"
#include "support/tag_bytes.h"

namespace qublet {
namespace {

using Deed = std::function<void()>;

// Another program does something to a file when its new version stands ready, or when it is about to be changed in
// place.
class Interfering : public ForwardingFileSystem {
 public:
  Interfering(FileSystem& files, Deed deed) : ForwardingFileSystem(files), deed_(std::move(deed)) {}

  std::unique_ptr<FileReplacement> BeginReplacement(const std::string& path) const override {
    if (folder_refuses) throw FolderRefusesWriting("no file can be made there");
    return std::make_unique<Replacement>(files_.BeginReplacement(path), deed_);
  }
  std::unique_ptr<InPlaceFile> OpenInPlace(const std::string& path) const override {
    deed_();
    return files_.OpenInPlace(path);
  }

  bool folder_refuses = false;

 private:
  class Replacement : public FileReplacement {
   public:
    Replacement(std::unique_ptr<FileReplacement> next, const Deed& deed) : next_(std::move(next)), deed_(deed) {}
    void Write(std::span<const std::uint8_t> bytes) override { next_->Write(bytes); }
    void CopyFrom(InputFile& source, std::int64_t offset, std::int64_t length) override {
      next_->CopyFrom(source, offset, length);
    }
    std::unique_ptr<InputFile> OpenWritten() override { return next_->OpenWritten(); }
    void ReplaceOnly(const std::optional<FileVersion>& version) override { next_->ReplaceOnly(version); }
    void Commit() override {
      deed_();
      next_->Commit();
    }

   private:
    std::unique_ptr<FileReplacement> next_;
    const Deed& deed_;
  };

  Deed deed_;
};

class ChangedMeanwhileTest : public SongTagsTest {
 protected:
  ChangedMeanwhileTest() {
    Write(before_);
    // Times of files go in steps of a few milliseconds.
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }

  static TagChange NewTitle() {
    TagChange change;
    change.settings.emplace_back(FindTagField("TIT2"), "New title");
    return change;
  }

  // What becomes of a change of tags during which that happens.
  static Outcome Changed(const FileSystem& files) {
    return Attempt([&] { ChangeTags(files, kSong, NewTitle()); });
  }
  Outcome ChangedWhile(Deed deed) { return Changed(Interfering(*files_, std::move(deed))); }

  std::filesystem::path Song() const { return drives_.C() / "song.mp3"; }

  const std::string before_ = TagBytes(3, TextFrameBytes(3, "TIT2", "Title") + std::string(300, '\0')) + AudioBytes();
  const std::string other_ = TagBytes(3, TextFrameBytes(3, "TIT2", "Other") + std::string(300, '\0')) + AudioBytes();
};

constexpr char kReason[] = "the file has changed meanwhile";

TEST_F(ChangedMeanwhileTest, AChangeThatNobodyDisturbsIsDone) {
  EXPECT_EQ(ChangedWhile([] {}).Reason(), "");
  EXPECT_NE(Content(), before_);
}

TEST_F(ChangedMeanwhileTest, KeepsWhatAnotherProgramHasAppended) {
  const Outcome outcome = ChangedWhile([&] { Write(before_ + "more"); });
  EXPECT_EQ(outcome.Reason(), kReason);
  EXPECT_EQ(Content(), before_ + "more");
  EXPECT_EQ(FilesInFolder(), 1u);
}

TEST_F(ChangedMeanwhileTest, KeepsAContentOfTheSameSizeAndTime) {
  const auto time = std::filesystem::last_write_time(Song());
  const Outcome outcome = ChangedWhile([&] {
    Write(other_);
    std::filesystem::last_write_time(Song(), time);
  });
  EXPECT_EQ(outcome.Reason(), kReason);
  EXPECT_EQ(Content(), other_);
}

TEST_F(ChangedMeanwhileTest, KeepsAnotherFileThatTookItsPlace) {
  const Outcome outcome = ChangedWhile([&] {
    drives_.Write("next.mp3", before_);
    std::filesystem::rename(drives_.C() / "next.mp3", Song());
  });
  EXPECT_EQ(outcome.Reason(), kReason);
  EXPECT_EQ(Content(), before_);
}

TEST_F(ChangedMeanwhileTest, DoesNotBringADeletedFileBack) {
  const Outcome outcome = ChangedWhile([&] { std::filesystem::remove(Song()); });
  EXPECT_EQ(outcome.Reason(), kReason);
  EXPECT_EQ(FilesInFolder(), 0u);
}

TEST_F(ChangedMeanwhileTest, KeepsRightsThatWereTakenAway) {
  const Outcome outcome =
      ChangedWhile([&] { std::filesystem::permissions(Song(), std::filesystem::perms::owner_read); });
  EXPECT_EQ(outcome.Reason(), kReason);
  EXPECT_EQ(Content(), before_);
  std::filesystem::permissions(Song(), std::filesystem::perms(0644));
}

TEST_F(ChangedMeanwhileTest, ChangesNothingInPlaceThen) {
  Interfering files(*files_, [&] { Write(other_); });
  files.folder_refuses = true;
  EXPECT_EQ(Changed(files).Reason(), kReason);
  EXPECT_EQ(Content(), other_);
}

// The tag is read by one opening of the file and worked out by another.
TEST_F(ChangedMeanwhileTest, RefusesAFileThatChangedBehindTheReadingOfItsTags) {
  class SecondIsAnother : public ForwardingFileSystem {
   public:
    SecondIsAnother(FileSystem& files, Deed deed) : ForwardingFileSystem(files), deed_(std::move(deed)) {}
    std::unique_ptr<InputFile> OpenForReading(const std::string& path) const override {
      if (++opened_ == 2) deed_();
      return files_.OpenForReading(path);
    }

   private:
    Deed deed_;
    mutable int opened_ = 0;
  };
  const SecondIsAnother files(*files_, [&] { Write(other_); });
  EXPECT_EQ(Changed(files).Reason(), kReason);
  EXPECT_EQ(Content(), other_);
}

}  // namespace
}  // namespace qublet
