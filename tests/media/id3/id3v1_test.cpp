#include "media/id3/id3v1.h"

#include <gtest/gtest.h>

#include "support/tag_bytes.h"

namespace qublet {
namespace {

using namespace std::string_literals;

Id3v1Tag Parsed(const std::string& bytes) {
  return Id3v1Tag::Parse(AsBytes(bytes)).value();
}

std::string RawOf(const Id3v1Tag& tag) {
  return std::string(AsText(tag.Raw()));
}

TEST(Id3v1Tag, ReadsAllFields) {
  const Id3v1Tag tag = Parsed(Id3v1Bytes("Title", "Artist", "Album", "1999", "Comment", 17));
  EXPECT_EQ(tag.Title(), "Title");
  EXPECT_EQ(tag.Artist(), "Artist");
  EXPECT_EQ(tag.Album(), "Album");
  EXPECT_EQ(tag.Year(), "1999");
  EXPECT_EQ(tag.Comment(), "Comment");
  EXPECT_EQ(tag.Track(), 0);
  EXPECT_EQ(tag.Genre(), 17);
}

TEST(Id3v1Tag, IsOnlyWhatBeginsWithTag) {
  EXPECT_FALSE(Id3v1Tag::Parse(Bytes(128)).has_value());
  EXPECT_FALSE(Id3v1Tag::Parse(AsBytes(Id3v1Bytes("a").substr(0, 123))).has_value());
}

TEST(Id3v1Tag, TakesTheYearAsItStands) {
  EXPECT_EQ(Parsed(Id3v1Bytes("", "", "", "19x9")).Year(), "19x9");
}

TEST(Id3v1Tag, EndsATextAtItsFirstZeroAndDropsBlanksAtTheEnd) {
  EXPECT_EQ(Parsed(Id3v1Bytes("  a b   ")).Title(), "  a b");
  EXPECT_EQ(Parsed(Id3v1Bytes("a\0garbage"s)).Title(), "a");
}

TEST(Id3v1Tag, HasATrackBehindAZeroInTheComment) {
  const Id3v1Tag tag = Parsed(Id3v1Bytes("", "", "", "", "Comment of exactly 28 chars.\0\x07"s));
  EXPECT_EQ(tag.Track(), 7);
  EXPECT_EQ(tag.Comment(), "Comment of exactly 28 chars.");
  EXPECT_EQ(Parsed(Id3v1Bytes("", "", "", "", "A comment of thirty characters")).Track(), 0);
}

TEST(Id3v1Tag, KeepsThirtyCharactersOfACommentWithoutATrack) {
  Id3v1Tag tag;
  tag.SetComment("A comment of thirty characters and more");
  EXPECT_EQ(tag.Comment(), "A comment of thirty characters");
  tag.SetTrack(5);
  EXPECT_EQ(tag.Comment(), "A comment of thirty characte");
  tag.SetTrack(0);
  EXPECT_EQ(tag.Comment(), "A comment of thirty characters");
}

TEST(Id3v1Tag, GivesThirtyCharactersWhenTheTrackGoesAfterTheCommentWasSet) {
  Id3v1Tag tag = Parsed(Id3v1Bytes("", "", "", "", Padded("x", 28) + "\0\x07"s));
  tag.SetComment("A comment of thirty characters");
  tag.SetTrack(0);
  EXPECT_EQ(tag.Comment(), "A comment of thirty characters");
}

TEST(Id3v1Tag, KeepsTheBytesOfAFieldThatIsSetToItsOwnText) {
  const std::string bytes = Id3v1Bytes("a\0garbage"s, "padded      ", "\x80 odd", "99", "c\0x"s, 254);
  Id3v1Tag tag = Parsed(bytes);
  tag.SetTitle(tag.Title());
  tag.SetArtist(tag.Artist());
  tag.SetAlbum(tag.Album());
  tag.SetYear(tag.Year());
  tag.SetComment(tag.Comment());
  tag.SetTrack(tag.Track());
  tag.SetGenre(tag.Genre());
  EXPECT_EQ(RawOf(tag), bytes);
}

TEST(Id3v1Tag, WritesZerosBehindANewText) {
  Id3v1Tag tag = Parsed(Id3v1Bytes("A long old title", "b"));
  tag.SetTitle("New");
  EXPECT_EQ(RawOf(tag), Id3v1Bytes("New", "b"));
}

TEST(Id3v1Tag, WritesTheCodePageWhereEveryCharacterFits) {
  Id3v1Tag tag;
  tag.SetTitle("Café €");
  EXPECT_EQ(RawOf(tag).substr(3, 6), "Caf\xE9 \x80");
  EXPECT_EQ(tag.Title(), "Café €");
}

TEST(Id3v1Tag, LosesNoLetterThatTheCodePageLacks) {
  Id3v1Tag tag;
  tag.SetArtist("Привет");
  EXPECT_EQ(RawOf(tag).substr(33, 12), "Привет");
  EXPECT_EQ(tag.Artist(), "Привет");
}

TEST(Id3v1Tag, CutsBetweenCharacters) {
  Id3v1Tag tag;
  tag.SetTitle("ППППППППППППППППППППП");
  EXPECT_EQ(tag.Title(), "ППППППППППППППП");
  tag.SetTitle("xППППППППППППППППППП");
  EXPECT_EQ(tag.Title(), "xПППППППППППППП");
  tag.SetYear("20001");
  EXPECT_EQ(tag.Year(), "2000");
}

TEST(Id3v1Tag, PassesOverACharacterThatTheFieldCutsOff) {
  const std::string cut = std::string("xППППППППППППППП").substr(0, 30);
  EXPECT_EQ(Parsed(Id3v1Bytes(cut)).Title(), "xПППППППППППППП");
}

TEST(Id3v1Tag, DoesNotTakeALastAccentForACutCharacter) {
  EXPECT_EQ(Parsed(Id3v1Bytes("Thirty characters at the caf\xE9\xC9")).Title(), "Thirty characters at the caféÉ");
  EXPECT_EQ(Parsed(Id3v1Bytes("Thirty characters of plain CA\xC9")).Title(), "Thirty characters of plain CAÉ");
}

TEST(Id3v1Tag, IsEmptyAndWithoutAGenreWhenNew) {
  EXPECT_EQ(RawOf(Id3v1Tag()), Id3v1Bytes(""));
}

TEST(Id3v1Tag, StoresGenreNumbersAsTheyAre) {
  Id3v1Tag tag;
  tag.SetGenre(254);
  EXPECT_EQ(tag.Genre(), 254);
}

}  // namespace
}  // namespace qublet
