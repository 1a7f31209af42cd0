#include <gtest/gtest.h>

#include "support/file_system_test_base.h"

namespace qublet {
namespace {

class FileReplacementTest : public FileSystemTestBase {};

TEST_F(FileReplacementTest, TouchesNothingBeforeCommit) {
  drives_.Write("list.m3u", "old");
  const auto next = files_->BeginReplacement("C:\\list.m3u");
  next->Write(BytesOf(LongContent()));
  EXPECT_EQ(drives_.Read("list.m3u"), "old");
  next->Commit();
  EXPECT_EQ(drives_.Read("list.m3u"), LongContent());
  EXPECT_EQ(NamesIn("c:\\"), Names{"list.m3u"});
}

TEST_F(FileReplacementTest, TakesItsTemporaryFileAlongWhenDropped) {
  drives_.Write("list.m3u", "old");
  {
    const auto next = files_->BeginReplacement("c:\\list.m3u");
    next->Write(BytesOf(LongContent()));
    EXPECT_EQ(NamesIn("c:\\").size(), 2u);
  }
  EXPECT_EQ(NamesIn("c:\\"), Names{"list.m3u"});
  EXPECT_EQ(drives_.Read("list.m3u"), "old");
}

TEST_F(FileReplacementTest, MakesAFileThatWasMissing) {
  Replace("d:\\new.m3u", "text");
  EXPECT_EQ(drives_.ReadAt(drives_.D() / "new.m3u"), "text");
  Replace("relative.m3u", "text");
  EXPECT_EQ(drives_.Read("relative.m3u"), "text");
}

TEST_F(FileReplacementTest, LeavesNothingForAMissingFileWhenDropped) {
  files_->BeginReplacement("c:\\new.m3u");
  EXPECT_EQ(NamesIn("c:\\"), Names{});
}

TEST_F(FileReplacementTest, CanBecomeEmpty) {
  drives_.Write("list.m3u", "old");
  files_->BeginReplacement("c:\\list.m3u")->Commit();
  EXPECT_EQ(files_->FileLength("c:\\list.m3u"), 0);
}

TEST_F(FileReplacementTest, AppendsPiecesOfAnySizeInOrder) {
  const auto next = files_->BeginReplacement("c:\\a.bin");
  std::string expected;
  for (const std::size_t size : {1u, 0u, 65535u, 65536u, 1u, 65537u, 200000u, 3u}) {
    const std::string piece = LongContent(size);
    next->Write(BytesOf(piece));
    expected += piece;
  }
  next->Commit();
  EXPECT_EQ(drives_.Read("a.bin"), expected);
}

TEST_F(FileReplacementTest, CopiesRangesOfAnotherFile) {
  const std::string content = LongContent();
  drives_.Write("a.mp3", content);
  const auto source = files_->OpenForReading("c:\\a.mp3");
  const auto next = files_->BeginReplacement("c:\\a.mp3");
  next->Write(BytesOf("head"));
  next->CopyFrom(*source, 5, 100);
  next->Write(BytesOf("middle"));
  next->CopyFrom(*source, 1000, 200000);
  next->CopyFrom(*source, 300000, 0);
  next->Write(BytesOf("end"));
  next->Commit();
  EXPECT_EQ(drives_.Read("a.mp3"), "head" + content.substr(5, 100) + "middle" + content.substr(1000, 200000) + "end");
}

TEST_F(FileReplacementTest, CopiesFromAnySourceOfBytes) {
  class Numbers : public InputFile {
   public:
    std::int64_t Size() const override { return 100000; }
    std::size_t ReadAt(std::int64_t offset, std::span<std::uint8_t> buffer) override {
      for (std::size_t i = 0; i < buffer.size(); ++i) buffer[i] = static_cast<std::uint8_t>('0' + (offset + i) % 10);
      return buffer.size();
    }
  };
  Numbers source;
  const auto next = files_->BeginReplacement("c:\\a.bin");
  next->CopyFrom(source, 7, 80000);
  next->Commit();
  const std::string written = drives_.Read("a.bin");
  EXPECT_EQ(written.size(), 80000u);
  EXPECT_EQ(written.substr(0, 5), "78901");
  EXPECT_EQ(written.substr(79995), "23456");
}

TEST_F(FileReplacementTest, FailsWhenTheSourceEndsEarly) {
  drives_.Write("a.mp3", LongContent());
  drives_.Write("b.mp3", "old");
  const auto source = files_->OpenForReading("c:\\a.mp3");
  EXPECT_THROW(files_->BeginReplacement("c:\\b.mp3")->CopyFrom(*source, 0, 300001), Failure);
  EXPECT_THROW(files_->BeginReplacement("c:\\b.mp3")->CopyFrom(*source, 299999, 2), Failure);
  EXPECT_THROW(files_->BeginReplacement("c:\\b.mp3")->CopyFrom(*source, 400000, 100000), Failure);
  EXPECT_EQ(drives_.Read("b.mp3"), "old");
  EXPECT_EQ(NamesIn("c:\\"), (Names{"a.mp3", "b.mp3"}));
}

TEST_F(FileReplacementTest, ShowsWhatHasBeenWrittenBeforeCommit) {
  const auto next = files_->BeginReplacement("c:\\a.bin");
  next->Write(BytesOf("12345"));
  const auto written = next->OpenWritten();
  EXPECT_EQ(written->Size(), 5);
  std::vector<std::uint8_t> buffer(5);
  EXPECT_EQ(written->ReadAt(0, buffer), 5u);
  EXPECT_EQ(buffer[4], '5');
  next->Write(BytesOf("678"));
  EXPECT_EQ(next->OpenWritten()->Size(), 8);
  next->Commit();
  EXPECT_EQ(drives_.Read("a.bin"), "12345678");
}

TEST_F(FileReplacementTest, ReplacesTheVersionThatWasReadAndNoOther) {
  drives_.Write("a.mp3", "read");
  const auto version = files_->OpenForReading("c:\\a.mp3")->Version();
  ASSERT_TRUE(version);
  const auto replace = [&] {
    const auto next = files_->BeginReplacement("c:\\a.mp3");
    next->Write(BytesOf(std::string("new")));
    next->ReplaceOnly(*version);
    next->Commit();
  };
  drives_.Write("a.mp3", "another's");
  EXPECT_THROW(replace(), ChangedMeanwhile);
  EXPECT_EQ(drives_.Read("a.mp3"), "another's");
  std::filesystem::remove(drives_.C() / "a.mp3");
  EXPECT_THROW(replace(), ChangedMeanwhile);
  EXPECT_EQ(NamesIn("c:\\"), Names{});
}

TEST_F(FileReplacementTest, ReplacesTheVersionThatIsStillThere) {
  drives_.Write("a.mp3", "read");
  const auto source = files_->OpenForReading("c:\\a.mp3");
  const auto next = files_->BeginReplacement("c:\\a.mp3");
  next->ReplaceOnly(*source->Version());
  next->CopyFrom(*source, 0, 4);
  next->Write(BytesOf(std::string(" and more")));
  next->Commit();
  EXPECT_EQ(drives_.Read("a.mp3"), "read and more");
}

TEST_F(FileReplacementTest, IsOverAfterCommit) {
  const auto next = files_->BeginReplacement("c:\\a.bin");
  next->Write(BytesOf("1"));
  next->Commit();
  EXPECT_THROW(next->Commit(), Failure);
  EXPECT_THROW(
      {
        next->Write(BytesOf(LongContent()));
        next->Commit();
      },
      Failure);
  EXPECT_EQ(drives_.Read("a.bin"), "1");
}

TEST_F(FileReplacementTest, LeavesTheOldFileReadableToWhoHasItOpen) {
  drives_.Write("a.mp3", "old");
  const auto reader = files_->OpenForReading("c:\\a.mp3");
  Replace("c:\\a.mp3", "new text");
  std::vector<std::uint8_t> buffer(10);
  EXPECT_EQ(reader->ReadAt(0, buffer), 3u);
  EXPECT_EQ(buffer[0], 'o');
}

TEST_F(FileReplacementTest, RefusesFoldersAndPlacesThatAreNotThere) {
  drives_.Write("music/a.mp3", "a");
  for (const std::string path : {"c:\\music", "c:\\music\\", "c:\\", "c:", "c:\\none\\a.m3u", "c:\\music\\a.mp3\\b",
                                 "", "c:\\music\\.", "q:\\a.m3u"}) {
    EXPECT_THROW(files_->BeginReplacement(path), Failure) << path;
  }
  EXPECT_EQ(NamesIn("c:\\"), Names{"music\\"});
  EXPECT_EQ(NamesIn("c:\\music"), Names{"a.mp3"});
}

TEST_F(FileReplacementTest, StaysInItsFolderWhenTheCurrentOneChanges) {
  drives_.Write("list.m3u", "old");
  const auto next = files_->BeginReplacement("list.m3u");
  next->Write(BytesOf("new"));
  files_->SetCurrentFolder("d:\\");
  next->Commit();
  EXPECT_EQ(drives_.Read("list.m3u"), "new");
  EXPECT_EQ(NamesIn("d:\\"), Names{});
}

}  // namespace
}  // namespace qublet
