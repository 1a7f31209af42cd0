#include <gtest/gtest.h>

#include "media/editor/form_texts.h"
#include "media/editor/web_queries.h"

namespace qublet {
namespace {

TEST(NumericValue, TakesBlanksASignDigitsAndAFraction) {
  EXPECT_EQ(NumericValue("7"), 7);
  EXPECT_EQ(NumericValue("  +7.5 "), 7.5);
  EXPECT_EQ(NumericValue("-3"), -3);
  for (const char* text : {"", " ", "x", "3/12", "1e2", "1E2", "0x10", "1 2", "1,5", "--1", "inf", "nan"})
    EXPECT_EQ(NumericValue(text), std::nullopt) << text;
}

TEST(TitleFromFileName, LosesEveryExtensionAndCapitalisesWords) {
  EXPECT_EQ(TitleFromFileName("SONG.MP3"), "Song");
  EXPECT_EQ(TitleFromFileName("the long road.mp3"), "The Long Road");
  EXPECT_EQ(TitleFromFileName("a.mp3 b.Mp3.mp3"), "A B");
  EXPECT_EQ(TitleFromFileName("don't.mp3"), "Don't");
  EXPECT_EQ(TitleFromFileName("ÉTÉ.mp3"), "Été");
  EXPECT_EQ(TitleFromFileName(".mp3"), "");
}

TEST(ParentFolderName, IsWhatStandsBetweenTheLastTwoSeparators) {
  EXPECT_EQ(ParentFolderName("c:\\music\\rock\\a.mp3"), "rock");
  EXPECT_EQ(ParentFolderName("c:\\music\\a.mp3"), "music");
  EXPECT_EQ(ParentFolderName("c:\\a.mp3"), "");
  EXPECT_EQ(ParentFolderName("a.mp3"), "");
  EXPECT_EQ(ParentFolderName("\\a.mp3"), "");
  EXPECT_EQ(ParentFolderName(""), "");
}

TEST(AddressOf, PutsTheSchemeInFrontUnlessItIsSomewhereInTheText) {
  EXPECT_EQ(AddressOf("x.org"), "http://x.org");
  EXPECT_EQ(AddressOf("http://x.org"), "http://x.org");
  EXPECT_EQ(AddressOf("see http://x.org"), "see http://x.org");
  EXPECT_EQ(AddressOf("https://x.org"), "http://https://x.org");
  EXPECT_EQ(AddressOf("HTTP://x.org"), "http://HTTP://x.org");
}

TEST(SearchAddress, EncodesEverythingButPlainLettersAndThePlus) {
  const std::string address = SearchAddress("A + B&c#d=é%");
  EXPECT_TRUE(address.starts_with("https://"));
  EXPECT_TRUE(address.ends_with("/search?hl=en&q=A%20+%20B%26c%23d%3D%C3%A9%25")) << address;
}

TEST(QueryFor, JoinsTheNamesThatAreThere) {
  EXPECT_EQ(QueryFor({"Title", "Artist", "Album"}, "x.mp3"), "Artist + Title + Album");
  EXPECT_EQ(QueryFor({"Title", "Artist", ""}, "x.mp3"), "Artist + Title");
  EXPECT_EQ(QueryFor({"", "Artist", "Album"}, "x.mp3"), "Artist + Album");
  EXPECT_EQ(QueryFor({"Title", "", "Album"}, "x.mp3"), "Title + Album");
  EXPECT_EQ(QueryFor({"", "Artist", ""}, "x.mp3"), "Artist");
  EXPECT_EQ(QueryFor({"Title", "", ""}, "x.mp3"), "Title");
}

TEST(QueryFor, TakesTheFileNameWithoutItsExtensionElse) {
  EXPECT_EQ(QueryFor({}, "my_song-live.MP3"), "my song live");
  EXPECT_EQ(QueryFor({}, "a.mp3.b.mp3"), "a b");
  EXPECT_EQ(QueryFor({}, "Multiple MP3 Files Selected..."), "");
  EXPECT_EQ(QueryFor({}, "Multiple WAV Files Selected..."), "Multiple WAV Files Selected");
  EXPECT_EQ(QueryFor({}, ""), "");
}

TEST(QueryFor, TurnsMarksIntoBlanks) {
  EXPECT_EQ(QueryFor({"A_b-c.d", "", ""}, ""), "A b c d");
}

}  // namespace
}  // namespace qublet
