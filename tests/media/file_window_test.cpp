#include "media/file_window.h"

#include <gtest/gtest.h>

#include "support/memory_file.h"

namespace qublet {
namespace {

Bytes Counted(std::size_t length) {
  Bytes bytes(length);
  for (std::size_t i = 0; i < length; ++i) bytes[i] = static_cast<std::uint8_t>(i * 7 + i / 256);
  return bytes;
}

Bytes Copied(std::span<const std::uint8_t> bytes, std::size_t length) {
  return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(std::min(length, bytes.size()))};
}

TEST(FileWindow, GivesTheBytesOfTheFileAtEveryPlace) {
  const Bytes content = Counted(300'000);
  MemoryFile file(content);
  FileWindow window(file);
  for (const std::int64_t offset : {0, 10, 4090, 4096, 100'000, 99'000, 200'000, 299'990}) {
    const auto found = window.From(offset, 10);
    ASSERT_GE(found.size(), 10u) << offset;
    EXPECT_EQ(Copied(found, 10), Bytes(content.begin() + offset, content.begin() + offset + 10)) << offset;
  }
}

TEST(FileWindow, ReadsASmallFileOnce) {
  MemoryFile file(Counted(4000));
  FileWindow window(file);
  window.From(0, 4);
  window.From(3999, 1);
  window.From(100, 3900);
  EXPECT_EQ(file.Reads(), 1);
}

TEST(FileWindow, ReadsNoMoreThanAPieceOf4096BytesFirst) {
  MemoryFile file(Counted(300'000));
  FileWindow window(file);
  window.From(0, 4);
  EXPECT_EQ(file.BytesRead(), 4096u);
}

TEST(FileWindow, TakesLargerPiecesWhenItGoesOn) {
  MemoryFile file(Counted(1'000'000));
  FileWindow window(file);
  for (std::int64_t offset = 0; offset < 1'000'000; offset += 100) window.From(offset, 100);
  EXPECT_LT(file.Reads(), 25);
}

TEST(FileWindow, GivesLessOnlyAtTheEndAndNothingBehindIt) {
  MemoryFile file(Counted(5000));
  FileWindow window(file);
  EXPECT_EQ(window.From(4990, 100).size(), 10u);
  EXPECT_EQ(window.From(5000, 100).size(), 0u);
  EXPECT_EQ(window.From(9'000'000'000, 100).size(), 0u);
  EXPECT_EQ(window.From(4000, 1000).size(), 1000u);
}

TEST(FileWindow, HoldsNothingWhenTheFileEndedEarlierThanItsSizeSaid) {
  class CutFile : public MemoryFile {
   public:
    using MemoryFile::MemoryFile;
    std::int64_t Size() const override { return 9000; }
  };
  CutFile file(Counted(100));
  FileWindow window(file);
  EXPECT_EQ(window.From(0, 500).size(), 100u);
  EXPECT_EQ(window.From(8000, 500).size(), 0u);
}

TEST(FileWindow, FailsOnAnInputErrorAndCanBeAskedAgain) {
  MemoryFile file(Counted(100));
  FileWindow window(file);
  file.Fail();
  EXPECT_THROW(window.From(0, 10), Failure);
  EXPECT_THROW(window.From(0, 10), Failure);
}

}  // namespace
}  // namespace qublet
