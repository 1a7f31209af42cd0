#include "playlist/paths/text_writer.h"

#include <gtest/gtest.h>

#include "platform/code_page.h"
#include "platform/forwarding_file_system.h"
#include "support/temporary_drives.h"

namespace qublet {
namespace {

constexpr std::size_t kLong = 3 * TextWriter::kPiece;

std::string Repeated(std::string_view text, std::size_t size) {
  std::string whole;
  while (whole.size() < size) whole += text;
  return whole;
}

// Has room for so many bytes in a new version.
class SmallDisk : public ForwardingFileSystem {
 public:
  SmallDisk(FileSystem& files, std::size_t room) : ForwardingFileSystem(files), room_(room) {}

  std::unique_ptr<FileReplacement> BeginReplacement(const std::string& path) const override {
    return std::make_unique<Limited>(files_.BeginReplacement(path), room_);
  }

 private:
  class Limited : public FileReplacement {
   public:
    Limited(std::unique_ptr<FileReplacement> real, std::size_t room) : real_(std::move(real)), room_(room) {}
    void Write(std::span<const std::uint8_t> bytes) override {
      if (bytes.size() > room_) throw Failure("the disk is full");
      room_ -= bytes.size();
      real_->Write(bytes);
    }
    void CopyFrom(InputFile& source, std::int64_t offset, std::int64_t length) override {
      real_->CopyFrom(source, offset, length);
    }
    std::unique_ptr<InputFile> OpenWritten() override { return real_->OpenWritten(); }
    void Commit() override { real_->Commit(); }

   private:
    std::unique_ptr<FileReplacement> real_;
    std::size_t room_;
  };

  std::size_t room_;
};

class TextWriterTest : public testing::Test {
 protected:
  const TemporaryDrives drives_;
  const std::unique_ptr<FileSystem> files_ = OpenFileSystem();

  // In pieces of this length; gives what the file holds then.
  std::string Written(std::string_view text, std::size_t piece, TextWriter::Encoding encoding) const {
    TextWriter writer(*files_, "c:\\a.txt", encoding);
    for (; !text.empty(); text.remove_prefix(std::min(piece, text.size()))) writer.Append(text.substr(0, piece));
    EXPECT_TRUE(writer.Commit());
    return drives_.Read("a.txt");
  }
  std::size_t CountOfNames() const {
    const std::filesystem::directory_iterator entries(drives_.C());
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
  }
};

TEST_F(TextWriterTest, WritesWhatEncodeTextMakesOfTheWhole) {
  const std::string plain = Repeated("c:\\music\\a track.mp3\r\n", kLong);
  const std::string texts[] = {"",
                               "short",
                               plain,
                               plain + "\u00F6",
                               plain + "\u0416" + plain,
                               "\u00F6" + plain + plain,
                               plain + "\u00EF\u00BB\u00BF \u00E9",
                               plain + "\u00C3\u00B6"};
  for (const std::string& text : texts) {
    for (const std::size_t piece : {std::size_t{777}, TextWriter::kPiece + 1, 100 * TextWriter::kPiece}) {
      EXPECT_TRUE(Written(text, piece, TextWriter::Encoding::kByLine) == EncodeText(text))
          << text.size() << " " << piece;
      EXPECT_TRUE(Written(text, piece, TextWriter::Encoding::kUtf8) == text) << text.size() << " " << piece;
    }
  }
}

TEST_F(TextWriterTest, TakesACharacterBehindAPieceForNoMarkAtTheBeginning) {
  for (const std::string text : {"\uFEFFa", "\u00EF\u00BB\u00BFa"}) {
    for (std::size_t size = TextWriter::kPiece - 3; size < TextWriter::kPiece + 3; ++size) {
      const std::string whole = std::string(size, 'x') + text;
      EXPECT_TRUE(Written(whole, size, TextWriter::Encoding::kByLine) == EncodeText(whole)) << size;
    }
  }
}

TEST_F(TextWriterTest, TouchesNothingBeforeCommit) {
  drives_.Write("a.txt", "old");
  {
    TextWriter writer(*files_, "c:\\a.txt", TextWriter::Encoding::kByLine);
    writer.Append(std::string(kLong, 'x'));
    EXPECT_EQ(drives_.Read("a.txt"), "old");
    EXPECT_EQ(CountOfNames(), 2u) << "a long text is on its way already";
  }
  EXPECT_EQ(drives_.Read("a.txt"), "old");
  EXPECT_EQ(CountOfNames(), 1u);
}

TEST_F(TextWriterTest, LeavesTheOldFileWhereverTheDiskIsFull) {
  for (const std::size_t room : {std::size_t{0}, TextWriter::kPiece, 2 * TextWriter::kPiece, kLong - 1}) {
    drives_.Write("a.txt", "old");
    const SmallDisk small(*files_, room);
    TextWriter writer(small, "c:\\a.txt", TextWriter::Encoding::kByLine);
    for (std::size_t i = 0; i < kLong; i += 1000) writer.Append(std::string(1000, 'x'));
    EXPECT_FALSE(writer.Commit()) << room;
    EXPECT_EQ(drives_.Read("a.txt"), "old") << room;
    EXPECT_EQ(CountOfNames(), 1u) << room;
  }
}

TEST_F(TextWriterTest, AnswersFalseWhereNothingCanBeWritten) {
  for (const char* path : {"c:\\missing\\a.txt", "q:\\a.txt", ""}) {
    TextWriter writer(*files_, path, TextWriter::Encoding::kByLine);
    writer.Append(std::string(kLong, 'x'));
    EXPECT_FALSE(writer.Commit()) << path;
  }
}

}  // namespace
}  // namespace qublet
