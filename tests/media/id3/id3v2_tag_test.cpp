#include "media/id3/id3v2_tag.h"

#include <gtest/gtest.h>

#include "platform/failure.h"

namespace qublet {
namespace {

using namespace std::string_literals;

RawFrame Frame(const std::string& id, const std::string& content, std::uint16_t flags = 0) {
  return {id, flags, Bytes(content.begin(), content.end())};
}

RawFrame TextFrame(const std::string& id, const std::string& text) {
  return Frame(id, "\0"s + text);
}

RawFrame Comment(const std::string& description, const std::string& text, const std::string& language = "deu") {
  return Frame("COMM", "\0"s + language + description + "\0"s + text);
}

Id3v2Tag TagOf(std::vector<RawFrame> frames, int version = 3) {
  RawTag raw;
  raw.version = version;
  raw.frames = std::move(frames);
  return Id3v2Tag(std::move(raw));
}

std::vector<std::string> Ids(const Id3v2Tag& tag) {
  std::vector<std::string> ids;
  for (const RawFrame& frame : tag.Raw().frames) ids.push_back(frame.id);
  return ids;
}

using Names = std::vector<std::string>;

constexpr const char* kFrameIds[] = {"TIT2", "TPE1", "TALB", "TYER", "TRCK", "TCON", "TCOM",
                                     "TOPE", "TCOP", "TENC", "WXXX", "WOAR", "TXXX", "USLT"};

TEST(Id3v2TagFrame, GivesRawTextsAndNothingForMissingFrames) {
  const Id3v2Tag tag = TagOf({TextFrame("TCON", "(17)Rock"), TextFrame("TRCK", "3/12"), Frame("WOAR", "http://a")});
  EXPECT_EQ(tag.Frame("TCON"), "(17)Rock");
  EXPECT_EQ(tag.Frame("TRCK"), "3/12");
  EXPECT_EQ(tag.Frame("WOAR"), "http://a");
  EXPECT_EQ(tag.Frame("TIT2"), "");
  EXPECT_EQ(tag.Frame("APIC"), "");
  EXPECT_EQ(tag.Frame(""), "");
}

TEST(Id3v2TagFrame, ShowsRepeatedTextFramesAsOneWithSeveralValues) {
  const Id3v2Tag tag = TagOf({TextFrame("TPE1", "one"), TextFrame("TIT2", "a"), TextFrame("TPE1", "two\0three"s),
                              TextFrame("TPE1", ""), TextFrame("TPE1", "four"), TextFrame("TPE1", "")});
  EXPECT_EQ(tag.Frame("TPE1"), "one/two/three//four");
  EXPECT_EQ(TagOf({TextFrame("TYER", "1998"), TextFrame("TYER", "1999")}).Frame("TYER"), "1998/1999");
  EXPECT_EQ(TagOf({Frame("WOAR", "http://a"), Frame("WOAR", "http://b")}).Frame("WOAR"), "http://a");
}

TEST(Id3v2TagFrame, KnowsIdsOfThreeLettersFilledUpWithAZero) {
  const Id3v2Tag tag = TagOf({TextFrame("TP1\0"s, "Artist"), TextFrame("TYE\0"s, "1999"), Frame("WAR\0"s, "http://a"),
                              Frame("TXX\0"s, "\0\0mine"s), Frame("COM\0"s, "\0engabout\0said"s),
                              Frame("COM\0"s, "\0engMusicMatch_Mood\0Wild"s),
                              Frame("PIC\0"s,
                                    "\0JPG\x03"
                                    "cover\0data"s)});
  EXPECT_EQ(tag.Frame("TPE1"), "Artist");
  EXPECT_EQ(tag.Frame("TYER"), "1999");
  EXPECT_EQ(tag.Frame("WOAR"), "http://a");
  EXPECT_EQ(tag.Frame("TXXX"), "mine");
  EXPECT_EQ(tag.Comments(), (std::vector<TagComment>{{"about", "said"}}));
  EXPECT_EQ(tag.Property("MusicMatch_Mood"), "Wild");
  EXPECT_EQ(tag.Pictures(), (std::vector<TagPicture>{{"cover", "image/jpeg", {'d', 'a', 't', 'a'}}}));
}

TEST(Id3v2TagSetFrame, ReplacesAllFramesThatATextIsShownFrom) {
  Id3v2Tag tag = TagOf({TextFrame("TPE1", "one"), TextFrame("TIT2", "a"), TextFrame("TP1\0"s, "two"),
                        TextFrame("TPE1", "three"), Frame("TPE1", "x", 0x0040)});
  const RawTag before = tag.Raw();
  tag.SetFrame("TPE1", "one/two/three");
  EXPECT_EQ(tag.Raw(), before);
  tag.SetFrame("TPE1", "two");
  EXPECT_EQ(tag.Raw().frames,
            (std::vector{TextFrame("TPE1", "two"), TextFrame("TIT2", "a"), Frame("TPE1", "x", 0x0040)}));
  tag.SetFrame("TPE1", "");
  EXPECT_EQ(tag.Raw().frames[0], TextFrame("TPE1", ""));
}

TEST(Id3v2TagSetFrame, GivesAFrameItsWholeIdOnlyWhenItsTextChanges) {
  const std::vector<RawFrame> frames = {TextFrame("TT2\0"s, "Title"), TextFrame("TP1\0"s, "Artist"),
                                        TextFrame("TYE\0"s, "1999"), Frame("COM\0"s, "\0deuabout\0said"s),
                                        Frame("PIC\0"s,
                                              "\0JPG\x03"
                                              "cover\0data"s)};
  Id3v2Tag tag = TagOf(frames);
  for (const char* id : kFrameIds) tag.SetFrame(id, tag.Frame(id));
  tag.SetComments(tag.Comments());
  tag.SetPictures(tag.Pictures());
  EXPECT_EQ(tag.Raw().frames, frames);
  tag.SetFrame("TIT2", "New");
  tag.SetFrame("TYER", "2001");
  tag.SetComments({{"about", "new"}});
  EXPECT_EQ(tag.Raw().frames, (std::vector{TextFrame("TIT2", "New"), frames[1], TextFrame("TYER", "2001"),
                                           Comment("about", "new"), frames[4]}));
}

TEST(Id3v2TagSetFrame, TakesTheDayOfTheOldYearAway) {
  const std::vector<RawFrame> day = {TextFrame("TDAT", "2709"), TextFrame("TIME", "1530"), TextFrame("TIT2", "a")};
  const auto with_year = [&](const char* id, int version) {
    std::vector<RawFrame> frames = day;
    frames.push_back(TextFrame(id, "1999"));
    return TagOf(frames, version);
  };
  for (const char* year : {"2011", ""}) {
    Id3v2Tag tag = with_year("TYER", 3);
    tag.SetFrame("TYER", "1999");
    tag.SetFrame("TIT2", "b");
    EXPECT_EQ(tag.Raw().frames.size(), 4u);
    tag.SetFrame("TYER", year);
    EXPECT_EQ(tag.Raw().frames, (std::vector{TextFrame("TIT2", "b"), TextFrame("TYER", year)}));
  }
  Id3v2Tag without = TagOf({day[0], day[1]});
  without.SetFrame("TYER", "2011");
  EXPECT_EQ(Ids(without), Names{"TYER"});
  Id3v2Tag newest = with_year("TYER", 4);
  newest.SetFrame("TYER", "2011");
  EXPECT_EQ(Ids(newest), (Names{"TIT2", "TDRC"}));
  Id3v2Tag own = with_year("TDRC", 4);
  own.SetFrame("TYER", "2011");
  EXPECT_EQ(own.Raw().frames.size(), 4u);
}

TEST(Id3v2TagFrame, SkipsFramesThatCannotBeShown) {
  EXPECT_EQ(TagOf({Frame("TIT2", "\0hidden"s, 0x0040), TextFrame("TIT2", "shown")}).Frame("TIT2"), "shown");
  EXPECT_EQ(TagOf({Frame("TIT2", "\x09odd")}).Frame("TIT2"), "");
}

TEST(Id3v2TagFrame, GivesTheYearOfTheVersion) {
  const std::vector<RawFrame> both = {TextFrame("TYER", "1998"), TextFrame("TDRC", "1999-05-03")};
  EXPECT_EQ(TagOf(both, 3).Frame("TYER"), "1998");
  EXPECT_EQ(TagOf(both, 4).Frame("TYER"), "1999-05-03");
  EXPECT_EQ(TagOf({TextFrame("TYER", "1998")}, 4).Frame("TYER"), "1998");
  EXPECT_EQ(TagOf({TextFrame("TDRC", "1999")}, 3).Frame("TYER"), "1999");
}

TEST(Id3v2TagFrame, TakesUserTextOfTheEmptyDescriptionOnly) {
  const auto other = Frame("TXXX", "\0replaygain\0-3 dB"s);
  EXPECT_EQ(TagOf({other, Frame("TXXX", "\0\0mine"s)}).Frame("TXXX"), "mine");
  EXPECT_EQ(TagOf({other}).Frame("TXXX"), "");
}

TEST(Id3v2TagFrame, TakesTheFirstUrlOrLyricsWhereNoneIsWithoutADescription) {
  const auto described = Frame("WXXX", "\0shop\0http://shop"s);
  EXPECT_EQ(TagOf({described}).Frame("WXXX"), "http://shop");
  EXPECT_EQ(TagOf({described, Frame("WXXX", "\0\0http://mine"s)}).Frame("WXXX"), "http://mine");
  EXPECT_EQ(TagOf({Frame("USLT", "\0engverse\0la"s)}).Frame("USLT"), "la");
}

TEST(Id3v2TagSetFrame, TouchesNothingWhenEveryTextStaysTheSame) {
  for (const int version : {3, 4}) {
    Id3v2Tag tag = TagOf(
        {TextFrame("TCON", "(17)Rock\0Folk\0"s), TextFrame("TYER", "1999"), TextFrame("TDAT", "0305"),
         TextFrame("TDRC", "1999-05-03T12:30"), Frame("TIT2", "\x01\xFE\xFF\0a"s), Frame("USLT", "\0deux\0la la"s),
         Frame("TXXX", "\0\0"s), Frame("TPE1", "x", 0x0080), TextFrame("TALB", "one"), TextFrame("TALB", "two")},
        version);
    const RawTag before = tag.Raw();
    for (const char* id : kFrameIds) tag.SetFrame(id, tag.Frame(id));
    EXPECT_EQ(tag.Raw(), before);
  }
}

TEST(Id3v2TagFrame, ShowsALongTextUpToTheBoundAndKeepsAllOfIt) {
  const std::string text(3 * kMostText, 'x');
  for (const int version : {3, 4}) {
    Id3v2Tag tag = TagOf({TextFrame("TIT2", text), TextFrame("TPE1", "artist"), Frame("WOAR", text),
                          Frame("USLT", "\0deu\0"s + text), Comment("description", text)},
                         version);
    const RawTag before = tag.Raw();
    EXPECT_EQ(tag.Frame("TIT2"), std::string(kMostText - 1, 'x'));
    EXPECT_EQ(tag.Frame("WOAR"), std::string(kMostText, 'x'));
    EXPECT_EQ(tag.Frame("USLT"), std::string(kMostText - 5, 'x'));
    EXPECT_EQ(tag.Comments().at(0).text, std::string(kMostText - 16, 'x'));
    for (const char* id : {"TIT2", "WOAR", "USLT"}) tag.SetFrame(id, tag.Frame(id));
    tag.SetComments(tag.Comments());
    EXPECT_EQ(tag.Raw(), before);
    tag.SetFrame("TPE1", "another");
    EXPECT_EQ(tag.Raw().frames[0], before.frames[0]);
    EXPECT_EQ(tag.Raw().frames[4], before.frames[4]);
  }
}

TEST(Id3v2TagFrame, ShowsALongTextUpToTheBoundWhateverItsFlagsAre) {
  RawTag raw;
  raw.version = 4;
  raw.unsynchronised = true;
  raw.frames = {TextFrame("TIT2", std::string(3 * kMostText, 'x'))};
  const Id3v2Tag tag(std::move(raw));
  EXPECT_EQ(tag.Frame("TIT2"), std::string(kMostText - 1, 'x'));
}

TEST(Id3v2TagPictures, AreShownWhole) {
  const std::string picture = "\x89PNG" + std::string(2 * kMostText, 'x');
  const Id3v2Tag tag = TagOf({Frame("APIC", "\0image/png\0\x03\0"s + picture)});
  EXPECT_EQ(AsText(tag.Pictures().at(0).data), picture);
}

TEST(Id3v2TagSetFrame, ChangesOneFrameAndNoOther) {
  Id3v2Tag tag = TagOf({Frame("RVAD", "abc"), TextFrame("TIT2", "old"), Frame("XSOP", "q")});
  tag.SetFrame("TIT2", "new");
  EXPECT_EQ(tag.Raw().frames, (std::vector{Frame("RVAD", "abc"), TextFrame("TIT2", "new"), Frame("XSOP", "q")}));
}

TEST(Id3v2TagSetFrame, KeepsTheEncodingIfItCan) {
  Id3v2Tag tag = TagOf({Frame("TIT2",
                              "\x01\xFF\xFE"
                              "a\0"s)});
  tag.SetFrame("TIT2", "b");
  EXPECT_EQ(tag.Raw().frames[0], Frame("TIT2",
                                       "\x01\xFF\xFE"
                                       "b\0"s));
  Id3v2Tag latin1 = TagOf({TextFrame("TIT2", "a")});
  latin1.SetFrame("TIT2", "Привет");
  EXPECT_EQ(latin1.Frame("TIT2"), "Привет");
  EXPECT_EQ(latin1.Raw().frames[0].content.begin()[0], 1);
}

TEST(Id3v2TagSetFrame, WritesOneYearOnly) {
  Id3v2Tag newest = TagOf({TextFrame("TYER", "1998"), TextFrame("TDRC", "1999")}, 4);
  newest.SetFrame("TYER", "2001");
  EXPECT_EQ(newest.Raw().frames, std::vector{TextFrame("TDRC", "2001")});

  Id3v2Tag renamed = TagOf({TextFrame("TYER", "1998")}, 4);
  renamed.SetFrame("TYER", "2001");
  EXPECT_EQ(renamed.Raw().frames, std::vector{TextFrame("TDRC", "2001")});

  Id3v2Tag older = TagOf({TextFrame("TDAT", "0305"), TextFrame("TDRC", "1999")}, 3);
  older.SetFrame("TYER", "2001");
  EXPECT_EQ(older.Raw().frames, std::vector{TextFrame("TYER", "2001")});

  Id3v2Tag none = TagOf({}, 4);
  none.SetFrame("TYER", "ca. 1999");
  EXPECT_EQ(none.Raw().frames, std::vector{TextFrame("TDRC", "ca. 1999")});
}

TEST(Id3v2TagSetFrame, LeavesAnEmptyFrameWhereATextWas) {
  Id3v2Tag tag = TagOf({TextFrame("TIT2", "a"), Frame("USLT", "\0deud\0la"s), Frame("WXXX", "\0d\0http://x"s),
                        Frame("TXXX", "\0\0mine"s)});
  for (const char* id : {"TIT2", "USLT", "WXXX", "TXXX"}) tag.SetFrame(id, "");
  EXPECT_EQ(tag.Raw().frames, (std::vector{Frame("TIT2", "\0"s), Frame("USLT", "\0deud\0"s), Frame("WXXX", "\0d\0"s),
                                           Frame("TXXX", "\0\0"s)}));
}

TEST(Id3v2TagSetFrame, LeavesOutAFrameThatCannotBeEmpty) {
  Id3v2Tag tag = TagOf({Frame("WOAR", "http://a"), TextFrame("TIT2", "a")});
  tag.SetFrame("WOAR", "");
  EXPECT_EQ(Ids(tag), Names{"TIT2"});
}

TEST(Id3v2TagSetFrame, MakesEmptyTextFramesInANewTagOnly) {
  Id3v2Tag fresh;
  for (const char* id : kFrameIds) fresh.SetFrame(id, "");
  EXPECT_EQ(Ids(fresh),
            (Names{"TIT2", "TPE1", "TALB", "TYER", "TRCK", "TCON", "TCOM", "TOPE", "TCOP", "TENC", "TXXX"}));
  Id3v2Tag present = TagOf({});
  for (const char* id : kFrameIds) present.SetFrame(id, "");
  EXPECT_EQ(Ids(present), Names{});
}

TEST(Id3v2TagSetFrame, MakesNewFramesInEnglishWithoutADescription) {
  Id3v2Tag tag;
  tag.SetFrame("USLT", "la");
  tag.SetFrame("TXXX", "mine");
  tag.SetFrame("WXXX", "http://x");
  EXPECT_EQ(tag.Raw().frames,
            (std::vector{Frame("USLT", "\0eng\0la"s), Frame("TXXX", "\0\0mine"s), Frame("WXXX", "\0\0http://x"s)}));
}

TEST(Id3v2TagSetFrame, AddsBesideUserTextsOfOtherDescriptions) {
  const auto other = Frame("TXXX", "\0replaygain\0-3 dB"s);
  Id3v2Tag tag = TagOf({other});
  tag.SetFrame("TXXX", "mine");
  EXPECT_EQ(tag.Raw().frames, (std::vector{other, Frame("TXXX", "\0\0mine"s)}));
}

TEST(Id3v2TagSetFrame, KeepsAHiddenFrameUntilItGetsAText) {
  Id3v2Tag tag = TagOf({Frame("TIT2", "x", 0x0080)});
  tag.SetFrame("TIT2", "");
  EXPECT_EQ(tag.Raw().frames, std::vector{Frame("TIT2", "x", 0x0080)});
  tag.SetFrame("TIT2", "new");
  EXPECT_EQ(tag.Raw().frames, std::vector{TextFrame("TIT2", "new")});
}

TEST(Id3v2TagSetFrame, KeepsAHiddenYearUntilItGetsAText) {
  Id3v2Tag tag = TagOf({Frame("TDRC", "\x09odd")}, 4);
  tag.SetFrame("TYER", "");
  EXPECT_EQ(tag.Raw().frames, std::vector{Frame("TDRC", "\x09odd")});
  tag.SetFrame("TYER", "1999");
  EXPECT_EQ(tag.Raw().frames, std::vector{TextFrame("TDRC", "1999")});
}

TEST(Id3v2TagSetFrame, FailsForFramesWithoutAText) {
  Id3v2Tag tag;
  EXPECT_THROW(tag.SetFrame("APIC", "x"), Failure);
  EXPECT_THROW(tag.SetFrame("", "x"), Failure);
}

TEST(Id3v2TagProperty, LivesInACommentThatIsNoComment) {
  const Id3v2Tag tag = TagOf({Comment("MusicMatch_Mood", "Wild"), Comment("a", "b"),
                              Comment("Songs-DB_Tempo", "fast"), Comment("musicmatch_mood", "c")});
  EXPECT_EQ(tag.Property("MusicMatch_Mood"), "Wild");
  EXPECT_EQ(tag.Property("MusicMatch_Tempo"), "");
  EXPECT_EQ(tag.Comments(),
            (std::vector<TagComment>{{"a", "b"}, {"Songs-DB_Tempo", "fast"}, {"musicmatch_mood", "c"}}));
}

TEST(Id3v2TagProperty, KeepsItsLanguage) {
  Id3v2Tag tag = TagOf({Comment("MusicMatch_Mood", "Wild")});
  tag.SetProperty("MusicMatch_Mood", "Calm");
  tag.SetProperty("MusicMatch_Tempo", "Slow");
  EXPECT_EQ(tag.Raw().frames,
            (std::vector{Comment("MusicMatch_Mood", "Calm"), Comment("MusicMatch_Tempo", "Slow", "eng")}));
}

TEST(Id3v2TagProperty, GoesWhenItIsSetEmpty) {
  Id3v2Tag tag =
      TagOf({Comment("MusicMatch_Mood", "Wild"), Comment("MusicMatch_Mood", "Calm", "eng"), Comment("a", "b")});
  tag.SetProperty("MusicMatch_Mood", "");
  tag.SetProperty("MusicMatch_Tempo", "");
  EXPECT_EQ(tag.Raw().frames, std::vector{Comment("a", "b")});
}

TEST(Id3v2TagComments, KeepTheirBytesWhenTheyAreSetAgain) {
  Id3v2Tag tag = TagOf({Comment("", "one"), TextFrame("TIT2", "a"), Comment("", "two", "eng"),
                        Comment("MusicMatch_Mood", "Wild"), Frame("COMM", "x", 0x0080), Comment("d", "")});
  const RawTag before = tag.Raw();
  tag.SetComments(tag.Comments());
  EXPECT_EQ(tag.Raw(), before);
}

TEST(Id3v2TagComments, KeepLanguageWhenOnlyTheTextChanges) {
  Id3v2Tag tag = TagOf({Comment("a", "old"), Comment("b", "stays", "fra")});
  tag.SetComments({{"b", "stays"}, {"a", "new"}, {"c", "added"}});
  EXPECT_EQ(tag.Raw().frames,
            (std::vector{Comment("b", "stays", "fra"), Comment("a", "new"), Comment("c", "added", "eng")}));
}

TEST(Id3v2TagComments, StandWhereCommentsStood) {
  Id3v2Tag tag = TagOf({Comment("a", "1"), TextFrame("TIT2", "t"), Comment("b", "2"), Frame("PRIV", "p")});
  tag.SetComments({{"b", "2"}});
  EXPECT_EQ(tag.Raw().frames, (std::vector{Comment("b", "2"), TextFrame("TIT2", "t"), Frame("PRIV", "p")}));
  tag.SetComments({});
  EXPECT_EQ(Ids(tag), (Names{"TIT2", "PRIV"}));
}

TEST(Id3v2TagComments, MayBeAlike) {
  Id3v2Tag tag;
  tag.SetComments({{"", "same"}, {"", "same"}, {"", "other"}});
  EXPECT_EQ(tag.Comments(), (std::vector<TagComment>{{"", "same"}, {"", "same"}, {"", "other"}}));
}

TEST(Id3v2TagComments, LeaveThePropertiesAloneAndBecomeOneAtTheNextLoad) {
  Id3v2Tag tag = TagOf({Comment("MusicMatch_Mood", "Wild")});
  tag.SetComments({{"MusicMatch_Tempo", "by hand"}});
  EXPECT_EQ(tag.Property("MusicMatch_Mood"), "Wild");
  EXPECT_EQ(tag.Property("MusicMatch_Tempo"), "by hand");
  EXPECT_TRUE(tag.Comments().empty());
}

TEST(Id3v2TagPictures, KeepTheirBytesWhenTheyAreSetAgain) {
  const auto odd = Frame("APIC",
                         "\x01image/jpg\0\x08\xFF\xFE"
                         "d\0\0\0data"s);
  Id3v2Tag tag = TagOf({odd, Frame("APIC", "x", 0x0080)});
  ASSERT_EQ(tag.Pictures().size(), 1u);
  EXPECT_EQ(tag.Pictures()[0].mime_type, "image/jpg");
  tag.SetPictures(tag.Pictures());
  EXPECT_EQ(tag.Raw().frames[0], odd);
  // The same picture read from a file again, where the type comes from its bytes.
  tag.SetPictures({{"d", "image/", {'d', 'a', 't', 'a'}}});
  EXPECT_EQ(tag.Raw().frames[0], odd);
}

TEST(Id3v2TagPictures, BeginWithTheFrontCover) {
  Id3v2Tag tag;
  tag.SetPictures({{"one", "image/bmp", {'B', 'M'}}, {"two", "image/bmp", {'B', 'M'}}});
  EXPECT_EQ(tag.Raw().frames,
            (std::vector{Frame("APIC", "\0image/bmp\0\x03one\0BM"s), Frame("APIC", "\0image/bmp\0\0two\0BM"s)}));
}

TEST(Id3v2TagPictures, GoAndLeaveHiddenOnes) {
  Id3v2Tag tag =
      TagOf({Frame("APIC", "\0image/png\0\x03\0data"s), Frame("APIC", "x", 0x0080), TextFrame("TIT2", "t")});
  tag.SetPictures({});
  EXPECT_EQ(tag.Raw().frames, (std::vector{Frame("APIC", "x", 0x0080), TextFrame("TIT2", "t")}));
}

TEST(Id3v2TagEnsureNotEmpty, PutsAnEmptyTitleIntoATagWithoutFrames) {
  Id3v2Tag tag;
  tag.EnsureNotEmpty();
  EXPECT_EQ(tag.Raw().frames, std::vector{Frame("TIT2", "\0"s)});
  Id3v2Tag other = TagOf({Frame("PRIV", "x")});
  other.EnsureNotEmpty();
  EXPECT_EQ(Ids(other), Names{"PRIV"});
}

}  // namespace
}  // namespace qublet
