#include "engine/command_line.h"

#include <gtest/gtest.h>

#include "support/temporary_drives.h"

namespace qublet {
namespace {

class CommandLine : public testing::Test {
 protected:
  CommandLine() {
    drives.Write("one two.mp3", "abc");
    drives.Write("three.mp3", "abc");
  }

  std::string Opened() const {
    std::string names;
    for (int i = 1; i <= document.ListView1.Count(); ++i) names += document.ListView1.At(i).FullPath() + "|";
    return names;
  }

  TemporaryDrives drives;
  std::unique_ptr<FileSystem> files = OpenFileSystem();
  Document document;
  Feedback feedback;
  MainView view;
  Items items{document, *files, feedback, view, ","};
};

TEST_F(CommandLine, IsBuiltOfAbsolutePathsInDriveFormInDoubleQuotes) {
  const std::string native = (drives.C() / "one two.mp3").string();
  EXPECT_EQ(CommandLineText(*files, {native, "three.mp3"}), "\"c:\\one two.mp3\" \"c:\\three.mp3\"");
  EXPECT_EQ(CommandLineText(*files, {}), "");
}

TEST_F(CommandLine, TakesPathsInDriveForm) {
  EXPECT_EQ(CommandLineText(*files, {"C:\\three.mp3", "d:"}), "\"C:\\three.mp3\" \"d:\"");
}

TEST_F(CommandLine, HoldsWhatWasGivenThoughItIsNoPath) {
  EXPECT_EQ(CommandLineText(*files, {""}), "\"\"");
  EXPECT_TRUE(OpenCommandLineQuoted(items, "\"\" \"c:\\three.mp3\""));
  EXPECT_EQ(Opened(), "c:\\three.mp3|");
}

#ifndef _WIN32
TEST_F(CommandLine, LosesNothingToAQuoteInAName) {
  drives.Write("q\"uote.mp3", "abc");
  EXPECT_TRUE(OpenCommandLineQuoted(items, CommandLineText(*files, {"three.mp3", "q\"uote.mp3", "one two.mp3"})));
  EXPECT_EQ(Opened(), "c:\\three.mp3|c:\\q\"uote.mp3|c:\\one two.mp3|");
}
#endif

TEST_F(CommandLine, TakesAPathThatNoDriveLeadsToForNone) {
  std::filesystem::create_directory_symlink(drives.D(), drives.Root() / "dosdevices" / "z:");
  const auto without_root = OpenFileSystem();
  EXPECT_EQ(CommandLineText(*without_root, {"/etc/hostname", "three.mp3"}), "\"\" \"c:\\three.mp3\"");
}

TEST_F(CommandLine, QuotedOpensEachPairInOrder) {
  EXPECT_TRUE(OpenCommandLineQuoted(items, "\"c:\\three.mp3\" \"c:\\one two.mp3\""));
  EXPECT_EQ(Opened(), "c:\\three.mp3|c:\\one two.mp3|");
}

TEST_F(CommandLine, QuotedOpensNothingForABarePath) {
  EXPECT_TRUE(OpenCommandLineQuoted(items, "c:\\three.mp3"));
  EXPECT_TRUE(OpenCommandLineQuoted(items, "\"c:\\three.mp3"));
  EXPECT_EQ(Opened(), "");
}

TEST_F(CommandLine, QuotedSkipsALoneLastQuote) {
  EXPECT_TRUE(OpenCommandLineQuoted(items, "\"c:\\three.mp3\" \"c:\\one two.mp3"));
  EXPECT_EQ(Opened(), "c:\\three.mp3|");
}

TEST_F(CommandLine, SkipsWhatIsMissingOrUnknownWithoutAWord) {
  drives.Write("text.txt", "abc");
  EXPECT_TRUE(OpenCommandLineQuoted(items, "\"c:\\gone.mp3\" \"c:\\text.txt\" \"c:\\three.mp3\""));
  EXPECT_EQ(Opened(), "c:\\three.mp3|");
}

TEST_F(CommandLine, SplitLetsAPathWithABlankFallApart) {
  drives.Write("one", "abc");
  EXPECT_TRUE(OpenCommandLineSplit(items, "c:\\one two.mp3 c:\\three.mp3"));
  EXPECT_EQ(Opened(), "c:\\three.mp3|");
}

}  // namespace
}  // namespace qublet
