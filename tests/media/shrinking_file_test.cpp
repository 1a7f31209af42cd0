#include <gtest/gtest.h>

#include "media/file_ends.h"
#include "media/file_window.h"
#include "media/id3/id3v2_tag.h"
#include "media/mpeg_stream.h"
#include "media/tag_bounds.h"
#include "media/vorbis_comments.h"
#include "media/wav_header.h"
#include "support/memory_file.h"
#include "support/mpeg_frames.h"
#include "support/tag_bytes.h"
#include "support/vorbis_bytes.h"

namespace qublet {
namespace {

// A file that another program cuts after so many reads, and makes whole again before the read `whole_again` if that
// comes; the size stays the one of the moment of opening.
class CutFile : public InputFile {
 public:
  CutFile(const Bytes& content, int cut_after, std::size_t left, int whole_again)
      : content_(content), cut_after_(cut_after), left_(left), whole_again_(whole_again) {}

  std::int64_t Size() const override { return static_cast<std::int64_t>(content_.size()); }
  std::size_t ReadAt(std::int64_t offset, std::span<std::uint8_t> buffer) override {
    const int read = reads_++;
    if (offset < 0) throw Failure("negative offset");
    const bool cut = read >= cut_after_ && read < whole_again_;
    const auto size = static_cast<std::int64_t>(cut ? std::min(left_, content_.size()) : content_.size());
    const std::int64_t start = std::min(offset, size);
    const auto count = std::min(buffer.size(), static_cast<std::size_t>(size - start));
    std::copy_n(content_.begin() + start, count, buffer.begin());
    return count;
  }
  int Reads() const { return reads_; }

 private:
  const Bytes& content_;
  int cut_after_;
  std::size_t left_;
  int whole_again_;
  int reads_ = 0;
};

void ReadAsTags(InputFile& file) {
  const FileEnds ends = FindEnds(file);
  EXPECT_TRUE(ends.head || (ends.head_start == 0 && ends.head_end == 0));
  ReadId3v1(file, ends);
  HasHeadOutOfReach(file, ends);
  IsHeadReadOtherwise(file, ends);
  IsHeadFoundAgain(file, ends, BytesOf(TagBytes(3, TextFrameBytes(3, "TIT2", "Other"))));
  auto raw = ReadHead(file, ends);
  if (!raw) return;
  const Id3v2Tag tag(std::move(*raw));
  tag.Frame("TIT2");
  tag.Comments();
  tag.Pictures();
}

void ReadAsStream(InputFile& file) {
  FindStreamInfo(file);
}

void ReadAsVorbis(InputFile& file) {
  VorbisComments comments;
  ReadVorbisComments(file, comments);
}

void ReadAsWav(InputFile& file) {
  WavHeader header;
  ReadWavHeader(file, header);
}

const Bytes& SongWithAllTags() {
  static const Bytes song =
      Joined({Bytes(3000), BytesOf(TagBytes(4, TextFrameBytes(4, "TIT2", std::string(5000, 'x')))), Id3v2TagOf(20),
              Frames(40), LyricsTag(100), ApeTag(100, true), Id3v1TagOf()});
  return song;
}

const Bytes& PlainSong() {
  static const Bytes song = Joined(
      {BytesOf(TagBytes(3, TextFrameBytes(3, "TIT2", "Title"))), VaryingRate(), ApeTag(50, false), Id3v1TagOf()});
  return song;
}

// While nothing is cut.
int ReadsOf(void (*read)(InputFile&), const Bytes& content) {
  CutFile file(content, 0, content.size(), 0);
  ResumeNext([&] { read(file); });
  return file.Reads();
}

// Every reader at every moment and for many lengths that are left, for good or for one read.
TEST(ShrinkingFile, EndsNoReader) {
  const Bytes vorbis = BytesOf(VorbisFile({"TITLE=Title", "ARTIST=Artist"}, 7000));
  constexpr int kForGood = 1000;
  for (const auto& read : {ReadAsTags, ReadAsStream, ReadAsVorbis, ReadAsWav}) {
    for (const Bytes* content : {&SongWithAllTags(), &PlainSong(), &vorbis}) {
      const int moments = ReadsOf(read, *content);
      for (int moment = 0; moment < moments; ++moment) {
        for (std::size_t left = 0; left < content->size(); left += left < 300 ? 1 : 97) {
          for (const int gone : {1, kForGood}) {
            CutFile file(*content, moment, left, moment + gone);
            ResumeNext([&] { read(file); });
          }
        }
      }
    }
  }
}

TEST(ShrinkingFile, GivesAWindowLess) {
  const Bytes content(10'000, 'x');
  CutFile file(content, 1, 5000, 100);
  FileWindow window(file);
  EXPECT_EQ(window.From(0, 100).size(), 4096u);
  EXPECT_EQ(window.From(4090, 2000).size(), 910u);
  EXPECT_TRUE(window.From(6000, 100).empty());
}

}  // namespace
}  // namespace qublet
