#include "support/saved_over.h"

#include <gtest/gtest.h>

#include <random>

namespace qublet {
namespace {

// Pieces that lines are put together from: what is there, what isn't, and what makes lines hard to read.
const Collection kPieces{"a.mp3",      "sub",      "b.mp3",    "deeper",       "\u00F6.ogg", "\xF6.ogg",
                         "\u97F3.wav", "x y.wma",  "#c.mp3",   "UP.MP3",       "up.mp3",     "d.mp3",
                         "gone.mp3",   "gone",     "c:",       "C:",           "d:",         "q:",
                         "z:",         "\\",       "/",        "..",           ".",          "\\\\",
                         "//",         "http://",  "file:///", "%20",          "%41",        " ",
                         "\t",         "\x1A",     "#",        "\xEF\xBB\xBF", "\xFF",       "\xFE",
                         "\xC3",       "\xC3\xB6", "\uF05C",   "\uF03A",       ":",          "*",
                         "?",          ".mp3",     ".wav"};
const Collection kLines{
    "a.mp3",       "sub\\b.mp3", "sub/b.mp3",      "C:/a.mp3",   "c:\\sub/deeper\\\u00F6.ogg", "D:\\d.mp3",
    ".\\a.mp3",    "./#c.mp3",   "sub\\..\\a.mp3", "\u97F3.wav", "sub/deeper/\u00F6.ogg",      "x y.wma",
    "a.mp3\\a.mp3"};
const Collection kEnds{"\n", "\r\n", "\r", "\n\n"};

class SavedOverTest : public testing::Test {
 protected:
  std::size_t Below(std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(chance_); }
  std::string Line() {
    if (Below(3) == 0) return kLines[Below(kLines.size())];
    std::string line;
    for (std::size_t i = Below(7) + 1; i > 0; --i) line += kPieces[Below(kPieces.size())];
    if (Below(3) > 0) line += ".mp3";
    return line;
  }
  std::string List(std::size_t lines) {
    const std::string end = kEnds[Below(kEnds.size())];
    std::string list = Below(8) == 0 ? "\xEF\xBB\xBF" : "";
    for (std::size_t i = 0; i < lines; ++i) list += Line() + (Below(10) == 0 ? kEnds[Below(kEnds.size())] : end);
    return list;
  }

  std::mt19937 chance_{25};
  SavedOver list_;
};

// A list that begins like UTF-16 is one.
bool IsUtf16(const std::string& bytes) {
  return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
}

TEST_F(SavedOverTest, NoMissingLineChangesAndNoRowLosesItsFile) {
  for (int i = 0; i < 100; ++i) {
    const std::string bytes = List(Below(30) + 1);
    if (IsUtf16(bytes)) continue;
    for (const char* name : {"list.m3u", "list.m3u8"})
      ASSERT_EQ(list_.FaultOf(bytes, name), "") << name << "\n" << bytes;
  }
}

TEST_F(SavedOverTest, ThatHoldsForLongLinesToo) {
  for (const char letter : {'x', '\xF6', '/', '\\', '.', ' ', '\0'}) {
    const std::string line = std::string(32 * 1024 - 4, letter) + ".mp3";
    const std::string bytes = "a.mp3\n" + line + "\n";
    for (const char* name : {"list.m3u", "list.m3u8"}) EXPECT_EQ(list_.FaultOf(bytes, name), "") << name << letter;
  }
}

TEST_F(SavedOverTest, ThatHoldsForFullListsToo) {
  std::string bytes;
  for (int i = 0; i < RowStore::MaxRows - 1; ++i) bytes += i % 3 == 0 ? "sub\\b.mp3\n" : "gone\xF6.mp3\n";
  for (const char* name : {"list.m3u", "list.m3u8"}) EXPECT_EQ(list_.FaultOf(bytes, name), "") << name;
}

}  // namespace
}  // namespace qublet
