#include "media/tag_change.h"

#include <gtest/gtest.h>

#include "support/tag_bytes.h"
#include "support/temporary_drives.h"

namespace qublet {
namespace {

constexpr char kSong[] = "c:\\song.Mp3";

class TagChangeTest : public testing::Test {
 protected:
  void Change(const TagChange& change) { ChangeTags(*files_, kSong, change); }
  std::string Content() const { return drives_.Read("song.Mp3"); }
  void Write(const std::string& content) { drives_.Write("song.Mp3", content); }
  TagObject Loaded() const {
    TagObject tag(*files_);
    tag.ReadTags(kSong, false);
    return tag;
  }

  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
};

TEST_F(TagChangeTest, MakesTheTagThatAFieldBelongsToAndNoOther) {
  Write(AudioBytes());
  Change({{{FindTagField("V1Title"), "Old"}}});
  EXPECT_EQ(Content(), AudioBytes() + Id3v1Bytes("Old"));
  Change({{{FindTagField("Mood"), "Wild"}, {FindTagField("TYER"), "1999"}}});
  EXPECT_EQ(Loaded().Mood() + Loaded().Frame("TYER"), "Wild1999");
  EXPECT_TRUE(Content().ends_with(AudioBytes() + Id3v1Bytes("Old")));
}

TEST_F(TagChangeTest, RemovesATagUnlessItIsSetAgain) {
  const std::string tag = TagBytes(3, TextFrameBytes(3, "TIT2", "Title") + TextFrameBytes(3, "TPE1", "Artist"));
  Write(tag + AudioBytes() + Id3v1Bytes("Old"));
  Change({{{FindTagField("TIT2"), "New"}}, true, true});
  EXPECT_FALSE(Loaded().HasID3v1());
  EXPECT_EQ(Loaded().Frame("TIT2"), "New");
  Change({{}, false, true});
  EXPECT_EQ(Content(), AudioBytes());
}

TEST_F(TagChangeTest, TouchesNothingWhereATextCannotBeAValue) {
  Write(AudioBytes());
  for (const char* text : {"256", "-1", "many"}) {
    EXPECT_THROW(Change({{{FindTagField("TIT2"), "New"}, {FindTagField("V1Track"), text}}}), Failure) << text;
    EXPECT_EQ(Content(), AudioBytes());
  }
}

TEST(TagFields, AreFoundByName) {
  EXPECT_EQ(FindTagField("TIT9"), nullptr);
  EXPECT_EQ(FindTagField("tit2"), nullptr);
  for (const TagField& field : TagFields()) EXPECT_EQ(FindTagField(field.name), &field);
}

}  // namespace
}  // namespace qublet
