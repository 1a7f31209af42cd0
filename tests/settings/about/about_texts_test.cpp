#include "settings/about/about_texts.h"

#include <gtest/gtest.h>

namespace qublet {
namespace {

TEST(AboutTexts, NameTheProgramAndItsVersion) {
  EXPECT_EQ(AboutCaption({"QUBLET20", 2, 1, 93}), "About [Velmora] M3U Playlist Editor v2.1b");
  EXPECT_EQ(VersionLine({"QUBLET20", 2, 1, 93}), "Version: 2.1.93");
}

TEST(AboutTexts, TheCreditsBeginWithTheirRoom) {
  EXPECT_EQ(Credits().find_first_not_of(' '), 29U);
}

TEST(ScrollingLine, DropsACharacterAtEachTickAndBeginsAnew) {
  ScrollingLine line("abc");
  EXPECT_EQ(line.Shown(), "abc");
  for (const char* shown : {"bc", "c", "abc", "bc"}) {
    line.Tick();
    EXPECT_EQ(line.Shown(), shown);
  }
}

TEST(ScrollingLine, StaysEmptyWithoutAText) {
  ScrollingLine line("");
  line.Tick();
  EXPECT_EQ(line.Shown(), "");
}

}  // namespace
}  // namespace qublet
