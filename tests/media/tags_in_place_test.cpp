// Tags in a folder that can't be written, where the file itself can.

#include <gtest/gtest.h>

#include <optional>

#include "media/tag_object.h"
#include "support/ordinary_user.h"
#include "support/song_tags_test_base.h"
#include "support/tag_bytes.h"

namespace qublet {
namespace {

using namespace std::string_literals;

const std::string kTag3 = TagBytes(3, TextFrameBytes(3, "TIT2", "Title") + TextFrameBytes(3, "TPE1", "Artist"));

class FolderWithoutAccessTest : public SongTagsTest {
 protected:
  // From here on the folder can't be written, but the file can.
  void Close() {
    user_.emplace(drives_.Root());
    std::filesystem::permissions(drives_.C(), std::filesystem::perms(0555));
  }
  ~FolderWithoutAccessTest() override { std::filesystem::permissions(drives_.C(), std::filesystem::perms(0755)); }

  std::optional<OrdinaryUser> user_;
};

TEST_F(FolderWithoutAccessTest, ChangesATagThatFitsItsRoomInPlace) {
  const std::string padded = TagBytes(3, TextFrameBytes(3, "TIT2", "Title") + std::string(200, '\0'));
  Write(padded + AudioBytes() + Id3v1Bytes("Old"));
  Close();
  TagObject tag = Loaded();
  tag.SetFrame("TIT2", "A longer title");
  tag.SetV1Title("New");
  tag.WriteID3v2(kSong);
  tag.WriteID3v1(kSong);
  EXPECT_EQ(Content(), TagBytes(3, Padded(TextFrameBytes(3, "TIT2", "A longer title"), padded.size() - 10)) +
                           AudioBytes() + Id3v1Bytes("New"));
}

TEST_F(FolderWithoutAccessTest, ChangesAFileInPlaceThatALinkInAnotherFolderLeadsTo) {
  Write(AudioBytes());
  std::filesystem::create_symlink(drives_.C() / "song.mp3", drives_.D() / "link.mp3");
  Close();
  TagObject tag = Loaded();
  tag.SetV1Title("New");
  tag.WriteID3v1("d:\\link.mp3");
  EXPECT_EQ(Content(), AudioBytes() + Id3v1Bytes("New"));
}

TEST_F(FolderWithoutAccessTest, KeepsTheRoomOfAPictureThatGoes) {
  const std::string picture = FrameBytes(3, "APIC", "\0image/png\0\x03\0"s + std::string(100000, 'x'));
  Write(TagBytes(3, TextFrameBytes(3, "TIT2", "Title") + picture) + AudioBytes());
  const std::size_t size = Content().size();
  Close();
  TagObject tag = Loaded();
  tag.Images().Clear();
  tag.WriteID3v2(kSong);
  EXPECT_EQ(Content().size(), size);
  EXPECT_EQ(Loaded().Images().Count(), 0u);
  EXPECT_TRUE(Content().ends_with(AudioBytes()));
}

TEST_F(FolderWithoutAccessTest, AddsAndRemovesId3v1InPlace) {
  Write(AudioBytes());
  Close();
  TagObject tag = Loaded();
  tag.SetV1Title("New");
  tag.WriteID3v1(kSong);
  EXPECT_EQ(Content(), AudioBytes() + Id3v1Bytes("New"));
  tag.RemoveID3v1(kSong);
  EXPECT_EQ(Content(), AudioBytes());
}

TEST_F(FolderWithoutAccessTest, RefusesWhateverWouldMoveTheAudio) {
  Write(kTag3 + AudioBytes());
  Close();
  TagObject tag = Loaded();
  EXPECT_THROW(tag.RemoveID3v2(kSong), Failure);
  tag.SetFrame("TIT2", "A title that is much longer than the one before it");
  EXPECT_THROW(tag.WriteID3v2(kSong), Failure);
  EXPECT_EQ(Content(), kTag3 + AudioBytes());
}

}  // namespace
}  // namespace qublet
