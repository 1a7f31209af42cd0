#include "tools/rename/ui/changed_letters.h"

#include <gtest/gtest.h>

namespace qublet {
namespace {

std::string Marked(const char* text, const char* other) {
  QString marked = QString::fromUtf8(text);
  const std::vector<LetterRange> ranges = ChangedLetters(marked, QString::fromUtf8(other));
  for (auto range = ranges.rbegin(); range != ranges.rend(); ++range) {
    marked.insert(range->start + range->length, u']');
    marked.insert(range->start, u'[');
  }
  return marked.toStdString();
}

TEST(ChangedLetters, AreThoseThatTheOtherNameLacks) {
  EXPECT_EQ(Marked("A Song.mp3", "a_song.mp3"), "[A S]ong.mp3");
  EXPECT_EQ(Marked("a_song.mp3", "A Song.mp3"), "[a_s]ong.mp3");
  EXPECT_EQ(Marked("01 - song.mp3", "song.mp3"), "[01 - ]song.mp3");
  EXPECT_EQ(Marked("a b c.mp3", "a_b_c.mp3"), "a[ ]b[ ]c.mp3");
}

TEST(ChangedLetters, AreNoneOfEqualNamesAndAllOfOthers) {
  EXPECT_EQ(Marked("same", "same"), "same");
  EXPECT_EQ(Marked("abc", ""), "[abc]");
  EXPECT_EQ(Marked("", "abc"), "");
  EXPECT_EQ(Marked("song", "son"), "son[g]");
  EXPECT_EQ(Marked("son", "song"), "son");
}

}  // namespace
}  // namespace qublet
