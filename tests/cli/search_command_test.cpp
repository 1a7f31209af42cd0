#include <gtest/gtest.h>

#include "support/cli_test_base.h"

namespace qublet {
namespace {

// `qublet search` over three songs in two folders.
class SearchCommandTest : public CliTestBase {
 protected:
  void SetUp() override {
    drives_.Write("one/Abba.mp3", "abc");
    drives_.Write("one/b.mp3", TextOf(Frames(100)));
    drives_.Write("two/b\u00C4r.mp3", "abc");
    drives_.Write("list.m3u", "c:\\one\\Abba.mp3\r\nc:\\one\\b.mp3\r\nc:\\two\\b\u00C4r.mp3\r\n");
  }
};

TEST_F(SearchCommandTest, PrintsNumberAndPathOfEachRowThatHoldsTheText) {
  EXPECT_EQ(Run("search", {"B", "list.m3u"}), 0);
  EXPECT_EQ(Out(), "1\tc:\\one\\Abba.mp3\n2\tc:\\one\\b.mp3\n3\tc:\\two\\b\u00C4r.mp3\n");
  EXPECT_EQ(Run("search", {"ONE", "list.m3u"}), 0);
  EXPECT_EQ(Out(), "1\tc:\\one\\Abba.mp3\n2\tc:\\one\\b.mp3\n");
  EXPECT_EQ(Run("search", {"B\u00E4R", "list.m3u"}), 0);
  EXPECT_EQ(Out(), "3\tc:\\two\\b\u00C4r.mp3\n");
  EXPECT_EQ(Err(), "");
}

TEST_F(SearchCommandTest, CountsTheRowsOfAllPaths) {
  EXPECT_EQ(Run("search", {"b.mp3", "one", "two", "one/b.mp3"}), 0);
  EXPECT_EQ(Out(), "2\tc:\\one\\b.mp3\n4\tc:\\one\\b.mp3\n");
}

TEST_F(SearchCommandTest, KeepsCaseWhenTold) {
  EXPECT_EQ(Run("search", {"--case", "A", "list.m3u"}), 0);
  EXPECT_EQ(Out(), "1\tc:\\one\\Abba.mp3\n");
  EXPECT_EQ(Run("search", {"a", "list.m3u", "--case"}), 0);
  EXPECT_EQ(Out(), "1\tc:\\one\\Abba.mp3\n");
}

TEST_F(SearchCommandTest, LooksInTheColumnsThatAreNamed) {
  EXPECT_EQ(Run("search", {"--in", "filename", "one", "list.m3u"}), 0);
  EXPECT_EQ(Out(), "");
  struct Cell {
    const char* column;
    const char* text;
  };
  for (const Cell& cell : {Cell{"filename", "b.mp3"},
                           {"folder", "ONE\\"},
                           {"time", "0:03"},
                           {"size", "41 kb"},
                           {"id", "mpeg 1.0"},
                           {"layer", "layer iii"},
                           {"bitrate", "128 kbit"},
                           {"samplerate", "44100 hz"},
                           {"mode", "joint stereo"}}) {
    EXPECT_EQ(Run("search", {"--in", cell.column, cell.text, "one/b.mp3"}), 0) << cell.column;
    EXPECT_EQ(Out(), "1\tc:\\one\\b.mp3\n") << cell.column;
  }
  EXPECT_EQ(Run("search", {"--in", "mode,size", "3 bytes", "list.m3u"}), 0);
  EXPECT_EQ(Out(), "1\tc:\\one\\Abba.mp3\n3\tc:\\two\\b\u00C4r.mp3\n");
}

TEST_F(SearchCommandTest, IsDoneWhenNothingIsFound) {
  EXPECT_EQ(Run("search", {"nowhere", "list.m3u"}), 0);
  EXPECT_EQ(Out() + Err(), "");
}

TEST_F(SearchCommandTest, TellsWhatIsMissingAndSearchesTheRest) {
  EXPECT_EQ(Run("search", {"b", "gone.mp3", "one/b.mp3"}), 1);
  EXPECT_EQ(Out(), "1\tc:\\one\\b.mp3\n");
  EXPECT_EQ(Err(), "qublet: gone.mp3: no such file or folder\n");
}

TEST_F(SearchCommandTest, FindsRowsOfMissingFiles) {
  drives_.Write("gone.m3u", "c:\\gone.mp3\r\n");
  EXPECT_EQ(Run("search", {"gone", "gone.m3u"}), 0);
  EXPECT_EQ(Out(), "1\tc:\\gone.mp3\n");
}

TEST_F(SearchCommandTest, WantsATextAPathAndKnownOptions) {
  for (const Arguments& arguments : {Arguments{}, {"b"}, {"--case", "b"}, {"--"}}) {
    EXPECT_EQ(Run("search", arguments), 2);
    EXPECT_EQ(Err(), "qublet: search: a text and a path are wanted\n");
  }
  const std::pair<Arguments, std::string> wrong[] = {
      {{"", "list.m3u"}, "the text is empty"},
      {{"--cas", "b", "list.m3u"}, "unknown option --cas"},
      {{"b", "list.m3u", "--in"}, "--in wants something behind it"},
      {{"--in", "name", "b", "list.m3u"}, "there is no column name"},
      {{"--in", "", "b", "list.m3u"}, "there is no column "},
      {{"--in", "Size", "b", "list.m3u"}, "there is no column Size"},
      {{"--in", "size,", "b", "list.m3u"}, "there is no column "},
      {{"--in", "size", "--in", "time", "b", "list.m3u"}, "--in is given twice"}};
  for (const auto& [arguments, reason] : wrong) {
    EXPECT_EQ(Run("search", arguments), 2) << reason;
    EXPECT_EQ(Err(), "qublet: search: " + reason + "\n");
    EXPECT_EQ(Out(), "");
  }
}

TEST_F(SearchCommandTest, TakesATextThatBeginsWithADashBehindTwoDashes) {
  drives_.Write("one/-in.mp3", "abc");
  EXPECT_EQ(Run("search", {"--", "-in", "one"}), 0);
  EXPECT_EQ(Out(), "1\tc:\\one\\-in.mp3\n");
}

}  // namespace
}  // namespace qublet
